#include "model/JumpFields.h"

#include "model/CJump.h"
#include "model/CLogbookSettings.h"
#include "resources/StringTable.h"

#include <array>

namespace {

using T = JumpFieldType;
using U = JumpFieldUnit;
using F = JumpField;
namespace S = StringTable;

constexpr std::array<JumpFieldInfo, static_cast<std::size_t>(JumpField::Count)> kFields = {{
    {F::Number, "number", "Number", T::Whole, U::None, S::IDS_JUMP, "n"},
    {F::Date, "date", "Date", T::Date, U::None, S::IDS_FIELD_DATE, "date"},
    {F::Time, "time", "Time", T::TimeOfDay, U::None, S::IDS_FIELD_TIME, ""},
    {F::Place, "place", "Place", T::Text, U::None, S::IDS_FIELD_PLACE, "dz"},
    {F::Aircraft, "aircraft", "Aircraft", T::Text, U::None, S::IDS_FIELD_AIRCRAFT, "ac"},
    {F::Type, "type", "Type", T::Text, U::None, S::IDS_FIELD_TYPE, "type"},
    {F::Exit, "exit", "Exit", T::Height, U::Height, S::IDS_FIELD_EXIT, "exit"},
    {F::Open, "open", "Open", T::Height, U::Height, S::IDS_FIELD_OPEN, "open"},
    {F::Freefall, "freefall", "Freefall time", T::Duration, U::None, S::IDS_FIELD_FREEFALL, "ff"},
    {F::Fallrate, "fallrate", "Fall rate", T::Kind, U::None, S::IDS_FALLRATE, "kind"},
    {F::WindDirection, "winddir", "Wind direction", T::Wind, U::None, S::IDS_FIELD_WIND_DIRECTION, ""},
    {F::WindSpeed, "windspeed", "Wind speed [m/s]", T::Wind, U::StoredWind, S::IDS_FIELD_WIND_SPEED, ""},
    {F::Equipment, "equipment", "Equipment", T::Text, U::None, S::IDS_FIELD_RIG, "rig"},
    {F::Landing, "landing", "Landing", T::Text, U::None, S::IDS_FIELD_LANDING, ""},
    {F::Team, "team", "Team", T::Text, U::None, S::IDS_FIELD_TEAM, "team"},
    {F::Size, "size", "Size", T::Count, U::None, S::IDS_FIELD_SIZE, ""},
    {F::Points, "points", "Points", T::Count, U::None, S::IDS_FIELD_POINTS, ""},
    {F::Malfunction, "malfunction", "Malfunction", T::Text, U::None, S::IDS_FIELD_MALFUNCTION, ""},
    {F::Signer, "signedby", "Signed by", T::Text, U::None, S::IDS_FIELD_SIGNER, "signer"},
    {F::Note, "note", "Note", T::Text, U::None, S::IDS_FIELD_NOTE, ""},
    {F::Recording, "recording", "Recording", T::State, U::None, S::IDS_FIELD_RECORDING, ""},
    {F::Seal, "seal", "Seal", T::State, U::None, S::IDS_FIELD_SEAL, ""},
}};

// Each description sits at its own field's place.
static_assert([] {
    for (std::size_t i = 0; i < kFields.size(); ++i)
        if (kFields[i].field != static_cast<JumpField>(i))
            return false;
    return true;
}());

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

std::span<const JumpFieldInfo> JumpFields()
{
    return kFields;
}

const JumpFieldInfo& JumpFieldInfoOf(JumpField field)
{
    return kFields[static_cast<std::size_t>(field)];
}

bool JumpFieldFromName(std::string_view name, JumpField& field)
{
    for (const JumpFieldInfo& info : kFields) {
        if (info.name.size() != name.size())
            continue;
        std::size_t i = 0;
        while (i < name.size() && Lower(name[i]) == info.name[i])
            ++i;
        if (i == name.size()) {
            field = info.field;
            return true;
        }
    }
    return false;
}

std::string_view JumpFieldText(const CJump& jump, JumpField field, const CLogbookSettings& settings,
                               std::string& scratch)
{
    switch (field) {
    case JumpField::Place:
        return jump.GetPlace();
    case JumpField::Aircraft:
        return jump.GetAircraft();
    case JumpField::Type:
        return jump.GetType();
    case JumpField::Equipment:
        scratch = jump.GetEquipmentText(settings.GetEquipmentList());
        return scratch;
    case JumpField::Landing:
        return jump.GetLanding();
    case JumpField::Team:
        return jump.GetTeam();
    case JumpField::Malfunction:
        return jump.GetMalfunction();
    case JumpField::Signer:
        return jump.GetSignature().GetName();
    case JumpField::Note:
        jump.GetNoteText(scratch); // a note whose markup is broken has no plain text
        return scratch;
    default:
        return {};
    }
}

bool JumpFieldNumber(const CJump& jump, JumpField field, const CLogbookSettings& settings, double& value)
{
    const CDateTime& when = jump.GetTimestamp().dateTime;
    value = 0;
    switch (field) {
    case JumpField::Number:
        value = jump.GetNumber();
        return true;
    case JumpField::Date:
        value = static_cast<double>(when.DayNumber());
        return when.IsValid();
    case JumpField::Time:
        value = jump.HasTimeOfDay() ? when.Hour() * 3600 + when.Minute() * 60 + when.Second() : -1;
        return jump.HasTimeOfDay();
    case JumpField::Exit:
        value = jump.GetExitHeight();
        return true;
    case JumpField::Open:
        value = jump.GetOpenHeight();
        return true;
    case JumpField::Freefall:
        value = jump.FreefallTime(settings);
        return true;
    case JumpField::Fallrate:
        value = static_cast<int>(jump.GetFallrateKind());
        return true;
    case JumpField::WindDirection:
        value = jump.GetWind().direction;
        return jump.GetWind().IsSet();
    case JumpField::WindSpeed:
        value = jump.GetWind().speed;
        return jump.GetWind().IsSet();
    case JumpField::Size:
        value = jump.GetSize();
        return true;
    case JumpField::Points:
        value = jump.GetPoints();
        return true;
    case JumpField::Recording:
        value = jump.GetRecording().IsPresent() ? jump.GetRecording().GetKind() : 0;
        return true;
    case JumpField::Seal:
        // Unsigned, then broken seals, then signed without a seal, then intact seals.
        switch (jump.GetSealState()) {
        case SealState::NotSigned:
            value = 0;
            break;
        case SealState::Changed:
            value = 1;
            break;
        case SealState::Unsealed:
            value = 2;
            break;
        case SealState::Intact:
            value = 3;
            break;
        }
        return true;
    default:
        return false;
    }
}
