#include "CFuzzHandler.h"
#include "FuzzFiles.h"
#include "FuzzTargets.h"
#include "xml/CXmlParser.h"

#include <memory>
#include <vector>

namespace {

std::uint64_t Hash(std::string_view bytes)
{
    std::uint64_t h = 0xCBF29CE484222325ull;
    for (unsigned char c : bytes)
        h = (h ^ c) * 0x100000001B3ull;
    return h;
}

// Mostly tiny chunks, so that tokens cross boundaries at every state, sometimes empty ones,
// sometimes large ones.
std::size_t NextChunk(std::uint64_t& state)
{
    static constexpr std::size_t kLargest[8] = {0, 4, 4, 4, 32, 32, 4096, 4096};
    const std::uint64_t r = NextRandom(state);
    const std::size_t largest = kLargest[r % 8];
    return largest == 0 ? 0 : 1 + (r >> 8) % largest;
}

// Feeds input in chunks split by the seed (0: one chunk); each chunk lives in its own heap
// block that is freed right after Feed, so a parser that kept a pointer into an earlier chunk
// is caught by the address sanitizer.
bool FeedPart(CXmlParser& parser, std::string_view input, std::uint64_t seed)
{
    std::size_t pos = 0;
    do {
        std::size_t chunk = seed == 0 ? input.size() : NextChunk(seed);
        if (chunk > input.size() - pos)
            chunk = input.size() - pos;
        std::unique_ptr<char[]> block(new char[chunk == 0 ? 1 : chunk]);
        std::copy(input.begin() + static_cast<std::ptrdiff_t>(pos),
                  input.begin() + static_cast<std::ptrdiff_t>(pos + chunk), block.get());
        if (!parser.Feed(block.get(), chunk))
            return false;
        pos += chunk;
    } while (pos < input.size());
    return true;
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
};

std::string Compare(const Outcome& a, const Outcome& b, const std::string& what)
{
    if (a.ok != b.ok)
        return what + ": result differs";
    if (a.error != b.error)
        return what + ": error text differs (\"" + a.error.substr(0, 200) + "\" / \"" + b.error.substr(0, 200) + "\")";
    if (a.events != b.events || a.digest != b.digest)
        return what + ": events differ (" + std::to_string(a.events) + " / " + std::to_string(b.events) + ")";
    if (a.depth != b.depth)
        return what + ": depth differs";
    if (a.encoding != b.encoding)
        return what + ": encoding differs";
    return {};
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

// One parser with three handlers (root, delegate, delegate's delegate) and their transcript.
struct Rig
{
    explicit Rig(const Limits& limits)
        : third('c', nullptr, transcript, limits.token, limits.depth),
          second('b', &third, transcript, limits.token, limits.depth),
          root('a', &second, transcript, limits.token, limits.depth), parser(&root)
    {
        parser.SetLimits(limits.token, limits.depth, limits.input);
    }
    // Parses input from a Reset on, split by seed.
    Outcome Run(std::string_view input, std::uint64_t seed)
    {
        parser.Reset();
        const bool fed = FeedPart(parser, input, seed);
        return {parser.Finish(),          fed,
                parser.GetErrorMessage(), transcript.Digest(),
                transcript.Events(),      parser.GetDepth(),
                parser.GetEncoding()};
    }
    CFuzzTranscript transcript;
    CFuzzHandler third;
    CFuzzHandler second;
    CFuzzHandler root;
    CXmlParser parser;
};

} // namespace

std::string FuzzXmlParser(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::uint64_t hash = Hash(input);

    const Limits& limits = kLimitsByHash[hash % 4];
    Rig whole(limits);
    const Outcome wholeOutcome = whole.Run(input, 0);
    if (!whole.transcript.Problem().empty())
        return whole.transcript.Problem();
    // Finish accepts exactly when every chunk was taken and every element closed.
    if (wholeOutcome.ok != (wholeOutcome.fed && wholeOutcome.depth == 0))
        return "Finish disagrees with the chunks taken and the elements left open";

    // The same input in pseudo-random chunks must give the same result, events and error.
    for (std::uint64_t round = 1; round <= 2; ++round) {
        Rig split(limits);
        const Outcome splitOutcome = split.Run(input, hash ^ round);
        if (!split.transcript.Problem().empty())
            return split.transcript.Problem();
        if (std::string problem = Compare(wholeOutcome, splitOutcome, "split parse"); !problem.empty())
            return problem;
    }

    // Reset must leave nothing behind: stop a parse half-way, reset, and parse again.
    Rig reused(limits);
    reused.Run(input.substr(0, size / 2), hash);
    reused.transcript.Restart();
    const Outcome reusedOutcome = reused.Run(input, hash ^ 7);
    if (!reused.transcript.Problem().empty())
        return reused.transcript.Problem();
    if (std::string problem = Compare(wholeOutcome, reusedOutcome, "parse after Reset"); !problem.empty())
        return problem;

    // The in-memory entry point takes the input as Unicode text; its handlers' checks apply.
    Rig text(limits);
    const bool textOk = text.parser.ParseString(input);
    if (!text.transcript.Problem().empty())
        return "ParseString: " + text.transcript.Problem();
    if (textOk && text.parser.GetDepth() != 0)
        return "ParseString accepted a text with open elements";
    return {};
}
