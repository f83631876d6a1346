#include "tests/cli/CScratchDir.h"
#include "tests/cli/CToolRunner.h"
#include "tests/cli/TestLogbooks.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace {

// Splits RFC 4180 text into records of fields.
std::vector<std::vector<std::string>> ParseCsv(const std::string& text)
{
    std::vector<std::vector<std::string>> records(1, std::vector<std::string>(1));
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        std::string& field = records.back().back();
        if (quoted) {
            if (c == '"' && i + 1 < text.size() && text[i + 1] == '"')
                field += text[++i];
            else if (c == '"')
                quoted = false;
            else
                field += c;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            records.back().emplace_back();
        } else if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            ++i;
            records.emplace_back(1);
        } else {
            field += c;
        }
    }
    if (records.back().size() == 1 && records.back().front().empty())
        records.pop_back();
    return records;
}

class ExportCommand : public ::testing::Test
{
protected:
    CToolResult Export(const QStringList& extra)
    {
        const QString path = m_dir.WriteGzip(QStringLiteral("r.tvz"), TestLogbooks::Reference());
        return m_tool.Run(QStringList{QStringLiteral("export"), path} + extra);
    }
    QJsonObject ExportJson()
    {
        const CToolResult result = Export({QStringLiteral("--format"), QStringLiteral("json")});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        QJsonParseError error{};
        const QJsonDocument json = QJsonDocument::fromJson(QByteArray::fromStdString(result.out), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
        return json.object();
    }

    CScratchDir m_dir;
    CToolRunner m_tool{m_dir.ConfigHome()};
};

TEST_F(ExportCommand, JsonSettingsUseTheFileNamesAndDefaults)
{
    const QJsonObject root = ExportJson();
    EXPECT_EQ(root.value("version").toString(), "1.1");
    const QJsonObject settings = root.value("settings").toObject();
    EXPECT_EQ(settings.value("owner").toString(), QString::fromUtf8("Jörg Ödegaard"));
    EXPECT_EQ(settings.value("membership").toObject(),
              (QJsonObject{{"name", "M-77"}, {"expirationDate", "2026-03-31T00:00:00Z"}, {"alarmDays", 20}}));
    EXPECT_EQ(settings.value("licenses").toArray(), QJsonArray{"D-1234"}); // the empty one is dropped
    EXPECT_EQ(settings.value("ratings").toArray(), QJsonArray{"AFF-I"});
    EXPECT_EQ(settings.value("awards").toArray(), QJsonArray{});
    // The file's Standard speed of 50 is ignored: the program's speeds are fixed.
    EXPECT_EQ(settings.value("fallrates").toArray(), (QJsonArray{QJsonObject{{"name", "Standard"}, {"speed", 52.5}},
                                                                 QJsonObject{{"name", "Vertical"}, {"speed", 76}},
                                                                 QJsonObject{{"name", "Custom"}, {"speed", 30.5}}}));
    EXPECT_EQ(
        settings.value("keywords").toObject(),
        (QJsonObject{
            {"videoJump", "Video"}, {"nightJump", "Night"}, {"coachJump", "Coach"}, {"reserveActivated", "Reserve"}}));
    EXPECT_EQ(settings.value("previousJumps").toInt(), 100);
    EXPECT_EQ(settings.value("previousDelay").toInt(), 600);

    const QJsonObject equipments = settings.value("equipments").toObject();
    EXPECT_EQ(equipments.value("inspectionCycle").toInt(), 180);
    EXPECT_EQ(equipments.value("alarmDays").toInt(), 10);
    const QJsonArray rigs = equipments.value("equipment").toArray();
    ASSERT_EQ(rigs.size(), 1);
    const QJsonObject rig = rigs.at(0).toObject();
    EXPECT_EQ(rig.value("n").toInt(), 1);
    EXPECT_EQ(rig.value("active").toBool(), true);
    EXPECT_EQ(rig.value("harness").toString(), "Javelin");
    EXPECT_EQ(rig.value("harnessSerial").toString(), ""); // absent: default
    EXPECT_EQ(rig.value("mainSize").toInt(), 170);
    EXPECT_EQ(rig.value("reserveSize").toInt(), 0);
    EXPECT_EQ(rig.value("inspectionDate").toString(), "2025-01-15T00:00:00Z");
}

// The reference logbook's computed freefall: 2000 m at 52.5 m/s take 42 s, 800 m at the file's
// Custom 30.5 m/s 28 s.
TEST_F(ExportCommand, JsonJumpsInListOrderWithComputedValues)
{
    const QJsonObject root = ExportJson();
    const QJsonArray jumps = root.value("jumps").toArray();
    ASSERT_EQ(jumps.size(), 3);
    EXPECT_EQ(jumps.at(0).toObject().value("n").toInt(), 498);
    EXPECT_EQ(jumps.at(1).toObject().value("n").toInt(), 499);

    const QJsonObject manual = jumps.at(2).toObject();
    const std::vector<std::pair<const char*, QJsonValue>> expected = {
        {"n", 500},
        {"ts", "2024-06-02T14:30:00+02"},
        {"mod", "2024-07-01T20:00:00Z"},
        {"dz", "Tervola"},
        {"ac", "Cessna 206"},
        {"type", "FS 4-way"},
        {"fallrate", "Manual"},
        {"exit", 4000},
        {"open", 1000},
        {"ffTime", 61},
        {"cpTime", 0},
        {"vMax", 55.5},
        {"vAvg", 49.25},
        {"wind", QJsonObject{{"direction", 270}, {"speed", 5.5}}},
        {"landing", "Stand-up"},
        {"equipment", QJsonObject{{"n", 0}, {"description", ""}}},
        {"size", 4},
        {"points", 12},
        {"team", "Team A, B"},
        {"malfunction", ""},
        {"image", QJsonArray{QJsonObject{{"name", "pics\\a.jpg"}, {"thumbnail", "pics\\a_t.jpg"}}}},
        {"video", QJsonObject{{"name", "v.mp4"}, {"offset", 2.5}}},
        {"note", QString::fromUtf8("<p style=\"margin: 0\">Line one, with comma</p>"
                                   "<p style=\"margin: 0\">Say \"hi\" über Tervola</p>")},
        {"noteText", QString::fromUtf8("Line one, with comma\r\nSay \"hi\" über Tervola")},
        {"freefallTime", 61},
        {"signature", QJsonObject{{"name", "Matti Virtanen"},
                                  {"id", "X1"},
                                  {"lines", QJsonArray{QJsonArray{QJsonObject{{"x", 1}, {"y", 2}},
                                                                  QJsonObject{{"x", 3}, {"y", 4}}}}}}},
        {"profile", QJsonObject{{"type", ""},
                                {"qne", 0},
                                {"waypoints", QJsonArray{}},
                                {"annotations", QJsonArray{}},
                                {"winds", QJsonObject{{"apply", false}, {"wind", QJsonArray{}}}}}},
    };
    for (const auto& [key, value] : expected)
        EXPECT_EQ(manual.value(key), value) << key;
    EXPECT_EQ(manual.size(), static_cast<qsizetype>(expected.size()));

    const QJsonObject standard = jumps.at(0).toObject();
    EXPECT_EQ(standard.value("fallrate").toString(), "Standard");
    EXPECT_EQ(standard.value("freefallTime").toInt(), 42);
    EXPECT_EQ(standard.value("ffTime").toInt(), 0);
    EXPECT_EQ(standard.value("equipment").toObject(), (QJsonObject{{"n", QJsonValue()}, {"description", "Rental"}}));
    EXPECT_EQ(standard.value("wind").toObject(), (QJsonObject{{"direction", 0}, {"speed", 0}}));
    EXPECT_EQ(standard.value("signature").toObject(), (QJsonObject{{"name", ""}, {"id", ""}, {"lines", QJsonArray{}}}));
    EXPECT_EQ(
        standard.value("profile").toObject(),
        (QJsonObject{{"type", "gps"},
                     {"qne", 1013.25},
                     {"waypoints", QJsonArray{QJsonObject{{"a", 3000}, {"t", 0}, {"lat", 60.5}, {"lon", 26.25}},
                                              QJsonObject{{"a", 1000}, {"t", 40.5}, {"lat", 60.51}, {"lon", 26.26}}}},
                     {"annotations", QJsonArray{QJsonObject{{"a", 3000}, {"t", 0}, {"txt", "Exit"}}}},
                     {"winds", QJsonObject{{"apply", true},
                                           {"wind", QJsonArray{QJsonObject{
                                                        {"direction", 90}, {"speed", 3.5}, {"altitude", 1500}}}}}}}));
    EXPECT_EQ(jumps.at(1).toObject().value("freefallTime").toInt(), 28);
    EXPECT_EQ(jumps.at(1).toObject().value("ts").toString(), "2024-06-01T00:00:00Z");
}

TEST_F(ExportCommand, JsonSummaryIsInMetresAndSeconds)
{
    const QJsonObject summary = ExportJson().value("summary").toObject();
    EXPECT_EQ(summary.value("numberOfJumps").toInt(), 500);
    EXPECT_EQ(summary.value("freefallTime").toInt(), 61 + 42 + 28 + 600);
    EXPECT_NEAR(summary.value("freefallDistance").toDouble(), 5800.0 * 500 / 3, 1e-6);
    EXPECT_NEAR(summary.value("canopyDistance").toDouble(), 3200.0 * 500 / 3, 1e-6);
    EXPECT_EQ(summary.value("lastJump").toString(), "2024-06-02");
}

TEST_F(ExportCommand, CsvQuotesCommasQuotesAndLineBreaks)
{
    const CToolResult result = Export(
        {QStringLiteral("--format"), QStringLiteral("csv"), QStringLiteral("--units"), QStringLiteral("metric")});
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
}

TEST_F(ExportCommand, CsvHeightsFollowTheUnits)
{
    m_dir.StoreUnitsPreference(0);
    const CToolResult result = Export({QStringLiteral("--format"), QStringLiteral("csv")});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto records = ParseCsv(result.out);
    ASSERT_EQ(records.size(), 4u);
    for (const auto& record : records)
        EXPECT_EQ(record.size(), 20u);
    EXPECT_EQ(records[0][6], "Exit [ft]");
    EXPECT_EQ(records[0][7], "Open [ft]");
    // Whole feet, rounded half up: 3000 m = 9842.52 ft, 1200 m = 3937.01 ft, 4000 m = 13123.36 ft.
    const std::vector<std::pair<std::string, std::string>> heights = {
        {"9843", "3281"}, {"6562", "3937"}, {"13123", "3281"}};
    for (std::size_t i = 0; i < heights.size(); ++i) {
        EXPECT_EQ(records[i + 1][6], heights[i].first) << i;
        EXPECT_EQ(records[i + 1][7], heights[i].second) << i;
    }
    EXPECT_EQ(records[3][19], "Line one, with comma\r\nSay \"hi\" \xC3\xBC"
                              "ber Tervola");
}

TEST_F(ExportCommand, OutputOptionWritesTheSameBytes)
{
    for (const char* format : {"json", "csv"}) {
        const QString out = m_dir.Path(QStringLiteral("out.") + QString::fromLatin1(format));
        const CToolResult toStdout = Export({QStringLiteral("--format"), QString::fromLatin1(format)});
        const CToolResult toFile =
            Export({QStringLiteral("--format"), QString::fromLatin1(format), QStringLiteral("-o"), out});
        ASSERT_EQ(toFile.exitCode, 0) << toFile.err;
        EXPECT_TRUE(toFile.out.empty());
        EXPECT_EQ(CScratchDir::Read(out), toStdout.out) << format;
    }
}

TEST_F(ExportCommand, UnwritableOutputReportsTheSaveMessage)
{
    const CToolResult result =
        Export({QStringLiteral("--format"), QStringLiteral("csv"), QStringLiteral("-o"), m_dir.Path("none/out.csv")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.out.empty());
    EXPECT_EQ(result.ErrLines(), std::vector<std::string>{"The file could not be saved."});
}

} // namespace
