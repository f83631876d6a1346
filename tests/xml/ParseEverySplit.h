#pragma once

#include "RecordingHandler.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// A set of recording handlers sharing one log; handlers[0] is the parser's root.
struct HandlerSet
{
    std::vector<std::string> log;
    std::deque<RecordingHandler> handlers;

    HandlerSet() { handlers.emplace_back("", log); }
    RecordingHandler& Root() { return handlers.front(); }
    RecordingHandler& Add(const std::string& label) { return handlers.emplace_back(label, log); }
};

// What one parse produced.
struct ParseOutcome
{
    bool ok = false;
    std::vector<std::string> events;
    std::string error;
    std::size_t depth = 0;
    XmlEncoding encoding = Utf8;
};

// Parses input through Reset/Feed/Finish in chunks of the given size (0: one chunk).
ParseOutcome ParseInChunks(std::string_view input, std::size_t chunk, const std::function<void(HandlerSet&)>& setup,
                           std::size_t maxToken = CXmlParser::kDefaultMaxTokenBytes,
                           std::size_t maxDepth = CXmlParser::kDefaultMaxDepth);

// Parses input whole and at chunk sizes 1, 2, 3, 4, 5, 7 and 2048, expects every run to give
// the same result, events and error text, and returns the outcome of the whole-input run.
ParseOutcome ParseEverySplit(std::string_view input, const std::function<void(HandlerSet&)>& setup = {},
                             std::size_t maxToken = CXmlParser::kDefaultMaxTokenBytes,
                             std::size_t maxDepth = CXmlParser::kDefaultMaxDepth);

// The events joined with " | " for compact expectations.
std::string Joined(const std::vector<std::string>& events);
