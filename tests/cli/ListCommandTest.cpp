#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <string>
#include <vector>

namespace {

// The reference logbook's jumps: 498 Utti 2024-06-01 09:05, 3000 m; 499 "Eloy, Arizona" 2024-06-01
// without a time, 2000 m; 500 Tervola 2024-06-02, 4000 m, 61 s typed, signed.
class ListCommand : public CToolTest
{
protected:
    CToolResult List(std::vector<std::string> arguments, const char* command = "list")
    {
        arguments.insert(arguments.begin(), {command, Write("r.tvz", TestLogbooks::Reference(), true)});
        return Run(arguments);
    }

    static QJsonDocument Json(const CToolResult& result)
    {
        QJsonParseError error{};
        QJsonDocument json = QJsonDocument::fromJson(QByteArray::fromStdString(result.out), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << result.out;
        return json;
    }
};

// A negated term after "--", sorted by date the other way; the empty signer leaves no blanks at
// the line's end; the count of the whole logbook last.
TEST_F(ListCommand, TableOfChosenColumns)
{
    const CToolResult result =
        List({"--units", "metric", "--columns", "n,date,place,exit,signer", "--sort", "-date", "--", "-signed:yes"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.OutLines(), (std::vector<std::string>{"Number  Date        Place          Exit [m]  Signed by",
                                                           "498     2024-06-01  Utti           3000",
                                                           "499     2024-06-01  Eloy, Arizona  2000", "2 of 3 jumps"}));
}

// Heights of a query in the display units; the query given as several arguments.
TEST_F(ListCommand, CsvRowsOfTheMatches)
{
    const CToolResult result =
        List({"--format", "csv", "--units", "imperial", "--columns", "number,exit,signer", "exit:13000..", "tervola"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.OutLines(), (std::vector<std::string>{"Number,Exit [ft],Signed by", "500,13123,Matti Virtanen"}));
}

TEST_F(ListCommand, JsonJumpsAsTheExportWritesThem)
{
    const CToolResult result = List({"--format", "json", "dz:\"eloy, arizona\""});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const QJsonArray jumps = Json(result).array();
    ASSERT_EQ(jumps.size(), 1);
    EXPECT_EQ(jumps.at(0).toObject().value("n").toInt(), 499);
    EXPECT_EQ(jumps.at(0).toObject().value("noteText").toString(), "Zwei Zeilen\r\nohne Komma");
}

// Export writes only what the query finds; the JSON's summary stays the logbook's.
TEST_F(ListCommand, ExportOfASubset)
{
    const CToolResult csv = List({"--format", "csv", "ff:60.."}, "export");
    ASSERT_EQ(csv.exitCode, 0) << csv.err;
    EXPECT_EQ(csv.out.rfind("Number,Date,", 0), 0u) << csv.out;
    EXPECT_NE(csv.out.find("\r\n500,2024-06-02,14:30,Tervola,"), std::string::npos) << csv.out;
    EXPECT_EQ(csv.out.find("\r\n49"), std::string::npos) << csv.out;

    const CToolResult json = List({"--format", "json", "date:2024-06-01", "--", "-utti"}, "export");
    ASSERT_EQ(json.exitCode, 0) << json.err;
    const QJsonObject root = Json(json).object();
    ASSERT_EQ(root.value("jumps").toArray().size(), 1);
    EXPECT_EQ(root.value("jumps").toArray().at(0).toObject().value("n").toInt(), 499);
    EXPECT_EQ(root.value("summary").toObject().value("numberOfJumps").toInt(), 500);
}

TEST_F(ListCommand, RefusesWithAMessage)
{
    const struct
    {
        std::vector<std::string> arguments;
        int exitCode;
        std::string err;
    } cases[] = {
        {{"date:2024-13"}, 1, "date:2024-13: no such month\n"},
        {{"spa", "--", "-kind:belly"}, 1, "-kind:belly: Standard, Vertical, Custom, Manual or Import\n"},
        {{"--columns", "n,colour"}, 2, "unknown column \"colour\""},
        {{"--format", "json", "--columns", "n"}, 2, "--columns applies to table and csv"},
        {{"--sort", "height"}, 2, "unknown column \"height\""},
    };
    for (const auto& c : cases) {
        const CToolResult result = List(c.arguments);
        EXPECT_EQ(result.exitCode, c.exitCode) << c.err;
        EXPECT_NE(result.err.find(c.err), std::string::npos) << result.err;
        EXPECT_EQ(result.out, "") << c.err;
    }
    const CToolResult missing = Run({"list", (m_dir.Path() / "missing.tvz").string(), "spa"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.err, "The file could not be opened.\n");
}

} // namespace
