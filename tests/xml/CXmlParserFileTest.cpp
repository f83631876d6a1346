#include "ParseEverySplit.h"
#include "tests/common/CScratchFolder.h"

#include <gtest/gtest.h>

namespace {

class ParserFiles : public testing::Test
{
protected:
    std::string WritePlain(const std::string& name, const std::string& bytes)
    {
        EXPECT_TRUE(WriteBytes(m_dir / name, bytes));
        return m_dir / name;
    }
    std::string WriteGzip(const std::string& name, const std::string& bytes)
    {
        EXPECT_TRUE(::WriteGzip(m_dir / name, bytes));
        return m_dir / name;
    }
    CScratchFolder m_dir{"xml"};
};

// A document of a few hundred kilobytes whose tags, values and texts fall across every read
// boundary, with non-ASCII text to decode.
std::string LargeDocument()
{
    std::string doc = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?><log size=\"3000\">";
    for (int i = 0; i < 3000; ++i) {
        doc += "<jump n=\"" + std::to_string(i) + "\" note=\"caf\xC3\xA9 &amp; " + std::string(i % 37, 'x') +
               "\"><dz>Tervola " + std::to_string(i * 7) + " \xC3\xBC</dz>\r\n  <exit>4000</exit><w/></jump>";
    }
    return doc + "</log>";
}

TEST_F(ParserFiles, PlainAndGzipFilesGiveTheEventsOfTheText)
{
    const std::string doc = LargeDocument();
    const ParseOutcome expected = ParseInChunks(doc, 0, {});
    ASSERT_TRUE(expected.ok);
    ASSERT_EQ(expected.events.size(), 1u + 3000u * 7u + 1u);

    const std::string plain = WritePlain("log.tvl", doc);
    const std::string gzip = WriteGzip("log.tvz", doc);
    struct Case
    {
        std::string path;
        bool gzip;
    };
    // zlib's reader passes an uncompressed file through unchanged.
    for (const Case& c : {Case{plain, false}, Case{gzip, true}, Case{plain, true}}) {
        SCOPED_TRACE(c.path);
        HandlerSet set;
        CXmlParser parser(&set.Root());
        const bool ok = c.gzip ? parser.ParseGzipFile(c.path) : parser.ParseFile(c.path);
        EXPECT_TRUE(ok);
        EXPECT_EQ(set.log, expected.events);
        EXPECT_EQ(parser.GetErrorMessage(), "");
    }
}

TEST_F(ParserFiles, FailuresReportFalse)
{
    const std::string missing = m_dir / "missing.tvl";
    HandlerSet set;
    CXmlParser parser(&set.Root());
    parser.SetErrorMessage(std::string("left over"));
    EXPECT_FALSE(parser.ParseFile(missing));
    EXPECT_EQ(parser.GetErrorMessage(), "");
    EXPECT_FALSE(parser.ParseGzipFile(missing));
    EXPECT_EQ(parser.GetErrorMessage(), "");

    EXPECT_FALSE(parser.ParseFile(WritePlain("open.tvl", "<log><jump>")));
    EXPECT_EQ(parser.GetErrorMessage(), "");
    EXPECT_FALSE(parser.ParseGzipFile(WriteGzip("open.tvz", "<log><jump>")));
    EXPECT_EQ(parser.GetDepth(), 2u);

    set.Root().RefuseOpen("jump");
    EXPECT_FALSE(parser.ParseGzipFile(WriteGzip("refused.tvz", "<log><jump n=\"1\"/></log>")));
    EXPECT_EQ(parser.GetErrorMessage(), "Parser error: Open Tag: jump, n=\"1\"");
}

TEST_F(ParserFiles, EachParseStartsFromUtf8)
{
    HandlerSet set;
    CXmlParser parser(&set.Root());
    EXPECT_TRUE(
        parser.ParseFile(WritePlain("latin.tvl", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?><a>\xE9</a>")));
    EXPECT_EQ(parser.GetEncoding(), Latin1);
    EXPECT_TRUE(parser.ParseFile(WritePlain("utf.tvl", "<a>\xC3\xA9</a>")));
    EXPECT_EQ(parser.GetEncoding(), Utf8);
    EXPECT_EQ(Joined(set.log), "<a> | </a>'\xC3\xA9' | <a> | </a>'\xC3\xA9'");
}

} // namespace
