#include "document/CFileLock.h"

#include <cerrno>
#include <chrono>
#include <fstream>
#include <iterator>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kRetryMs = 20;

// True when the descriptor still refers to the file that carries the name.
bool StillNamed(int fd, const std::string& path)
{
    struct stat open
    {
    };
    struct stat named
    {
    };
    return ::fstat(fd, &open) == 0 && ::stat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

} // namespace

CFileLock::~CFileLock()
{
    Release(false);
}

CFileLock::Result CFileLock::Acquire(const std::string& path, int waitMs)
{
    Release(false);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(waitMs);
    for (;;) {
        const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (fd < 0)
            return Result::Failed;
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0) {
            if (StillNamed(fd, path)) {
                m_fd = fd;
                m_path = path;
                return Result::Locked;
            }
            // The previous holder removed the file while this one waited: lock the new one.
            ::close(fd);
            continue;
        }
        const int error = errno;
        ::close(fd);
        if (error != EWOULDBLOCK && error != EINTR)
            return Result::Failed;
        if (std::chrono::steady_clock::now() >= deadline)
            return Result::HeldElsewhere;
        std::this_thread::sleep_for(std::chrono::milliseconds(kRetryMs));
    }
}

bool CFileLock::WriteNote(const std::string& text)
{
    if (m_fd < 0 || ::ftruncate(m_fd, 0) != 0)
        return false;
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t n = ::pwrite(m_fd, text.data() + done, text.size() - done, static_cast<off_t>(done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

void CFileLock::Release(bool removeFile)
{
    if (m_fd < 0)
        return;
    if (removeFile && StillNamed(m_fd, m_path))
        ::unlink(m_path.c_str());
    ::close(m_fd);
    m_fd = -1;
    m_path.clear();
}

std::string CFileLock::ReadNote(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return text.size() > 1024 ? std::string() : text;
}
