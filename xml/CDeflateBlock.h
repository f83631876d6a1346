#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// One block of a gzip stream compressed apart from the others: its input is preceded by the
// last 32 KiB of the text before it, which deflate uses as its dictionary, so that matches
// reach back across the block's start as they would in one long stream. A block that is not
// the last ends on a byte boundary (a sync flush), so the blocks' outputs simply follow one
// another in the file.
class CDeflateBlock
{
public:
    // The history deflate can refer back to.
    static constexpr std::size_t kDictionaryBytes = 32 * 1024;

    // One deflate state, made once per compressing thread and reset for every block.
    class Engine
    {
    public:
        // A raw deflate stream (no header of its own) at the given level; zlib's defaults otherwise.
        explicit Engine(int level);
        ~Engine();
        Engine(const Engine&) = delete;
        Engine& operator=(const Engine&) = delete;

        // False when zlib could not set up the state (out of memory).
        bool IsReady() const { return m_ready; }

    private:
        friend class CDeflateBlock;
        void* m_stream; // z_stream; kept opaque so that users of this header need no zlib.h
        bool m_ready = false;
    };

    // Starts the next block: the history is the last up to 32 KiB of previous's history and
    // text (null for the first block), the text is empty.
    void Begin(const CDeflateBlock* previous);
    // Appends text; returns how many of size bytes fitted below capacity.
    std::size_t Append(const char* data, std::size_t size, std::size_t capacity);
    // Bytes of text (without the history).
    std::size_t TextSize() const { return m_input.size() - m_historyBytes; }

    // Compresses the text; a last block finishes the deflate stream. Also computes the text's
    // CRC-32. False when zlib fails.
    bool Compress(Engine& engine, bool last);

    // The compressed bytes and the CRC-32 of the text, valid after a successful Compress.
    const std::vector<unsigned char>& Output() const { return m_output; }
    std::size_t OutputSize() const { return m_outputSize; }
    std::uint32_t Crc() const { return m_crc; }

private:
    std::vector<unsigned char> m_input; // history, then the block's text
    std::size_t m_historyBytes = 0;
    std::vector<unsigned char> m_output;
    std::size_t m_outputSize = 0;
    std::uint32_t m_crc = 0;
};
