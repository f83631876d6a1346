#pragma once

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

// A 64-bit signature of the words of folded text: a bit for each word's first byte and one for
// its first two bytes. When the words of a folded needle occur in folded text, every bit of the
// needle's signature is set in the text's, so a missing bit rules the text out without a scan.
std::uint64_t WordStartSignature(std::string_view folded);
