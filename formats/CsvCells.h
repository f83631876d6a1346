#pragma once

#include <string>
#include <string_view>

// The readers of a spreadsheet's cells as people write them: numbers with a decimal comma or
// thousands dots, dates in the ISO, day-first and month-first forms, times with or without
// seconds or AM/PM, freefall seconds or m:ss, heights in metres or feet.
namespace CsvCells {

// ASCII letters in lower case; other bytes as they are.
char Lower(char c);
// Equal with ASCII letters compared without regard to case.
bool EqualNoCase(std::string_view a, std::string_view b);
// Without blanks, tabs and line ends at both ends.
std::string_view Trim(std::string_view text);
bool IsDigit(char c);
// One to nine digits as a number.
bool Digits(std::string_view text, int& value);
// A whole number with optional sign within low..high.
bool WholeNumber(std::string_view cell, long long low, long long high, int& value);
// A decimal with "." or "," as its point; "4.000" and "4,000" (three digits after one separator
// of a number below 1000) are thousands, which no height or speed writes as decimals.
bool Decimal(std::string_view cell, double& value);

// The parts of a date cell: ISO "YYYY-MM-DD" (or "YYYY/MM/DD"), or two numbers of one or two
// digits and a year of two (1970-2069) or four digits, separated by ".", "/" or "-". A time after
// a blank or a "T" is handed back in rest.
struct DateParts
{
    bool iso = false;
    int a = 0, b = 0, year = 0;
    std::string_view rest;
};
bool SplitDate(std::string_view cell, DateParts& parts);
// True for a day of the calendar.
bool ValidDate(int year, int month, int day);
// "HH:MM" or "HH:MM:SS", hours of one or two digits, with an optional "AM"/"PM".
bool ParseTime(std::string_view cell, int& hour, int& minute, int& second);
// Freefall seconds: "45", "45 s", "0:45", "1:05", "0:00:45".
bool ParseFreefall(std::string_view cell, int& seconds);
// A height in metres or feet (a unit in the cell itself is allowed) as whole metres, 0 to
// 15000 m; the empty cell is 0.
bool ParseHeight(std::string_view cell, bool feet, int& metres);

} // namespace CsvCells
