// The document against other programs: files changed on disk after a load or a save, two
// savers of one logbook, a second instance, failing writes of the parallel gzip writer, and a
// save running on a snapshot while the document is edited.
#include "document/CFileLock.h"
#include "document/CLogbookDoc.h"
#include "document/CLogbookLock.h"
#include "document/IClock.h"
#include "resources/StringTable.h"
#include "tests/document/DocTestFiles.h"
#include "xml/CXmlGzipOutput.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

std::size_t JumpsIn(const std::string& path)
{
    CLogbookDoc doc;
    return doc.Load(path).ok ? doc.GetJumpCount() : static_cast<std::size_t>(-1);
}

} // namespace

TEST(CLogbookDocFile, AFileChangedByAnotherProgramIsNotOverwritten)
{
    struct Case
    {
        const char* name;
        const char* extension;
        std::function<void(const std::string& path, const std::string& saved)> change;
        bool refused;
    };
    const Case cases[] = {
        {"same size, other bytes", ".tvz", [](auto& p, auto& s) { WriteBytes(p, std::string(s.size(), 'o')); }, true},
        {"a longer file", ".tvl", [](auto& p, auto& s) { WriteBytes(p, s + " "); }, true},
        {"one byte changed", ".tvl", [](auto& p, auto s) { s[s.size() / 2] ^= 1, WriteBytes(p, s); }, true},
        {"the same bytes written again", ".tvz", [](auto& p, auto& s) { WriteBytes(p, s); }, false},
        {"the file removed", ".tvz", [](auto& p, auto&) { std::filesystem::remove(p); }, false}};
    for (const Case& c : cases) {
        for (const bool automatic : {false, true}) {
            SCOPED_TRACE(std::string(c.name) + (automatic ? ", automatic save" : ", Save"));
            CScratchFolder folder("changed");
            const std::string path = folder / (std::string("Jumps") + c.extension);
            {
                CLogbookDoc writer(nullptr, &kClock);
                writer.AddJump(MakeJump(1, "Tervola"));
                ASSERT_TRUE(writer.Save(path));
            }
            CLogbookDoc doc(nullptr, &kClock);
            ASSERT_TRUE(doc.Load(path).ok);
            EXPECT_TRUE(doc.GetFileIdentity().known);
            c.change(path, ReadBytes(path));
            const std::string theirs = Exists(path) ? ReadBytes(path) : std::string();
            doc.AddJump(MakeJump(2, "Mine"));

            const CSaveResult result = automatic ? doc.SaveIfModified() : doc.Save(path);
            if (!c.refused) {
                EXPECT_TRUE(result);
                EXPECT_EQ(JumpsIn(path), 2u);
                continue;
            }
            EXPECT_EQ(result.status, SaveStatus::ChangedOnDisk);
            EXPECT_EQ(result.messageId, StringTable::IDS_FILE_CHANGED);
            EXPECT_EQ(ReadBytes(path), theirs);
            EXPECT_TRUE(doc.IsModified());
            EXPECT_FALSE(Exists(path + ".saving"));
            // Refused again until the user decides: keep mine elsewhere, or overwrite.
            EXPECT_EQ(doc.Save(path).status, SaveStatus::ChangedOnDisk);
            const std::string elsewhere = folder / (std::string("Mine") + c.extension);
            ASSERT_TRUE(doc.Save(elsewhere));
            EXPECT_EQ(doc.GetPath(), elsewhere);
            EXPECT_EQ(ReadBytes(path), theirs);
            doc.SetModified();
            EXPECT_TRUE(doc.Save(elsewhere)); // the new file is now the one remembered
            EXPECT_TRUE(doc.Save(path, SaveCheck::Overwrite));
            EXPECT_EQ(JumpsIn(path), 2u);
        }
    }
}

TEST(CLogbookDocFile, ASaveWaitsForAnotherSaverAndSeesItsChange)
{
    CScratchFolder folder("turns");
    const std::string path = folder / "Jumps.tvz";
    CLogbookDoc doc(nullptr, &kClock);
    doc.AddJump(MakeJump(1, "Tervola"));
    ASSERT_TRUE(doc.Save(path));
    doc.AddJump(MakeJump(2, "Mine"));

    // Another instance is in the middle of its save: it holds the lock and replaces the file.
    CFileLock other;
    ASSERT_EQ(other.Acquire(path + ".saving"), CFileLock::Result::Locked);
    std::thread finisher([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        WriteBytes(path, "their logbook");
        other.Release(true);
    });
    const CSaveResult result = doc.Save(path);
    finisher.join();
    EXPECT_EQ(result.status, SaveStatus::ChangedOnDisk);
    EXPECT_EQ(ReadBytes(path), "their logbook");
}

