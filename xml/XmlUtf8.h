#pragma once

#include <cstdint>
#include <string>

// Small UTF-8 helpers shared by the reader and the writer. The program holds Unicode text as
// UTF-8 in std::string; these convert between that and code points.
namespace XmlUtf8 {

// Returned by NextCodePoint for a byte that does not start a well-formed sequence.
inline constexpr std::uint32_t kInvalid = 0xFFFFFFFFu;

// Reads one code point of well-formed UTF-8 from [p, end) and advances p past it. A malformed
// byte (stray continuation, overlong form, surrogate, beyond U+10FFFF, truncated sequence)
// gives kInvalid and advances p by exactly that one byte.
inline std::uint32_t NextCodePoint(const unsigned char*& p, const unsigned char* end)
{
    const unsigned char b = *p;
    if (b < 0x80) {
        ++p;
        return b;
    }
    int length = 0;
    std::uint32_t cp = 0;
    std::uint32_t minimum = 0;
    if ((b & 0xE0) == 0xC0) {
        length = 2;
        cp = b & 0x1Fu;
        minimum = 0x80;
    } else if ((b & 0xF0) == 0xE0) {
        length = 3;
        cp = b & 0x0Fu;
        minimum = 0x800;
    } else if ((b & 0xF8) == 0xF0) {
        length = 4;
        cp = b & 0x07u;
        minimum = 0x10000;
    } else {
        ++p;
        return kInvalid;
    }
    if (end - p < length) {
        ++p;
        return kInvalid;
    }
    for (int i = 1; i < length; ++i) {
        const unsigned char c = p[i];
        if ((c & 0xC0) != 0x80) {
            ++p;
            return kInvalid;
        }
        cp = (cp << 6) | (c & 0x3Fu);
    }
    if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
        ++p;
        return kInvalid;
    }
    p += length;
    return cp;
}

// Appends the UTF-8 form of a code point (the caller passes no surrogates).
inline void Append(std::string& out, std::uint32_t cp)
{
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        const char bytes[2] = {static_cast<char>(0xC0 | (cp >> 6)), static_cast<char>(0x80 | (cp & 0x3F))};
        out.append(bytes, 2);
    } else if (cp < 0x10000) {
        const char bytes[3] = {static_cast<char>(0xE0 | (cp >> 12)), static_cast<char>(0x80 | ((cp >> 6) & 0x3F)),
                               static_cast<char>(0x80 | (cp & 0x3F))};
        out.append(bytes, 3);
    } else {
        const char bytes[4] = {static_cast<char>(0xF0 | (cp >> 18)), static_cast<char>(0x80 | ((cp >> 12) & 0x3F)),
                               static_cast<char>(0x80 | ((cp >> 6) & 0x3F)), static_cast<char>(0x80 | (cp & 0x3F))};
        out.append(bytes, 4);
    }
}

} // namespace XmlUtf8
