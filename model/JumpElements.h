#pragma once

#include "xml/CXmlParser.h"

#include <array>
#include <cstddef>
#include <string_view>

// The elements of a jump in the logbook file: "jump" itself and its children, in the order a
// jump writes them. The reader and the writer both take the names from this one table, so a
// name cannot differ between reading and writing.
enum class JumpElement
{
    Jump,
    Place,
    Aircraft,
    Type,
    Fallrate,
    ExitHeight,
    OpenHeight,
    FreefallTime,
    CanopyTime,
    MaxSpeed,
    AvgSpeed,
    Wind,
    Landing,
    Equipment,
    Size,
    Points,
    Team,
    Malfunction,
    Image,
    Video,
    Note,
    Profile,
    Signature,
    Count // no jump element
};

inline constexpr std::array<std::string_view, static_cast<std::size_t>(JumpElement::Count)> kJumpElementNames = {
    "jump",   "dz",          "ac",    "type",  "fallrate", "exit",      "open",     "ffTime",
    "cpTime", "vMax",        "vAvg",  "wind",  "landing",  "equipment", "size",     "points",
    "team",   "malfunction", "image", "video", "note",     "profile",   "signature"};

// The element's name in the file.
constexpr std::string_view JumpElementName(JumpElement element)
{
    return kJumpElementNames[static_cast<std::size_t>(element)];
}

namespace JumpElementLookup {

// Every element of every jump is looked up by its name, so the look-up is one hash, one table
// entry and one comparison: the hash of length, first and last letter is free of collisions
// over the names above (the table's construction checks it at compile time).
constexpr std::size_t Hash(std::string_view name)
{
    return (name.size() + 2u * static_cast<unsigned char>(name.front()) +
            9u * static_cast<unsigned char>(name.back())) &
           63u;
}

constexpr std::array<unsigned char, 64> MakeTable()
{
    std::array<unsigned char, 64> table{};
    table.fill(static_cast<unsigned char>(JumpElement::Count));
    for (std::size_t i = 0; i < kJumpElementNames.size(); ++i) {
        unsigned char& slot = table[Hash(kJumpElementNames[i])];
        if (slot != static_cast<unsigned char>(JumpElement::Count))
            throw "two jump element names share a hash slot";
        slot = static_cast<unsigned char>(i);
    }
    return table;
}

inline constexpr std::array<unsigned char, 64> kTable = MakeTable();

} // namespace JumpElementLookup

// The element of that name; Count for any other name.
constexpr JumpElement JumpElementFromName(std::string_view name)
{
    if (name.empty())
        return JumpElement::Count;
    const unsigned char index = JumpElementLookup::kTable[JumpElementLookup::Hash(name)];
    if (index == static_cast<unsigned char>(JumpElement::Count) || kJumpElementNames[index] != name)
        return JumpElement::Count;
    return static_cast<JumpElement>(index);
}

// The element a parsed tag names. The names are ASCII, so raw bytes that find one are their own
// decoded form: only a name that is not found as it stands is decoded.
inline JumpElement JumpElementOfTag(const CXmlParser& parser)
{
    const JumpElement element = JumpElementFromName(parser.GetElementNameRaw());
    return element != JumpElement::Count ? element : JumpElementFromName(parser.GetElementName());
}

// Every name finds its own element.
static_assert([] {
    for (std::size_t i = 0; i < kJumpElementNames.size(); ++i)
        if (JumpElementFromName(kJumpElementNames[i]) != static_cast<JumpElement>(i))
            return false;
    return JumpElementFromName("p") == JumpElement::Count;
}());
