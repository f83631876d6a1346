#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <filesystem>
#include <set>
#include <string>

namespace {

class GenerateCommand : public CToolTest
{
protected:
    // Generates into name with the given options; returns the path.
    std::string Generate(const std::string& name, const std::vector<std::string>& options)
    {
        std::vector<std::string> arguments{"generate", m_dir / name};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const CToolResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, 0) << result.err;
        EXPECT_EQ(result.out + result.err, "");
        return arguments[1];
    }
};

TEST_F(GenerateCommand, SameSeedGivesTheSameFileApartFromTheSaveTime)
{
    // What follows the root element's start tag, which holds the save time.
    const auto body = [](const std::string& xml) { return xml.substr(xml.find("<settings>")); };
    const std::vector<std::string> options{"--jumps", "120", "--recordings", "2", "--samples", "15", "--seed", "42"};
    const std::string first = ReadBytes(Generate("a.tvl", options));
    ASSERT_GT(first.size(), 10000u);
    EXPECT_EQ(body(first), body(ReadBytes(Generate("b.tvl", options))));

    std::vector<std::string> otherSeed = options;
    otherSeed.back() = "43";
    EXPECT_NE(body(first), body(ReadBytes(Generate("c.tvl", otherSeed))));
}

// The generated logbook uses every part of the format, so that demos and benchmarks exercise it all.
TEST_F(GenerateCommand, LogbookIsVariedAndComplete)
{
    const std::string path =
        Generate("v.tvz", {"--jumps", "400", "--recordings", "5", "--samples", "30", "--baro", "3", "--seed", "11"});
    const CToolResult exported = Run({"export", path, "--format", "json"});
    const QJsonObject root = QJsonDocument::fromJson(QByteArray::fromStdString(exported.out)).object();
    const QJsonArray jumps = root.value("jumps").toArray();
    ASSERT_EQ(jumps.size(), 400);

    std::set<QString> kinds;
    int gps = 0, baro = 0, byIndex = 0, byText = 0, pictures = 0, videos = 0, notes = 0, strokes = 0, winds = 0;
    int previous = 0;
    for (qsizetype i = 0; i < jumps.size(); ++i) {
        const QJsonObject jump = jumps.at(i).toObject();
        EXPECT_GT(jump.value("n").toInt(), previous); // numbers rise, none repeats
        previous = jump.value("n").toInt();
        const int month = jump.value("ts").toString().mid(5, 2).toInt();
        EXPECT_TRUE(month >= 4 && month <= 10) << jump.value("ts").toString().toStdString();
        EXPECT_GT(jump.value("exit").toInt(), jump.value("open").toInt());
        EXPECT_GT(jump.value("freefallTime").toInt(), 0);
        kinds.insert(jump.value("fallrate").toString());

        const QJsonObject profile = jump.value("profile").toObject();
        const QJsonArray waypoints = profile.value("waypoints").toArray();
        if (profile.value("type") == "gps") {
            ++gps;
            EXPECT_EQ(waypoints.size(), 30);
            EXPECT_TRUE(waypoints.at(0).toObject().contains("lat"));
            EXPECT_EQ(jump.value("fallrate").toString(), "Import");
        } else if (profile.value("type") == "baro") {
            ++baro;
            EXPECT_FALSE(waypoints.isEmpty());
            EXPECT_FALSE(waypoints.at(0).toObject().contains("lat"));
        }
        const QJsonObject equipment = jump.value("equipment").toObject();
        byIndex += equipment.value("n").isDouble();
        byText += !equipment.value("description").toString().isEmpty();
        pictures += !jump.value("image").toArray().isEmpty();
        videos += !jump.value("video").toObject().value("name").toString().isEmpty();
        const QString note = jump.value("noteText").toString();
        notes += note.contains(QStringLiteral("\r\n")) && note.contains(QRegularExpression(QStringLiteral("[äöüÄÖÜ]")));
        strokes += !jump.value("signature").toObject().value("lines").toArray().isEmpty();
        winds += jump.value("wind").toObject().value("speed").toDouble() > 0;
        if (i >= jumps.size() - 6) {
            EXPECT_EQ(jump.value("signature").toObject().value("name").toString(), "") << "newest jumps are unsigned";
        }
    }
    EXPECT_EQ(kinds, (std::set<QString>{"Standard", "Vertical", "Custom", "Manual", "Import"}));
    EXPECT_EQ(gps, 5);
    EXPECT_EQ(baro, 3);
    for (int count : {byIndex, byText, pictures, videos, notes, strokes, winds})
        EXPECT_GT(count, 0);
    EXPECT_GT(strokes, 100);

    const QJsonObject settings = root.value("settings").toObject();
    EXPECT_FALSE(settings.value("owner").toString().isEmpty());
    EXPECT_FALSE(settings.value("membership").toObject().value("expirationDate").toString().isEmpty());
    const QJsonObject rigs = settings.value("equipments").toObject();
    EXPECT_GE(rigs.value("alarmDays").toInt(), 0);
    ASSERT_FALSE(rigs.value("equipment").toArray().isEmpty());
    EXPECT_FALSE(rigs.value("equipment").toArray().at(0).toObject().value("inspectionDate").toString().isEmpty());
    EXPECT_NE(settings.value("fallrates").toArray().at(2).toObject().value("speed").toDouble(), 22.3);
    EXPECT_EQ(root.value("summary").toObject().value("lastJump").toString(), "2025-09-27");
}

TEST_F(GenerateCommand, WrongOptionsAndAnUnwritableTargetWriteNothing)
{
    const std::vector<std::vector<std::string>> cases = {{},
                                                         {"--jumps", "-3"},
                                                         {"--jumps", "many"},
                                                         {"--jumps", "5", "--recordings", "6"},
                                                         {"--jumps", "5", "--samples", "-1"},
                                                         {"--jumps", "5", "--seed", "4294967296"},
                                                         {"--jumps", "5", "--colour", "red"}};
    const std::string path = m_dir / "x.tvz";
    for (const std::vector<std::string>& options : cases) {
        std::vector<std::string> arguments{"generate", path};
        arguments.insert(arguments.end(), options.begin(), options.end());
        SCOPED_TRACE(options.empty() ? "no options" : options.back());
        const CToolResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_NE(result.err.find("tervola generate"), std::string::npos) << result.err;
        EXPECT_FALSE(std::filesystem::exists(path));
    }
    // A target that cannot be written is the save's failure, not a wrong command line.
    const CToolResult result = Run({"generate", m_dir / "none/x.tvz", "--jumps", "3"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.ErrLines(), std::vector<std::string>{"The file could not be saved."});
}

} // namespace
