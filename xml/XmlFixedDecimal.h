#pragma once

#include <string_view>

// Writes a finite double as printf's "%0.14f" does (correctly rounded, ties to even) and drops
// the trailing zeros of the decimals, keeping one, using integer arithmetic only. buffer needs
// room for 48 characters. Returns the end of the text, or null when the value is not finite or
// too large (beyond 1e24) for this path; the caller then formats it otherwise.
char* XmlFormatDecimal14(double value, char* buffer);

// Reads the common form of a stored double, "[-]digits.digits" with at most 19 digits and at
// most 22 decimals, in one pass, giving exactly the correctly rounded value of the general
// reader. A leading '-' needs allowMinus. Returns false for any other text (also for texts the
// general reader accepts, such as "5." or ".5"); value is then unchanged.
bool XmlReadShortDecimal(std::string_view raw, bool allowMinus, double& value);
