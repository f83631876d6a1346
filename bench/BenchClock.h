#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

// The two measures every benchmark prints: this process's processor time, which a machine
// shared with other work disturbs less than the wall clock, and the median of repeated runs.
namespace BenchClock {

// Processor seconds this process has used so far.
inline double CpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// The median of values (the mean of the middle two for an even count); values is not empty.
inline double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

} // namespace BenchClock
