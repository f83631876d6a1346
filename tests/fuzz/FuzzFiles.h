#pragma once

#include "tests/common/CScratchFolder.h"
#include "xml/XmlUtf8.h"

#include <cstdint>
#include <string>
#include <string_view>

// Whether text is well-formed UTF-8.
inline bool IsValidUtf8(std::string_view text)
{
    const auto* p = reinterpret_cast<const unsigned char*>(text.data());
    const auto* end = p + text.size();
    while (p < end)
        if (XmlUtf8::NextCodePoint(p, end) == XmlUtf8::kInvalid)
            return false;
    return true;
}

// One gzip member holding bytes, made through a file in folder.
inline std::string GzipBytes(const CScratchFolder& folder, std::string_view bytes)
{
    WriteGzip(folder / "packing.gz", bytes);
    return ReadBytes(folder / "packing.gz");
}

// splitmix64: a small, well-mixed generator whose whole state is one number.
inline std::uint64_t NextRandom(std::uint64_t& state)
{
    std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}
