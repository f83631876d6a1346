#pragma once

#include <atomic>
#include <cstdint>

// How far a load or a save has come, written by the thread doing the work and read by the
// window's thread to show it: done out of total (bytes of the file read, or records written).
struct CIoProgress
{
    std::atomic<std::uint64_t> done{0};
    std::atomic<std::uint64_t> total{0};

    // done / total between 0 and 1; 0 while the total is unknown.
    double Fraction() const
    {
        const std::uint64_t all = total.load(std::memory_order_relaxed);
        const std::uint64_t part = done.load(std::memory_order_relaxed);
        return all == 0 ? 0.0 : static_cast<double>(part < all ? part : all) / static_cast<double>(all);
    }
};
