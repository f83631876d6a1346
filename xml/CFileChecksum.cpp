#include "xml/CFileChecksum.h"

#include <cstring>

namespace {

constexpr std::uint64_t kPrime1 = 0x9E3779B185EBCA87ull;
constexpr std::uint64_t kPrime2 = 0xC2B2AE3D27D4EB4Full;
constexpr std::uint64_t kPrime3 = 0x165667B19E3779F9ull;
constexpr std::uint64_t kPrime4 = 0x85EBCA77C2B2AE63ull;
constexpr std::uint64_t kPrime5 = 0x27D4EB2F165667C5ull;

std::uint64_t Rotate(std::uint64_t value, int bits)
{
    return (value << bits) | (value >> (64 - bits));
}

std::uint64_t Round(std::uint64_t lane, std::uint64_t word)
{
    return Rotate(lane + word * kPrime2, 31) * kPrime1;
}

std::uint64_t Merge(std::uint64_t hash, std::uint64_t lane)
{
    return (hash ^ Round(0, lane)) * kPrime1 + kPrime4;
}

// Words are read in the machine's byte order; the checksum is compared on the same machine.
std::uint64_t Word64(const unsigned char* bytes)
{
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

std::uint32_t Word32(const unsigned char* bytes)
{
    std::uint32_t word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

} // namespace

void CFileChecksum::Stripe(const unsigned char* bytes)
{
    for (int lane = 0; lane < 4; ++lane)
        m_lanes[lane] = Round(m_lanes[lane], Word64(bytes + 8 * lane));
}

void CFileChecksum::Add(const void* data, std::size_t size)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    m_length += size;
    if (m_pendingSize > 0) {
        const std::size_t take = size < 32 - m_pendingSize ? size : 32 - m_pendingSize;
        std::memcpy(m_pending + m_pendingSize, bytes, take);
        m_pendingSize += take;
        bytes += take;
        size -= take;
        if (m_pendingSize < 32)
            return;
        Stripe(m_pending);
        m_pendingSize = 0;
    }
    for (; size >= 32; bytes += 32, size -= 32)
        Stripe(bytes);
    std::memcpy(m_pending, bytes, size);
    m_pendingSize = size;
}

std::uint64_t CFileChecksum::Value() const
{
    std::uint64_t hash = 0;
    if (m_length >= 32) {
        hash = Rotate(m_lanes[0], 1) + Rotate(m_lanes[1], 7) + Rotate(m_lanes[2], 12) + Rotate(m_lanes[3], 18);
        for (const std::uint64_t lane : m_lanes)
            hash = Merge(hash, lane);
    } else {
        hash = m_lanes[2] + kPrime5; // the lane that holds the seed, 0
    }
    hash += m_length;
    const unsigned char* rest = m_pending;
    std::size_t size = m_pendingSize;
    for (; size >= 8; rest += 8, size -= 8)
        hash = Rotate(hash ^ Round(0, Word64(rest)), 27) * kPrime1 + kPrime4;
    if (size >= 4) {
        hash = Rotate(hash ^ (Word32(rest) * kPrime1), 23) * kPrime2 + kPrime3;
        rest += 4;
        size -= 4;
    }
    for (; size > 0; ++rest, --size)
        hash = Rotate(hash ^ (*rest * kPrime5), 11) * kPrime1;
    hash ^= hash >> 33;
    hash *= kPrime2;
    hash ^= hash >> 29;
    hash *= kPrime3;
    hash ^= hash >> 32;
    return hash;
}
