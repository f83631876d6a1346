#include "formats/CCsvExporter.h"

#include "document/CLogbookDoc.h"
#include "formats/CTextFormat.h"
#include "model/JumpFields.h"
#include "units/CUnitSettings.h"
#include "units/DurationText.h"

std::string CCsvExporter::Export(const CLogbookDoc& doc) const
{
    std::string out;
    AppendRow(Header(), out);
    for (const auto& jump : doc.GetJumps())
        AppendRow(Row(*jump, doc), out);
    return out;
}

std::string CCsvExporter::Export(const CLogbookDoc& doc, std::span<const std::size_t> jumps) const
{
    std::string out;
    AppendRow(Header(), out);
    for (const std::size_t position : jumps)
        if (position < doc.GetJumpCount())
            AppendRow(Row(doc.GetJump(position), doc), out);
    return out;
}

std::vector<std::string> CCsvExporter::Header() const
{
    std::vector<std::string> header;
    for (const JumpFieldInfo& info : JumpFields().first(kSpreadsheetFieldCount)) {
        header.emplace_back(info.header);
        if (info.unit == JumpFieldUnit::Height)
            header.back() += " [" + std::string(m_units.HeightLabel()) + "]";
    }
    return header;
}

std::string CCsvExporter::Cell(const CJump& jump, const JumpFieldInfo& info, const CLogbookSettings& settings) const
{
    const CDateTime& when = jump.GetTimestamp().dateTime;
    std::string scratch;
    double value = 0;
    const bool present = JumpFieldNumber(jump, info.field, settings, value);
    switch (info.type) {
    case JumpFieldType::Whole:
        return std::to_string(static_cast<int>(value));
    case JumpFieldType::Count:
        return CTextFormat::CountOrEmpty(static_cast<int>(value));
    case JumpFieldType::Date:
        return CTextFormat::IsoDate(when);
    case JumpFieldType::TimeOfDay:
        return present ? CTextFormat::TimeOfDay(when) : std::string();
    case JumpFieldType::Text:
        return std::string(JumpFieldText(jump, info.field, settings, scratch));
    case JumpFieldType::Height:
        return CTextFormat::WholeNumber(m_units.HeightToDisplay(value));
    case JumpFieldType::Duration:
        return DurationToText(static_cast<int>(value), false);
    case JumpFieldType::Kind:
        return std::string(FallrateKindName(static_cast<FallrateKind>(static_cast<int>(value))));
    case JumpFieldType::Wind:
        if (!present)
            return {};
        return info.unit == JumpFieldUnit::StoredWind ? CTextFormat::Decimal(value)
                                                      : std::to_string(static_cast<int>(value));
    case JumpFieldType::State:
        break;
    }
    return {};
}

std::vector<std::string> CCsvExporter::Row(const CJump& jump, const CLogbookDoc& doc) const
{
    std::vector<std::string> row;
    row.reserve(kSpreadsheetFieldCount);
    for (const JumpFieldInfo& info : JumpFields().first(kSpreadsheetFieldCount))
        row.push_back(Cell(jump, info, doc.GetSettings()));
    return row;
}

void CCsvExporter::AppendRow(const std::vector<std::string>& fields, std::string& out)
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            out += ',';
        AppendField(fields[i], out);
    }
    out += "\r\n";
}

void CCsvExporter::AppendField(std::string_view field, std::string& out)
{
    if (field.find_first_of(",\"\r\n") == std::string_view::npos) {
        out += field;
        return;
    }
    out += '"';
    for (char c : field) {
        if (c == '"')
            out += '"';
        out += c;
    }
    out += '"';
}
