#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

class CJump;
class CLogbookSettings;

// A jump's fields as the exports, the spreadsheet import, the desktop table, the search and the
// printed pages show them. The first twenty are the columns of the spreadsheet (CSV) export and
// import, in their order; the recording and the seal are shown by the table only. A new field is
// added here (its description and its value below) and in the jump editor's page.
enum class JumpField : std::uint8_t
{
    Number,
    Date,
    Time,
    Place,
    Aircraft,
    Type,
    Exit,
    Open,
    Freefall,
    Fallrate,
    WindDirection,
    WindSpeed,
    Equipment,
    Landing,
    Team,
    Size,
    Points,
    Malfunction,
    Signer,
    Note,
    Recording,
    Seal,
    Count
};

// The spreadsheet's columns: the fields before Recording.
inline constexpr std::size_t kSpreadsheetFieldCount = static_cast<std::size_t>(JumpField::Recording);

// What a field's value is, which says how it is read and written as text.
enum class JumpFieldType : std::uint8_t
{
    Whole,     // a whole number, always shown (the jump's number)
    Count,     // a whole number, shown empty when 0 (size, points)
    Date,      // the calendar day
    TimeOfDay, // the time of day; a jump without one shows it empty
    Text,      // a text
    Height,    // whole metres
    Duration,  // whole seconds
    Kind,      // the fall-rate kind
    Wind,      // the wind's direction (degrees) or speed (m/s); empty when the jump has no wind
    State,     // a state shown as a picture: the recording's kind, the seal
};

// The unit a field is shown in.
enum class JumpFieldUnit : std::uint8_t
{
    None,
    Height,     // the display height unit (metres or feet)
    StoredWind, // metres per second as stored, whatever the display units
};

// The description of one field.
struct JumpFieldInfo
{
    JumpField field;
    // The field's name on the tool's command line ("number", "date", ... "note").
    std::string_view name;
    // The spreadsheet export's column header; a height's header adds its unit ("Exit [ft]").
    std::string_view header;
    JumpFieldType type;
    JumpFieldUnit unit;
    // The string table's label of the field as a table's column header ("%1": the height unit).
    int labelId;
    // The key of the search's term for the field ("dz" of "dz:Eloy"); empty when it has none.
    std::string_view term;
};

// Every field, in the order of JumpField.
std::span<const JumpFieldInfo> JumpFields();
// The description of one field.
const JumpFieldInfo& JumpFieldInfoOf(JumpField field);
// The field of a command-line name (ASCII case ignored); false when there is none.
bool JumpFieldFromName(std::string_view name, JumpField& field);

// The text of a field: the stored text, the rig's text as the editor shows it, the signer's
// name, the note's plain text (empty when its markup is broken). Empty for fields that are not
// texts. A text the jump does not store as it is goes into scratch.
std::string_view JumpFieldText(const CJump& jump, JumpField field, const CLogbookSettings& settings,
                               std::string& scratch);
// The value of a field that is not a text, in stored units: the number, the day number of the
// date, the seconds of the time of day, metres, freefall seconds as shown (settings), the fall-rate
// kind, the wind's degrees or metres per second, the recording's kind (0: none) and the seal's
// rank (unsigned, changed, unsealed, intact). False when the jump has no such value (no valid
// date, no time of day, no wind); value is set in any case (-1 for a missing time of day).
bool JumpFieldNumber(const CJump& jump, JumpField field, const CLogbookSettings& settings, double& value);
