#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <ostream>
#include <string>
#include <vector>

namespace {

class ExportCommand : public CToolTest
{
protected:
    CToolResult Export(const std::vector<std::string>& options)
    {
        std::vector<std::string> arguments{"export", Write("r.tvz", TestLogbooks::Reference(), true)};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Run(arguments);
    }
};

// Expects each member of the JSON object text expected in actual, with the same value; with whole,
// also no other member.
void ExpectMembers(const QJsonObject& actual, const char* expected, bool whole = false)
{
    const QJsonObject members = QJsonDocument::fromJson(expected).object();
    ASSERT_FALSE(members.isEmpty()) << expected;
    for (const QString& key : members.keys())
        EXPECT_EQ(actual.value(key), members.value(key)) << key.toStdString();
    if (whole) {
        EXPECT_EQ(actual.size(), members.size());
    }
}

// The summary is in metres and seconds. The computed freefall: 2000 m at 52.5 m/s take 42 s, 800 m
// at the file's Custom 30.5 m/s 28 s.
TEST_F(ExportCommand, JsonSettingsSummaryAndJumpsInListOrder)
{
    const CToolResult result = Export({"--format", "json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    QJsonParseError error{};
    const QJsonObject root = QJsonDocument::fromJson(QByteArray::fromStdString(result.out), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    EXPECT_EQ(root.value("version").toString(), "1.1");
    const QJsonObject settings = root.value("settings").toObject();
    ExpectMembers(settings, R"({"owner": "Jörg Ödegaard", "previousJumps": 100, "previousDelay": 600,
        "membership": {"name": "M-77", "expirationDate": "2026-03-31T00:00:00Z", "alarmDays": 20},
        "licenses": ["D-1234"], "ratings": ["AFF-I"], "awards": [],
        "fallrates": [{"name": "Standard", "speed": 52.5}, {"name": "Vertical", "speed": 76},
                      {"name": "Custom", "speed": 30.5}],
        "keywords": {"videoJump": "Video", "nightJump": "Night", "coachJump": "Coach",
                     "reserveActivated": "Reserve"}})");
    const QJsonObject equipments = settings.value("equipments").toObject();
    ExpectMembers(equipments, R"({"inspectionCycle": 180, "alarmDays": 10})");
    ASSERT_EQ(equipments.value("equipment").toArray().size(), 1);
    // What the file leaves out has its default.
    ExpectMembers(equipments.value("equipment").toArray().at(0).toObject(),
                  R"({"n": 1, "active": true, "harness": "Javelin", "harnessSerial": "", "mainSize": 170,
                      "reserveSize": 0, "inspectionDate": "2025-01-15T00:00:00Z"})");

    const QJsonObject summary = root.value("summary").toObject();
    ExpectMembers(summary, R"({"numberOfJumps": 500, "freefallTime": 731, "lastJump": "2024-06-02"})");
    EXPECT_NEAR(summary.value("freefallDistance").toDouble(), 5800.0 * 500 / 3, 1e-6);
    EXPECT_NEAR(summary.value("canopyDistance").toDouble(), 3200.0 * 500 / 3, 1e-6);

    const QJsonArray jumps = root.value("jumps").toArray();
    ASSERT_EQ(jumps.size(), 3);
    ExpectMembers(jumps.at(2).toObject(), R"({"n": 500, "ts": "2024-06-02T14:30:00+02", "mod": "2024-07-01T20:00:00Z",
        "dz": "Tervola", "ac": "Cessna 206", "type": "FS 4-way", "fallrate": "Manual", "exit": 4000, "open": 1000,
        "ffTime": 61, "cpTime": 0, "vMax": 55.5, "vAvg": 49.25, "wind": {"direction": 270, "speed": 5.5},
        "landing": "Stand-up", "equipment": {"n": 0, "description": ""}, "size": 4, "points": 12, "team": "Team A, B",
        "malfunction": "", "image": [{"name": "pics\\a.jpg", "thumbnail": "pics\\a_t.jpg"}],
        "video": {"name": "v.mp4", "offset": 2.5},
        "note": "<p style=\"margin: 0\">Line one, with comma</p><p style=\"margin: 0\">Say \"hi\" über Tervola</p>",
        "noteText": "Line one, with comma\r\nSay \"hi\" über Tervola", "freefallTime": 61,
        "signature": {"name": "Matti Virtanen", "id": "X1", "lines": [[{"x": 1, "y": 2}, {"x": 3, "y": 4}]]},
        "profile": {"type": "", "qne": 0, "waypoints": [], "annotations": [], "winds": {"apply": false, "wind": []}}})",
                  true);
    ExpectMembers(jumps.at(0).toObject(), R"({"n": 498, "fallrate": "Standard", "freefallTime": 42, "ffTime": 0,
        "equipment": {"n": null, "description": "Rental"}, "wind": {"direction": 0, "speed": 0},
        "signature": {"name": "", "id": "", "lines": []},
        "profile": {"type": "gps", "qne": 1013.25, "annotations": [{"a": 3000, "t": 0, "txt": "Exit"}],
            "waypoints": [{"a": 3000, "t": 0, "lat": 60.5, "lon": 26.25},
                          {"a": 1000, "t": 40.5, "lat": 60.51, "lon": 26.26}],
            "winds": {"apply": true, "wind": [{"direction": 90, "speed": 3.5, "altitude": 1500}]}}})");
    ExpectMembers(jumps.at(1).toObject(), R"({"n": 499, "freefallTime": 28, "ts": "2024-06-01T00:00:00Z"})");
}

