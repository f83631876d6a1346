#pragma once

#include "BenchClock.h"

#include <algorithm>
#include <chrono>
#include <ctime>

// The best of several runs of one piece of work, as wall-clock time and as the processor time
// of this process. On a machine shared with other work the wall clock also counts the time
// the process waited for a processor; the processor time does not, and so varies less.
class CBestTime
{
public:
    // Runs work once and keeps its times when they are the best so far; returns work's result.
    template <typename Work>
    bool Measure(Work&& work)
    {
        const auto wallStart = std::chrono::steady_clock::now();
        const double cpuStart = ProcessSeconds();
        const bool ok = work();
        const double cpu = ProcessSeconds() - cpuStart;
        const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - wallStart).count();
        m_wall = m_runs == 0 ? wall : std::min(m_wall, wall);
        m_cpu = m_runs == 0 ? cpu : std::min(m_cpu, cpu);
        ++m_runs;
        return ok;
    }

    // Best wall-clock seconds.
    double Wall() const { return m_wall; }
    // Best processor seconds of this process.
    double Cpu() const { return m_cpu; }

private:
    static double ProcessSeconds() { return BenchClock::CpuSeconds(); }

    double m_wall = 0;
    double m_cpu = 0;
    int m_runs = 0;
};
