#pragma once

#include <cstddef>

// What a benchmark handler did while reading a logbook: the events it saw and the bytes of
// names, attribute values and texts it took out. Two readers that did the same work report
// equal counts, which shows that their timings compare like with like.
struct ParseWork
{
    std::size_t starts = 0;
    std::size_t ends = 0;
    std::size_t attributeBytes = 0;
    std::size_t textBytes = 0;
};
