#pragma once

#include "resources/CMessage.h"

#include <cstddef>
#include <string>
#include <string_view>

// Helpers shared by the readers of the loggers' comma-separated text: a line cursor, field
// splitting and the number and time parsers. None of them allocates, so a file of tens of
// thousands of rows costs no heap traffic per row.

// One line of a text without its line end.
struct CTextLine
{
    std::string_view text;
    // 1-based.
    int number = 0;
    // False for a last line that stops without a line end (a logger that lost power mid-row).
    bool terminated = false;
};

// Walks the lines of a text ended by LF or CRLF, numbering them from 1.
class CTextLines
{
public:
    explicit CTextLines(std::string_view text) : m_text(text) {}
    // The next line; false at the end of the text.
    bool Next(CTextLine& line);
    // The number of the last line handed out.
    int LastNumber() const { return m_number; }

private:
    std::string_view m_text;
    std::size_t m_pos = 0;
    int m_number = 0;
};

// The text without blanks (spaces, tabs) at both ends.
std::string_view TrimField(std::string_view text);
// True when both texts are equal with ASCII letters compared without regard to case.
bool EqualNoCase(std::string_view a, std::string_view b);
// True when the line holds nothing but blanks.
bool IsBlankLine(std::string_view line);
// The text without a leading UTF-8 byte order mark and without trailing NUL bytes (a FAT file
// cut by a power loss is often padded with them).
std::string_view StripTextPadding(std::string_view text);
// True when the first limit bytes of the text hold a NUL or another control byte than tab, CR,
// LF: the content is binary, not text. line is the 1-based line of that byte.
bool HasBinaryByte(std::string_view text, std::size_t limit, int& line);

// A decimal number with optional sign, fraction and exponent; blanks around it allowed. False for
// an empty field, trailing characters, an infinity or a NaN.
bool ParseNumber(std::string_view field, double& value);
// A whole number, blanks around it allowed.
bool ParseInteger(std::string_view field, long long& value);
// "YYYY-MM-DDTHH:MM:SS[.fraction][Z]" in UTC as seconds since 1970-01-01T00:00:00Z, the fraction
// of any length kept. False for any other form or an impossible date.
bool ParseUtcTime(std::string_view field, double& seconds);

// The message form of the sensor reader's diagnostics: "Line 12: the time goes backwards." for a
// line; the reason alone, with a capital first letter, when line is 0.
std::string LineMessage(int line, std::string_view reason);

// Why a track was refused: the string table's numbered message with what goes into its "%1" and
// "%2", and the line it is about (0: the file as a whole). The window and the tool compose it.
using CTrackMessage = CMessage;
// A field as a message quotes it: at most 24 characters, other bytes than printable ASCII as '?'.
std::string QuoteField(std::string_view field);
