#include "xml/XmlFixedDecimal.h"

#include <charconv>
#include <cstdint>
#include <cstring>

#if defined(__SIZEOF_INT128__)

namespace {

__extension__ typedef unsigned __int128 Uint128;

constexpr std::uint64_t kFivePow14 = 6103515625ull;          // 5^14, below 2^33
constexpr std::uint64_t kTenPow14 = 100000000000000ull;      // 10^14
constexpr std::uint64_t kTenPow19 = 10000000000000000000ull; // 10^19, below 2^64

// "00" to "99", so that digits are written two at a time.
constexpr char kDigitPairs[] = "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
                               "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
                               "8081828384858687888990919293949596979899";

// Writes value as exactly count digits, leading zeros included.
void WriteDigits(char* first, int count, std::uint64_t value)
{
    int i = count;
    while (i >= 2) {
        const auto pair = static_cast<std::size_t>(value % 100) * 2;
        value /= 100;
        i -= 2;
        first[i] = kDigitPairs[pair];
        first[i + 1] = kDigitPairs[pair + 1];
    }
    if (i == 1)
        first[0] = static_cast<char>('0' + value % 10);
}

// Writes the integer part without leading zeros.
char* WriteInteger(char* out, Uint128 value)
{
    if (value >> 64 == 0)
        return std::to_chars(out, out + 24, static_cast<std::uint64_t>(value)).ptr;
    const auto high = static_cast<std::uint64_t>(value / kTenPow19);
    const auto low = static_cast<std::uint64_t>(value % kTenPow19);
    out = std::to_chars(out, out + 24, high).ptr;
    WriteDigits(out, 19, low);
    return out + 19;
}

} // namespace

char* XmlFormatFixed14(double value, char* buffer)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    const bool negative = (bits >> 63) != 0;
    const int biased = static_cast<int>((bits >> 52) & 0x7FF);
    if (biased == 0x7FF)
        return nullptr; // infinity or NaN
    std::uint64_t mantissa = bits & ((1ull << 52) - 1);
    int exponent = 1 - 1075; // subnormal: mantissa * 2^-1074
    if (biased != 0) {
        mantissa |= 1ull << 52;
        exponent = biased - 1075;
    }

    // value * 10^14 = mantissa * 5^14 * 2^(exponent + 14); mantissa * 5^14 is below 2^86.
    Uint128 scaled = static_cast<Uint128>(mantissa) * kFivePow14;
    const int shift = exponent + 14;
    if (shift > 41)
        return nullptr; // would not fit 128 bits
    if (shift >= 0) {
        scaled <<= shift;
    } else if (-shift >= 88) {
        scaled = 0; // less than half a unit of the 14th decimal: rounds to zero
    } else {
        const int down = -shift;
        Uint128 rounded = scaled >> down;
        const Uint128 rest = scaled - (rounded << down);
        const Uint128 half = static_cast<Uint128>(1) << (down - 1);
        if (rest > half || (rest == half && (rounded & 1) != 0))
            ++rounded;
        scaled = rounded;
    }

    char* out = buffer;
    if (negative)
        *out++ = '-';
    Uint128 integer = 0;
    std::uint64_t fraction = 0;
    if (scaled >> 64 == 0) {
        const auto small = static_cast<std::uint64_t>(scaled);
        integer = small / kTenPow14;
        fraction = small % kTenPow14;
    } else {
        integer = scaled / kTenPow14;
        fraction = static_cast<std::uint64_t>(scaled % kTenPow14);
    }
    out = WriteInteger(out, integer);
    *out++ = '.';
    WriteDigits(out, 14, fraction);
    return out + 14;
}

#else

char* XmlFormatFixed14(double, char*)
{
    return nullptr; // no 128-bit integers: the caller's general path formats every value
}

#endif
