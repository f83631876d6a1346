#pragma once

#include "query/CQuery.h"

#include <span>
#include <string_view>

class CUnitSettings;

// Reads the search language. A query is terms separated by blanks, all of which must hold:
//   word              a word of place, aircraft, type, team, landing, malfunction, rig, signer or
//                     note starts with it (case and accents ignored); "two words" in quotes must
//                     follow each other
//   dz: ac: type: team: signer: rig:
//                     the same, in one field; rig:2 or rig:[2] is the rig numbered 2
//   kind:Manual       the fall-rate kind (Standard, Vertical, Custom, Manual, Import)
//   n:100..200        jump numbers; a range may leave out either end ("..50", "400..")
//   date:2024-05      a day, a month or a year, or a range of them ("2023-06..2024")
//   year:2022         a year or a range of years
//   exit: open:       heights in the display units, single or ranges
//   ff:60..           freefall seconds (or M:SS) as the list shows them
//   signed:yes|no     signed or not; signed:sealed|changed|unsealed: what a signed jump's seal says
//   has:recording|note|picture|video|wind|malfunction
// A "-" in front of a term turns it around. The first term that cannot be read is reported with
// the reason; nothing is ignored silently.
class CQueryParser
{
public:
    // Parses text; exit: and open: are read in the display units of units.
    static CQueryParseResult Parse(std::string_view text, const CUnitSettings& units);

    // The typed terms for a menu or a help text: the term, an example and what it finds.
    struct TermHelp
    {
        std::string_view term;
        std::string_view example;
        std::string_view description;
    };
    static std::span<const TermHelp> Terms();
};
