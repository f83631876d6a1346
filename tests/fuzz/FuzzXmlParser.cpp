#include "FuzzFiles.h"
#include "FuzzTargets.h"
#include "resources/StringTable.h"
#include "xml/CXmlHandler.h"
#include "xml/CXmlParser.h"
#include "xml/XmlValues.h"

#include <algorithm>
#include <bit>
#include <memory>

namespace {

constexpr std::uint64_t kFnvBasis = 0xCBF29CE484222325ull;

// FNV-1a of bytes, going on from h.
std::uint64_t Fnv(std::string_view bytes, std::uint64_t h = kFnvBasis)
{
    for (unsigned char c : bytes)
        h = (h ^ c) * 0x100000001B3ull;
    return h;
}

// The reader's limits: small ones for half of the inputs, so that the limit paths are reached too.
struct Limits
{
    std::size_t token;
    std::size_t depth;
    std::size_t input;
};
constexpr Limits kDefaultLimits{CXmlParser::kDefaultMaxTokenBytes, CXmlParser::kDefaultMaxDepth,
                                CXmlParser::kDefaultMaxInputBytes};
constexpr Limits kLimitsByHash[4] = {kDefaultLimits, kDefaultLimits, {64, 8, 1000}, {700, 40, 3000}};

// What the handlers of one parse saw, folded into a digest and a count so that two parses of the
// same input can be compared without keeping every event, and the first broken property any
// handler noticed.
struct Transcript
{
    // The separator keeps "ab" + "c" apart from "a" + "bc".
    void Add(std::string_view piece) { digest = Fnv("\x1F", Fnv(piece, digest)); }
    void Fail(std::string text)
    {
        if (problem.empty())
            problem = std::move(text);
    }
    std::uint64_t digest = kFnvBasis;
    std::size_t events = 0;
    std::string problem;
};

// On every event it calls each accessor the parser offers, checks their answers against each
// other and against the limits in force, and folds the event into the transcript. Start tags
// named "stop" and end tags named "halt" are refused (with a text of the handler's own or a
// numbered message); elements whose name begins with 'd' are delegated to the child, if any.
class CFuzzHandler : public CXmlHandler
{
public:
    CFuzzHandler(char label, CFuzzHandler* child, Transcript& transcript, const Limits& limits)
        : m_label(label), m_child(child), m_transcript(transcript), m_limits(limits)
    {
    }

    bool OnOpenTag(CXmlParser& parser) override
    {
        const std::string_view name = Event(parser, "open");
        CheckAttributes(parser);
        // The text of an open tag is whatever came before it; reading it must be harmless.
        CheckDecoded(parser, parser.GetElementTextRaw(), parser.GetElementText(), "text at a start tag");
        const std::size_t depth = parser.GetDepth();
        if (depth == 0 || depth > m_limits.depth)
            m_transcript.Fail("depth " + std::to_string(depth) + " at a start tag");
        m_transcript.Add(std::to_string(depth));
        if (!name.empty() && name[0] == 'd' && m_child != nullptr)
            parser.Delegate(m_child);
        return name != "stop" || Refuse(parser, parser.GetAttributeCount() % 2 == 1);
    }

    bool OnCloseTag(CXmlParser& parser) override
    {
        const std::string_view name = Event(parser, "close");
        const std::string_view raw = parser.GetElementTextRaw();
        const std::string& text = parser.GetElementText();
        CheckDecoded(parser, raw, text, "element text");
        m_transcript.Add(text);
        // The typed readers see the raw text, as the records use them.
        int number = 0;
        double value = 0;
        bool flag = false;
        m_transcript.Add(XmlIntFromBytes(raw, number, true) ? std::to_string(number) : "-");
        m_transcript.Add(XmlDoubleFromBytes(raw, value, true) ? "d" : "-");
        m_transcript.Add(XmlBoolFromBytes(raw, flag) ? (flag ? "t" : "f") : "-");
        parser.Delegate(this); // outside a start tag the parser ignores it
        return name != "halt" || Refuse(parser, text.size() % 2 == 1);
    }

private:
    // Counts and folds in the event and checks its element name; returns the name.
    std::string_view Event(const CXmlParser& parser, std::string_view kind)
    {
        ++m_transcript.events;
        m_transcript.Add({&m_label, 1});
        m_transcript.Add(kind);
        const std::string_view name = parser.GetElementName();
        CheckDecoded(parser, parser.GetElementNameRaw(), name, "element name");
        // A second request answers from the cache; it must be the same text.
        if (parser.GetElementName() != name)
            m_transcript.Fail("the element name changes between two requests");
        m_transcript.Add(name);
        return name;
    }

