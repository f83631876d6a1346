#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The reference work the document's load and save are compared with: zlib and the C library
// doing only their part of the job, on the same files and bytes.
class CReferenceTools
{
public:
    // Inflates a gzip file with gzread in 64 KiB reads into a buffer nobody looks at; returns
    // the number of bytes read, or -1 on an error.
    static long long InflateToNowhere(const std::string& path);
    // Writes text with one gzwrite at level 9 ("wb9"), closes and flushes it to the disk.
    static bool DeflateLevel9(const std::string& path, std::string_view text);
    // Writes text with one fwrite, closes and flushes it to the disk.
    static bool WritePlain(const std::string& path, std::string_view text);
    // Forces a file's content to the disk, as a save does.
    static bool SyncFile(const std::string& path);
    // Reads a whole file (gzip or plain) into text.
    static bool ReadWhole(const std::string& path, std::string& text);
    // Size of a file in bytes, -1 when it cannot be read.
    static long long FileSize(const std::string& path);
};
