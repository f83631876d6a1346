#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// Text as the search compares it: letters in lower case without accents ("Jämijärvi" reads
// "jamijarvi", "Straße" "strasse"), digits kept, and everything else a word break. The result
// puts one blank before each word (" jamijarvi kemi tornio"), so " " + prefix finds a word that
// starts with prefix, and a phrase finds consecutive words. Latin letters lose their accents;
// Greek and Cyrillic capitals become small letters; other characters stay as they are and count
// as letters. Bytes that are not UTF-8 are word breaks.
std::string FoldText(std::string_view text);
// The same, appended to out.
void AppendFoldedText(std::string_view text, std::string& out);

// A 256-bit signature of the words of folded text: for each word a bit for its first byte, its
// first two and its first three bytes. When the words of a folded needle occur in folded text,
// every bit of the needle's signature is set in the text's, so a missing bit rules the text out
// without a scan.
using WordSignature = std::array<std::uint64_t, 4>;
WordSignature WordStartSignature(std::string_view folded);
// Whether every bit of part is set in whole.
inline bool SignatureCovers(const WordSignature& whole, const WordSignature& part)
{
    return ((whole[0] & part[0]) == part[0]) & ((whole[1] & part[1]) == part[1]) & ((whole[2] & part[2]) == part[2]) &
           ((whole[3] & part[3]) == part[3]);
}
