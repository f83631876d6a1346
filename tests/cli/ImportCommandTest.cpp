#include "tests/cli/CScratchDir.h"
#include "tests/cli/CToolRunner.h"
#include "tests/cli/TestLogbooks.h"
#include "tests/tracks/SyntheticTrack.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <string>

namespace {

class ImportCommand : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_logbook = m_dir.WriteGzip(QStringLiteral("Jumps.tvz"), TestLogbooks::Reference());
        CSyntheticTruth truth;
        m_track = MakeJumpTrack(CSyntheticJump{}, truth);
        m_truth = truth;
    }

    CToolResult Import(const QString& track, const QStringList& options = {})
    {
        return m_tool.Run(QStringList{QStringLiteral("import"), m_logbook, track} + options);
    }

    // The logbook's jump numbered number as the JSON export shows it; empty when absent.
    QJsonObject ExportedJump(int number)
    {
        const CToolResult result =
            m_tool.Run({QStringLiteral("export"), m_logbook, QStringLiteral("--format"), QStringLiteral("json")});
        for (const QJsonValue jump :
             QJsonDocument::fromJson(QByteArray::fromStdString(result.out))["jumps"].toArray()) {
            if (jump["n"].toInt() == number)
                return jump.toObject();
        }
        return {};
    }

    CScratchDir m_dir;
    CToolRunner m_tool{m_dir.ConfigHome()};
    QString m_logbook;
    CTrack m_track;
    CSyntheticTruth m_truth;
};

TEST_F(ImportCommand, LogsTheTrackAsANewJumpOrIntoAJumpWithoutRecording)
{
    // A FlySight 1 file as a new jump at every fix, a FlySight 2 session folder (lower-case
    // names) into jump 499 thinned to one sample a second.
    const QString fs1 =
        m_dir.WritePlain(QStringLiteral("10-20-30.CSV"), WriteFlySight1(m_track, FlySight1Columns(), "\r\n"));
    QDir(m_dir.Path({})).mkdir(QStringLiteral("session"));
    std::vector<CBaroReading> baro;
    const QString fs2 = m_dir.WritePlain(QStringLiteral("session/track.csv"), WriteFlySight2(m_track));
    m_dir.WritePlain(QStringLiteral("session/sensor.csv"), WriteSensor(m_track, baro));

    struct Case
    {
        QString track;
        QStringList options;
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

        const QJsonObject jump = ExportedJump(c.number);
        EXPECT_EQ(jump["fallrate"].toString(), "Import");
        EXPECT_NEAR(jump["exit"].toInt(), m_truth.exitHeight, 15);
        EXPECT_NEAR(jump["open"].toInt(), m_truth.openHeight, 40);
        EXPECT_GT(jump["cpTime"].toInt(), 60);
        EXPECT_GT(jump["vMax"].toDouble(), 50.0);
        const QJsonObject profile = jump["profile"].toObject();
        const bool barometric = c.options.contains("--baro");
        EXPECT_EQ(profile["type"].toString(), barometric ? "baro" : "gps");
        const int samples = static_cast<int>(profile["waypoints"].toArray().size());
        if (barometric) {
            // The barometer's own samples, from before the exit to the landing.
            EXPECT_GT(samples, 100);
        } else if (c.options.isEmpty()) {
            // A new jump takes what the last jump had, as the window's editor fills it.
            EXPECT_EQ(jump["dz"].toString(), "Tervola");
            everyFix = samples;
        } else {
            EXPECT_EQ(jump["dz"].toString(), "Eloy, Arizona");
            EXPECT_LT(samples * 4, everyFix);
        }
    }
    EXPECT_TRUE(CScratchDir::Exists(m_dir.Path(QStringLiteral("Jumps.bak"))));

    // The track leaves again as GPX, one point a sample.
    const CToolResult gpx = m_tool.Run({QStringLiteral("export"), m_logbook, QStringLiteral("--format"),
                                        QStringLiteral("gpx"), QStringLiteral("--jump"), QStringLiteral("501")});
    ASSERT_EQ(gpx.exitCode, 0) << gpx.err;
    std::size_t points = 0;
    for (std::size_t at = gpx.out.find("<trkpt "); at != std::string::npos; at = gpx.out.find("<trkpt ", at + 1))
        ++points;
    EXPECT_EQ(static_cast<int>(points), everyFix);
}

TEST_F(ImportCommand, RefusesAndLeavesTheLogbookAsItWas)
{
    const std::string before = CScratchDir::Read(m_logbook);
    const QString good =
        m_dir.WritePlain(QStringLiteral("good.csv"), WriteFlySight1(m_track, FlySight1Columns(), "\r\n"));
    const QString binary = m_dir.WritePlain(QStringLiteral("binary.csv"), std::string("\x1f\x8b\x08\0\0\0\xff\xfe", 8));
    const QString car =
        m_dir.WritePlain(QStringLiteral("car.csv"), WriteFlySight1(MakeCarRide(7), FlySight1Columns(), "\r\n"));
    struct Case
    {
        QString track;
        QStringList options;
        const char* message;
        int exitCode;
    };
    const Case cases[] = {
        {binary, {}, "binary.csv: ", 1},
        {car, {}, "No freefall found in the track.", 1},
        {m_dir.Path(QStringLiteral("missing.csv")), {}, "missing.csv", 1},
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
        EXPECT_EQ(CScratchDir::Read(m_logbook), before);
    }
    EXPECT_FALSE(CScratchDir::Exists(m_dir.Path(QStringLiteral("Jumps.bak"))));
}

} // namespace
