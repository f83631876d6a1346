#pragma once

#include "xml/CFileChecksum.h"
#include "xml/CFileIdentity.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

struct CIoProgress;

// Reads a file in chunks for the parser, plain or through zlib's gzip reader. A gzip file is
// inflated on a thread of its own, which hands the text over through a short queue: while the
// caller parses one chunk, the thread inflates the next ones. A plain file is read on the
// caller's thread, since a read from the disk cache costs less than handing the chunk to another
// core. Either way the file's identity (size, time, checksum of the bytes on disk) is taken and
// the progress counted.
class CFileReadAhead
{
public:
    // progress (may be null) receives the file's size and the bytes read so far.
    explicit CFileReadAhead(CIoProgress* progress = nullptr);
    // Stops the thread if the caller ends early.
    ~CFileReadAhead();
    CFileReadAhead(const CFileReadAhead&) = delete;
    CFileReadAhead& operator=(const CFileReadAhead&) = delete;

    // Opens the file (and starts inflating); false when the file cannot be opened. A gzip
    // reader passes a file that is not gzip through as it is, like zlib's gzread.
    bool Open(const std::string& path, bool gzip);
    // The next chunk's bytes, valid until the next call; false at the end or after an error.
    bool Next(const char*& data, std::size_t& size);
    // Ends the reading early (the caller has stopped parsing).
    void Stop();
    // After Next has returned false: true when the whole file was read without an error (for
    // gzip also: the stream was complete and its checksum right).
    bool Succeeded() const { return m_succeeded; }
    // After a successful end: the identity of the file that was read.
    const CFileIdentity& Identity() const { return m_identity; }

    // Bytes per chunk and chunks in flight: a few hundred kilobytes are ahead of the parser.
    static constexpr std::size_t kChunkBytes = 64 * 1024;
    static constexpr std::size_t kChunks = 8;

private:
    struct Chunk
    {
        std::unique_ptr<char[]> bytes;
        std::size_t size = 0;
    };

    void Read();
    // Reads the next text into chunk; -1 on an error, 0 at the end.
    long ReadText(Chunk& chunk);
    // Adds bytes read from the file to the identity.
    void Count(const char* bytes, std::size_t size);
    // Takes the file's bytes up to offset into the identity (gzip: zlib reads on its own).
    bool HashUpTo(std::uint64_t offset);
    void Finish(bool ok);

    CIoProgress* m_progress;
    int m_fd = -1;                  // the file; zlib reads a duplicate of it
    void* m_gzip = nullptr;         // gzFile, kept opaque so that users of this header need no zlib.h
    bool m_onCallersThread = false; // a plain file: no thread, Next reads
    CFileIdentity m_identity;
    CFileChecksum m_checksum;
    std::unique_ptr<char[]> m_hashBuffer;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Chunk> m_chunks;
    std::deque<std::size_t> m_free;   // chunk indices the thread may fill
    std::deque<std::size_t> m_filled; // chunk indices waiting for the caller, in order
    std::size_t m_inUse = kChunks;    // the chunk the caller holds; kChunks: none
    bool m_ended = false;             // the thread has queued its last chunk
    bool m_stopping = false;
    bool m_succeeded = false;
    std::thread m_thread;
};
