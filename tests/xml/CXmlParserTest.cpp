#include "ParseEverySplit.h"

#include <gtest/gtest.h>

namespace {

// Structure, the empty-element economy, the line-oriented text rules, and entities and byte
// decoding as handlers see them in names, attributes and text.
TEST(ParserEvents, AreTheSameForEveryChunkSplit)
{
    struct Case
    {
        const char* title;
        std::string input;
        bool ok;
        std::string events;
    };
    const std::string kDecl = "<?xml version=\"1.0\" encoding=\"";
    const Case cases[] = {
        {"nested elements", "<r><a>t</a><b>u v</b></r>", true, "<r> | <a> | </a>'t' | <b> | </b>'u v' | </r>''"},
        {"empty element without attributes: only its end", "<r><a/></r>", true, "<r> | </a>'' | </r>''"},
        {"empty element with attributes: start, end", "<r><a x=\"1\"/></r>", true, "<r> | <a x='1'> | </a>'' | </r>''"},
        {"blank before '>' in a start tag", "<a >t</a>", true, "<a> | </a>'t'"},
        {"whitespace between attributes", "<a\tx=\"1\"\r\n y=\"2\">t</a>", true, "<a x='1' y='2'> | </a>'t'"},
        {"a later duplicate attribute wins", "<a x=\"1\" x=\"2\"/>", true, "<a x='2'> | </a>''"},
        {"bytes after a value up to a blank are ignored", "<a x=\"1\"y=\"2\"/>", true, "<a x='1'> | </a>''"},
        {"blanks around '=' belong to the name or go", "<a x = \"1\"/>", true, "<a x ='1'> | </a>''"},
        {"unquoted bytes before the value's quote go", "<a x=abc\"1\"/>", true, "<a x='1'> | </a>''"},
        {"'>' inside an attribute value is data", "<a x=\"1>2\"/>", true, "<a x='1>2'> | </a>''"},
        {"attribute name cut by '>' is dropped", "<a x=\"1\" y>t</a>", true, "<a x='1'> | </a>'t'"},
        {"blank before '/>' leaves the element open", "<a x=\"1\" />", false, "<a x='1'>"},
        {"text is cut at a line break", "<a>line1\r\nline2</a>", true, "<a> | </a>'line2'"},
        {"leading blanks stay, leading tabs go", "<a>x\n\t  y </a>", true, "<a> | </a>'  y '"},
        {"blanks before a line break keep their mark", "<a>  \n b</a>", true, "<a> | </a>'  \n b'"},
        {"layout between tags is not text", "<r>\r\n  <a>t</a>\r\n</r>", true, "<r> | <a> | </a>'t' | </r>''"},
        {"text lasts until an end tag clears it", "<r><a>x\n<b/></a><c/></r>", true,
         "<r> | <a> | </b>'x' | </a>'x' | </c>'' | </r>''"},
        {"text before a start tag reaches the next end tag", "<r><b>y<c></c></b></r>", true,
         "<r> | <b> | <c> | </c>'y' | </b>'' | </r>''"},
        {"control bytes in text", "<a>\x01z</a>", true, "<a> | </a>'\x01z'"},
        {"control bytes are part of a tag name", "<a\x02z>t</a\x02z>", true, "<a\x02z> | </a\x02z>'t'"},
        {"control byte starts an attribute name", "<a \x01=\"v\"/>", true, "<a \x01='v'> | </a>''"},
        {"'=' and quotes do not end a tag name", "<a\x01=\"v\"/>", true, "</a\x01=\"v\">''"},
        {"end tag with nothing open goes to the root", "</a>", true, "</a>''"},
        {"mismatched end tag pops nothing", "<a></b>", false, "<a> | </b>''"},
        {"empty element named like its parent closes it", "<p><p/></p>", true, "<p> | </p>'' | </p>''"},
        {"a byte other than '>' after '/' stops", "<r><a/ ><b/></r>", false, "<r>"},
        {"unclosed element fails", "<r><a>t</a>", false, "<r> | <a> | </a>'t'"},
        {"text at the end of the input is never captured", "<r/>tail", true, "</r>''"},
        {"empty input", "", true, ""},
        {"UTF-8 by default", "<a>\xC3\xA9\xE2\x82\xAC</a>", true, "<a> | </a>'\xC3\xA9?'"},
        {"declared ISO-8859-1", kDecl + "ISO-8859-1\" ?><a v=\"\xE9\">\xC3\xA9</a>", true,
         "<a v='\xC3\xA9'> | </a>'\xC3\x83\xC2\xA9'"},
        {"declared utf-8 in lower case", kDecl + "utf-8\"?><a>\xC3\xA9</a>", true, "<a> | </a>'\xC3\xA9'"},
        {"ISO-8859-1 in lower case is not recognised", kDecl + "iso-8859-1\"?><a>\xC3\xA9</a>", true,
         "<a> | </a>'\xC3\xA9'"},
        {"a declaration after the first tag is an element", "<r><?xml encoding=\"ISO-8859-1\"?></r>", false,
         "<r> | <?xml encoding='ISO-8859-1'> | </r>''"},
        {"entity in an element name", "<a&#x41;>t</a&#x41;>", true, "<aA> | </aA>'t'"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.title);
        const ParseOutcome outcome = ParseEverySplit(c.input);
        EXPECT_EQ(outcome.ok, c.ok);
        EXPECT_EQ(outcome.events, c.events);
    }
}

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
        {"0123456789\xC3\xA9Xbcdefgh&amp;\xC3\xA9", Utf8, "0123456789\xC3\xA9Xbcdefgh&\xC3\xA9"},
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
        const char* refuse; // the tag the root handler refuses
        int messageId;      // the message it sets first, if any
        std::string error;
        std::string events;
    };
    const Case cases[] = {
        {"<r><jump z=\"1\" a=\"&amp;\xC3\xA9\">t</jump></r>", "<jump", 0,
         "Parser error: Open Tag: jump, a=\"&amp;\xC3\x83\xC2\xA9\" z=\"1\"", "<r> | <jump z='1' a='&\xC3\xA9'>"},
        {"<r><a\xC3\xA9>t</a\xC3\xA9></r>", "<a\xC3\xA9", 0, "Parser error: Open Tag: a\xC3\xA9", "<r> | <a\xC3\xA9>"},
        {"<r><a>t&amp;u</a><b/></r>", "</a", 0, "Parser error: Close Tag: a, t&u", "<r> | <a> | </a>'t&u'"},
        {"<r><a></a><b/></r>", "</a", 0, "Parser error: Close Tag: a", "<r> | <a> | </a>''"},
        {"<r><a/></r>", "</a", StringTable::IDS_NOT_TERVOLA, "The file is no valid tervola file.", "<r> | </a>''"},
        {"<r><a x=\"1\"/></r>", "<a", StringTable::IDS_NEED_TIME, "Please enter a time.", "<r> | <a x='1'>"},
        {"<r><a></r>", "", 0, "", "<r> | <a> | </r>''"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.input);
        const ParseOutcome outcome = ParseEverySplit(c.input, [&](HandlerSet& s) {
            s.Root().refuse = c.refuse;
            s.Root().messageId = c.messageId;
        });
        EXPECT_FALSE(outcome.ok);
        EXPECT_EQ(outcome.error, c.error);
        EXPECT_EQ(outcome.events, c.events);
    }
}

