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
    Entry{5005, "Your membership/license will expire %1."},
    Entry{5006, "Equipment %1 needs to be inspected %2."},
    Entry{5007, "Do you want to delete jump number %1?"},
    Entry{5008, "Do you want to remove the equipment %1?"},
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
};

static_assert(std::is_sorted(kEntries.begin(), kEntries.end(),
                             [](const Entry& a, const Entry& b) { return a.id < b.id; }),
              "string table must stay sorted by id");

const Entry* Find(int id)
{
    auto it = std::lower_bound(kEntries.begin(), kEntries.end(), id,
                               [](const Entry& e, int key) { return e.id < key; });
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
