#pragma once

#include "tests/common/CScratchFolder.h"
#include "xml/XmlUtf8.h"

#include <zlib.h>

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

// One gzip member holding bytes, compressed at level (1 fast .. 9 best).
inline std::string GzipBytes(std::string_view bytes, int level)
{
    z_stream stream{};
    std::string out;
    // 15 window bits plus 16 asks zlib for the gzip wrapper instead of the zlib one.
    if (deflateInit2(&stream, level, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return out;
    out.resize(deflateBound(&stream, static_cast<uLong>(bytes.size())) + 32);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    const int result = deflate(&stream, Z_FINISH);
    out.resize(result == Z_STREAM_END ? stream.total_out : 0);
    deflateEnd(&stream);
    return out;
}

// splitmix64: a small, well-mixed generator whose whole state is one number.
inline std::uint64_t NextRandom(std::uint64_t& state)
{
    std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}
