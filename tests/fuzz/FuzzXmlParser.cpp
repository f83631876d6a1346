#include "CFuzzHandler.h"
#include "CFuzzTranscript.h"
#include "FuzzTargets.h"
#include "xml/CXmlParser.h"

#include <memory>
#include <vector>

namespace {

// What one parse of the input produced.
struct Outcome
{
    bool ok = false;
    std::string error;
    std::uint64_t digest = 0;
    std::size_t events = 0;
    std::size_t depth = 0;
    XmlEncoding encoding = Utf8;
};

// splitmix64: a small, well-mixed generator, seeded from the input so every run of an input
// splits it the same way.
std::uint64_t NextRandom(std::uint64_t& state)
{
    std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

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
    const std::uint64_t r = NextRandom(state);
    switch (r % 8) {
    case 0:
        return 0;
    case 1:
    case 2:
    case 3:
        return 1 + (r >> 8) % 4;
    case 4:
    case 5:
        return 1 + (r >> 8) % 32;
    default:
        return 1 + (r >> 8) % 4096;
    }
}

// Feeds [begin, end) of input; each chunk lives in its own heap block that is freed right
// after Feed, so a parser that kept a pointer into an earlier chunk is caught by the address
// sanitizer. A seed of 0 feeds everything as one chunk.
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

Outcome Take(const CXmlParser& parser, bool ok, const CFuzzTranscript& transcript)
{
    Outcome outcome;
    outcome.ok = ok;
    outcome.error = parser.GetErrorMessage();
    outcome.digest = transcript.Digest();
    outcome.events = transcript.Events();
    outcome.depth = parser.GetDepth();
    outcome.encoding = parser.GetEncoding();
    return outcome;
}

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

// One parser with three handlers (root, delegate, delegate's delegate) and their transcript.
struct Rig
{
    Rig(std::size_t maxToken, std::size_t maxDepth, std::size_t maxInput)
        : third('c', nullptr, transcript, maxToken, maxDepth), second('b', &third, transcript, maxToken, maxDepth),
          root('a', &second, transcript, maxToken, maxDepth), parser(&root)
    {
        parser.SetLimits(maxToken, maxDepth, maxInput);
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

    // Small limits for half of the inputs, so that the limit paths are reached as well.
    std::size_t maxToken = CXmlParser::kDefaultMaxTokenBytes;
    std::size_t maxDepth = CXmlParser::kDefaultMaxDepth;
    std::size_t maxInput = CXmlParser::kDefaultMaxInputBytes;
    if (hash % 4 == 2) {
        maxToken = 64;
        maxDepth = 8;
        maxInput = 1000;
    } else if (hash % 4 == 3) {
        maxToken = 700;
        maxDepth = 40;
        maxInput = 3000;
    }

    Rig whole(maxToken, maxDepth, maxInput);
    whole.parser.Reset();
    const bool wholeFed = FeedPart(whole.parser, input, 0);
    const Outcome wholeOutcome = Take(whole.parser, whole.parser.Finish(), whole.transcript);
    if (!whole.transcript.Problem().empty())
        return whole.transcript.Problem();
    // Finish accepts exactly when every chunk was taken and every element closed.
    if (wholeOutcome.ok != (wholeFed && wholeOutcome.depth == 0))
        return "Finish disagrees with the chunks taken and the elements left open";

    // The same input in pseudo-random chunks must give the same result, events and error.
    for (std::uint64_t round = 1; round <= 2; ++round) {
        Rig split(maxToken, maxDepth, maxInput);
        split.parser.Reset();
        FeedPart(split.parser, input, hash ^ round);
        const Outcome splitOutcome = Take(split.parser, split.parser.Finish(), split.transcript);
        if (!split.transcript.Problem().empty())
            return split.transcript.Problem();
        if (std::string problem = Compare(wholeOutcome, splitOutcome, "split parse"); !problem.empty())
            return problem;
    }

    // Reset must leave nothing behind: stop a parse half-way, reset, and parse again.
    Rig reused(maxToken, maxDepth, maxInput);
    reused.parser.Reset();
    FeedPart(reused.parser, input.substr(0, size / 2), hash);
    reused.parser.Reset();
    reused.transcript.Restart();
    FeedPart(reused.parser, input, hash ^ 7);
    const Outcome reusedOutcome = Take(reused.parser, reused.parser.Finish(), reused.transcript);
    if (!reused.transcript.Problem().empty())
        return reused.transcript.Problem();
    if (std::string problem = Compare(wholeOutcome, reusedOutcome, "parse after Reset"); !problem.empty())
        return problem;

    // The in-memory entry point takes the input as Unicode text; its handlers' checks apply.
    Rig text(maxToken, maxDepth, maxInput);
    const bool textOk = text.parser.ParseString(input);
    if (!text.transcript.Problem().empty())
        return "ParseString: " + text.transcript.Problem();
    if (textOk && text.parser.GetDepth() != 0)
        return "ParseString accepted a text with open elements";
    return {};
}
