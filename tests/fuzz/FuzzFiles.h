#pragma once

#include <zlib.h>

#include <cstdio>
#include <string>
#include <string_view>

// Whole-file reads and writes and in-memory gzip for the fuzz bodies and the load tests.

// The bytes of a file; empty when it cannot be read.
inline std::string ReadWholeFile(const std::string& path)
{
    std::string bytes;
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
        char buffer[65536];
        std::size_t count = 0;
        while ((count = std::fread(buffer, 1, sizeof buffer, file)) > 0)
            bytes.append(buffer, count);
        std::fclose(file);
    }
    return bytes;
}

// Replaces the file with bytes; false when it cannot be written whole.
inline bool WriteWholeFile(const std::string& path, std::string_view bytes)
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    const bool written = bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return std::fclose(file) == 0 && written;
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
