#pragma once

#include "xml/CDateTime.h"

#include <string>

// The tool's short texts for dates, times and numbers: ISO forms that scripts and spreadsheets
// read without guessing a locale.
class CTextFormat
{
public:
    // "YYYY-MM-DD" of a valid date-time; empty otherwise.
    static std::string IsoDate(const CDateTime& value);
    // "HH:MM" of a valid date-time; empty otherwise.
    static std::string TimeOfDay(const CDateTime& value);
    // The value rounded half up (as the program rounds) to a whole number, without decimals.
    static std::string WholeNumber(double value);
    // The shortest decimal text that reads back as the same double ("2.4", "13", "-0.5").
    static std::string Decimal(double value);
    // A count as decimal text; empty for 0 (an unset count shows nothing).
    static std::string CountOrEmpty(int value);
};
