#include "document/CLogbookLock.h"
#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"
#include "tests/tracks/SyntheticTrack.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>
#include <string>

#include <unistd.h>

namespace {

class ImportCommand : public CToolTest
{
protected:
    CToolResult Import(const std::string& track, const std::vector<std::string>& options = {})
    {
        std::vector<std::string> arguments{"import", m_logbook, track};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Run(arguments);
    }

    // The logbook's jump numbered number as the JSON export shows it; empty when absent.
    QJsonObject ExportedJump(int number)
    {
        const CToolResult result = Run({"export", m_logbook, "--format", "json"});
        for (const QJsonValue jump :
             QJsonDocument::fromJson(QByteArray::fromStdString(result.out))["jumps"].toArray()) {
            if (jump["n"].toInt() == number)
                return jump.toObject();
        }
        return {};
    }

    const std::string m_logbook = Write("Jumps.tvz", TestLogbooks::Reference(), true);
    CSyntheticTruth m_truth;
    const CTrack m_track = MakeJumpTrack(CSyntheticJump{}, m_truth);
};

TEST_F(ImportCommand, LogsTheTrackAsANewJumpOrIntoAJumpWithoutRecording)
{
    // A FlySight 1 file with a damaged line 103 as a new jump at every fix, a FlySight 2 session
    // folder (lower-case names) into jump 499 thinned to one sample a second.
    std::string fs1Text = WriteFlySight1(m_track, FlySight1Columns(), "\r\n");
    std::size_t line103 = 0;
    for (int line = 1; line < 103; ++line)
        line103 = fs1Text.find('\n', line103) + 1;
    fs1Text.insert(line103, "2024-04-20T04:0?:00.00Z,61.5\r\n");
    const std::string fs1 = Write("10-20-30.CSV", fs1Text);
    std::filesystem::create_directory(m_dir / "session");
    std::vector<CBaroReading> baro;
    const std::string fs2 = Write("session/track.csv", WriteFlySight2(m_track));
    Write("session/sensor.csv", WriteSensor(m_track, baro));

    struct Case
    {
        std::string track;
        std::vector<std::string> options;
        int number;
    };
    int everyFix = 0;
    for (const Case& c :
         {Case{fs1, {}, 501}, Case{fs2, {"--jump", "499", "--rate", "1"}, 499}, Case{fs2, {"--baro"}, 502}}) {
        SCOPED_TRACE(c.number);
        const CToolResult result = Import(c.track, c.options);
        ASSERT_EQ(result.exitCode, 0) << result.err;
        EXPECT_NE(result.out.find("Jump: " + std::to_string(c.number) + "\n"), std::string::npos) << result.out;
        EXPECT_NE(result.out.find("Freefall: "), std::string::npos);
        EXPECT_EQ(result.out.find("Damaged lines skipped: 1 (line 103).") != std::string::npos, c.track == fs1)
            << result.out;

        const QJsonObject jump = ExportedJump(c.number);
        EXPECT_EQ(jump["fallrate"].toString(), "Import");
        EXPECT_NEAR(jump["exit"].toInt(), m_truth.exitHeight, 15);
        const QJsonObject profile = jump["profile"].toObject();
        const bool barometric = !c.options.empty() && c.options[0] == "--baro";
        EXPECT_EQ(profile["type"].toString(), barometric ? "baro" : "gps");
        const int samples = static_cast<int>(profile["waypoints"].toArray().size());
        if (barometric) {
            // The barometer's own samples, from before the exit to the landing.
            EXPECT_GT(samples, 100);
        } else if (c.options.empty()) {
            // A new jump takes what the last jump had, as the window's editor fills it.
            EXPECT_EQ(jump["dz"].toString(), "Tervola");
            everyFix = samples;
        } else {
            EXPECT_EQ(jump["dz"].toString(), "Eloy, Arizona");
            EXPECT_LT(samples * 4, everyFix);
        }
    }
    EXPECT_TRUE(std::filesystem::exists(m_dir / "Jumps.bak"));

    // The track leaves again as GPX, one point a sample.
    const CToolResult gpx = Run({"export", m_logbook, "--format", "gpx", "--jump", "501"});
    ASSERT_EQ(gpx.exitCode, 0) << gpx.err;
    std::size_t points = 0;
    for (std::size_t at = gpx.out.find("<trkpt "); at != std::string::npos; at = gpx.out.find("<trkpt ", at + 1))
        ++points;
    EXPECT_EQ(static_cast<int>(points), everyFix);
}

TEST_F(ImportCommand, RefusesAndLeavesTheLogbookAsItWas)
{
    const std::string before = ReadBytes(m_logbook);
    const std::string good = Write("good.csv", WriteFlySight1(m_track, FlySight1Columns(), "\r\n"));
    const std::string binary = Write("binary.csv", std::string("\x1f\x8b\x08\0\0\0\xff\xfe", 8));
    const std::string car = Write("car.csv", WriteFlySight1(MakeCarRide(7), FlySight1Columns(), "\r\n"));
    struct Case
    {
        std::string track;
        std::vector<std::string> options;
        const char* message;
        int exitCode;
    };
    const Case cases[] = {
        {binary, {}, "binary.csv: ", 1},
        {car, {}, "No freefall found in the track.", 1},
        {m_dir / "missing.csv", {}, "missing.csv", 1},
        {good, {"--jump", "497"}, "Jump 497 is not in the logbook.", 1},
        {good, {"--jump", "498"}, "Jump 498 already has a recording.", 1},
        {good, {"--jump", "500"}, "Jump 500 is signed and cannot be changed.", 1},
        {good, {"--rate", "0"}, "--rate", 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        const CToolResult result = Import(c.track, c.options);
        EXPECT_EQ(result.exitCode, c.exitCode);
        EXPECT_NE(result.err.find(c.message), std::string::npos) << result.err;
        EXPECT_EQ(ReadBytes(m_logbook), before);
    }
    EXPECT_FALSE(std::filesystem::exists(m_dir / "Jumps.bak"));
}

// A logbook held open (here by this test, as a window holds it) is not written behind its back:
// both writing commands refuse and name the holder, and write it with --force.
TEST_F(ImportCommand, LeavesALogbookThatAWindowHoldsUnlessForced)
{
    const std::string track = Write("good.csv", WriteFlySight1(m_track, FlySight1Columns(), "\r\n"));
    const std::string other = Write("other.tvl", TestLogbooks::Reference());
    CLogbookLock window;
    ASSERT_EQ(window.Lock(m_logbook), CLogbookLock::State::Locked);
    const std::string holder = "process " + std::to_string(::getpid());
    const std::vector<std::string> commands[] = {{"import", m_logbook, track}, {"convert", other, m_logbook}};
    for (const auto& command : commands) {
        SCOPED_TRACE(command[0]);
        const std::string before = ReadBytes(m_logbook);
        const CToolResult refused = Run(command);
        EXPECT_EQ(refused.exitCode, 1);
        EXPECT_NE(refused.err.find(holder), std::string::npos) << refused.err;
        EXPECT_NE(refused.err.find("--force"), std::string::npos) << refused.err;
        EXPECT_EQ(ReadBytes(m_logbook), before);

        std::vector<std::string> forced = command;
        forced.push_back("--force");
        const CToolResult written = Run(forced);
        EXPECT_EQ(written.exitCode, 0) << written.err;
        EXPECT_NE(ReadBytes(m_logbook), before);
    }
    // The window's lock is still there for the window.
    EXPECT_TRUE(std::filesystem::exists(CLogbookLock::LockPathOf(m_logbook)));
}

} // namespace

namespace {

// A card: a FlySight 1 jump, a FlySight 2 session a day later and a car ride. The new jumps come
// in in the order of their exits; imported again, the card brings nothing new.
TEST_F(ImportCommand, ImportsEveryNewJumpOfACardFolder)
{
    CTrack later = m_track;
    for (CTrackFix& fix : later.fixes)
        fix.time += 86400;
    std::filesystem::create_directories(m_dir.Path() / "card" / "24-04-21" / "FS2");
    std::filesystem::create_directories(m_dir.Path() / "card" / "24-04-20");
    Write("card/24-04-21/FS2/TRACK.CSV", WriteFlySight2(later));
    Write("card/24-04-20/10-20-30.CSV", WriteFlySight1(m_track, FlySight1Columns(), "\r\n"));
    Write("card/24-04-20/11-00-00.CSV", WriteFlySight1(MakeCarRide(5), FlySight1Columns(), "\r\n"));
    const std::string card = m_dir / "card";

    const CToolResult first = Import(card);
    ASSERT_EQ(first.exitCode, 0) << first.err;
    EXPECT_NE(first.out.find("Jump 501: 24-04-20/10-20-30.CSV, exit 2024-04-20"), std::string::npos) << first.out;
    EXPECT_NE(first.out.find("Jump 502: 24-04-21/FS2/TRACK.CSV, exit 2024-04-21"), std::string::npos) << first.out;
    EXPECT_NE(first.out.find("Skipped 24-04-20/11-00-00.CSV: No freefall found"), std::string::npos) << first.out;
    EXPECT_NE(first.out.find("Tracks: 3 found, 2 imported, 1 skipped"), std::string::npos) << first.out;

    const std::string saved = ReadBytes(m_logbook);
    const CToolResult again = Import(card);
    EXPECT_EQ(again.exitCode, 0) << again.err;
    EXPECT_NE(again.out.find("already in the logbook as jump 502"), std::string::npos) << again.out;
    EXPECT_NE(again.out.find("Tracks: 3 found, 0 imported, 3 skipped"), std::string::npos) << again.out;
    EXPECT_EQ(ReadBytes(m_logbook), saved);
    EXPECT_EQ(Import(card, {"--jump", "499"}).exitCode, 1);
}

} // namespace
