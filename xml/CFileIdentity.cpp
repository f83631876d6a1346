#include "xml/CFileIdentity.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

#include <memory>

void CFileIdentity::Add(const void* data, std::size_t bytes)
{
    crc = static_cast<std::uint32_t>(crc32_z(crc, static_cast<const Bytef*>(data), bytes));
    size += bytes;
}

CFileIdentity CFileIdentity::Of(const std::string& path)
{
    CFileIdentity identity;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return identity;
    struct stat info{};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd);
        return identity;
    }
    identity.modifiedNs = static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec;
    constexpr std::size_t kBlock = 256 * 1024;
    std::unique_ptr<char[]> buffer(new char[kBlock]);
    for (;;) {
        const ssize_t got = ::read(fd, buffer.get(), kBlock);
        if (got < 0) {
            ::close(fd);
            return CFileIdentity();
        }
        if (got == 0)
            break;
        identity.Add(buffer.get(), static_cast<std::size_t>(got));
    }
    ::close(fd);
    identity.known = true;
    return identity;
}