TEST(ParserRouting, AStartTagDelegatesItsElementUntilItsEndTagAnEndTagNothing)
{
    const std::string input = "<log><jump n=\"1\"><dz>X</dz><sig><p x=\"1\"/></sig></jump><jump n=\"2\"/><end/></log>";
    const ParseOutcome outcome = ParseEverySplit(input, [](HandlerSet& s) {
        RecordingHandler& jump = s.Add("J");
        s.Root().delegates["jump"] = &jump;
        jump.delegates["sig"] = &s.Add("S");
    });
    EXPECT_TRUE(outcome.ok);
    EXPECT_EQ(outcome.events, "<log> | <jump n='1'> | J<dz> | J</dz>'X' | J<sig> | S<p x='1'> | S</p>'' | S</sig>'' | "
                              "J</jump>'' | <jump n='2'> | J</jump>'' | </end>'' | </log>''");

    const ParseOutcome late =
        ParseEverySplit("<r><a>t</a><b/></r>", [](HandlerSet& s) { s.Root().lateDelegate = &s.Add("X"); });
    EXPECT_TRUE(late.ok);
    EXPECT_EQ(late.events, "<r> | <a> | </a>'t' | </b>'' | </r>''");
}

TEST(ParserLimits, DeepNestingAndLongTokensStopWithAnErrorText)
{
    auto nested = [](int depth) {
        std::string s;
        for (int i = 0; i < depth; ++i)
            s = "<e>" + s + "</e>";
        return s;
    };
    EXPECT_TRUE(ParseInChunks(nested(256), 0, {}).ok);
    const ParseOutcome deep = ParseEverySplit(nested(257));
    EXPECT_FALSE(deep.ok);
    EXPECT_EQ(deep.error, "Parser error: element nesting deeper than 256 levels");
    std::string starts = "<e>";
    for (int i = 1; i < 256; ++i)
        starts += " | <e>";
    EXPECT_EQ(deep.events, starts);
    const ParseOutcome limited = ParseEverySplit(nested(6), {}, CXmlParser::kDefaultMaxTokenBytes, 5);
    EXPECT_FALSE(limited.ok);
    EXPECT_EQ(limited.error, "Parser error: element nesting deeper than 5 levels");

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
        EXPECT_EQ(outcome.events, "<r>");
    }
}

TEST(ParserString, ConvertsTheTextToLatin1First)
{
    std::string log;
    RecordingHandler root("", log);
    CXmlParser parser(&root);

    EXPECT_TRUE(parser.ParseString(""));
    EXPECT_TRUE(log.empty());

    EXPECT_TRUE(parser.ParseString("<n v=\"\xC3\xA9\">caf\xC3\xA9 \xE2\x82\xAC\xF0\x9F\x98\x80 &#x20AC;</n>"));
    EXPECT_EQ(parser.GetEncoding(), Latin1);
    EXPECT_EQ(log, "<n v='\xC3\xA9'> | </n>'caf\xC3\xA9 ?? \xE2\x82\xAC'");

    // A declaration inside the text still switches the decoding: the Latin-1 byte 0xE9 is
    // then the lead of a three-byte sequence that ends at '<', leaving 0xE9 & 0x0F = 9.
    log.clear();
    EXPECT_TRUE(parser.ParseString("<?xml version=\"1.0\" encoding=\"UTF-8\"?><n>\xC3\xA9</n>"));
    EXPECT_EQ(parser.GetEncoding(), Utf8);
    EXPECT_EQ(log, "<n> | </n>'\t'");

    // A new parse clears the message.
    parser.SetErrorMessage(4016);
    EXPECT_EQ(parser.GetErrorMessage().id, 4016);
    EXPECT_FALSE(parser.ParseString("<n>"));
    EXPECT_TRUE(parser.GetErrorMessage().Empty());
}

} // namespace
