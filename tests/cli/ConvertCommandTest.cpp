#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include <QProcess>

#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace {

using ConvertCommand = CToolTest;

// How the logbook is saved (container, backup, temporary file) is the document's business; the
// tool saves silently and prints the message the save failed with.
TEST_F(ConvertCommand, SavesSilentlyOrPrintsTheSaveMessage)
{
    const std::string in = Write("in.tvl", TestLogbooks::Reference());
    const std::string out = m_dir / "out.tvz";
    const CToolResult saved = Run({"convert", in, out});
    ASSERT_EQ(saved.exitCode, 0) << saved.err;
    EXPECT_EQ(saved.out + saved.err, "");
    EXPECT_NE(ReadGzip(out).find("<log size=\"3\">"), std::string::npos);

    const CToolResult failed = Run({"convert", in, m_dir / "none/out.tvz"});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_EQ(failed.out, "");
    EXPECT_EQ(failed.ErrLines(), std::vector<std::string>{"The file could not be saved."});
}

// Another saver holds the save lock, so the tool waits after its load; the moment it has read the
// file (closed it) the file is replaced, then the lock is given back.
TEST_F(ConvertCommand, RefusesToOverwriteAFileChangedSinceItWasRead)
{
    const std::string path = Write("jumps.tvz", TestLogbooks::Reference(), true);
    const int lock = ::open((path + ".saving").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const int watch = ::inotify_init1(IN_CLOEXEC);
    ASSERT_GE(::inotify_add_watch(watch, path.c_str(), IN_CLOSE_NOWRITE), 0);

    QProcess tool;
    Start(tool, {"convert", path, path});
    pollfd ready{watch, POLLIN, 0};
    ASSERT_EQ(::poll(&ready, 1, 30000), 1) << "the tool did not read the logbook";
    ASSERT_TRUE(WriteBytes(path, "their logbook"));
    ::close(lock);
    ::close(watch);
    ASSERT_TRUE(tool.waitForFinished(60000));
    EXPECT_EQ(tool.exitCode(), 1);
    EXPECT_EQ(tool.readAllStandardError().trimmed().toStdString(),
              "The file was changed by another program after it was opened here. It was not overwritten.");
    EXPECT_EQ(ReadBytes(path), "their logbook");
}

} // namespace
