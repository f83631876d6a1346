#include "xml/CDeflateBlock.h"

#include <algorithm>
#include <zlib.h>

CDeflateBlock::Engine::Engine(int level) : m_stream(new z_stream{})
{
    auto* stream = static_cast<z_stream*>(m_stream);
    // Negative window bits: raw deflate, the gzip header and trailer are the writer's. Window
    // and memory level are those of zlib's own gzip files.
    m_ready = deflateInit2(stream, level, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) == Z_OK;
}

CDeflateBlock::Engine::~Engine()
{
    auto* stream = static_cast<z_stream*>(m_stream);
    if (m_ready)
        deflateEnd(stream);
    delete stream;
}

void CDeflateBlock::Begin(const CDeflateBlock* previous)
{
    m_input.clear();
    if (previous != nullptr) {
        const std::size_t keep = std::min(kDictionaryBytes, previous->m_input.size());
        m_input.insert(m_input.end(), previous->m_input.end() - static_cast<std::ptrdiff_t>(keep),
                       previous->m_input.end());
    }
    m_historyBytes = m_input.size();
    m_outputSize = 0;
    m_crc = 0;
}

std::size_t CDeflateBlock::Append(const char* data, std::size_t size, std::size_t capacity)
{
    const std::size_t take = std::min(size, capacity - std::min(capacity, TextSize()));
    if (m_input.capacity() < m_historyBytes + capacity)
        m_input.reserve(kDictionaryBytes + capacity);
    const auto* bytes = reinterpret_cast<const unsigned char*>(data);
    m_input.insert(m_input.end(), bytes, bytes + take);
    return take;
}

bool CDeflateBlock::Compress(Engine& engine, bool last)
{
    auto* stream = static_cast<z_stream*>(engine.m_stream);
    if (!engine.m_ready || deflateReset(stream) != Z_OK)
        return false;
    if (m_historyBytes > 0 && deflateSetDictionary(stream, m_input.data(), static_cast<uInt>(m_historyBytes)) != Z_OK)
        return false;
    const std::size_t text = TextSize();
    unsigned char* start = m_input.data() + m_historyBytes;
    m_crc = static_cast<std::uint32_t>(crc32_z(0, start, text));

    // Room for the worst case at once; a sync flush adds its few marker bytes to the bound.
    const std::size_t bound = deflateBound(stream, static_cast<uLong>(text)) + 16;
    if (m_output.size() < bound)
        m_output.resize(bound);
    stream->next_in = start;
    stream->avail_in = static_cast<uInt>(text);
    stream->next_out = m_output.data();
    stream->avail_out = static_cast<uInt>(m_output.size());
    const int flush = last ? Z_FINISH : Z_SYNC_FLUSH;
    for (;;) {
        const int result = deflate(stream, flush);
        if (result == Z_STREAM_ERROR)
            return false;
        if (last ? result == Z_STREAM_END : stream->avail_in == 0 && stream->avail_out > 0)
            break;
        if (stream->avail_out > 0)
            return false; // no progress although there was room: zlib is in trouble
        const std::size_t used = m_output.size() - stream->avail_out;
        m_output.resize(m_output.size() * 2);
        stream->next_out = m_output.data() + used;
        stream->avail_out = static_cast<uInt>(m_output.size() - used);
    }
    m_outputSize = m_output.size() - stream->avail_out;
    return true;
}
