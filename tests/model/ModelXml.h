#pragma once

#include "xml/CXmlHandler.h"
#include "xml/CXmlParser.h"
#include "xml/CXmlStringOutput.h"
#include "xml/CXmlWriter.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

// Writes through a writer with the logbook's options (Compact, SkipEmpty) and returns the text
// after the XML declaration.
template <typename Write>
std::string WriteXml(Write&& write)
{
    auto output = std::make_unique<CXmlStringOutput>();
    const std::shared_ptr<const std::string> bytes = output->Bytes();
    CXmlWriter writer(Utf8, XmlPlainFile, Compact | SkipEmpty);
    if (!writer.Open(std::move(output)))
        return "<open failed>";
    write(writer);
    writer.Close();
    const std::size_t end = bytes->find("?>");
    return end == std::string::npos ? *bytes : bytes->substr(end + 2);
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
inline bool ReadXml(CXmlHandler& record, std::string_view xml)
{
    CRecordRoot root(record);
    CXmlParser parser(&root);
    parser.Reset();
    parser.Feed(xml.data(), xml.size());
    return parser.Finish();
}
