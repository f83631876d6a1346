// The statistics of generated logbooks of 1,000, 10,000 and 100,000 jumps: how long the figures
// (totals, years, months, last twelve months, the five breakdowns, streaks and gaps) and the
// licence progress and currency take, as the median of several runs in milliseconds, wall
// clock and processor time. Target: at most 50 ms at 100,000 jumps, judged on the processor
// time: on a machine shared with other work the wall clock also counts the time the process
// waited for a processor (both are printed). The last column is the licence progress and
// currency alone, as the home page works them out after every change.

#include "bench/BenchClock.h"
#include "cli/generator/CLogbookGenerator.h"
#include "document/CLogbookDoc.h"
#include "stats/CLicenceRules.h"
#include "stats/CLogbookStats.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace {

using BenchClock::CpuSeconds;
using BenchClock::Median;

} // namespace

int main(int argc, char** argv)
{
    const int runs = argc > 1 && std::string(argv[1]) == "--quick" ? 5 : 21;
    constexpr double kTargetMs = 50.0;
    int misses = 0;
    std::printf("%-8s %12s %12s %10s %-5s %14s\n", "jumps", "wall ms", "cpu ms", "target ms", "", "home wall ms");
    for (int jumps : {1000, 10000, 100000}) {
        CGeneratorOptions options;
        options.jumps = jumps;
        options.barometric = 0;
        CLogbookDoc doc;
        CLogbookGenerator(options).Fill(doc);
        const CDateTime asOf = CLogbookGenerator::LastJumpDay().AddDays(30);
        std::vector<double> wall;
        std::vector<double> cpu;
        std::vector<double> home; // the home page's licence progress and currency alone
        int checksum = 0;
        for (int run = 0; run < runs; ++run) {
            const auto start = std::chrono::steady_clock::now();
            const double cpuStart = CpuSeconds();
            const CLogbookStats stats = CLogbookStats::Compute(doc, asOf);
            const CLicenceStatus licence = CLicenceStatus::Compute(stats, doc.GetSettings().GetLicenses());
            cpu.push_back((CpuSeconds() - cpuStart) * 1000);
            wall.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
            checksum += stats.logged.jumps + static_cast<int>(stats.perDropZone.size()) + licence.currency.limitDays;
            const auto homeStart = std::chrono::steady_clock::now();
            checksum += CLicenceStatus::OfDocument(doc, asOf).progress.jumps;
            home.push_back(
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - homeStart).count());
        }
        const double wallMs = Median(wall);
        const double cpuMs = Median(cpu);
        const bool judged = jumps == 100000;
        const bool pass = cpuMs <= kTargetMs;
        misses += judged && !pass ? 1 : 0;
        std::printf("%-8d %12.2f %12.2f %10s %-5s %14.2f   (checksum %d)\n", jumps, wallMs, cpuMs, judged ? "50" : "-",
                    judged ? (pass ? "PASS" : "MISS") : "", Median(home), checksum);
    }
    return misses == 0 ? 0 : 1;
}
