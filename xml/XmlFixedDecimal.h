#pragma once

// Writes a finite double in fixed notation with exactly 14 decimals, the same bytes as
// printf's "%0.14f" (correctly rounded, ties to even), using integer arithmetic only.
// buffer needs room for 48 characters. Returns the end of the text, or null when the value is
// not finite or too large (beyond 1e24) for this path; the caller then formats it otherwise.
char* XmlFormatFixed14(double value, char* buffer);