    void CheckAttributes(const CXmlParser& parser)
    {
        const std::size_t count = parser.GetAttributeCount();
        m_transcript.Add(std::to_string(count));
        std::string value;
        for (std::size_t i = 0; i < count; ++i) {
            const std::string_view name = parser.GetAttributeNameRaw(i);
            const std::string_view raw = parser.GetAttributeValueRaw(i);
            for (std::size_t j = 0; j < i; ++j)
                if (parser.GetAttributeNameRaw(j) == name)
                    m_transcript.Fail("attribute name listed twice");
            if (!parser.HasAttribute(name) || !parser.GetAttribute(name, value)) {
                m_transcript.Fail("a listed attribute is not found by name");
                continue;
            }
            CheckDecoded(parser, raw, value, "attribute value");
            if (name.size() > m_limits.token)
                m_transcript.Fail("attribute name beyond the token limit");
            m_transcript.Add(name);
            m_transcript.Add(value);

            // Each typed getter must agree with the 8-bit reader on the raw value.
            bool flag = false, expectedFlag = false;
            const bool flagOk = parser.GetAttributeBool(name, flag);
            if (flagOk != XmlBoolFromBytes(raw, expectedFlag) || (flagOk && flag != expectedFlag))
                m_transcript.Fail("GetAttributeBool disagrees with the 8-bit reader");
            for (const bool allowMinus : {false, true}) {
                int number = 0, expectedNumber = 0;
                const bool intOk = parser.GetAttributeInt(name, number, allowMinus);
                if (intOk != XmlIntFromBytes(raw, expectedNumber, allowMinus) || (intOk && number != expectedNumber))
                    m_transcript.Fail("GetAttributeInt disagrees with the 8-bit reader");
                double real = 0, expectedReal = 0;
                const bool realOk = parser.GetAttributeDouble(name, real, allowMinus);
                if (realOk != XmlDoubleFromBytes(raw, expectedReal, allowMinus) ||
                    (realOk && std::bit_cast<std::uint64_t>(real) != std::bit_cast<std::uint64_t>(expectedReal)))
                    m_transcript.Fail("GetAttributeDouble disagrees with the 8-bit reader");
            }
        }
        // '=' ends an attribute name, so no attribute can have this one.
        if (parser.HasAttribute("x=y") || parser.GetAttribute("x=y", value))
            m_transcript.Fail("an absent attribute is found");
    }

    // Checks that decoded is what the raw bytes decode to, within the size bound, valid UTF-8.
    void CheckDecoded(const CXmlParser& parser, std::string_view raw, std::string_view decoded, std::string_view what)
    {
        const std::string w(what);
        if (raw.size() > m_limits.token)
            m_transcript.Fail(w + " of " + std::to_string(raw.size()) + " bytes passed the token limit");
        // Every byte or entity decodes to at most two bytes of UTF-8 (U+0000..U+00FF), except
        // entity pairs and four-digit references, which are longer in the file than decoded.
        if (decoded.size() > 2 * raw.size())
            m_transcript.Fail(w + " grew more than twice in decoding");
        if (!IsValidUtf8(decoded))
            m_transcript.Fail(w + " decodes to invalid UTF-8");
        if (decoded != CXmlParser::Decode(raw, parser.GetEncoding()))
            m_transcript.Fail(w + " differs from a fresh decoding of its raw bytes");
    }

    // Refuses the element, setting an error message with or without an argument.
    bool Refuse(CXmlParser& parser, bool byNumber)
    {
        const CMessage expected = byNumber ? CMessage{StringTable::IDS_NOT_TERVOLA}
                                           : CXmlParser::ParserError("refused by handler " + std::string(1, m_label));
        parser.SetErrorMessage(expected);
        if (parser.GetErrorMessage() != expected)
            m_transcript.Fail("the error message set by a handler reads back differently");
        return false;
    }

