#include "xml/CXmlGzipOutput.h"

#include "xml/CDeflateBlock.h"
#include "xml/CXmlFileOutput.h"

#include <algorithm>
#include <system_error>
#include <zlib.h>

// A block on its way through the threads.
struct CXmlGzipOutput::Job
{
    CDeflateBlock block;
    bool last = false;
    bool done = false; // set by the thread that compressed it, under the mutex
    bool ok = false;
};

namespace {

// The gzip header: magic, deflate, no flags, no time stamp, "maximum compression", Unix.
constexpr unsigned char kHeader[10] = {0x1F, 0x8B, 8, 0, 0, 0, 0, 0, 2, 3};

void PutLittleEndian(unsigned char* out, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        out[i] = static_cast<unsigned char>(value >> (8 * i));
}

} // namespace

std::unique_ptr<CXmlGzipOutput> CXmlGzipOutput::Create(const std::string& path)
{
    return Create(path, Options());
}

std::unique_ptr<CXmlGzipOutput> CXmlGzipOutput::Create(const std::string& path, const Options& options)
{
    return Create(CXmlFileOutput::Create(path), options);
}

std::unique_ptr<CXmlGzipOutput> CXmlGzipOutput::Create(std::unique_ptr<IXmlOutput> sink, const Options& options)
{
    if (!sink)
        return nullptr;
    return std::unique_ptr<CXmlGzipOutput>(new CXmlGzipOutput(std::move(sink), options));
}

CXmlGzipOutput::CXmlGzipOutput(std::unique_ptr<IXmlOutput> sink, const Options& options)
    : m_sink(std::move(sink)), m_options(options), m_current(std::make_unique<Job>())
{
    m_options.blockBytes = std::max<std::size_t>(m_options.blockBytes, 1);
    if (m_options.threads == 0)
        m_options.threads = std::max(1u, std::thread::hardware_concurrency());
    // Enough blocks in flight that no thread waits for the writer, few enough to keep the
    // memory small: each holds its text, its 32 KiB history and its compressed bytes.
    m_maxInFlight = 2 * static_cast<std::size_t>(m_options.threads) + 2;
    m_current->block.Begin(nullptr);
}

CXmlGzipOutput::~CXmlGzipOutput()
{
    StopThreads();
    if (!m_closed && m_sink)
        m_sink->Close();
}

bool CXmlGzipOutput::Fail()
{
    m_failed = true;
    StopThreads();
    return false;
}

bool CXmlGzipOutput::Write(const char* data, std::size_t size)
{
    if (m_failed || m_closed)
        return false;
    while (size > 0) {
        // A full block is handed on only when more text comes, so that the last block is
        // never empty unless the whole text is.
        if (m_current->block.TextSize() >= m_options.blockBytes && !Submit(false))
            return false;
        const std::size_t taken = m_current->block.Append(data, size, m_options.blockBytes);
        data += taken;
        size -= taken;
    }
    return true;
}

bool CXmlGzipOutput::Submit(bool last)
{
    std::unique_ptr<Job> job = std::move(m_current);
    job->last = last;
    job->done = false;
    Job* submitted = job.get();
    if (last && m_threads.empty()) {
        // A text of one block is compressed right here: no thread is worth starting for it.
        CDeflateBlock::Engine engine(m_options.level);
        job->ok = job->block.Compress(engine, true);
        job->done = true;
        std::lock_guard<std::mutex> lock(m_mutex);
        m_inFlight.push_back(std::move(job));
    } else {
        if (m_threads.empty())
            StartThreads();
        if (m_failed)
            return false;
        std::lock_guard<std::mutex> lock(m_mutex);
        m_inFlight.push_back(std::move(job));
        m_queue.push_back(submitted);
    }
    m_workReady.notify_one();
    if (!last) {
        if (m_spare.empty()) {
            m_current = std::make_unique<Job>();
        } else {
            m_current = std::move(m_spare.back());
            m_spare.pop_back();
        }
        // The submitted block's text is only read by its thread, so its end can be copied now.
        m_current->block.Begin(&submitted->block);
    }
    return WriteFinished(last ? 0 : m_maxInFlight - 1);
}

bool CXmlGzipOutput::WriteFinished(std::size_t keep)
{
    for (;;) {
        std::unique_ptr<Job> job;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            if (m_inFlight.empty())
                return true;
            if (!m_inFlight.front()->done) {
                if (m_inFlight.size() <= keep)
                    return true;
                m_jobDone.wait(lock, [this] { return m_inFlight.front()->done; });
            }
            job = std::move(m_inFlight.front());
            m_inFlight.pop_front();
        }
        if (!job->ok || !WriteBlock(*job))
            return Fail();
        m_spare.push_back(std::move(job));
    }
}

bool CXmlGzipOutput::WriteBlock(const Job& job)
{
    const CDeflateBlock& block = job.block;
    if (!m_headerWritten) {
        if (!m_sink->Write(reinterpret_cast<const char*>(kHeader), sizeof kHeader))
            return false;
        m_headerWritten = true;
    }
    if (!m_sink->Write(reinterpret_cast<const char*>(block.Output().data()), block.OutputSize()))
        return false;
    m_crc = static_cast<std::uint32_t>(crc32_combine(m_crc, block.Crc(), static_cast<z_off_t>(block.TextSize())));
    m_length += block.TextSize();
    if (!job.last)
        return true;
    unsigned char trailer[8];
    PutLittleEndian(trailer, m_crc);
    PutLittleEndian(trailer + 4, static_cast<std::uint32_t>(m_length)); // the length modulo 2^32
    return m_sink->Write(reinterpret_cast<const char*>(trailer), sizeof trailer);
}

void CXmlGzipOutput::StartThreads()
{
    try {
        for (unsigned i = 0; i < m_options.threads; ++i)
            m_threads.emplace_back([this] { Work(); });
    } catch (const std::system_error&) {
        // Without a single thread nothing gets compressed; with some, they do the work.
        if (m_threads.empty())
            m_failed = true;
    }
}

void CXmlGzipOutput::StopThreads()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
        m_queue.clear();
    }
    m_workReady.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
    m_threads.clear();
}

void CXmlGzipOutput::Work()
{
    CDeflateBlock::Engine engine(m_options.level);
    for (;;) {
        Job* job = nullptr;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_workReady.wait(lock, [this] { return m_stopping || !m_queue.empty(); });
            if (m_stopping)
                return;
            job = m_queue.front();
            m_queue.pop_front();
        }
        const bool ok = job->block.Compress(engine, job->last);
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            job->ok = ok;
            job->done = true;
        }
        m_jobDone.notify_one();
    }
}

bool CXmlGzipOutput::Close()
{
    if (m_closed)
        return !m_failed;
    bool ok = !m_failed && Submit(true);
    m_closed = true;
    StopThreads();
    const bool closed = m_sink->Close();
    ok = ok && !m_failed && closed;
    m_failed = !ok;
    return ok;
}
