#include "formats/CCsvExporter.h"

#include "document/CLogbookDoc.h"
#include "formats/CTextFormat.h"
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
    const std::string height = " [" + std::string(m_units.HeightLabel()) + "]";
    return {"Number",        "Date",          "Time",          "Place",     "Aircraft",       "Type",
            "Exit" + height, "Open" + height, "Freefall time", "Fall rate", "Wind direction", "Wind speed [m/s]",
            "Equipment",     "Landing",       "Team",          "Size",      "Points",         "Malfunction",
            "Signed by",     "Note"};
}

std::vector<std::string> CCsvExporter::Row(const CJump& jump, const CLogbookDoc& doc) const
{
    const CLogbookSettings& settings = doc.GetSettings();
    const CDateTime& when = jump.GetTimestamp().dateTime;
    const CJumpWind& wind = jump.GetWind();
    std::string note;
    jump.GetNoteText(note); // a note whose markup is broken has no plain text
    return {
        std::to_string(jump.GetNumber()),
        CTextFormat::IsoDate(when),
        jump.HasTimeOfDay() ? CTextFormat::TimeOfDay(when) : std::string(),
        jump.GetPlace(),
        jump.GetAircraft(),
        jump.GetType(),
        CTextFormat::WholeNumber(m_units.HeightToDisplay(jump.GetExitHeight())),
        CTextFormat::WholeNumber(m_units.HeightToDisplay(jump.GetOpenHeight())),
        DurationToText(jump.FreefallTime(settings), false),
        std::string(FallrateKindName(jump.GetFallrateKind())),
        wind.IsSet() ? std::to_string(wind.direction) : std::string(),
        wind.IsSet() ? CTextFormat::Decimal(wind.speed) : std::string(),
        jump.GetEquipmentText(settings.GetEquipmentList()),
        jump.GetLanding(),
        jump.GetTeam(),
        CTextFormat::CountOrEmpty(jump.GetSize()),
        CTextFormat::CountOrEmpty(jump.GetPoints()),
        jump.GetMalfunction(),
        jump.GetSignature().GetName(),
        note,
    };
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
