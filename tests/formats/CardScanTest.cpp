#include "SyntheticTrack.h"
#include "formats/CTrackCardScan.h"
#include "resources/StringTable.h"
#include "tests/common/CScratchFolder.h"
#include "tests/common/EnglishText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

// The standard made-up jump, later by the given seconds.
CTrack JumpAfter(double seconds, double& exit)
{
    CSyntheticTruth truth;
    CTrack track = MakeJumpTrack(CSyntheticJump(), truth);
    for (CTrackFix& fix : track.fixes)
        fix.time += seconds;
    exit = truth.exitTime + seconds;
    return track;
}

void Write(const std::filesystem::path& path, const std::string& text)
{
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

// A card of both generations: two FlySight 1 days, a FlySight 2 session with its sensor file, a
// car ride, a copy of a jump in a backup folder, a jump the logbook holds, a file that is no
// track and a file that is no CSV.
TEST(CardScan, OffersEachNewJumpOnceAndSaysWhyTheOthersAreNot)
{
    const CScratchFolder card("card");
    const std::filesystem::path root = card.Path();
    double exitA = 0, exitB = 0, exitC = 0;
    const std::string a = WriteFlySight1(JumpAfter(86400, exitA), FlySight1Columns(), "\r\n");
    Write(root / "24-04-21" / "10-20-30.CSV", a);
    Write(root / "backup" / "copy.csv", a);
    Write(root / "24-04-20" / "11-00-00.CSV", WriteFlySight1(MakeCarRide(3), FlySight1Columns(), "\r\n"));
    Write(root / "24-04-20" / "NOTES.CSV", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    Write(root / "24-04-20" / "CONFIG.TXT", "Model: 7\r\n");
    const CTrack b = JumpAfter(0, exitB);
    std::vector<CBaroReading> baro;
    Write(root / "FS2" / "24-04-20" / "04-00-00" / "TRACK.CSV", WriteFlySight2(b));
    Write(root / "FS2" / "24-04-20" / "04-00-00" / "SENSOR.CSV", WriteSensor(b, baro));
    Write(root / "24-04-22" / "08-00-00.CSV", WriteFlySight1(JumpAfter(2 * 86400, exitC), FlySight1Columns(), "\n"));

    EXPECT_EQ(CTrackCardScan::FindTracks(root).size(), 6u);
    std::size_t calls = 0, lastDone = 0;
    const CCardScan scan = CTrackCardScan::Scan(root, {{exitC + 40, 77}}, {}, [&](std::size_t done, std::size_t total) {
        ++calls;
        EXPECT_EQ(total, 6u);
        EXPECT_GE(done, lastDone);
        lastDone = done;
        return true;
    });
    EXPECT_FALSE(scan.cancelled);
    EXPECT_GE(calls, 2u);
    EXPECT_EQ(lastDone, 6u);
    ASSERT_EQ(scan.found.size(), 2u);
    EXPECT_EQ(scan.found[0].path.filename(), "TRACK.CSV");
    EXPECT_NEAR(scan.found[0].ExitUtc(), exitB, 1.0);
    EXPECT_EQ(scan.found[1].path.filename(), "10-20-30.CSV");
    EXPECT_NEAR(scan.found[1].ExitUtc(), exitA, 1.0);

    const struct
    {
        const char* file;
        CCardTrack::Skip skip;
        CMessage says;
    } expected[] = {
        {"10-20-30.CSV", CCardTrack::Skip::Twice, {StringTable::IDS_CARD_TWICE, "10-20-30.CSV"}},
        {"11-00-00.CSV", CCardTrack::Skip::NoJump, {StringTable::IDS_TRACK_NO_FREEFALL}},
        {"NOTES.CSV", CCardTrack::Skip::Unreadable, {StringTable::IDS_TRACK_BINARY, {}, {}, 2}},
        {"08-00-00.CSV", CCardTrack::Skip::InLogbook, {StringTable::IDS_CARD_IN_LOGBOOK, "77"}},
    };
    ASSERT_EQ(scan.skipped.size(), std::size(expected));
    for (const auto& e : expected) {
        SCOPED_TRACE(e.file);
        const auto it = std::find_if(scan.skipped.begin(), scan.skipped.end(),
                                     [&](const CCardTrack& t) { return t.skip == e.skip; });
        ASSERT_NE(it, scan.skipped.end());
        EXPECT_EQ(it->SkipReason(), e.says) << EnglishText(it->SkipReason()) << " at line " << it->SkipReason().line;
    }

    // Cancelled before the first file: nothing read.
    const CCardScan cancelled = CTrackCardScan::Scan(root, {}, {}, [](std::size_t, std::size_t) { return false; });
    EXPECT_TRUE(cancelled.cancelled);
    EXPECT_TRUE(cancelled.found.empty() && cancelled.skipped.empty());
}

} // namespace
