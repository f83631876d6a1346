#include "ParseEverySplit.h"

#include <gtest/gtest.h>

ParseOutcome ParseInChunks(std::string_view input, std::size_t chunk, const std::function<void(HandlerSet&)>& setup,
                           std::size_t maxToken, std::size_t maxDepth)
{
    HandlerSet set;
    if (setup)
        setup(set);
    CXmlParser parser(&set.Root());
    parser.SetLimits(maxToken, maxDepth);
    parser.Reset();
    if (chunk == 0)
        chunk = input.size() == 0 ? 1 : input.size();
    // Each chunk is copied into its own buffer so a parser that kept a pointer into an
    // earlier chunk would read stale bytes.
    std::string buffer;
    for (std::size_t pos = 0; pos < input.size(); pos += chunk) {
        buffer.assign(input.substr(pos, chunk));
        if (!parser.Feed(buffer.data(), buffer.size()))
            break;
        buffer.assign(buffer.size(), '\xAA');
    }
    return {parser.Finish(), set.log, parser.GetErrorMessage(), parser.GetDepth(), parser.GetEncoding()};
}

ParseOutcome ParseEverySplit(std::string_view input, const std::function<void(HandlerSet&)>& setup,
                             std::size_t maxToken, std::size_t maxDepth)
{
    const ParseOutcome whole = ParseInChunks(input, 0, setup, maxToken, maxDepth);
    for (std::size_t chunk : {1, 2, 3, 4, 5, 7, 2048}) {
        SCOPED_TRACE("chunk size " + std::to_string(chunk));
        const ParseOutcome split = ParseInChunks(input, chunk, setup, maxToken, maxDepth);
        EXPECT_EQ(split.ok, whole.ok);
        EXPECT_EQ(split.events, whole.events);
        EXPECT_EQ(split.error, whole.error);
        EXPECT_EQ(split.depth, whole.depth);
        EXPECT_EQ(split.encoding, whole.encoding);
    }
    return whole;
}

std::string Joined(const std::vector<std::string>& events)
{
    std::string out;
    for (const std::string& e : events) {
        if (!out.empty())
            out += " | ";
        out += e;
    }
    return out;
}
