// The tool's saves against the outside world: killed at any moment, a save leaves the old or the
// new logbook and never a broken one; a logbook changed by another program between the load and
// the save of "convert" is not overwritten.
#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include <QProcess>

#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace {

class SaveSafety : public CToolTest
{
protected:
    std::string Generate(const std::string& name, int seed)
    {
        const std::string path = m_dir / name;
        const CToolResult result = Run({"generate", path, "--jumps", "3000", "--recordings", "20", "--samples", "1500",
                                        "--seed", std::to_string(seed)});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        return path;
    }
};

TEST_F(SaveSafety, AKilledSaveLeavesTheOldOrTheNewLogbook)
{
    const std::string old = Generate("old.tvz", 1);
    const std::string source = Generate("new.tvz", 2);
    const std::string target = m_dir / "jumps.tvz";
    const std::string complete = m_dir / "complete.tvz";
    const std::string oldText = TestLogbooks::WithoutRootMod(ReadGzip(old));

    // One whole run over a copy of the old logbook tells how long the save takes (its backup
    // copy included) and what it writes.
    ASSERT_TRUE(std::filesystem::copy_file(old, complete));
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(Run({"convert", source, complete}).exitCode, 0);
    const double runMs = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    const std::string newText = TestLogbooks::WithoutRootMod(ReadGzip(complete));
    ASSERT_NE(oldText, newText);

    std::mt19937 random(20240610);
    constexpr int kRuns = 14;
    int sawOld = 0;
    int sawNew = 0;
    for (int run = 0; run < kRuns; ++run) {
        std::filesystem::remove(target);
        ASSERT_TRUE(std::filesystem::copy_file(old, target));
        QProcess tool;
        Start(tool, {"convert", source, target});
        ASSERT_TRUE(tool.waitForStarted(30000));
        // A random moment in each of kRuns equal slices of the run and a little beyond its end.
        const double slice = 1.3 * runMs / kRuns;
        const int killAfterMs = static_cast<int>(slice * (run + std::uniform_real_distribution<double>(0, 1)(random)));
        std::this_thread::sleep_for(std::chrono::milliseconds(killAfterMs));
        tool.kill();
        tool.waitForFinished(30000);

        SCOPED_TRACE("killed after " + std::to_string(killAfterMs) + " ms");
        const std::string text = TestLogbooks::WithoutRootMod(ReadGzip(target));
        EXPECT_TRUE(text == oldText || text == newText);
        sawOld += text == oldText ? 1 : 0;
        sawNew += text == newText ? 1 : 0;
        EXPECT_EQ(Run({"check", target}).exitCode, 0);
    }
    EXPECT_GT(sawOld, 0);
    // The next save finishes what was interrupted and leaves nothing behind.
    ASSERT_EQ(Run({"convert", source, target}).exitCode, 0);
    EXPECT_EQ(TestLogbooks::WithoutRootMod(ReadGzip(target)), newText);
    EXPECT_FALSE(std::filesystem::exists(target + ".saving"));
    EXPECT_FALSE(std::filesystem::exists(m_dir / "jumps.bak.saving"));
    std::printf("[          ] %d of %d kills left the old logbook, %d the new one (a whole run took %.0f ms)\n", sawOld,
                kRuns, sawNew, runMs);
}

TEST_F(SaveSafety, ConvertRefusesToOverwriteAFileChangedSinceItWasRead)
{
    const std::string path = Generate("jumps.tvz", 3);
    const std::string theirBytes = ReadBytes(Generate("theirs.tvz", 4));

    // Another saver holds the save lock, so the tool waits after its load; the moment it has
    // read the file (closed it) the file is replaced, then the lock is given back.
    const int lock = ::open((path + ".saving").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    ASSERT_GE(lock, 0);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const int watch = ::inotify_init1(IN_CLOEXEC);
    ASSERT_GE(watch, 0);
    ASSERT_GE(::inotify_add_watch(watch, path.c_str(), IN_CLOSE_NOWRITE), 0);

    QProcess tool;
    Start(tool, {"convert", path, path});
    ASSERT_TRUE(tool.waitForStarted(30000));
    pollfd ready{watch, POLLIN, 0};
    ASSERT_EQ(::poll(&ready, 1, 30000), 1) << "the tool did not read the logbook";
    ASSERT_TRUE(WriteBytes(path, theirBytes));
    ::close(lock);
    ::close(watch);
    ASSERT_TRUE(tool.waitForFinished(60000));

    EXPECT_EQ(tool.exitCode(), 1);
    EXPECT_EQ(tool.readAllStandardError().trimmed().toStdString(),
              "The file was changed by another program after it was opened here. It was not overwritten.");
    EXPECT_EQ(ReadBytes(path), theirBytes);
    EXPECT_FALSE(std::filesystem::exists(path + ".saving"));
}

} // namespace
