#pragma once

#include "xml/IXmlOutput.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class CDeflateBlock;

// Writes the writer's bytes as one gzip stream compressed at level 9 on all processor cores.
// The text is cut into blocks of a fixed size; each block is deflated on its own by a pool of
// threads with the 32 KiB of text before it as dictionary and ends on a sync flush, so the
// compressed blocks, written in order after one gzip header and before one trailer with the
// combined CRC-32 and length, form a stream that any gzip reader reads as a whole. A few blocks
// are in flight at any time; the whole text is never held.
class CXmlGzipOutput : public IXmlOutput
{
public:
    // How the text is cut and compressed.
    struct Options
    {
        std::size_t blockBytes = 128 * 1024; // text per block
        unsigned threads = 0;                // compressing threads; 0: one per processor core
        int level = 9;
    };

    // Creates the file; null when it cannot be created.
    static std::unique_ptr<CXmlGzipOutput> Create(const std::string& path);
    static std::unique_ptr<CXmlGzipOutput> Create(const std::string& path, const Options& options);
    // Writes the compressed stream into sink (tests use sinks that fail on purpose); null sink: null.
    static std::unique_ptr<CXmlGzipOutput> Create(std::unique_ptr<IXmlOutput> sink, const Options& options);
    // Stops the threads; without Close the stream stays unfinished and the sink is closed as it is.
    ~CXmlGzipOutput() override;
    CXmlGzipOutput(const CXmlGzipOutput&) = delete;
    CXmlGzipOutput& operator=(const CXmlGzipOutput&) = delete;

    // Takes the bytes into the current block; false once anything has failed.
    bool Write(const char* data, std::size_t size) override;
    // Compresses the last block, writes the trailer and closes the sink; false when any block,
    // any write or the sink's close failed.
    bool Close() override;

    // Compressing threads started so far (they start with the second block).
    std::size_t ThreadsStarted() const { return m_threads.size(); }

private:
    struct Job;

    CXmlGzipOutput(std::unique_ptr<IXmlOutput> sink, const Options& options);
    // Hands the current block to the threads and begins the next one after it.
    bool Submit(bool last);
    // Writes the finished blocks at the head of the line, waiting for the head while more than
    // keep blocks are in flight.
    bool WriteFinished(std::size_t keep);
    bool WriteBlock(const Job& job);
    void StartThreads();
    void StopThreads();
    void Work();
    bool Fail();

    std::unique_ptr<IXmlOutput> m_sink;
    Options m_options;
    std::size_t m_maxInFlight;
    std::unique_ptr<Job> m_current;
    std::deque<std::unique_ptr<Job>> m_inFlight; // submitted, in stream order, not yet written
    std::vector<std::unique_ptr<Job>> m_spare;   // written jobs kept for their buffers
    std::uint32_t m_crc = 0;                     // of the text written out so far
    std::uint64_t m_length = 0;
    bool m_headerWritten = false;
    bool m_failed = false;
    bool m_closed = false;

    std::mutex m_mutex;
    std::condition_variable m_workReady;
    std::condition_variable m_jobDone;
    std::deque<Job*> m_queue; // submitted jobs no thread has taken yet
    bool m_stopping = false;
    std::vector<std::thread> m_threads;
};
