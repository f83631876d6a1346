#include "ParseEverySplit.h"
#include "tests/common/CFailingOutput.h"
#include "tests/common/CScratchFolder.h"

#include "xml/CXmlStringOutput.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlUtf8.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace {

const std::string kUtf8Declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>";
const std::string kLatin1Declaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>";

// A small logbook-like sequence of writer calls using every element form.
void WriteSample(CXmlWriter& writer)
{
    writer.StartElement("tvl", "version", "1.2");
    writer.WriteElement("dz", "Tervola");
    writer.WriteElement("note", "");
    writer.WriteElement("eq", "", "n", "5");
    writer.WriteElement("wind", "", "d", "90", "s", "5");
    writer.WriteElement("p", "t\xC3\xA9", {{"a", "1"}, {"b", "<"}, {"", "skipped"}, {"d", " "}});
    writer.StartElement("jumps", {{"size", "0"}, {"k", "v"}});
    writer.EndElement();
    writer.EndElement();
}

std::string WriteToString(XmlEncoding encoding, unsigned options, const std::function<void(CXmlWriter&)>& body)
{
    CXmlWriter writer(encoding, XmlPlainFile, options);
    auto output = std::make_unique<CXmlStringOutput>();
    const auto bytes = output->Bytes();
    EXPECT_TRUE(writer.Open(std::move(output)));
    body(writer);
    EXPECT_TRUE(writer.Close());
    EXPECT_FALSE(writer.IsOpen());
    return *bytes;
}

