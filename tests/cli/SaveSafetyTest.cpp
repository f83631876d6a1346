// The tool's saves against the outside world: killed at any moment, a save leaves the old or the
// new logbook and never a broken one; a logbook changed by another program between the load and
// the save of "convert" is not overwritten.
#include "tests/cli/CScratchDir.h"
#include "tests/cli/CToolRunner.h"
#include "tests/cli/TestLogbooks.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace {

std::string Native(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

class SaveSafety : public testing::Test
{
protected:
    // Starts the tool without waiting for it.
    void Start(QProcess& process, const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_dir.ConfigHome());
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(TERVOLA_TOOL), arguments);
        ASSERT_TRUE(process.waitForStarted(30000));
    }
    QString Generate(const QString& name, int seed)
    {
        const QString path = m_dir.Path(name);
        const CToolResult result = m_tool.Run({"generate", path, "--jumps", "3000", "--recordings", "20", "--samples",
                                               "1500", "--seed", QString::number(seed)});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        return path;
    }

    CScratchDir m_dir;
    CToolRunner m_tool{m_dir.ConfigHome()};
};

TEST_F(SaveSafety, AKilledSaveLeavesTheOldOrTheNewLogbook)
{
    const QString old = Generate("old.tvz", 1);
    const QString source = Generate("new.tvz", 2);
    const QString target = m_dir.Path("jumps.tvz");
    const QString complete = m_dir.Path("complete.tvz");
    const std::string oldText = TestLogbooks::WithoutRootMod(CScratchDir::ReadGzip(old));

    // One whole run over a copy of the old logbook tells how long the save takes (its backup
    // copy included) and what it writes.
    ASSERT_TRUE(QFile::copy(old, complete));
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(m_tool.Run({"convert", source, complete}).exitCode, 0);
    const double runMs = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    const std::string newText = TestLogbooks::WithoutRootMod(CScratchDir::ReadGzip(complete));
    ASSERT_NE(oldText, newText);

    std::mt19937 random(20240610);
    constexpr int kRuns = 14;
    int sawOld = 0;
    int sawNew = 0;
    for (int run = 0; run < kRuns; ++run) {
        QFile::remove(target);
        ASSERT_TRUE(QFile::copy(old, target));
        QProcess tool;
        Start(tool, {"convert", source, target});
        // A random moment in each of kRuns equal slices of the run and a little beyond its end.
        const double slice = 1.3 * runMs / kRuns;
        const int killAfterMs = static_cast<int>(slice * (run + std::uniform_real_distribution<double>(0, 1)(random)));
        std::this_thread::sleep_for(std::chrono::milliseconds(killAfterMs));
        tool.kill();
        tool.waitForFinished(30000);

        SCOPED_TRACE("killed after " + std::to_string(killAfterMs) + " ms");
        const std::string text = TestLogbooks::WithoutRootMod(CScratchDir::ReadGzip(target));
        EXPECT_TRUE(text == oldText || text == newText);
        sawOld += text == oldText ? 1 : 0;
        sawNew += text == newText ? 1 : 0;
        EXPECT_EQ(m_tool.Run({"check", target}).exitCode, 0);
    }
    EXPECT_GT(sawOld, 0);
    // The next save finishes what was interrupted and leaves nothing behind.
    ASSERT_EQ(m_tool.Run({"convert", source, target}).exitCode, 0);
    EXPECT_EQ(TestLogbooks::WithoutRootMod(CScratchDir::ReadGzip(target)), newText);
    EXPECT_FALSE(CScratchDir::Exists(target + ".saving"));
    EXPECT_FALSE(CScratchDir::Exists(m_dir.Path("jumps.bak.saving")));
    std::printf("[          ] %d of %d kills left the old logbook, %d the new one (a whole run took %.0f ms)\n", sawOld,
                kRuns, sawNew, runMs);
}

TEST_F(SaveSafety, ConvertRefusesToOverwriteAFileChangedSinceItWasRead)
{
    const QString path = Generate("jumps.tvz", 3);
    const QString theirs = Generate("theirs.tvz", 4);
    const std::string theirBytes = CScratchDir::Read(theirs);

    // Another saver holds the save lock, so the tool waits after its load; the moment it has
    // read the file (closed it) the file is replaced, then the lock is given back.
    const int lock = ::open(Native(path + ".saving").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    ASSERT_GE(lock, 0);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const int watch = ::inotify_init1(IN_CLOEXEC);
    ASSERT_GE(watch, 0);
    ASSERT_GE(::inotify_add_watch(watch, Native(path).c_str(), IN_CLOSE_NOWRITE), 0);

    QProcess tool;
    Start(tool, {"convert", path, path});
    pollfd ready{watch, POLLIN, 0};
    ASSERT_EQ(::poll(&ready, 1, 30000), 1) << "the tool did not read the logbook";
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(theirBytes.data(), static_cast<qint64>(theirBytes.size()));
    }
    ::close(lock);
    ::close(watch);
    ASSERT_TRUE(tool.waitForFinished(60000));

    EXPECT_EQ(tool.exitCode(), 1);
    EXPECT_EQ(tool.readAllStandardError().trimmed().toStdString(),
              "The file was changed by another program after it was opened here. It was not overwritten.");
    EXPECT_EQ(CScratchDir::Read(path), theirBytes);
    EXPECT_FALSE(CScratchDir::Exists(path + ".saving"));
}

} // namespace
