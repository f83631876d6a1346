#include "xml/CXmlDecoder.h"

#include "xml/XmlUtf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// Non-zero when a word of eight bytes holds an '&' or a byte above 127 (the zero-byte test of
// the '&'-xored word is exact for "some byte is zero").
inline std::uint64_t SpecialBytes(std::uint64_t w)
{
    constexpr std::uint64_t kOnes = 0x0101010101010101ull;
    constexpr std::uint64_t kHigh = 0x8080808080808080ull;
    const std::uint64_t amp = w ^ (kOnes * '&');
    return ((amp - kOnes) & ~amp & kHigh) | (w & kHigh);
}

// Lengths of a UTF-8 sequence by its lead byte's top six bits; 0 (a stray continuation byte)
// is treated as a five-byte sequence. The lead byte is masked by kLeadMask[length].
constexpr std::array<unsigned char, 64> MakeLengths()
{
    std::array<unsigned char, 64> table{};
    for (int i = 0; i < 64; ++i) {
        const int b = i << 2;
        if (b < 0x80)
            table[i] = 1;
        else if (b < 0xC0)
            table[i] = 0;
        else if (b < 0xE0)
            table[i] = 2;
        else if (b < 0xF0)
            table[i] = 3;
        else if (b < 0xF8)
            table[i] = 4;
        else if (b < 0xFC)
            table[i] = 5;
        else
            table[i] = 6;
    }
    return table;
}
constexpr std::array<unsigned char, 64> kSequenceLength = MakeLengths();
constexpr unsigned char kLeadMask[7] = {0x3F, 0x7F, 0x1F, 0x0F, 0x07, 0x03, 0x01};

int HexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// The code of an entity name (without '&' and ';'), or kNone when it gives nothing.
std::size_t EntityCode(std::string_view name)
{
    if (name == "amp")
        return '&';
    if (name == "lt")
        return '<';
    if (name == "gt")
        return '>';
    if (name == "quot")
        return '"';
    if (name == "apos")
        return '\'';
    if (name.size() >= 2 && name[0] == '#' && name[1] == 'x') {
        const std::string_view digits = name.substr(2);
        if (digits.size() != 2 && digits.size() != 4)
            return kNone;
        std::size_t code = 0;
        for (char c : digits) {
            const int v = HexValue(c);
            if (v < 0)
                return kNone;
            code = code * 16 + static_cast<std::size_t>(v);
        }
        return code;
    }
    if (name.size() >= 2 && name[0] == '#') {
        std::size_t code = 0;
        for (char c : name.substr(1)) {
            if (c < '0' || c > '9')
                return kNone;
            code = std::min<std::size_t>(code * 10 + static_cast<std::size_t>(c - '0'), 256);
        }
        return code >= 256 ? '?' : code;
    }
    return kNone;
}

// Collects decoded characters as UTF-16 code units would arrive, pairing a high surrogate
// with the low surrogate right after it; a surrogate without its partner becomes '?'.
class CodeUnitSink
{
public:
    explicit CodeUnitSink(std::string& out) : m_out(out) {}
    ~CodeUnitSink() { FlushHigh(); }
    CodeUnitSink(const CodeUnitSink&) = delete;
    CodeUnitSink& operator=(const CodeUnitSink&) = delete;

    void Put(std::uint32_t unit)
    {
        if (m_high != 0) {
            if (unit >= 0xDC00 && unit <= 0xDFFF) {
                XmlUtf8::Append(m_out, 0x10000 + ((m_high - 0xD800) << 10) + (unit - 0xDC00));
                m_high = 0;
                return;
            }
            FlushHigh();
        }
        if (unit >= 0xD800 && unit <= 0xDBFF)
            m_high = unit;
        else if (unit >= 0xDC00 && unit <= 0xDFFF)
            m_out += '?';
        else
            XmlUtf8::Append(m_out, unit);
    }
    // Takes bytes that are already the UTF-8 of whole characters below U+D800.
    void PutBytes(const char* data, std::size_t size)
    {
        FlushHigh();
        m_out.append(data, size);
    }
    void FlushHigh()
    {
        if (m_high != 0) {
            m_out += '?';
            m_high = 0;
        }
    }

private:
    std::string& m_out;
    std::uint32_t m_high = 0;
};

} // namespace

bool CXmlDecoder::IsPlain(std::string_view raw)
{
    const char* s = raw.data();
    const std::size_t n = raw.size();
    std::uint64_t w = 0;
    if (n >= 8) {
        for (std::size_t i = 0; i + 8 <= n; i += 8) {
            std::memcpy(&w, s + i, 8);
            if (SpecialBytes(w) != 0)
                return false;
        }
        // The last eight bytes, overlapping what was already checked.
        std::memcpy(&w, s + n - 8, 8);
    } else if (n >= 4) {
        // Two overlapping four-byte loads cover 4 to 7 bytes without a per-length branch.
        std::uint32_t head;
        std::uint32_t tail;
        std::memcpy(&head, s, 4);
        std::memcpy(&tail, s + n - 4, 4);
        w = head | (static_cast<std::uint64_t>(tail) << 32);
    } else if (n > 0) {
        const auto* u = reinterpret_cast<const unsigned char*>(s);
        w = u[0] | (static_cast<std::uint64_t>(u[n / 2]) << 8) | (static_cast<std::uint64_t>(u[n - 1]) << 16);
    }
    // Zero bytes are neither '&' nor above 127.
    return SpecialBytes(w) == 0;
}

void CXmlDecoder::DecodeAppend(std::string_view raw, XmlEncoding encoding, std::string& out)
{
    const auto* s = reinterpret_cast<const unsigned char*>(raw.data());
    const std::size_t n = raw.size();
    CodeUnitSink sink(out);
    // Bytes that decode to themselves (ASCII but '&' and, in UTF-8, the characters U+0080 to
    // U+00FF, which are written back with the very bytes they came in) are passed on in runs.
    std::size_t run = 0;
    const auto passRun = [&](std::size_t end) {
        if (end > run)
            sink.PutBytes(raw.data() + run, end - run);
    };
    std::size_t i = 0;
    while (i < n) {
        std::uint64_t w = 0;
        while (i + 8 <= n && (std::memcpy(&w, s + i, 8), SpecialBytes(w) == 0))
            i += 8;
        while (i < n && s[i] < 0x80 && s[i] != '&')
            ++i;
        if (i == n)
            break;
        const unsigned char b = s[i];
        if (encoding == Utf8 && (b == 0xC2 || b == 0xC3) && i + 1 < n && (s[i + 1] & 0xC0) == 0x80) {
            i += 2;
            continue;
        }
        passRun(i);
        if (b == '&') {
            const std::size_t semi = raw.find(';', i + 1);
            if (semi == std::string_view::npos)
                return; // no ';': the '&' and the rest are dropped
            const std::size_t code = EntityCode(raw.substr(i + 1, semi - i - 1));
            if (code != kNone)
                sink.Put(static_cast<std::uint32_t>(code));
            i = semi + 1;
        } else if (encoding == Latin1) {
            sink.Put(b);
            ++i;
        } else {
            const unsigned length = kSequenceLength[b >> 2];
            std::uint32_t code = b & kLeadMask[length];
            const unsigned total = length == 0 ? 5 : length;
            ++i;
            for (unsigned k = 1; k < total && i < n && (s[i] & 0xC0) == 0x80; ++k, ++i)
                code = (code << 6) | (s[i] & 0x3Fu);
            sink.Put(code >= 256 ? '?' : code);
        }
        run = i;
    }
    passRun(n);
}