TEST(XmlWriter, WritesExactBytesForEachOptionSet)
{
    struct Case
    {
        XmlEncoding encoding;
        unsigned options;
        std::string bytes;
    };
    const Case cases[] = {
        {Utf8, Compact | SkipEmpty,
         kUtf8Declaration + "<tvl version=\"1.2\"><dz>Tervola</dz><eq n=\"5\"/><wind d=\"90\" s=\"5\"/>"
                            "<p a=\"1\" b=\"&lt;\" d=\"&#x20;\">t\xC3\xA9</p><jumps size=\"0\" k=\"v\"></jumps></tvl>"},
        {Latin1, Compact,
         kLatin1Declaration + "<tvl version=\"1.2\"><dz>Tervola</dz><note/><eq n=\"5\"/><wind d=\"90\" s=\"5\"/>"
                              "<p a=\"1\" b=\"&lt;\" d=\"&#x20;\">t\xE9</p><jumps size=\"0\" k=\"v\"></jumps></tvl>"},
        {Utf8, 0,
         kUtf8Declaration + "\r\n<tvl version=\"1.2\">\r\n  <dz>Tervola</dz>\r\n  <note/>\r\n  <eq n=\"5\"/>"
                            "\r\n  <wind d=\"90\" s=\"5\"/>\r\n  <p a=\"1\" b=\"&lt;\" d=\"&#x20;\">t\xC3\xA9</p>"
                            "\r\n  <jumps size=\"0\" k=\"v\">\r\n  </jumps>\r\n</tvl>\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.options);
        EXPECT_EQ(WriteToString(c.encoding, c.options, WriteSample), c.bytes);
    }
}

TEST(XmlWriter, EscapesAndEncodesText)
{
    struct Case
    {
        std::string text;
        std::string utf8;
        std::string latin1;
    };
    const Case cases[] = {
        {"a<b & \"c\"", "a&lt;b &amp; &quot;c&quot;", "a&lt;b &amp; &quot;c&quot;"},
        {"it's >", "it&apos;s &gt;", "it&apos;s &gt;"},
        {"\xC3\xA9\xC3\xBF\xC2\x80", "\xC3\xA9\xC3\xBF\xC2\x80", "\xE9\xFF\x80"},
        {"x\r\ny\t\x1F", "x&#x0D;&#x0A;y&#x09;&#x1F;", "x&#x0D;&#x0A;y&#x09;&#x1F;"},
        {std::string("\0", 1), "&#x00;", "&#x00;"},
        {" ", "&#x20;", "&#x20;"},
        {"  ", "  ", "  "},
        {"", "", ""},
        {"\x7F~", "\x7F~", "\x7F~"},
        {"\xE2\x82\xAC\xC4\x80\xEF\xBF\xBF", "&#x20AC;&#x0100;&#xFFFF;", "&#x20AC;&#x0100;&#xFFFF;"},
        {"\xF0\x9F\x98\x80", "&#xD83D;&#xDE00;", "&#xD83D;&#xDE00;"},
        {"\xF4\x8F\xBF\xBF", "&#xDBFF;&#xDFFF;", "&#xDBFF;&#xDFFF;"},
        // Malformed UTF-8 input: one '?' per byte that cannot start a character.
        {"a\xFFz\xC3(\xED\xA0\x80\xC0\xAF", "a?z?(?????", "a?z?(?????"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        std::string utf8 = "[";
        CXmlWriter::EscapeAppend(c.text, Utf8, utf8);
        EXPECT_EQ(utf8, "[" + c.utf8);
        std::string latin1;
        CXmlWriter::EscapeAppend(c.text, Latin1, latin1);
        EXPECT_EQ(latin1, c.latin1);
    }
}

// Whatever Unicode text the writer escapes, the reader gives back, in both encodings.
TEST(XmlWriter, TextRoundTripsThroughTheReader)
{
    std::mt19937 random(4711);
    const std::uint32_t pools[][2] = {{0, 0x7F}, {0x80, 0xFF}, {0x100, 0xD7FF}, {0xE000, 0xFFFF}, {0x10000, 0x10FFFF}};
    std::uniform_int_distribution<int> pick(0, 4);
    std::uniform_int_distribution<int> length(0, 12);
    for (int round = 0; round < 150; ++round) {
        std::string text;
        for (int n = length(random); n > 0; --n) {
            const auto& pool = pools[pick(random)];
            std::uniform_int_distribution<std::uint32_t> cp(pool[0], pool[1]);
            XmlUtf8::Append(text, cp(random));
        }
        for (XmlEncoding encoding : {Utf8, Latin1}) {
            SCOPED_TRACE(testing::Message() << "round " << round << " encoding " << encoding);
            // Blanks alone between tags are layout to the reader, so the text gets a visible frame.
            const std::string bytes = WriteToString(
                encoding, Compact, [&](CXmlWriter& w) { w.WriteElement("e", "[" + text + "]", "v", text); });
            const ParseOutcome outcome = ParseEverySplit(bytes);
            EXPECT_TRUE(outcome.ok);
            EXPECT_EQ(outcome.events, "<e v='" + text + "'> | </e>'[" + text + "]'");
        }
    }
}

TEST(XmlWriter, CloseEndsOpenElementsInnermostFirst)
{
    const std::string bytes = WriteToString(Utf8, 0, [](CXmlWriter& w) {
        w.EndElement(); // nothing open: nothing written
        w.StartElement("a");
        w.StartElement("b");
        w.StartElement("c");
        EXPECT_EQ(w.GetDepth(), 3u);
    });
    EXPECT_EQ(bytes, kUtf8Declaration + "\r\n<a>\r\n  <b>\r\n    <c>\r\n    </c>\r\n  </b>\r\n</a>\r\n");

    CXmlWriter writer(Utf8, XmlPlainFile, Compact);
    EXPECT_TRUE(writer.Close()); // never opened: nothing to do
    writer.WriteElement("ignored", "x");
    EXPECT_FALSE(writer.Failed());
}

TEST(XmlWriter, FailedWritesAreStickyAndCloseReportsThem)
{
    struct Case
    {
        std::size_t capacity;
        bool closeFails;
        bool closeResult;
    };
    const std::string longText(100000, 'x');
    for (const Case& c :
         {Case{1u << 30, false, true}, Case{1u << 30, true, false}, Case{1000, false, false}, Case{0, false, false}}) {
        SCOPED_TRACE(c.capacity);
        CXmlWriter writer(Utf8, XmlPlainFile, Compact);
        ASSERT_TRUE(writer.Open(std::make_unique<CFailingOutput>(
            std::make_unique<CXmlStringOutput>(), CFailingOutput::Budget{c.capacity, 1 << 30, c.closeFails})));
        writer.StartElement("log");
        for (int i = 0; i < 3; ++i)
            writer.WriteElement("note", longText);
        // Once more than a block is pending, the writer has handed bytes to the output.
        EXPECT_EQ(writer.Failed(), c.capacity < 300000);
        writer.WriteElement("tail", "t");
        EXPECT_EQ(writer.Close(), c.closeResult);
        EXPECT_EQ(writer.Failed(), !c.closeResult);
    }
}

void WriteLarge(CXmlWriter& writer)
{
    writer.StartElement("log", "size", "5000");
    for (int i = 0; i < 5000; ++i)
        writer.WriteElement("jump", "Tervola \xC3\xA4 " + std::to_string(i), "n", std::to_string(i));
    writer.EndElement();
}

TEST(XmlWriter, PlainAndGzipFilesHoldTheWrittenBytes)
{
    const CScratchFolder dir("xml");
    const std::string expected = WriteToString(Utf8, Compact | SkipEmpty, WriteLarge);
    ASSERT_GT(expected.size(), 150000u); // several 64 KiB blocks
    for (XmlOutputKind kind : {XmlPlainFile, XmlGzipFile}) {
        SCOPED_TRACE(kind);
        const std::string path = dir / (kind == XmlGzipFile ? "log.tvz" : "log.tvl");
        CXmlWriter writer(Utf8, kind, Compact | SkipEmpty);
        ASSERT_TRUE(writer.Open(path));
        WriteLarge(writer);
        EXPECT_TRUE(writer.Close());
        const std::string raw = ReadBytes(path);
        // gzip output starts with the gzip magic bytes and is much smaller than the text.
        EXPECT_EQ(raw.substr(0, 2) == "\x1F\x8B", kind == XmlGzipFile);
        EXPECT_EQ(kind == XmlGzipFile ? ReadGzip(path) : raw, expected);
        EXPECT_EQ(raw.size() < expected.size() / 4, kind == XmlGzipFile);

        // Open fails on an unwritable path, and writing then does nothing.
        CXmlWriter unwritable(Utf8, kind, 0);
        EXPECT_FALSE(unwritable.Open(dir / "missing/log.tvz"));
        EXPECT_FALSE(unwritable.IsOpen());
        unwritable.WriteElement("a", "b");
        EXPECT_FALSE(std::filesystem::exists(dir / "missing"));
    }
    // The destructor closes the output without ending the open elements.
    {
        CXmlWriter writer(Latin1, XmlPlainFile, 0);
        ASSERT_TRUE(writer.Open(dir / "cut.tvl"));
        writer.StartElement("tvl");
        writer.WriteElement("dz", "\xC3\xA9");
    }
    EXPECT_EQ(ReadBytes(dir / "cut.tvl"), kLatin1Declaration + "\r\n<tvl>\r\n  <dz>\xE9</dz>");
}

} // namespace
