#include "CReferenceTools.h"

#include <zlib.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr unsigned kReadBytes = 64 * 1024;

} // namespace

long long CReferenceTools::InflateToNowhere(const std::string& path)
{
    gzFile file = gzopen(path.c_str(), "rb");
    if (file == nullptr)
        return -1;
    std::unique_ptr<char[]> buffer(new char[kReadBytes]);
    long long total = 0;
    int n = 0;
    while ((n = gzread(file, buffer.get(), kReadBytes)) > 0)
        total += n;
    const bool closed = gzclose(file) == Z_OK;
    return n == 0 && closed ? total : -1;
}

bool CReferenceTools::DeflateLevel9(const std::string& path, std::string_view text)
{
    gzFile file = gzopen(path.c_str(), "wb9");
    if (file == nullptr)
        return false;
    const bool written =
        gzwrite(file, text.data(), static_cast<unsigned>(text.size())) == static_cast<int>(text.size());
    const bool closed = gzclose(file) == Z_OK;
    return written && closed && SyncFile(path);
}

bool CReferenceTools::WritePlain(const std::string& path, std::string_view text)
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool closed = std::fclose(file) == 0;
    return written && closed && SyncFile(path);
}

bool CReferenceTools::SyncFile(const std::string& path)
{
    const int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0)
        return false;
    const bool ok = ::fsync(fd) == 0;
    return ::close(fd) == 0 && ok;
}

bool CReferenceTools::ReadWhole(const std::string& path, std::string& text)
{
    gzFile file = gzopen(path.c_str(), "rb"); // reads plain files unchanged
    if (file == nullptr)
        return false;
    text.clear();
    std::unique_ptr<char[]> buffer(new char[kReadBytes]);
    int n = 0;
    while ((n = gzread(file, buffer.get(), kReadBytes)) > 0)
        text.append(buffer.get(), static_cast<std::size_t>(n));
    gzclose(file);
    return n == 0;
}

long long CReferenceTools::FileSize(const std::string& path)
{
    std::error_code ec;
    const auto size = std::filesystem::file_size(path, ec);
    return ec ? -1 : static_cast<long long>(size);
}