TEST(CLogbookDocFile, AFailedWriteAtAnyGzipBlockLeavesTheOldFile)
{
    CScratchFolder folder("gzipfail");
    const std::string path = folder / "Jumps.tvz";
    CLogbookDoc doc(nullptr, &kClock);
    for (int n = 1; n <= 300; ++n)
        doc.AddJump(MakeJump(n, "Drop zone " + std::to_string(n * 7919 % 1000)));
    ASSERT_TRUE(doc.Save(path));
    const std::string old = ReadBytes(path);
    const CXmlGzipOutput::Options small{2048, 2, 9}; // many blocks
    std::size_t written = 0;
    doc.SetOutputFactoryForTesting(
        [&](const std::string& p, bool) { return CXmlGzipOutput::Create(FailingFile(p, written), small); });
    for (written = 0; written < old.size(); written += 97) {
        SCOPED_TRACE(written);
        doc.SetModified();
        EXPECT_FALSE(doc.Save(path));
        EXPECT_EQ(ReadBytes(path), old);
        EXPECT_FALSE(Exists(path + ".saving"));
        EXPECT_TRUE(doc.IsModified());
    }
}

TEST(CLogbookDocFile, ASnapshotSavesWhileTheDocumentIsEdited)
{
    CScratchFolder folder("snapshot");
    const std::string path = folder / "Jumps.tvz";
    CLogbookDoc doc(nullptr, &kClock);
    for (int n = 1; n <= 2000; ++n)
        doc.AddJump(MakeJump(n, "Tervola " + std::to_string(n)));
    ASSERT_TRUE(doc.Save(path));

    for (const bool editMeanwhile : {false, true}) {
        doc.SetModified();
        const std::unique_ptr<CLogbookDoc> snapshot = doc.Snapshot();
        const std::uint64_t changeCount = doc.GetChangeCount();
        CSaveResult result;
        std::thread saver([&] { result = snapshot->WriteFile(snapshot->GetPath()); });
        if (editMeanwhile) {
            // The records the save reads are the snapshot's: these edits cannot disturb it.
            for (int n = 0; n < 500; ++n)
                doc.AddJump(MakeJump(5000 + n, std::string(100, 'e')));
            while (doc.GetJumpCount() > 1000)
                doc.RemoveJump(0);
        }
        saver.join();
        doc.SaveFinished(result, changeCount);
        ASSERT_TRUE(result);
        EXPECT_EQ(doc.IsModified(), editMeanwhile);
        EXPECT_EQ(JumpsIn(path), 2000u);
    }
    // A snapshot that is dropped without saving holds nothing up.
    doc.Snapshot().reset();
    doc.RemoveJump(0);
    doc.AddJump(MakeJump(1, "Tervola"));
    // The edits go out with the next save, which sees its own file as unchanged.
    EXPECT_TRUE(doc.SaveIfModified());
    EXPECT_EQ(JumpsIn(path), 1000u);
}

TEST(CLogbookDocFile, TheLockWarnsASecondInstanceAndDiesWithItsProcess)
{
    CScratchFolder folder("lock");
    const std::string path = folder / "Jumps.tvz";
    {
        CLogbookLock first;
        CLogbookLock second;
        ASSERT_EQ(first.Lock(path), CLogbookLock::State::Locked);
        EXPECT_EQ(first.Lock(path), CLogbookLock::State::Locked); // opening it again here
        EXPECT_EQ(second.Lock(path), CLogbookLock::State::AlreadyOpen);
        EXPECT_NE(second.GetHolder().find("process " + std::to_string(::getpid())), std::string::npos)
            << second.GetHolder();
        first.Unlock();
        EXPECT_FALSE(Exists(CLogbookLock::LockPathOf(path)));
        EXPECT_EQ(second.Lock(path), CLogbookLock::State::Locked);
    }

    // A process that holds the lock and is killed leaves the file but not the lock.
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        CLogbookLock held;
        const char state = held.Lock(path) == CLogbookLock::State::Locked ? 'L' : 'X';
        (void)!::write(ready[1], &state, 1);
        ::pause();
        ::_exit(0);
    }
    char state = 0;
    ASSERT_EQ(::read(ready[0], &state, 1), 1);
    ASSERT_EQ(state, 'L');
    CLogbookLock mine;
    EXPECT_EQ(mine.Lock(path), CLogbookLock::State::AlreadyOpen);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(Exists(CLogbookLock::LockPathOf(path)));
    EXPECT_EQ(mine.Lock(path), CLogbookLock::State::Locked);
    ::close(ready[0]);
    ::close(ready[1]);
}
