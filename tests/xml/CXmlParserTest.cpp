#include "ParseEverySplit.h"

#include <gtest/gtest.h>

namespace {

struct EventCase
{
    const char* title;
    std::string input;
    bool ok;
    std::string events;
};

void PrintTo(const EventCase& c, std::ostream* os)
{
    *os << c.title;
}

class ParserEvents : public testing::TestWithParam<EventCase>
{
};

TEST_P(ParserEvents, ReportsTheSameEventsForEveryChunkSplit)
{
    const EventCase& c = GetParam();
    const ParseOutcome outcome = ParseEverySplit(c.input);
    EXPECT_EQ(outcome.ok, c.ok);
    EXPECT_EQ(Joined(outcome.events), c.events);
}

// Structure, the empty-element economy and the line-oriented text rules.
INSTANTIATE_TEST_SUITE_P(
    Structure, ParserEvents,
    testing::Values(
        EventCase{"nested elements", "<r><a>t</a><b>u v</b></r>", true,
                  "<r> | <a> | </a>'t' | <b> | </b>'u v' | </r>''"},
        EventCase{"empty element without attributes reports only its end", "<r><a/></r>", true,
                  "<r> | </a>'' | </r>''"},
        EventCase{"empty element with attributes reports start then end", "<r><a x=\"1\"/></r>", true,
                  "<r> | <a x='1'> | </a>'' | </r>''"},
        EventCase{"blank before '>' in a start tag", "<a >t</a>", true, "<a> | </a>'t'"},
        EventCase{"whitespace between attributes", "<a\tx=\"1\"\r\n y=\"2\">t</a>", true, "<a x='1' y='2'> | </a>'t'"},
        EventCase{"later duplicate attribute replaces the earlier one", "<a x=\"1\" x=\"2\"/>", true,
                  "<a x='2'> | </a>''"},
        EventCase{"bytes after a value up to whitespace are ignored", "<a x=\"1\"y=\"2\"/>", true,
                  "<a x='1'> | </a>''"},
        EventCase{"blanks around '=' belong to the name or are skipped", "<a x = \"1\"/>", true, "<a x ='1'> | </a>''"},
        EventCase{"unquoted bytes before the value's quote are skipped", "<a x=abc\"1\"/>", true, "<a x='1'> | </a>''"},
        EventCase{"'>' inside an attribute value is data", "<a x=\"1>2\"/>", true, "<a x='1>2'> | </a>''"},
        EventCase{"attribute name cut by '>' is dropped", "<a x=\"1\" y>t</a>", true, "<a x='1'> | </a>'t'"},
        EventCase{"blank before '/>' leaves the element open", "<a x=\"1\" />", false, "<a x='1'>"},
        EventCase{"text is cut at a line break", "<a>line1\r\nline2</a>", true, "<a> | </a>'line2'"},
        EventCase{"leading blanks stay, leading tabs go", "<a>x\n\t  y </a>", true, "<a> | </a>'  y '"},
        EventCase{"blanks before a line break keep their mark", "<a>  \n b</a>", true, "<a> | </a>'  \n b'"},
        EventCase{"layout between tags is not text", "<r>\r\n  <a>t</a>\r\n</r>", true, "<r> | <a> | </a>'t' | </r>''"},
        EventCase{"text survives until an end tag clears it", "<r><a>x\n<b/></a><c/></r>", true,
                  "<r> | <a> | </b>'x' | </a>'x' | </c>'' | </r>''"},
        EventCase{"text before a start tag reaches the next end tag", "<r><b>y<c></c></b></r>", true,
                  "<r> | <b> | <c> | </c>'y' | </b>'' | </r>''"},
        EventCase{"control bytes in text", "<a>\x01z</a>", true, "<a> | </a>'\x01z'"},
        EventCase{"control bytes are part of a tag name", "<a\x02z>t</a\x02z>", true, "<a\x02z> | </a\x02z>'t'"},
        EventCase{"control byte starts an attribute name", "<a \x01=\"v\"/>", true, "<a \x01='v'> | </a>''"},
        EventCase{"'=' and quotes do not end a tag name", "<a\x01=\"v\"/>", true, "</a\x01=\"v\">''"},
        EventCase{"end tag with nothing open goes to the root", "</a>", true, "</a>''"},
        EventCase{"mismatched end tag pops nothing", "<a></b>", false, "<a> | </b>''"},
        EventCase{"empty element named like its parent closes the parent", "<p><p/></p>", true,
                  "<p> | </p>'' | </p>''"},
        EventCase{"a byte other than '>' after '/' stops the parse", "<r><a/ ><b/></r>", false, "<r>"},
        EventCase{"unclosed element fails", "<r><a>t</a>", false, "<r> | <a> | </a>'t'"},
        EventCase{"text at the end of the input is never captured", "<r/>tail", true, "</r>''"},
        EventCase{"empty input", "", true, ""}));

// Entities and byte decoding as handlers see them, in names, attributes and text.
INSTANTIATE_TEST_SUITE_P(
    Decoding, ParserEvents,
    testing::Values(
        EventCase{"UTF-8 by default", "<a>\xC3\xA9\xE2\x82\xAC</a>", true, "<a> | </a>'\xC3\xA9?'"},
        EventCase{"declared ISO-8859-1", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?><a v=\"\xE9\">\xC3\xA9</a>",
                  true, "<a v='\xC3\xA9'> | </a>'\xC3\x83\xC2\xA9'"},
        EventCase{"declared utf-8 in lower case", "<?xml version=\"1.0\" encoding=\"utf-8\"?><a>\xC3\xA9</a>", true,
                  "<a> | </a>'\xC3\xA9'"},
        EventCase{"ISO-8859-1 in lower case is not recognised",
                  "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><a>\xC3\xA9</a>", true, "<a> | </a>'\xC3\xA9'"},
        EventCase{"a declaration after the first tag is an element", "<r><?xml encoding=\"ISO-8859-1\"?></r>", false,
                  "<r> | <?xml encoding='ISO-8859-1'> | </r>''"},
        EventCase{"entity in an element name", "<a&#x41;>t</a&#x41;>", true, "<aA> | </aA>'t'"}));

TEST(ParserDecode, FollowsTheByteTables)
{
    struct Case
    {
        std::string raw;
        XmlEncoding encoding;
        std::string decoded;
    };
    const Case cases[] = {
        {"plain", Utf8, "plain"},
        {"&amp;&lt;&gt;&quot;&apos;", Utf8, "&<>\"'"},
        {"&#x41;&#x0041;&#x00e9;&#x20AC;", Utf8, "AA\xC3\xA9\xE2\x82\xAC"},
        {"[&#x041;][&#x4;][&#x00041;][&#xZZ;]", Utf8, "[][][][]"},
        {"&#65;&#255;&#256;&#99999999999999999999999;", Utf8, "A\xC3\xBF??"},
        {"[&#;][&#X41;][&#6a;][&AMP;]", Utf8, "[][][][]"},
        {"&#x0D;&#x0A;&#9;", Utf8, "\r\n\t"},
        {std::string("&#0;x", 5), Utf8, std::string("\0x", 2)},
        {"a&b;c&nbsp;d", Utf8, "acd"},
        {"keep&drop the rest", Utf8, "keep"},
        {"&#xD83D;&#xDE00;", Utf8, "\xF0\x9F\x98\x80"},
        {"&#xD83D;&nbsp;&#xDE00;", Utf8, "\xF0\x9F\x98\x80"},
        {"&#xD83D;x", Utf8, "?x"},
        {"&#xDE00;&#xD83D;", Utf8, "??"},
        {"&#xD83D;&#xD83D;&#xDE00;", Utf8, "?\xF0\x9F\x98\x80"},
        {"\xC3\xA9\xC2\xA0", Utf8, "\xC3\xA9\xC2\xA0"},
        {"&#xD83D;\xC3\xA9", Utf8, "?\xC3\xA9"},
        {"\xC4\x80\xDF\xBF", Utf8, "??"},
        {"0123456789\xC3\xA9"
         "Abcdefgh&amp;\xC3\xA9",
         Utf8,
         "0123456789\xC3\xA9"
         "Abcdefgh&\xC3\xA9"},
        {"\xE2\x82\xAC|\xF0\x9F\x98\x80|", Utf8, "?|?|"},
        // Overlong forms are not rejected: only the resulting code counts.
        {"\xE0\x83\xA9", Utf8, "\xC3\xA9"},
        // A stray continuation byte starts a five-byte sequence masked with 0x3F.
        {"\xA9", Utf8, ")"},
        {"\x80\x80\x80\x80\x80\x80", Utf8, std::string("\0\0", 2)},
        {"\xC3", Utf8, "\x03"},
        {"\xC3z", Utf8, "\x03z"},
        {"\xC3&amp;", Utf8, "\x03&"},
        {"\xC2\xA9\xA9", Utf8, "\xC2\xA9)"},
        {"\xFC\x80\x80\x80\x80\x81", Utf8, "\x01"},
        {"\xFD\x80\x80\x80\x80\x81", Utf8, "?"},
        {"\xE9", Latin1, "\xC3\xA9"},
        {"\xC3\xA9&#xE9;", Latin1, "\xC3\x83\xC2\xA9\xC3\xA9"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.raw);
        EXPECT_EQ(CXmlParser::Decode(c.raw, c.encoding), c.decoded);
    }
}

TEST(ParserErrors, ComposeTheParserErrorMessage)
{
    struct Case
    {
        const char* input;
        std::function<void(HandlerSet&)> setup;
        std::string error;
        std::string events;
    };
    const Case cases[] = {
        {"<r><jump z=\"1\" a=\"&amp;\xC3\xA9\">t</jump></r>", [](HandlerSet& s) { s.Root().RefuseOpen("jump"); },
         "Parser error: Open Tag: jump, a=\"&amp;\xC3\x83\xC2\xA9\" z=\"1\"", "<r> | <jump z='1' a='&\xC3\xA9'>"},
        {"<r><a\xC3\xA9>t</a\xC3\xA9></r>", [](HandlerSet& s) { s.Root().RefuseOpen("a\xC3\xA9"); },
         "Parser error: Open Tag: a\xC3\xA9", "<r> | <a\xC3\xA9>"},
        {"<r><a>t&amp;u</a><b/></r>", [](HandlerSet& s) { s.Root().RefuseClose("a"); },
         "Parser error: Close Tag: a, t&u", "<r> | <a> | </a>'t&u'"},
        {"<r><a></a><b/></r>", [](HandlerSet& s) { s.Root().RefuseClose("a"); }, "Parser error: Close Tag: a",
         "<r> | <a> | </a>''"},
        {"<r><a/></r>", [](HandlerSet& s) { s.Root().RefuseClose("a", "Mine"); }, "Mine", "<r> | </a>''"},
        {"<r><a x=\"1\"/></r>", [](HandlerSet& s) { s.Root().RefuseOpen("a", "No a"); }, "No a", "<r> | <a x='1'>"},
        {"<r><a></r>", {}, "", "<r> | <a> | </r>''"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.input);
        const ParseOutcome outcome = ParseEverySplit(c.input, c.setup);
        EXPECT_FALSE(outcome.ok);
        EXPECT_EQ(outcome.error, c.error);
        EXPECT_EQ(Joined(outcome.events), c.events);
    }
}

TEST(ParserErrors, MessageIdLoadsTheStringTableText)
{
    CXmlParser parser(nullptr);
    parser.SetErrorMessage(4016);
    EXPECT_EQ(parser.GetErrorMessage(), "Parser error: %1");
    parser.SetErrorMessage(std::string("own"));
    EXPECT_EQ(parser.GetErrorMessage(), "own");
    parser.Reset();
    EXPECT_EQ(parser.GetErrorMessage(), "");
}

TEST(ParserRouting, DelegatedElementsReachTheChildUntilTheirEndTag)
{
    const std::string input = "<log><jump n=\"1\"><dz>X</dz><sig><p x=\"1\"/></sig></jump><jump n=\"2\"/><end/></log>";
    const ParseOutcome outcome = ParseEverySplit(input, [](HandlerSet& s) {
        RecordingHandler& jump = s.Add("J");
        RecordingHandler& sig = s.Add("S");
        s.Root().DelegateOn("jump", &jump);
        jump.DelegateOn("sig", &sig);
    });
    EXPECT_TRUE(outcome.ok);
    EXPECT_EQ(Joined(outcome.events),
              "<log> | <jump n='1'> | J<dz> | J</dz>'X' | J<sig> | S<p x='1'> | S</p>'' | S</sig>'' | "
              "J</jump>'' | <jump n='2'> | J</jump>'' | </end>'' | </log>''");
}

TEST(ParserRouting, DelegateOutsideAStartTagIsIgnored)
{
    const ParseOutcome outcome = ParseEverySplit("<r><a>t</a><b/></r>", [](HandlerSet& s) {
        RecordingHandler& other = s.Add("X");
        s.Root().DelegateInClose(&other);
    });
    EXPECT_TRUE(outcome.ok);
    EXPECT_EQ(Joined(outcome.events), "<r> | <a> | </a>'t' | </b>'' | </r>''");
}

TEST(ParserLimits, DeepNestingStopsWithAnErrorText)
{
    auto nested = [](int depth) {
        std::string s;
        for (int i = 0; i < depth; ++i)
            s += "<e>";
        for (int i = 0; i < depth; ++i)
            s += "</e>";
        return s;
    };
    EXPECT_TRUE(ParseInChunks(nested(256), 0, {}).ok);
    const ParseOutcome deep = ParseEverySplit(nested(257));
    EXPECT_FALSE(deep.ok);
    EXPECT_EQ(deep.error, "Parser error: element nesting deeper than 256 levels");
    EXPECT_EQ(deep.events.size(), 256u);

    const ParseOutcome limited = ParseEverySplit(nested(6), {}, CXmlParser::kDefaultMaxTokenBytes, 5);
    EXPECT_FALSE(limited.ok);
    EXPECT_EQ(limited.error, "Parser error: element nesting deeper than 5 levels");
}

TEST(ParserLimits, LongTokensStopWithAnErrorText)
{
    const std::string fits = "<r><a v=\"" + std::string(100, 'v') + "\">" + std::string(100, 't') + "</a></r>";
    EXPECT_TRUE(ParseEverySplit(fits, {}, 100).ok);

    const std::string tokens[] = {
        "<r><a v=\"" + std::string(101, 'v') + "\"/></r>",
        "<r>" + std::string(101, 't') + "</r>",
        "<r><" + std::string(101, 'n') + "/></r>",
        "<r><a " + std::string(101, 'n') + "=\"1\"/></r>",
        // A run of blanks between tags is a pending token too, even though it is dropped.
        "<r>" + std::string(101, ' ') + "<a/></r>",
    };
    for (const std::string& input : tokens) {
        SCOPED_TRACE(input);
        const ParseOutcome outcome = ParseEverySplit(input, {}, 100);
        EXPECT_FALSE(outcome.ok);
        EXPECT_EQ(outcome.error, "Parser error: token longer than 100 bytes");
        EXPECT_EQ(Joined(outcome.events), "<r>");
    }
}

TEST(ParserString, ConvertsTheTextToLatin1First)
{
    std::vector<std::string> log;
    RecordingHandler root("", log);
    CXmlParser parser(&root);

    EXPECT_TRUE(parser.ParseString(""));
    EXPECT_TRUE(log.empty());

    EXPECT_TRUE(parser.ParseString("<n v=\"\xC3\xA9\">caf\xC3\xA9 \xE2\x82\xAC\xF0\x9F\x98\x80 &#x20AC;</n>"));
    EXPECT_EQ(parser.GetEncoding(), Latin1);
    EXPECT_EQ(Joined(log), "<n v='\xC3\xA9'> | </n>'caf\xC3\xA9 ?? \xE2\x82\xAC'");

    // A declaration inside the text still switches the decoding: the Latin-1 byte 0xE9 is
    // then the lead of a three-byte sequence that ends at '<', leaving 0xE9 & 0x0F = 9.
    log.clear();
    EXPECT_TRUE(parser.ParseString("<?xml version=\"1.0\" encoding=\"UTF-8\"?><n>\xC3\xA9</n>"));
    EXPECT_EQ(parser.GetEncoding(), Utf8);
    EXPECT_EQ(Joined(log), "<n> | </n>'\t'");

    log.clear();
    EXPECT_FALSE(parser.ParseString("<n>"));
    EXPECT_EQ(parser.GetErrorMessage(), "");
}

} // namespace