    char m_label;
    CFuzzHandler* m_child;
    Transcript& m_transcript;
    const Limits& m_limits;
};

// Mostly tiny chunks, so that tokens cross boundaries at every state, sometimes empty ones,
// sometimes large ones.
std::size_t NextChunk(std::uint64_t& state)
{
    static constexpr std::size_t kLargest[8] = {0, 4, 4, 4, 32, 32, 4096, 4096};
    const std::uint64_t r = NextRandom(state);
    const std::size_t largest = kLargest[r % 8];
    return largest == 0 ? 0 : 1 + (r >> 8) % largest;
}

// What one parse of the input produced; fed: every chunk was taken.
struct Outcome
{
    bool ok = false;
    bool fed = false;
    std::string error;
    std::uint64_t digest = 0;
    std::size_t events = 0;
    std::size_t depth = 0;
    XmlEncoding encoding = Utf8;
    bool operator==(const Outcome&) const = default;
};

std::string Compare(const Outcome& a, const Outcome& b, const std::string& what)
{
    if (a == b)
        return {};
    return what + ": another result, error text, events, depth or encoding (\"" + a.error.substr(0, 200) + "\" / \"" +
           b.error.substr(0, 200) + "\")";
}

// One parser with three handlers (root, delegate, delegate's delegate) and their transcript.
struct Rig
{
    explicit Rig(const Limits& limits)
        : third('c', nullptr, transcript, limits), second('b', &third, transcript, limits),
          root('a', &second, transcript, limits), parser(&root)
    {
        parser.SetLimits(limits.token, limits.depth, limits.input);
    }
    // Parses input from a Reset on, in chunks split by seed (0: one chunk). Each chunk lives in
    // its own heap block freed right after Feed, so that a parser that kept a pointer into an
    // earlier chunk is caught by the address sanitizer.
    Outcome Run(std::string_view input, std::uint64_t seed)
    {
        transcript.digest = kFnvBasis;
        transcript.events = 0;
        parser.Reset();
        std::size_t pos = 0;
        bool fed = true;
        do {
            const std::size_t chunk = std::min(seed == 0 ? input.size() : NextChunk(seed), input.size() - pos);
            const auto block = std::make_unique<char[]>(std::max<std::size_t>(chunk, 1));
            std::copy_n(input.data() + pos, chunk, block.get());
            fed = parser.Feed(block.get(), chunk);
            pos += chunk;
        } while (fed && pos < input.size());
        return {parser.Finish(),
                fed,
                parser.GetErrorMessage().arg1,
                transcript.digest,
                transcript.events,
                parser.GetDepth(),
                parser.GetEncoding()};
    }
    Transcript transcript;
    CFuzzHandler third;
    CFuzzHandler second;
    CFuzzHandler root;
    CXmlParser parser;
};

} // namespace

std::string FuzzXmlParser(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::uint64_t hash = Fnv(input);

    const Limits& limits = kLimitsByHash[hash % 4];
    Rig whole(limits);
    const Outcome wholeOutcome = whole.Run(input, 0);
    if (!whole.transcript.problem.empty())
        return whole.transcript.problem;
    // Finish accepts exactly when every chunk was taken and every element closed.
    if (wholeOutcome.ok != (wholeOutcome.fed && wholeOutcome.depth == 0))
        return "Finish disagrees with the chunks taken and the elements left open";

    // The same input in pseudo-random chunks must give the same result, events and error.
    for (std::uint64_t round = 1; round <= 2; ++round) {
        Rig split(limits);
        const Outcome splitOutcome = split.Run(input, hash ^ round);
        if (!split.transcript.problem.empty())
            return split.transcript.problem;
        if (std::string problem = Compare(wholeOutcome, splitOutcome, "split parse"); !problem.empty())
            return problem;
    }

    // Reset must leave nothing behind: stop a parse half-way, reset, and parse again.
    Rig reused(limits);
    reused.Run(input.substr(0, size / 2), hash);
    const Outcome reusedOutcome = reused.Run(input, hash ^ 7);
    if (!reused.transcript.problem.empty())
        return reused.transcript.problem;
    if (std::string problem = Compare(wholeOutcome, reusedOutcome, "parse after Reset"); !problem.empty())
        return problem;

    // The in-memory entry point takes the input as Unicode text; its handlers' checks apply.
    Rig text(limits);
    const bool textOk = text.parser.ParseString(input);
    if (!text.transcript.problem.empty())
        return "ParseString: " + text.transcript.problem;
    if (textOk && text.parser.GetDepth() != 0)
        return "ParseString accepted a text with open elements";
    return {};
}
