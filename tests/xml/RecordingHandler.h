#pragma once

#include "xml/CXmlHandler.h"
#include "xml/CXmlParser.h"

#include <map>
#include <string>
#include <vector>

// A handler that writes every event it sees into a shared log, so that the order of events
// across delegated handlers is visible. Open: "label<name a='v' ...>", close: "label</name>'text'".
// Attribute values and texts are the decoded forms the handlers of the program would read.
class RecordingHandler : public CXmlHandler
{
public:
    RecordingHandler(std::string label, std::vector<std::string>& log) : m_label(std::move(label)), m_log(log) {}

    // Start tags with this name are delegated to child.
    void DelegateOn(const std::string& name, CXmlHandler* child) { m_delegates[name] = child; }
    // The handler refuses the start (or end) tag with this name; with a message it sets it first.
    void RefuseOpen(std::string name, std::string message = {})
    {
        m_refuseOpen = std::move(name);
        m_message = std::move(message);
    }
    void RefuseClose(std::string name, std::string message = {})
    {
        m_refuseClose = std::move(name);
        m_message = std::move(message);
    }
    // Calls Delegate while handling an end tag, where the parser must ignore it.
    void DelegateInClose(CXmlHandler* child) { m_lateDelegate = child; }

    bool OnOpenTag(CXmlParser& parser) override
    {
        std::string event = m_label + "<" + std::string(parser.GetElementName());
        std::string value;
        for (std::size_t i = 0; i < parser.GetAttributeCount(); ++i) {
            const std::string name(parser.GetAttributeNameRaw(i));
            parser.GetAttribute(name, value);
            event += " " + name + "='" + value + "'";
        }
        m_log.push_back(event + ">");
        if (auto it = m_delegates.find(std::string(parser.GetElementName())); it != m_delegates.end())
            parser.Delegate(it->second);
        return Decide(parser, m_refuseOpen);
    }

    bool OnCloseTag(CXmlParser& parser) override
    {
        m_log.push_back(m_label + "</" + std::string(parser.GetElementName()) + ">'" + parser.GetElementText() + "'");
        if (m_lateDelegate != nullptr)
            parser.Delegate(m_lateDelegate);
        return Decide(parser, m_refuseClose);
    }

private:
    bool Decide(CXmlParser& parser, const std::string& refused)
    {
        if (refused.empty() || parser.GetElementName() != refused)
            return true;
        if (!m_message.empty())
            parser.SetErrorMessage(m_message);
        return false;
    }

    std::string m_label;
    std::vector<std::string>& m_log;
    std::map<std::string, CXmlHandler*> m_delegates;
    std::string m_refuseOpen;
    std::string m_refuseClose;
    std::string m_message;
    CXmlHandler* m_lateDelegate = nullptr;
};
