#include "xml/CFileIdentity.h"

#include "xml/CFileChecksum.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

CFileIdentity CFileIdentity::Of(const std::string& path)
{
    CFileIdentity identity;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return identity;
    struct stat info
    {
    };
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd);
        return identity;
    }
    identity.modifiedNs = static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec;
    constexpr std::size_t kBlock = 256 * 1024;
    std::unique_ptr<char[]> buffer(new char[kBlock]);
    CFileChecksum checksum;
    for (;;) {
        const ssize_t got = ::read(fd, buffer.get(), kBlock);
        if (got < 0) {
            ::close(fd);
            return CFileIdentity();
        }
        if (got == 0)
            break;
        checksum.Add(buffer.get(), static_cast<std::size_t>(got));
        identity.size += static_cast<std::uint64_t>(got);
    }
    ::close(fd);
    identity.checksum = checksum.Value();
    identity.known = true;
    return identity;
}

CFileIdentity CFileIdentity::OfWritten(const std::string& path, std::uint64_t size, std::uint64_t checksum)
{
    CFileIdentity identity;
    struct stat info
    {
    };
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode) || static_cast<std::uint64_t>(info.st_size) != size)
        return identity;
    identity.modifiedNs = static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec;
    identity.size = size;
    identity.checksum = checksum;
    identity.known = true;
    return identity;
}