// With the stored imperial preference heights are whole feet, rounded half up: 3000 m = 9842.52 ft,
// 1200 m = 3937.01 ft, 4000 m = 13123.36 ft.
TEST_F(ExportCommand, CsvQuotesCommasQuotesAndLineBreaksAndFollowsTheUnits)
{
    StoreUnitsPreference(0);
    const CToolResult result = Export({"--format", "csv", "--units", "metric"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const std::string expected =
        "Number,Date,Time,Place,Aircraft,Type,Exit [m],Open [m],Freefall time,Fall rate,Wind direction,"
        "Wind speed [m/s],Equipment,Landing,Team,Size,Points,Malfunction,Signed by,Note\r\n"
        "498,2024-06-01,09:05,Utti,,,3000,1000,0:00:42,Standard,,,Rental,,,,,,,\r\n"
        "499,2024-06-01,,\"Eloy, Arizona\",,,2000,1200,0:00:28,Custom,,,,,,,,,,\"Zwei Zeilen\r\nohne Komma\"\r\n"
        "500,2024-06-02,14:30,Tervola,Cessna 206,FS 4-way,4000,1000,0:01:01,Manual,270,5.5,"
        "[1] Javelin / Sabre2 / PD,Stand-up,\"Team A, B\",4,12,,Matti Virtanen,"
        "\"Line one, with comma\r\nSay \"\"hi\"\" über Tervola\"\r\n";
    EXPECT_EQ(result.out, expected);

    const std::string imperial = Export({"--format", "csv"}).out;
    for (const char* part : {",Exit [ft],Open [ft],", "\n498,2024-06-01,09:05,Utti,,,9843,3281,",
                             "\n499,2024-06-01,,\"Eloy, Arizona\",,,6562,3937,", ",FS 4-way,13123,3281,"})
        EXPECT_NE(imperial.find(part), std::string::npos) << part;
}

TEST_F(ExportCommand, OutputOptionWritesTheSameBytesOrReportsTheSaveMessage)
{
    for (const std::string format : {"json", "csv"}) {
        const std::string out = m_dir / ("out." + format);
        const CToolResult toStdout = Export({"--format", format});
        const CToolResult toFile = Export({"--format", format, "-o", out});
        ASSERT_EQ(toFile.exitCode, 0) << toFile.err;
        EXPECT_TRUE(toFile.out.empty());
        EXPECT_EQ(ReadBytes(out), toStdout.out) << format;
    }
    const CToolResult result = Export({"--format", "csv", "-o", m_dir / "none/out.csv"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.out.empty());
    EXPECT_EQ(result.ErrLines(), std::vector<std::string>{"The file could not be saved."});
}

} // namespace
