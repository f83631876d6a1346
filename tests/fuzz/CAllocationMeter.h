#pragma once

#include <cstddef>

// Counts the bytes the test program holds through operator new, so that a test can state how
// much memory a piece of code needed at its peak, independent of how the allocator or a
// sanitizer's quarantine keeps freed memory. Linked into the test program only: it replaces the
// global operator new and delete there.
class CAllocationMeter
{
public:
    // Starts a measurement: the peak is set to what is held now.
    static void Start();
    // The most bytes held at any moment since Start, beyond what was held at Start.
    static std::size_t PeakSinceStart();
};
