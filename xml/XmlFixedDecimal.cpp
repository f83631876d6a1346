#include "xml/XmlFixedDecimal.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

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

// Removes count trailing zeros from value when it has them (count's power of ten is constant,
// so the test and the division are multiplications).
template <std::uint64_t Power, int Count>
void DropZeros(std::uint64_t& value, int& digits)
{
    if (value % Power == 0) {
        value /= Power;
        digits -= Count;
    }
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

char* XmlFormatDecimal14(double value, char* buffer)
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
    // Trailing zeros are dropped before the digits are written (one decimal stays).
    int decimals = 14;
    if (fraction == 0) {
        decimals = 1;
    } else {
        // Up to 13 zeros, removed as 8, 4, 2 and 1 of them.
        DropZeros<100000000ull, 8>(fraction, decimals);
        DropZeros<10000ull, 4>(fraction, decimals);
        DropZeros<100ull, 2>(fraction, decimals);
        DropZeros<10ull, 1>(fraction, decimals);
    }
    WriteDigits(out, decimals, fraction);
    return out + decimals;
}

#else

char* XmlFormatDecimal14(double, char*)
{
    return nullptr; // no 128-bit integers: the caller's general path formats every value
}

#endif

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Exact powers of ten up to the largest one a double holds without rounding.
constexpr double kExactPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

#if defined(__x86_64__) || defined(__i386__)
static_assert(std::numeric_limits<long double>::digits == 64, "x87 extended precision expected");

// The digits w as an integer above 2^53 (at most 19 digits) over 10^decimals: both are exact
// in x87 extended precision (64-bit significand), so the quotient is rounded once to 64 bits
// and then to the 53 of a double. That second rounding can only go wrong when the first one
// landed exactly halfway between two doubles (the lowest 11 of the 64 bits are 10000000000);
// that case returns false and is left to the general reader.
bool ExtendedQuotient(std::uint64_t digits, std::size_t decimals, double& value)
{
    static constexpr long double kPowers[] = {1e0L,  1e1L,  1e2L,  1e3L,  1e4L,  1e5L,  1e6L,  1e7L,
                                              1e8L,  1e9L,  1e10L, 1e11L, 1e12L, 1e13L, 1e14L, 1e15L,
                                              1e16L, 1e17L, 1e18L, 1e19L, 1e20L, 1e21L, 1e22L};
    const long double quotient = static_cast<long double>(digits) / kPowers[decimals];
    std::uint64_t significand = 0;
    std::memcpy(&significand, &quotient, sizeof significand);
    if ((significand & 0x7FF) == 0x400)
        return false;
    value = static_cast<double>(quotient);
    return true;
}
#else
bool ExtendedQuotient(std::uint64_t, std::size_t, double&)
{
    return false; // no extended precision: the general reader takes these digits
}
#endif

} // namespace

bool XmlReadShortDecimal(std::string_view raw, bool allowMinus, double& value)
{
    const std::size_t n = raw.size();
    std::size_t i = 0;
    const bool negative = n > 0 && raw[0] == '-';
    if (negative) {
        if (!allowMinus)
            return false;
        i = 1;
    }
    std::uint64_t digits = 0;
    const std::size_t first = i;
    for (; i < n && IsDigit(raw[i]); ++i)
        digits = digits * 10 + static_cast<std::uint64_t>(raw[i] - '0');
    std::size_t count = i - first;
    if (count == 0)
        return false;
    std::size_t decimals = 0;
    if (i < n) {
        if (raw[i] != '.')
            return false;
        const std::size_t fraction = ++i;
        for (; i < n && IsDigit(raw[i]); ++i)
            digits = digits * 10 + static_cast<std::uint64_t>(raw[i] - '0');
        decimals = i - fraction;
        count += decimals;
        if (i < n || decimals == 0)
            return false;
    }
    if (count > 19 || decimals > 22)
        return false;
    double magnitude = 0.0;
    if (digits <= (std::uint64_t{1} << 53)) {
        // w and 10^decimals are exact doubles: one correctly rounded division.
        magnitude = static_cast<double>(digits) / kExactPowersOfTen[decimals];
    } else if (!ExtendedQuotient(digits, decimals, magnitude)) {
        return false;
    }
    value = negative ? -magnitude : magnitude;
    return true;
}
