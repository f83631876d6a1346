#include "SyntheticTrack.h"
#include "formats/CFlySightReader.h"
#include "tests/common/CScratchFolder.h"
#include "tests/common/EnglishText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>

namespace {

// The first count fixes of the standard synthetic jump.
CTrack Fixes(std::size_t count)
{
    CSyntheticTruth truth;
    CTrack track = MakeJumpTrack(CSyntheticJump(), truth);
    track.fixes.resize(std::min(count, track.fixes.size()));
    return track;
}

std::string Fs1(const CTrack& track)
{
    return WriteFlySight1(track, FlySight1Columns(), "\r\n");
}

TEST(FlySightReader, ReadsEveryLayoutByColumnName)
{
    const CTrack track = Fixes(100000);
    const std::vector<std::string> oldFirmware = {"time", "lat",  "lon",  "hMSL", "velN",   "velE",
                                                  "velD", "hAcc", "vAcc", "sAcc", "gpsFix", "numSV"};
    const std::vector<std::string> reordered = {"numSV", "velD", "hMSL",   "time", "dbgA", "lon",  "lat",
                                                "velE",  "velN", "gpsFix", "sAcc", "vAcc", "hAcc", "dbgB"};
    struct Case
    {
        const char* name;
        std::function<std::string()> write;
        const char* format;
        double timeStep;
    } cases[] = {
        {"FlySight 1, CRLF", [&] { return Fs1(track); }, "FlySight 1", 0.01},
        {"old firmware, LF", [&] { return WriteFlySight1(track, oldFirmware, "\n"); }, "FlySight 1", 0.01},
        {"reordered, debug columns", [&] { return WriteFlySight1(track, reordered, "\r\n"); }, "FlySight 1", 0.01},
        {"blank lines", [&] { return "\r\n" + Fs1(track) + "\r\n \r\n"; }, "FlySight 1", 0.01},
        {"FlySight 2", [&] { return WriteFlySight2(track); }, "FlySight 2", 0.001},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const CTrackReadResult read = CFlySightReader::ReadText(c.write());
        ASSERT_TRUE(read.ok) << EnglishText(read.reason);
        EXPECT_EQ(read.track.format, c.format);
        ASSERT_EQ(read.track.fixes.size(), track.fixes.size());
        for (std::size_t i = 0; i < track.fixes.size(); i += 97) {
            const CTrackFix& a = track.fixes[i];
            const CTrackFix& b = read.track.fixes[i];
            EXPECT_NEAR(b.time, a.time, c.timeStep / 2 + 1e-6);
            EXPECT_NEAR(b.lat, a.lat, 1e-7);
            EXPECT_NEAR(b.lon, a.lon, 1e-7);
            EXPECT_NEAR(b.hMSL, a.hMSL, 1e-3);
            EXPECT_NEAR(b.velN, a.velN, 0.006);
            EXPECT_NEAR(b.velD, a.velD, 0.006);
            EXPECT_NEAR(b.sAcc, a.sAcc, 0.006);
            EXPECT_EQ(b.numSV, a.numSV);
        }
    }
}

TEST(FlySightReader, DropsRowsWithoutA3DFixAndTheRowCutByAPowerLoss)
{
    CTrack track = Fixes(40);
    track.fixes[3].numSV = 3; // written with gpsFix 2
    const std::string text = Fs1(track);
    const std::string cut = text.substr(0, text.size() - 30);
    const struct
    {
        const char* name;
        std::string text;
        std::size_t fixes;
    } cases[] = {
        {"complete", text, 39},
        {"cut mid-row", cut, 38},
        {"cut, padded with NUL", cut + std::string(512, '\0'), 38},
        {"no line end after the last row", text.substr(0, text.size() - 2), 38},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CTrackReadResult read = CFlySightReader::ReadText(c.text);
        ASSERT_TRUE(read.ok) << EnglishText(read.reason);
        EXPECT_EQ(read.track.fixes.size(), c.fixes);
        EXPECT_EQ(read.track.fixes[3].time, track.fixes[4].time);
    }
}

TEST(FlySightReader, RefusalsNameTheLine)
{
    // FlySight 1 row i is on line i + 3; FlySight 2 row i on line i + 8.
    const auto fs1With = [](std::function<void(CTrack&)> change) {
        CTrack track = Fixes(30);
        change(track);
        return Fs1(track);
    };
    const std::string fs2 = WriteFlySight2(Fixes(30));
    const struct
    {
        const char* name;
        std::string text;
        int line;
        const char* says;
        // A damaged line in a short track: more than one in a hundred, the first one says why.
        bool damaged = false;
    } cases[] = {
        {"empty", "\r\n\r\n", 0, "the file is empty"},
        {"only headers", Fs1(Fixes(0)), 2, "without a single usable position fix"},
        {"FlySight 2 only headers", fs2.substr(0, fs2.find("$GNSS")), 7, "without a single usable"},
        {"binary", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), 2, "binary data"},
        {"no header", Fs1(Fixes(5)).substr(Fs1(Fixes(0)).size()), 1, "no column names"},
        {"missing velD", "time,lat,lon,hMSL,velN,velE\r\n", 1, "\"velD\" is missing"},
        {"time backwards", fs1With([](CTrack& t) { t.fixes[10].time -= 5; }), 13, "the time goes backwards", true},
        {"height", fs1With([](CTrack& t) { t.fixes[20].hMSL = 20000; }), 23, "height 20000.000 is outside", true},
        {"latitude", fs1With([](CTrack& t) { t.fixes[5].lat = 95; }), 8, "latitude 95.0000000 is outside", true},
        {"not a number", fs1With([](CTrack& t) { t.fixes[7].velD = NAN; }), 10, "velD value \"nan\" is not a number",
         true},
        {"short row", Fs1(Fixes(3)) + "2024-04-20T04:00:09.00Z,61.5\r\n", 6, "the row has 2 fields", true},
        {"FlySight 2 speed",
         WriteFlySight2(Fixes(9)).insert(fs2.find("$GNSS"),
                                         "$GNSS,2024-04-20T04:00:00.100Z,61.5,24,100,0,0,200,1,1,0.3,9\r\n"),
         8, "vertical speed 200 is outside", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CTrackReadResult read = CFlySightReader::ReadText(c.text);
        EXPECT_FALSE(read.ok);
        EXPECT_TRUE(read.track.fixes.empty());
        EXPECT_EQ(read.line, c.line);
        const std::string why = EnglishText(c.damaged ? read.firstSkip : read.reason);
        EXPECT_NE(why.find(c.says), std::string::npos) << why;
        if (c.damaged) {
            EXPECT_NE(EnglishText(read.reason).find("data lines are damaged"), std::string::npos)
                << EnglishText(read.reason);
            EXPECT_EQ(read.firstSkip.line, c.line);
        }
        EXPECT_EQ(read.reason.line, c.line);
    }
}

// The text with the character at column of the given 1-based line replaced.
std::string Damage(std::string text, int line, std::size_t column, char replacement)
{
    std::size_t start = 0;
    for (int i = 1; i < line; ++i)
        start = text.find('\n', start) + 1;
    text[start + column] = replacement;
    return text;
}

TEST(FlySightReader, DamagedLinesAreSkippedUpToOneInAHundred)
{
    // 3000 rows: FlySight 1 row i on line i + 3, so lines 3 to 3002; FlySight 2 row i on line i + 8.
    const CTrack track = Fixes(3000);
    const std::string fs1 = Fs1(track);
    const std::string fs2 = WriteFlySight2(track);
    std::string many = fs1;
    for (int i = 0; i < 31; ++i)
        many = Damage(many, 100 + 50 * i, 25, 'x');
    const struct
    {
        const char* name;
        std::string text;
        std::vector<int> skippedAt;
        bool ok;
    } cases[] = {
        {"year flipped forwards", Damage(fs1, 503, 3, '5'), {503}, true},
        {"minute flipped backwards", Damage(fs1, 1603, 15, '0'), {1603}, true},
        {"time no longer a time", Damage(fs1, 703, 10, ':'), {703}, true},
        {"comma lost", Damage(Damage(fs1, 803, 23, ';'), 2003, 23, ';'), {803, 2003}, true},
        {"control byte", Damage(fs1, 2503, 30, '\x01'), {2503}, true},
        {"31 in 3000", many, {}, false},
        {"FlySight 2 line lost its $", Damage(fs2, 908, 0, 'G'), {908}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CTrackReadResult read = CFlySightReader::ReadText(c.text);
        EXPECT_EQ(read.ok, c.ok) << EnglishText(read.reason);
        if (!c.ok) {
            EXPECT_EQ(read.skippedLines, 31);
            EXPECT_EQ(read.line, 100);
            EXPECT_NE(EnglishText(read.reason).find("31 of the track's 3000 data lines"), std::string::npos)
                << EnglishText(read.reason);
            continue;
        }
        EXPECT_EQ(read.skippedAt, c.skippedAt);
        EXPECT_EQ(read.track.fixes.size(), track.fixes.size() - c.skippedAt.size());
    }
    // Exactly one in a hundred is still taken.
    std::string thirty = fs1;
    for (int i = 0; i < 30; ++i)
        thirty = Damage(thirty, 100 + 50 * i, 25, 'x');
    const CTrackReadResult read = CFlySightReader::ReadText(thirty);
    EXPECT_TRUE(read.ok) << EnglishText(read.reason);
    EXPECT_EQ(read.skippedLines, 30);
    EXPECT_EQ(read.skippedAt.size(), CTrackReadResult::kSkippedLinesKept);
}

TEST(FlySightReader, SensorBarometerIsPlacedInUtcThroughItsTimeRows)
{
    const CTrack track = Fixes(100000);
    std::vector<CBaroReading> expected, baro;
    std::string message;
    ASSERT_TRUE(CFlySightReader::ReadSensorText(WriteSensor(track, expected), baro, message)) << message;
    ASSERT_EQ(baro.size(), expected.size());
    for (std::size_t i = 0; i < baro.size(); ++i) {
        ASSERT_NEAR(baro[i].time, expected[i].time, 0.002) << i;
        ASSERT_NEAR(baro[i].altitude, expected[i].altitude, 1e-6) << i;
    }
    const char* withoutTimeRows = "$FLYS,1\n$COL,BARO,time,pressure\n$BARO,1.0,90000\r\n";
    EXPECT_FALSE(CFlySightReader::ReadSensorText(withoutTimeRows, baro, message));
    EXPECT_NE(message.find("no $TIME rows"), std::string::npos);
}

TEST(FlySightReader, ReadFileTakesTheSensorFileBesideAFlySight2Track)
{
    const CScratchFolder scratch("tracks");
    const std::filesystem::path& folder = scratch.Path();
    const CTrack track = Fixes(3000);
    std::vector<CBaroReading> expected;
    std::ofstream(folder / "TRACK.CSV", std::ios::binary) << WriteFlySight2(track);
    std::ofstream(folder / "Sensor.csv", std::ios::binary) << WriteSensor(track, expected);
    std::ofstream(folder / "old.csv", std::ios::binary) << Fs1(track);

    const CTrackReadResult withBaro = CFlySightReader::ReadFile(folder / "TRACK.CSV");
    ASSERT_TRUE(withBaro.ok) << EnglishText(withBaro.reason);
    EXPECT_EQ(withBaro.track.baro.size(), expected.size());
    const CTrackReadResult fs1 = CFlySightReader::ReadFile(folder / "old.csv");
    EXPECT_TRUE(fs1.ok && fs1.track.baro.empty());
    std::ofstream(folder / "Sensor.csv", std::ios::binary) << "\x01\x02";
    EXPECT_TRUE(CFlySightReader::ReadFile(folder / "TRACK.CSV").ok);
    const CTrackReadResult missing = CFlySightReader::ReadFile(folder / "none.csv");
    EXPECT_FALSE(missing.ok);
    EXPECT_NE(missing.reason.arg1.find((folder / "none.csv").string()), std::string::npos);
}

} // namespace
