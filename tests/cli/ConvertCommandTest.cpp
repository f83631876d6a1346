#include "tests/cli/CScratchDir.h"
#include "tests/cli/CToolRunner.h"
#include "tests/cli/TestLogbooks.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

bool IsGzip(const std::string& bytes)
{
    return bytes.size() > 2 && static_cast<unsigned char>(bytes[0]) == 0x1f &&
           static_cast<unsigned char>(bytes[1]) == 0x8b;
}

struct ConvertCase
{
    const char* name;
    const char* in;
    const char* out;
};

void PrintTo(const ConvertCase& value, std::ostream* os)
{
    *os << value.name;
} // names the case in listings

class ConvertCommand : public ::testing::TestWithParam<ConvertCase>
{
protected:
    QJsonObject ExportJson(const QString& path)
    {
        const CToolResult result =
            m_tool.Run({QStringLiteral("export"), path, QStringLiteral("--format"), QStringLiteral("json")});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        return QJsonDocument::fromJson(QByteArray::fromStdString(result.out)).object();
    }
    QString WriteReference(const QString& name)
    {
        return name.endsWith(QStringLiteral(".tvl"), Qt::CaseInsensitive)
                   ? m_dir.WritePlain(name, TestLogbooks::Reference())
                   : m_dir.WriteGzip(name, TestLogbooks::Reference());
    }

    CScratchDir m_dir;
    CToolRunner m_tool{m_dir.ConfigHome()};
};

TEST_P(ConvertCommand, SavesTheSameLogbookInTheContainerOfTheNewName)
{
    const ConvertCase& c = GetParam();
    const QString in = WriteReference(QString::fromLatin1(c.in));
    const QString out = m_dir.Path(QString::fromLatin1(c.out));
    const CToolResult result = m_tool.Run({QStringLiteral("convert"), in, out});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(result.out.empty());
    EXPECT_TRUE(result.err.empty());

    const std::string bytes = CScratchDir::Read(out);
    const bool plain = QString::fromLatin1(c.out).endsWith(QStringLiteral(".tvl"), Qt::CaseInsensitive);
    EXPECT_EQ(IsGzip(bytes), !plain);
    const std::string xml = plain ? bytes : CScratchDir::ReadGzip(out);
    EXPECT_EQ(xml.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\" ?><tvl ", 0), 0u) << xml.substr(0, 80);
    EXPECT_NE(xml.find("version=\"1.2\""), std::string::npos);
    EXPECT_NE(xml.find("creator=\"Tervola Pocket "), std::string::npos);
    EXPECT_NE(xml.find("<log size=\"3\">"), std::string::npos);

    QJsonObject before = ExportJson(in);
    QJsonObject after = ExportJson(out);
    EXPECT_EQ(before.take(QStringLiteral("version")).toString(), "1.1");
    EXPECT_EQ(after.take(QStringLiteral("version")).toString(), "1.2"); // saved in the program's own version
    EXPECT_EQ(before, after);
}

INSTANTIATE_TEST_SUITE_P(Containers, ConvertCommand,
                         ::testing::Values(ConvertCase{"PlainToGzip", "in.tvl", "out.tvz"},
                                           ConvertCase{"GzipToPlain", "in.tvz", "out.tvl"},
                                           ConvertCase{"GzipToGzip", "in.tvz", "out.tvz"},
                                           ConvertCase{"UpperCasePlain", "in.tvz", "OUT.TVL"},
                                           ConvertCase{"OtherNameIsGzip", "in.tvl", "out.xml"}),
                         [](const ::testing::TestParamInfo<ConvertCase>& param) {
                             return std::string(param.param.name);
                         });

TEST(ConvertCommandFile, SavingASavedFileAgainGivesTheSameText)
{
    CScratchDir dir;
    const CToolRunner tool(dir.ConfigHome());
    const QString in = dir.WritePlain(QStringLiteral("in.tvl"), TestLogbooks::Reference());
    const QString first = dir.Path(QStringLiteral("first.tvl"));
    const QString second = dir.Path(QStringLiteral("second.tvl"));
    ASSERT_EQ(tool.Run({QStringLiteral("convert"), in, first}).exitCode, 0);
    ASSERT_EQ(tool.Run({QStringLiteral("convert"), first, second}).exitCode, 0);
    EXPECT_EQ(TestLogbooks::WithoutRootMod(CScratchDir::Read(first)),
              TestLogbooks::WithoutRootMod(CScratchDir::Read(second)));
}

TEST(ConvertCommandFile, KeepsThePreviousFileAsBackup)
{
    CScratchDir dir;
    const CToolRunner tool(dir.ConfigHome());
    const QString in = dir.WriteGzip(QStringLiteral("in.tvz"), TestLogbooks::Reference());
    const std::string previous = "previous logbook bytes";
    const QString out = dir.WritePlain(QStringLiteral("Jumps.tvz"), previous);
    ASSERT_EQ(tool.Run({QStringLiteral("convert"), in, out}).exitCode, 0);
    EXPECT_EQ(CScratchDir::Read(dir.Path(QStringLiteral("Jumps.bak"))), previous);
    EXPECT_TRUE(IsGzip(CScratchDir::Read(out)));
}

TEST(ConvertCommandFile, UnwritableTargetReportsTheSaveMessage)
{
    CScratchDir dir;
    const CToolRunner tool(dir.ConfigHome());
    const QString in = dir.WriteGzip(QStringLiteral("in.tvz"), TestLogbooks::Reference());
    const QString out = dir.Path(QStringLiteral("no-such-folder/out.tvz"));
    const CToolResult result = tool.Run({QStringLiteral("convert"), in, out});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.out.empty());
    EXPECT_EQ(result.ErrLines(), std::vector<std::string>{"The file could not be saved."});
    EXPECT_FALSE(CScratchDir::Exists(out));
}

TEST(ConvertCommandFile, MissingInputIsAnOpenFailure)
{
    CScratchDir dir;
    const CToolRunner tool(dir.ConfigHome());
    const QString out = dir.Path(QStringLiteral("out.tvz"));
    const CToolResult result = tool.Run({QStringLiteral("convert"), dir.Path(QStringLiteral("missing.tvl")), out});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.ErrLines(), std::vector<std::string>{"The file could not be opened."});
    EXPECT_FALSE(CScratchDir::Exists(out));
}

} // namespace
