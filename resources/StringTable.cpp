#include "resources/StringTable.h"

#include <algorithm>
#include <array>
#include <utility>

namespace StringTable {
namespace {

struct Entry
{
    int id;
    std::string_view text;
};

// Sorted by id for binary search.
constexpr std::array kEntries = {
    Entry{4000, "An error occured while writing the tervola file."},
    Entry{4001, "The file could not be opened."},
    Entry{4002, "The file could not be saved."},
    Entry{4003, "Max. 4 licenses are allowed."},
    Entry{4004, "Max. ratings are allowed."},
    Entry{4005, "Max. 10 awards are allowed."},
    Entry{4006, "Please enter a valid value."},
    Entry{4007, "Please enter a harness."},
    Entry{4008, "Please enter a main canopy."},
    Entry{4009, "Please enter a value between %1 and %2."},
    Entry{4010, "Please enter a value for the open height that is less than the exit height."},
    Entry{4012, "Please enter a time."},
    Entry{4013, "Please select an eqipment from the list or enter your equipment without preceeding [n]."},
    Entry{4014, "The file is no valid tervola file."},
    Entry{4015, "The file version (%1) can not be processed. Please install an actual version of Tervola or contact "
                "support@tervola.example.org"},
    Entry{4016, "Parser error: %1"},
    Entry{4017, "Please enter a signer or delete the signature."},
    Entry{4018, "Please sign the jump or delete the signer."},
    Entry{4019, "Please enter a different jump number. The jump number must be unique."},
    Entry{4020, "The file was changed by another program after it was opened here. It was not overwritten."},
    Entry{4021, "This logbook is already open in another Tervola Pocket (%1). Changes saved in one may be "
                "refused or overwritten by the other."},
    // The reasons a flight recording is refused; 4100 joins a line number and a reason.
    Entry{4100, "Line %1: %2"},
    Entry{4101, "the %1 value %2 is not a number."},
    Entry{4102, "the time %1 is not a UTC date and time."},
    Entry{4103, "the latitude %1 is outside -90 to 90 degrees."},
    Entry{4104, "the longitude %1 is outside -180 to 180 degrees."},
    Entry{4105, "the height %1 is outside -500 to 15000 m."},
    Entry{4106, "the north speed %1 is outside -150 to 150 m/s."},
    Entry{4107, "the east speed %1 is outside -150 to 150 m/s."},
    Entry{4108, "the vertical speed %1 is outside -150 to 150 m/s."},
    Entry{4109, "no column names: a FlySight track starts with a line naming its columns (time, lat, lon, hMSL, "
                "velN, velE and velD)."},
    Entry{4110, "the column \"%1\" is missing; a track needs time, lat, lon, hMSL, velN, velE and velD."},
    Entry{4111, "the row has %1 fields where the column names call for %2."},
    Entry{4112, "the time goes backwards, to %1."},
    Entry{4113, "the file ends without a single usable position fix."},
    Entry{4114, "a $GNSS row comes before the $COL,GNSS line naming its columns."},
    Entry{4115, "the line is not a FlySight 2 sentence (those start with '$')."},
    Entry{4116, "the file has no $COL,GNSS line naming the columns of its fixes."},
    Entry{4117, "the file holds binary data, not the comma-separated text of a FlySight."},
    Entry{4118, "the file is empty."},
    Entry{4119, "The file %1 cannot be read."},
    Entry{4120, "The file %1 is too large for a track."},
    Entry{4121, "No freefall found in the track."},
    Entry{4122, "The track ends in freefall, before the parachute opened."},
    Entry{4123, "The track has no barometer readings."},
    Entry{4124, "The barometer readings do not cover the jump from exit to landing."},
    Entry{4125, "No jump was found in the track."},
    Entry{4126, "The jump found does not belong to this track."},
    Entry{4127, "The time of the exit lies outside the years a logbook holds."},
    Entry{4128, "%1 of the track's %2 data lines are damaged, more than one in a hundred; this is the first."},
    Entry{4129, "Damaged lines skipped: %1 (line %2)."},
    // The reasons a spreadsheet of jumps, or one of its rows, is refused; a row's reason follows
    // "Line %1: " (4100).
    Entry{4200, "The file is empty."},
    Entry{4201, "The file holds binary data, not a table of text."},
    Entry{4202, "The file is too large for a table of jumps."},
    Entry{4203, "a quote is not closed."},
    Entry{4204, "a cell is longer than 65536 characters."},
    Entry{4205, "the row has %1 cells where the header has %2."},
    Entry{4206, "the jump number %1 is not a whole number above 0."},
    Entry{4207, "the date %1 cannot be read."},
    Entry{4208, "the time %1 cannot be read."},
    Entry{4209, "the height %1 is not a number from 0 to 15000 m."},
    Entry{4210, "the freefall time %1 is neither seconds nor m:ss."},
    Entry{4211, "the value %2 in the column \"%1\" is not a number."},
    Entry{4212, "jump %1 is already in the logbook."},
    Entry{4213, "jump %1 is already in the logbook and signed; it stays as it is."},
    Entry{4214, "jump %1 comes twice in the file."},
    Entry{4215, "No column of the file holds the jumps' dates."},
    Entry{4216, "The file's dates can be read day-first or month-first; please choose which."},
    Entry{4217, "The file's dates are day-first in some rows and month-first in others; please choose which."},
    Entry{4218, "the date is missing."},
    Entry{4219, "the fall rate %1 is none of Standard, Vertical, Custom, Manual and Import."},
    Entry{4230, "the jump is already in the logbook as jump %1."},
    Entry{4231, "the jump is the same as the one of %1."},
    Entry{4232, "Please tick the tracks to import."},
    Entry{4233, "Jump %1 can take only one track."},
    Entry{4301, "No jump is numbered from %1 to %2."},
    Entry{5005, "Your membership/license will expire %1."},
    Entry{5006, "Equipment %1 needs to be inspected %2."},
    Entry{5007, "Do you want to delete jump number %1?"},
    Entry{5008, "Do you want to remove the equipment %1?"},
    Entry{5009, "Your membership/license expired on %1."},
    Entry{6000, "User Profile"},
    Entry{6001, "Membership"},
    Entry{6002, "Licenses"},
    Entry{6003, "Ratings"},
    Entry{6004, "Awards"},
    Entry{6008, "Alarm"},
    Entry{6009, "Custom Fallrate"},
    Entry{6010, "Number of Jumps"},
    Entry{6011, "Freefall Time"},
    Entry{6012, "Freefall Dist."},
    Entry{6013, "Canopy Dist."},
    Entry{6014, "Last Jump"},
    Entry{6018, "Jump"},
    Entry{6019, "Details"},
    Entry{6021, "Fallrate"},
    Entry{6022, "Standard"},
    Entry{6023, "Vertical"},
    Entry{6024, "Custom"},
    Entry{6025, "Import"},
    Entry{6026, "Manual"},
    Entry{6027, "Info"},
    Entry{6028, "Note"},
    Entry{6029, "Signature"},
    Entry{6100, "Sealed"},
    Entry{6101, "Changed after signing"},
    Entry{6102, "Signed, not sealed"},
    Entry{6200, "Date"},
    Entry{6201, "Time"},
    Entry{6202, "Place"},
    Entry{6203, "Aircraft"},
    Entry{6204, "Type"},
    Entry{6205, "Exit [%1]"},
    Entry{6206, "Opening [%1]"},
    Entry{6207, "Freefall"},
    Entry{6208, "Wind direction"},
    Entry{6209, "Wind speed"},
    Entry{6210, "Rig"},
    Entry{6211, "Landing"},
    Entry{6212, "Team"},
    Entry{6213, "Size"},
    Entry{6214, "Points"},
    Entry{6215, "Malfunction"},
    Entry{6216, "Signed by"},
    Entry{6217, "Note"},
    Entry{6218, "Recording"},
    Entry{6219, "Seal"},
};

static_assert(std::is_sorted(kEntries.begin(), kEntries.end(),
                             [](const Entry& a, const Entry& b) { return a.id < b.id; }),
              "string table must stay sorted by id");

const Entry* Find(int id)
{
    auto it =
        std::lower_bound(kEntries.begin(), kEntries.end(), id, [](const Entry& e, int key) { return e.id < key; });
    return (it != kEntries.end() && it->id == id) ? &*it : nullptr;
}

} // namespace

std::string_view Text(int id)
{
    const Entry* e = Find(id);
    return e ? e->text : std::string_view{};
}

bool Has(int id)
{
    return Find(id) != nullptr;
}

std::vector<int> Ids()
{
    std::vector<int> ids;
    ids.reserve(kEntries.size());
    for (const Entry& e : kEntries)
        ids.push_back(e.id);
    return ids;
}

std::string Substitute(std::string_view text, std::string_view arg1, std::string_view arg2)
{
    std::string out;
    out.reserve(text.size() + arg1.size() + arg2.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 1 < text.size() && (text[i + 1] == '1' || text[i + 1] == '2')) {
            out += text[i + 1] == '1' ? arg1 : arg2;
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

std::string Format(int id, std::string_view arg1, std::string_view arg2)
{
    return Substitute(Text(id), arg1, arg2);
}

} // namespace StringTable
