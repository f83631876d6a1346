#pragma once

#include "xml/XmlEncoding.h"

#include <string>
#include <string_view>

// Turns the raw 8-bit text of the file (names, attribute values, element text) into Unicode
// text held as UTF-8: entities and character references are resolved and bytes are read as
// UTF-8 or Latin-1, with the reader's tolerant rules for malformed input.
class CXmlDecoder
{
public:
    // True when raw needs no decoding at all (no '&', no byte above 127): it is its own result.
    static bool IsPlain(std::string_view raw);
    // Appends the decoded form of raw to out.
    static void DecodeAppend(std::string_view raw, XmlEncoding encoding, std::string& out);
};
