#pragma once

#include <cstdint>
#include <random>
#include <span>

// Random numbers for the generator. The engine is std::mt19937, whose output sequence the
// standard fixes; the distributions are implemented here, so one seed gives the same logbook
// with every standard library.
class CGeneratorRandom
{
public:
    // The engine seeded with seed.
    explicit CGeneratorRandom(uint32_t seed) : m_engine(seed) {}

    // The engine's next 32 bits.
    uint32_t Next() { return static_cast<uint32_t>(m_engine()); }
    // A uniform integer in [low, high] (both included); low when high < low.
    int Int(int low, int high);
    // A uniform double in [0, 1) with 53 random bits.
    double Real();
    // A uniform double in [low, high).
    double Real(double low, double high) { return low + (high - low) * Real(); }
    // A uniform double in [low, high) rounded to the given number of decimals.
    double Rounded(double low, double high, int decimals);
    // True with probability p.
    bool Chance(double p) { return Real() < p; }
    // A uniformly chosen index into a list of count entries (count > 0).
    std::size_t Index(std::size_t count);
    // A uniformly chosen entry of a non-empty list.
    template <typename T>
    const T& Pick(std::span<const T> items)
    {
        return items[Index(items.size())];
    }

private:
    std::mt19937 m_engine;
};
