#include "query/FoldText.h"

#include <cstdint>

namespace {

// U+00C0 .. U+017F without their accents, in lower case; "" for the two signs × and ÷.
constexpr const char* kLatin[] = {
    "a", "a", "a",  "a",  "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i",  "i",  // U+00C0
    "d", "n", "o",  "o",  "o", "o", "o",  "",  "o", "u", "u", "u", "u", "y", "th", "ss", // U+00D0
    "a", "a", "a",  "a",  "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i",  "i",  // U+00E0
    "d", "n", "o",  "o",  "o", "o", "o",  "",  "o", "u", "u", "u", "u", "y", "th", "y",  // U+00F0
    "a", "a", "a",  "a",  "a", "a", "c",  "c", "c", "c", "c", "c", "c", "c", "d",  "d",  // U+0100
    "d", "d", "e",  "e",  "e", "e", "e",  "e", "e", "e", "e", "e", "g", "g", "g",  "g",  // U+0110
    "g", "g", "g",  "g",  "h", "h", "h",  "h", "i", "i", "i", "i", "i", "i", "i",  "i",  // U+0120
    "i", "i", "ij", "ij", "j", "j", "k",  "k", "k", "l", "l", "l", "l", "l", "l",  "l",  // U+0130
    "l", "l", "l",  "n",  "n", "n", "n",  "n", "n", "n", "n", "n", "o", "o", "o",  "o",  // U+0140
    "o", "o", "oe", "oe", "r", "r", "r",  "r", "r", "r", "s", "s", "s", "s", "s",  "s",  // U+0150
    "s", "s", "t",  "t",  "t", "t", "t",  "t", "u", "u", "u", "u", "u", "u", "u",  "u",  // U+0160
    "u", "u", "u",  "u",  "w", "w", "y",  "y", "y", "z", "z", "z", "z", "z", "z",  "s",  // U+0170
};

// Decodes the UTF-8 sequence at text[i]; returns its length, 0 when it is not well formed.
std::size_t Decode(std::string_view text, std::size_t i, char32_t& cp)
{
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char lead = byte(i);
    std::size_t length = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        cp = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        cp = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        cp = lead & 0x07;
    } else {
        return 0;
    }
    if (i + length > text.size())
        return 0;
    for (std::size_t k = 1; k < length; ++k) {
        if ((byte(i + k) & 0xC0) != 0x80)
            return 0;
        cp = (cp << 6) | (byte(i + k) & 0x3F);
    }
    // Overlong forms, surrogates and values past U+10FFFF are not characters.
    if ((length == 3 && cp < 0x800) || (length == 4 && (cp < 0x10000 || cp > 0x10FFFF)) ||
        (cp >= 0xD800 && cp <= 0xDFFF))
        return 0;
    return length;
}

void AppendUtf8(char32_t cp, std::string& out)
{
    if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    }
    out += static_cast<char>(0x80 | (cp & 0x3F));
}

// Symbols and punctuation outside ASCII that break words: Latin-1's signs, the general
// punctuation block, letter-like symbols and arrows up to the box drawings, and the
// ideographic space.
bool IsBreak(char32_t cp)
{
    return cp < 0xC0 || cp == 0xD7 || cp == 0xF7 || (cp >= 0x2000 && cp <= 0x2BFF) || cp == 0x3000 || cp == 0xFEFF;
}

// The small letter of a Greek or Cyrillic capital; cp itself otherwise.
char32_t Lower(char32_t cp)
{
    if ((cp >= 0x391 && cp <= 0x3A9 && cp != 0x3A2) || (cp >= 0x410 && cp <= 0x42F))
        return cp + 0x20;
    if (cp >= 0x400 && cp <= 0x40F)
        return cp + 0x50;
    return cp;
}

} // namespace

void AppendFoldedText(std::string_view text, std::string& out)
{
    bool inWord = false;
    const auto letters = [&](std::string_view folded) {
        if (folded.empty()) {
            inWord = false;
            return;
        }
        if (!inWord)
            out += ' ';
        out += folded;
        inWord = true;
    };
    for (std::size_t i = 0; i < text.size();) {
        const char c = text[i];
        if (static_cast<unsigned char>(c) < 0x80) {
            if (c >= 'A' && c <= 'Z') {
                const char lower = static_cast<char>(c - 'A' + 'a');
                letters(std::string_view(&lower, 1));
            } else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
                letters(std::string_view(&text[i], 1));
            } else {
                inWord = false;
            }
            ++i;
            continue;
        }
        char32_t cp = 0;
        const std::size_t length = Decode(text, i, cp);
        if (length == 0) {
            inWord = false;
            ++i;
            continue;
        }
        i += length;
        if (IsBreak(cp)) {
            inWord = false;
        } else if (cp < 0x180) {
            letters(kLatin[cp - 0xC0]);
        } else {
            std::string encoded;
            AppendUtf8(Lower(cp), encoded);
            letters(encoded);
        }
    }
}

std::string FoldText(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + 8);
    AppendFoldedText(text, out);
    return out;
}

WordSignature WordStartSignature(std::string_view folded)
{
    WordSignature signature{};
    const auto set = [&signature](std::uint32_t hash) {
        hash = (hash * 2654435761u) >> 24;
        signature[hash >> 6] |= std::uint64_t{1} << (hash & 63u);
    };
    const auto byte = [&folded](std::size_t i) {
        return i < folded.size() && folded[i] != ' ' && folded[i] != '\n' ? static_cast<unsigned char>(folded[i]) : 0u;
    };
    for (std::size_t i = 0; i + 1 < folded.size(); ++i) {
        if (folded[i] != ' ' || byte(i + 1) == 0)
            continue;
        const std::uint32_t first = byte(i + 1);
        set(first + 1);
        if (const std::uint32_t second = byte(i + 2)) {
            set((first << 8 | second) + 0x10000);
            if (const std::uint32_t third = byte(i + 3))
                set((first << 16 | second << 8 | third) + 0x1000000);
        }
    }
    return signature;
}
