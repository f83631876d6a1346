#pragma once

#include <cstdint>
#include <string>

// What tells one state of a file from another: its size, its modification time and a checksum
// of all its bytes (CFileChecksum). A load remembers it for the bytes it read, a save for the bytes it wrote, so
// that the next save can see whether another program has changed the file in between.
struct CFileIdentity
{
    bool known = false; // false: nothing was read (no file, or reading failed)
    std::uint64_t size = 0;
    std::int64_t modifiedNs = 0; // modification time, nanoseconds since 1970
    std::uint64_t checksum = 0;

    // Reads the whole file at path; unknown when it does not exist or cannot be read.
    static CFileIdentity Of(const std::string& path);
    // The identity of a file just written whose bytes were counted and summed as they went out:
    // only its modification time is read. Unknown when the file is missing or its size differs.
    static CFileIdentity OfWritten(const std::string& path, std::uint64_t size, std::uint64_t checksum);

    // The same bytes, whatever the times say: a program that wrote the same content again (a
    // synchronising service, for one) has changed nothing.
    bool SameContent(const CFileIdentity& other) const
    {
        return known && other.known && size == other.size && checksum == other.checksum;
    }
};
