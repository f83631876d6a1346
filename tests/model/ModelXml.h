#pragma once

#include "xml/CXmlHandler.h"
#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/IXmlOutput.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

// Collects the writer's bytes in memory; optionally refuses every write after a byte budget
// (a full disk) or refuses to close (a failing flush).
class CMemoryOutput final : public IXmlOutput
{
public:
    explicit CMemoryOutput(std::string& sink, std::size_t budget = static_cast<std::size_t>(-1), bool failClose = false)
        : m_sink(sink), m_budget(budget), m_failClose(failClose)
    {
    }

    bool Write(const char* data, std::size_t size) override
    {
        if (size > m_budget) {
            m_sink.append(data, m_budget);
            m_budget = 0;
            return false;
        }
        m_sink.append(data, size);
        m_budget -= size;
        return true;
    }
    bool Close() override { return !m_failClose; }

private:
    std::string& m_sink;
    std::size_t m_budget;
    bool m_failClose;
};

// Writes through a writer with the logbook's options (Compact, SkipEmpty) and returns the text
// after the XML declaration.
template <typename Write>
std::string WriteXml(Write&& write)
{
    std::string bytes;
    CXmlWriter writer(Utf8, XmlPlainFile, Compact | SkipEmpty);
    if (!writer.Open(std::make_unique<CMemoryOutput>(bytes)))
        return "<open failed>";
    write(writer);
    writer.Close();
    const std::size_t end = bytes.find("?>");
    return end == std::string::npos ? bytes : bytes.substr(end + 2);
}

// The root handler of a test parse: hands the first element to the record under test, as the
// record's parent does in a logbook.
class CRecordRoot final : public CXmlHandler
{
public:
    explicit CRecordRoot(CXmlHandler& record) : m_record(record) {}
    bool OnOpenTag(CXmlParser& parser) override
    {
        parser.Delegate(&m_record);
        return true;
    }
    bool OnCloseTag(CXmlParser&) override { return true; }

private:
    CXmlHandler& m_record;
};

// Parses UTF-8 xml whose single element is read by record; false when the parse fails.
inline bool ReadXml(CXmlHandler& record, std::string_view xml, std::string* error = nullptr)
{
    CRecordRoot root(record);
    CXmlParser parser(&root);
    parser.Reset();
    parser.Feed(xml.data(), xml.size());
    const bool ok = parser.Finish();
    if (error)
        *error = parser.GetErrorMessage();
    return ok;
}
