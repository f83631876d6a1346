#include "xml/CFileReadAhead.h"

#include "xml/CIoProgress.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

namespace {

constexpr std::size_t kHashBlock = 256 * 1024;

} // namespace

CFileReadAhead::CFileReadAhead(CIoProgress* progress) : m_progress(progress)
{
}

CFileReadAhead::~CFileReadAhead()
{
    Stop();
}

bool CFileReadAhead::Open(const std::string& path, bool gzip)
{
    m_fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (m_fd < 0)
        return false;
    struct stat info
    {
    };
    if (::fstat(m_fd, &info) != 0) {
        ::close(m_fd);
        m_fd = -1;
        return false;
    }
    m_identity.modifiedNs = static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec;
    if (m_progress) {
        m_progress->total = static_cast<std::uint64_t>(std::max<off_t>(info.st_size, 0));
        m_progress->done = 0;
    }
    if (gzip) {
        // zlib reads a duplicate of the descriptor: the same open file, so the bytes hashed
        // below with pread are exactly the bytes it inflates, even if the name is replaced.
        const int zlibFd = ::dup(m_fd);
        gzFile file = zlibFd < 0 ? nullptr : gzdopen(zlibFd, "rb");
        if (file == nullptr) {
            if (zlibFd >= 0)
                ::close(zlibFd);
            ::close(m_fd);
            m_fd = -1;
            return false;
        }
        gzbuffer(file, static_cast<unsigned>(kChunkBytes));
        m_gzip = file;
        m_hashBuffer.reset(new char[kHashBlock]);
    }
    m_onCallersThread = !gzip;
    if (m_onCallersThread) {
        // A plain file is read on the caller's thread: a read from the disk cache costs less
        // than handing the chunk over to another processor core.
        m_chunks.resize(1);
        m_chunks[0].bytes.reset(new char[kChunkBytes]);
        return true;
    }
    m_chunks.resize(kChunks);
    for (std::size_t i = 0; i < kChunks; ++i) {
        m_chunks[i].bytes.reset(new char[kChunkBytes]);
        m_free.push_back(i);
    }
    try {
        m_thread = std::thread([this] { Read(); });
    } catch (const std::system_error&) {
        Finish(false);
        return false;
    }
    return true;
}

void CFileReadAhead::Stop()
{
    if (!m_thread.joinable()) {
        // Read on the caller's thread (or never started): nothing runs, only the file is open.
        if (!m_ended && !m_chunks.empty())
            Finish(false);
        return;
    }
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

bool CFileReadAhead::Next(const char*& data, std::size_t& size)
{
    if (m_onCallersThread) {
        if (m_ended)
            return false;
        const long count = ReadText(m_chunks[0]);
        if (count <= 0) {
            Finish(count == 0);
            return false;
        }
        data = m_chunks[0].bytes.get();
        size = static_cast<std::size_t>(count);
        return true;
    }
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_inUse != kChunks) {
        m_free.push_back(m_inUse);
        m_inUse = kChunks;
        m_changed.notify_all();
    }
    m_changed.wait(lock, [this] { return !m_filled.empty() || m_ended; });
    if (m_filled.empty())
        return false;
    m_inUse = m_filled.front();
    m_filled.pop_front();
    data = m_chunks[m_inUse].bytes.get();
    size = m_chunks[m_inUse].size;
    return true;
}

void CFileReadAhead::Read()
{
    bool ok = true;
    for (;;) {
        std::size_t index = 0;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_changed.wait(lock, [this] { return m_stopping || !m_free.empty(); });
            if (m_stopping) {
                ok = false;
                break;
            }
            index = m_free.front();
            m_free.pop_front();
        }
        Chunk& chunk = m_chunks[index];
        const long count = ReadText(chunk);
        if (count <= 0) {
            ok = count == 0;
            break;
        }
        chunk.size = static_cast<std::size_t>(count);
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_filled.push_back(index);
        }
        m_changed.notify_all();
    }
    if (ok && m_gzip != nullptr) {
        // zlib tells of a stream cut short (its end or checksum missing) only through gzerror
        // after a short read; such a file is damaged even when the text it gave looks complete.
        int error = Z_OK;
        gzerror(static_cast<gzFile>(m_gzip), &error);
        ok = error == Z_OK;
    }
    // Bytes zlib did not need (after the end of the stream) still belong to the file.
    ok = ok && HashUpTo(std::numeric_limits<std::uint64_t>::max());
    Finish(ok);
}

long CFileReadAhead::ReadText(Chunk& chunk)
{
    if (m_gzip != nullptr) {
        auto* file = static_cast<gzFile>(m_gzip);
        if (gzeof(file))
            return 0;
        const int count = gzread(file, chunk.bytes.get(), static_cast<unsigned>(kChunkBytes));
        if (count < 0)
            return -1;
        const z_off_t offset = gzoffset(file);
        if (offset < 0 || !HashUpTo(static_cast<std::uint64_t>(offset)))
            return -1;
        return count;
    }
    ssize_t count = 0;
    do {
        count = ::read(m_fd, chunk.bytes.get(), kChunkBytes);
    } while (count < 0 && errno == EINTR);
    if (count > 0)
        Count(chunk.bytes.get(), static_cast<std::size_t>(count));
    return static_cast<long>(count);
}

void CFileReadAhead::Count(const char* bytes, std::size_t size)
{
    m_checksum.Add(bytes, size);
    m_identity.size += size;
    if (m_progress)
        m_progress->done.store(m_identity.size, std::memory_order_relaxed);
}

bool CFileReadAhead::HashUpTo(std::uint64_t offset)
{
    if (m_gzip == nullptr)
        return true; // plain files are hashed as they are read
    while (m_identity.size < offset) {
        const std::size_t want =
            static_cast<std::size_t>(std::min<std::uint64_t>(kHashBlock, offset - m_identity.size));
        const ssize_t got = ::pread(m_fd, m_hashBuffer.get(), want, static_cast<off_t>(m_identity.size));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return false;
        if (got == 0)
            break;
        Count(m_hashBuffer.get(), static_cast<std::size_t>(got));
    }
    return true;
}

void CFileReadAhead::Finish(bool ok)
{
    if (m_gzip != nullptr)
        gzclose(static_cast<gzFile>(m_gzip));
    m_gzip = nullptr;
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
    m_identity.checksum = m_checksum.Value();
    m_identity.known = ok;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_succeeded = ok;
        m_ended = true;
    }
    m_changed.notify_all();
}
