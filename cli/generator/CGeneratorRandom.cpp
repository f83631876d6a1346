#include "cli/generator/CGeneratorRandom.h"

#include <cmath>

int CGeneratorRandom::Int(int low, int high)
{
    if (high <= low)
        return low;
    const uint64_t span = static_cast<uint64_t>(static_cast<int64_t>(high) - low) + 1;
    return low + static_cast<int>(Index(static_cast<std::size_t>(span)));
}

double CGeneratorRandom::Real()
{
    // 27 + 26 bits, the classic 53-bit construction.
    const uint32_t a = Next() >> 5;
    const uint32_t b = Next() >> 6;
    return (static_cast<double>(a) * 67108864.0 + static_cast<double>(b)) * (1.0 / 9007199254740992.0);
}

double CGeneratorRandom::Rounded(double low, double high, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(Real(low, high) * scale) / scale;
}

std::size_t CGeneratorRandom::Index(std::size_t count)
{
    if (count <= 1)
        return 0;
    // Rejection sampling on 32-bit words: the largest multiple of count below 2^32 bounds
    // the accepted values, so every index is equally likely.
    const uint64_t range = uint64_t{1} << 32;
    const uint64_t n = count;
    const uint64_t limit = range - range % n;
    uint64_t value = Next();
    while (value >= limit)
        value = Next();
    return static_cast<std::size_t>(value % n);
}
