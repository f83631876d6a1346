#pragma once

#include "xml/CXmlDecoder.h"

#include <cstring>
#include <string_view>

// Byte checks the parser makes on names, which are a few bytes long: shorter than a call to
// memcmp or to the word-wise scan pays off for.
namespace XmlNameBytes {

// Equal bytes.
inline bool SameBytes(std::string_view a, std::string_view b)
{
    const std::size_t n = a.size();
    if (n != b.size())
        return false;
    if (n > 16)
        return std::memcmp(a.data(), b.data(), n) == 0;
    for (std::size_t i = 0; i < n; ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

// True when raw holds no '&' and no byte above 127, so that it is its own decoded form.
inline bool IsPlainShort(std::string_view raw)
{
    if (raw.size() > 16)
        return CXmlDecoder::IsPlain(raw);
    for (const char c : raw)
        if (c == '&' || static_cast<unsigned char>(c) > 127)
            return false;
    return true;
}

} // namespace XmlNameBytes
