#pragma once

#include "resources/StringTable.h"
#include "xml/CXmlHandler.h"
#include "xml/CXmlParser.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>

// A handler that writes every event it sees into a log shared with the other handlers, so that
// the order of events across delegated handlers is visible: open "label<name a='v' ...>", close
// "label</name>'text'", joined with " | ". Names, attribute values and texts are the decoded
// forms the handlers of the program would read.
struct RecordingHandler : CXmlHandler
{
    RecordingHandler(std::string name, std::string& shared) : label(std::move(name)), log(shared) {}

    bool OnOpenTag(CXmlParser& parser) override
    {
        const std::string name(parser.GetElementName());
        std::string event = label + "<" + name;
        std::string value;
        for (std::size_t i = 0; i < parser.GetAttributeCount(); ++i) {
            const std::string attribute(parser.GetAttributeNameRaw(i));
            parser.GetAttribute(attribute, value);
            event += " " + attribute + "='" + value + "'";
        }
        Log(event + ">");
        if (auto it = delegates.find(name); it != delegates.end())
            parser.Delegate(it->second);
        return Decide(parser, "<" + name);
    }

    bool OnCloseTag(CXmlParser& parser) override
    {
        const std::string name(parser.GetElementName());
        Log(label + "</" + name + ">'" + parser.GetElementText() + "'");
        if (lateDelegate != nullptr)
            parser.Delegate(lateDelegate); // outside a start tag: the parser must ignore it
        return Decide(parser, "</" + name);
    }

    void Log(const std::string& event) { log += (log.empty() ? "" : " | ") + event; }

    bool Decide(CXmlParser& parser, const std::string& tag)
    {
        if (tag != refuse)
            return true;
        if (messageId != 0)
            parser.SetErrorMessage(messageId);
        return false;
    }

    std::string label;
    std::string& log;
    std::map<std::string, CXmlHandler*> delegates; // start tags with these names go to their handler
    std::string refuse;                            // the tag refused: "<name" a start tag, "</name" an end tag
    int messageId = 0;                             // the error message set before refusing, if any
    CXmlHandler* lateDelegate = nullptr;
};

// A set of recording handlers sharing one log; the first is the parser's root.
struct HandlerSet
{
    std::string log;
    std::deque<RecordingHandler> handlers{{"", log}};

    RecordingHandler& Root() { return handlers.front(); }
    RecordingHandler& Add(const std::string& label) { return handlers.emplace_back(label, log); }
};

// A parse's error message in English, as the tool would print it.
inline std::string ErrorText(const CMessage& error)
{
    return StringTable::Format(error.id, error.arg1, error.arg2);
}

// What one parse produced.
struct ParseOutcome
{
    bool ok = false;
    std::string events;
    std::string error;
    std::size_t depth = 0;
    XmlEncoding encoding = Utf8;
};

using Setup = std::function<void(HandlerSet&)>;

// Parses input through Reset/Feed/Finish in chunks of the given size (0: one chunk).
inline ParseOutcome ParseInChunks(std::string_view input, std::size_t chunk, const Setup& setup,
                                  std::size_t maxToken = CXmlParser::kDefaultMaxTokenBytes,
                                  std::size_t maxDepth = CXmlParser::kDefaultMaxDepth)
{
    HandlerSet set;
    if (setup)
        setup(set);
    CXmlParser parser(&set.Root());
    parser.SetLimits(maxToken, maxDepth);
    parser.Reset();
    if (chunk == 0)
        chunk = std::max<std::size_t>(input.size(), 1);
    // Each chunk is copied into its own buffer, overwritten after Feed, so that a parser that
    // kept a pointer into an earlier chunk would read stale bytes.
    std::string buffer;
    for (std::size_t pos = 0; pos < input.size(); pos += chunk) {
        buffer.assign(input.substr(pos, chunk));
        if (!parser.Feed(buffer.data(), buffer.size()))
            break;
        buffer.assign(buffer.size(), '\xAA');
    }
    return {parser.Finish(), set.log, ErrorText(parser.GetErrorMessage()), parser.GetDepth(), parser.GetEncoding()};
}

// Parses input whole and at chunk sizes 1, 2, 3, 4, 5, 7 and 2048, expects every run to give
// the same result, events and error text, and returns the outcome of the whole-input run.
inline ParseOutcome ParseEverySplit(std::string_view input, const Setup& setup = {},
                                    std::size_t maxToken = CXmlParser::kDefaultMaxTokenBytes,
                                    std::size_t maxDepth = CXmlParser::kDefaultMaxDepth)
{
    const ParseOutcome whole = ParseInChunks(input, 0, setup, maxToken, maxDepth);
    for (std::size_t chunk : {1, 2, 3, 4, 5, 7, 2048}) {
        const ParseOutcome split = ParseInChunks(input, chunk, setup, maxToken, maxDepth);
        EXPECT_TRUE(split.ok == whole.ok && split.events == whole.events && split.error == whole.error &&
                    split.depth == whole.depth && split.encoding == whole.encoding)
            << "chunk size " << chunk << ": " << split.events << " / " << split.error;
    }
    return whole;
}
