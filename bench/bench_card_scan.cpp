// A FlySight card of 100 tracks scanned for new jumps: 70 FlySight 1 files and 30 FlySight 2
// sessions (with their SENSOR.CSV) of made-up jumps at 5 Hz, each about 14 minutes of fixes from
// the climb to the walk after landing, every file read, its jump found and its recording built,
// as "Import tracks..." and "tervola import LOGBOOK FOLDER" do before showing the list. Median
// of several runs in milliseconds, wall clock and processor time. Target: at most 10 s.

#include "SyntheticTrack.h"
#include "bench/BenchClock.h"
#include "formats/CTrackCardScan.h"
#include "tests/common/CScratchFolder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using BenchClock::CpuSeconds;
using BenchClock::Median;

void Write(const std::filesystem::path& path, const std::string& text)
{
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

} // namespace

int main(int argc, char** argv)
{
    const int runs = argc > 1 && std::string(argv[1]) == "--quick" ? 3 : 5;
    constexpr int kTracks = 100;
    constexpr double kTargetMs = 10000.0;
    const CScratchFolder card("bench-card");
    std::uintmax_t bytes = 0;
    for (int i = 0; i < kTracks; ++i) {
        CSyntheticJump jump;
        jump.seed = static_cast<std::uint32_t>(i + 1);
        jump.exitHeight = 3000.0 + 10.0 * i;
        CSyntheticTruth truth;
        CTrack track = MakeJumpTrack(jump, truth);
        for (CTrackFix& fix : track.fixes)
            fix.time += 3600.0 * i;
        char day[16], name[32];
        std::snprintf(day, sizeof day, "24-05-%02d", 1 + i / 10);
        std::snprintf(name, sizeof name, "%02d-00-00", i % 10 + 8);
        if (i % 10 < 7) {
            Write(card.Path() / day / (std::string(name) + ".CSV"), WriteFlySight1(track, FlySight1Columns(), "\r\n"));
        } else {
            std::vector<CBaroReading> baro;
            Write(card.Path() / "FS2" / day / name / "TRACK.CSV", WriteFlySight2(track));
            Write(card.Path() / "FS2" / day / name / "SENSOR.CSV", WriteSensor(track, baro));
        }
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(card.Path()))
        if (entry.is_regular_file())
            bytes += entry.file_size();

    std::vector<double> wall, cpu;
    std::size_t found = 0;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        const double cpuStart = CpuSeconds();
        const CCardScan scan = CTrackCardScan::Scan(card.Path(), {}, {});
        cpu.push_back((CpuSeconds() - cpuStart) * 1000.0);
        wall.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
        found = scan.found.size();
    }
    const double median = Median(wall);
    const bool pass = median <= kTargetMs && found == kTracks;
    std::printf("%-28s %8s %10s %10s %10s\n", "workload", "jumps", "wall ms", "cpu ms", "target ms");
    std::printf("%-28s %8zu %10.1f %10.1f %10.0f %s\n", "card scan (100 tracks)", found, median, Median(cpu), kTargetMs,
                pass ? "PASS" : "MISS");
    std::printf("(%.1f MB of tracks, %u processor cores, median of %d runs)\n", static_cast<double>(bytes) / 1e6,
                std::thread::hardware_concurrency(), runs);
    return pass ? 0 : 1;
}
