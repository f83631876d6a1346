#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "tests/document/DocTestFiles.h"
#include "units/CMemorySettingsStore.h"

#include <gtest/gtest.h>

#include <functional>

TEST(CLogbookDocSave, EmptyLogbookTheBackupOfThePreviousSaveAndWhatAKilledSaveLeft)
{
    CScratchFolder folder("backup");
    const std::string path = folder / "Jumps.tvl";
    const std::string backup = folder / "Jumps.bak";
    CMemorySettingsStore store;
    CLogbookDoc doc(&store, &kClock);

    ASSERT_TRUE(doc.Save(path));
    const std::string first = ReadBytes(path);
    EXPECT_EQ(first, R"(<?xml version="1.0" encoding="UTF-8" ?><tvl version="1.2" creator="Tervola Pocket 1.0.0 - )"
                     R"(https://tervola.example.org" mod="2010-01-02T03:04:05Z"><settings><fallrates>)"
                     R"(<fallrate name="Standard" speed="52.5"/><fallrate name="Vertical" speed="76.0"/>)"
                     R"(<fallrate name="Custom" speed="22.3"/></fallrates><keywords><videoJump>Video</videoJump>)"
                     R"(<nightJump>Night</nightJump><coachJump>Coach</coachJump>)"
                     R"(<reserveActivated>Reserve</reserveActivated></keywords></settings><log size="0"></log></tvl>)");
    EXPECT_FALSE(Exists(backup)); // nothing was there to keep
    EXPECT_EQ(store.GetString("General", "LastFile", ""), path);
    EXPECT_EQ(doc.GetPath(), path);

    doc.AddJump(MakeJump(1, "A"));
    ASSERT_TRUE(doc.Save(path));
    const std::string second = ReadBytes(path);
    EXPECT_EQ(ReadBytes(backup), first);
    // The temporary files of a save that was killed are reused or removed.
    WriteBytes(path + ".saving", "half a logbook");
    WriteBytes(backup + ".saving", "half a backup");
    doc.AddJump(MakeJump(2, "B"));
    ASSERT_TRUE(doc.Save(path));
    EXPECT_EQ(ReadBytes(backup), second);
    EXPECT_FALSE(Exists(path + ".saving"));
    EXPECT_FALSE(Exists(backup + ".saving"));

    CLogbookDoc reread;
    ASSERT_TRUE(reread.Load(path).ok);
    EXPECT_EQ(reread.GetJumpCount(), 2u);
}

TEST(CLogbookDocSave, SaveIfModified)
{
    CScratchFolder folder("ifmodified");
    const std::string path = folder / "Jumps.tvz";
    CLogbookDoc doc(nullptr, &kClock);
    doc.AddJump(MakeJump(1, "A"));
    EXPECT_FALSE(doc.SaveIfModified()); // no path yet
    EXPECT_FALSE(Exists(path));

    ASSERT_TRUE(doc.Save(path));
    EXPECT_FALSE(doc.IsModified());
    const std::string saved = ReadBytes(path);
    WriteBytes(path, "sentinel");
    EXPECT_FALSE(doc.SaveIfModified()); // not modified: the file is not touched
    EXPECT_EQ(ReadBytes(path), "sentinel");

    doc.SetModified();
    WriteBytes(path, saved); // the same bytes again: nothing to lose
    EXPECT_TRUE(doc.SaveIfModified());
    EXPECT_FALSE(doc.IsModified());
    CLogbookDoc reread;
    ASSERT_TRUE(reread.Load(path).ok);
    EXPECT_EQ(reread.GetJumps()[0]->GetPlace(), "A");
}

TEST(CLogbookDocSave, FailuresLeaveTheOldFileAndItsBackup)
{
    // The output replaces the real file (none: real files); the blocker is a file written first,
    // with its folders, that is in the way.
    struct Case
    {
        const char* name;
        std::function<std::unique_ptr<IXmlOutput>(const std::string&)> output;
        const char* blocker;
        const char* target;
    };
    const auto cannotCreate = [](const std::string&) { return std::unique_ptr<IXmlOutput>(); };
    const auto flushFails = [](const std::string& p) { return FailingFile(p, static_cast<std::size_t>(-1), true); };
    const Case cases[] = {{"output cannot be created", cannotCreate, nullptr, "Jumps.tvz"},
                          {"last flush fails", flushFails, nullptr, "Jumps.tvz"},
                          {"folder is a regular file", nullptr, "file", "file/Jumps.tvz"},
                          {"target is a folder", nullptr, "Jumps.tvl/inside", "Jumps.tvl"},
                          // A name ending in "bak" has no backup, so the failure is the final rename's.
                          {"target is a folder without a backup", nullptr, "Jumps.bak/inside", "Jumps.bak"}};
    for (const Case& c : cases) {
        CScratchFolder folder("failure");
        if (c.blocker) {
            std::filesystem::create_directories(std::filesystem::path(folder / c.blocker).parent_path());
            WriteBytes(folder / c.blocker, "x");
        }
        const std::string path = folder / c.target;
        const bool fileTarget = !std::filesystem::is_directory(path);
        const std::string backup = path.substr(0, path.size() - 3) + "bak";
        if (fileTarget && std::filesystem::is_directory(std::filesystem::path(path).parent_path())) {
            WriteBytes(path, "the old logbook");
            WriteBytes(backup, "the old backup");
        }
        CMemorySettingsStore store;
        store.SetString("General", "LastFile", "before");
        CLogbookDoc doc(&store, &kClock);
        doc.SetPath("open.tvz");
        doc.AddJump(MakeJump(1, std::string(5000, 'x'))); // enough to need several writes
        if (c.output)
            doc.SetOutputFactoryForTesting([&](const std::string& p, bool) { return c.output(p); });

        EXPECT_FALSE(doc.Save(path)) << c.name;
        EXPECT_FALSE(Exists(path + ".saving")) << c.name << ": temporary file left behind";
        EXPECT_FALSE(Exists(backup + ".saving")) << c.name;
        if (fileTarget && Exists(backup)) {
            EXPECT_EQ(ReadBytes(path), "the old logbook") << c.name;
            EXPECT_EQ(ReadBytes(backup), "the old backup") << c.name;
        }
        EXPECT_EQ(ReadBytes(path + "/inside"), fileTarget ? "" : "x") << c.name;
        EXPECT_EQ(doc.GetPath(), "open.tvz") << c.name;
        EXPECT_TRUE(doc.IsModified()) << c.name;
        EXPECT_EQ(store.GetString("General", "LastFile", ""), "before") << c.name;
    }
}

TEST(CLogbookDocSave, ABackupThatCannotBeCopiedStopsTheSave)
{
    CScratchFolder folder("nobackup");
    const std::string path = folder / "Jumps.tvz";
    WriteBytes(path, "the old logbook");
    WriteBytes(folder / "Jumps.bak", "the old backup");
    std::filesystem::create_directories(folder / "Jumps.bak.saving/in the way");
    CLogbookDoc doc(nullptr, &kClock);
    doc.AddJump(MakeJump(1, "A"));
    EXPECT_FALSE(doc.Save(path));
    EXPECT_EQ(ReadBytes(path), "the old logbook");
    EXPECT_EQ(ReadBytes(folder / "Jumps.bak"), "the old backup");
    EXPECT_FALSE(Exists(path + ".saving"));
    EXPECT_TRUE(doc.IsModified());
}
