// Times the logbook document's load and save against the reference tools on generated logbooks
// and measures the memory a load takes:
//   bench_document [--quick] [--only NAME] [--runs N] [--save-runs N] [--big-runs N] [--dir FOLDER] [--keep]
//                  [--callgrind]
// Workloads (generator options, seed 1, no barometric recordings):
//   1k       1,000 jumps without recordings
//   10k      10,000 jumps without recordings
//   100k     100,000 jumps without recordings
//   10k-gps  10,000 jumps, 1,000 of them with a GPS recording of 1,500 waypoints
// --quick runs 1k, 10k and 1k-gps (100 recordings of 1,500 waypoints) only; --only NAME (more
// than once for several) picks workloads.
// Each time is the best of --runs loads (default 7) and --save-runs saves (default 3, 0 times no
// saves); the recording-heavy logbook gets --big-runs of each (default 3 loads and 2 saves).
// --callgrind also counts the instructions of a .tvl load and of expat on the same file with
// valgrind's callgrind (minutes per workload); on a busy machine that ratio is the one to trust.
// Every line gives both best times, their ratio and the target; the exit status is the number
// of missed targets (capped at 100). The gzip save compresses on one thread per processor
// core, so its ratio depends on the cores this process may use, which the first line names.
#include "CBenchReport.h"
#include "CInstructionCount.h"
#include "CPeakMemoryProbe.h"
#include "CWorkloadBench.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <sched.h>
#include <unistd.h>

namespace {

CWorkloadBench::Workload MakeWorkload(std::string name, std::string description, int jumps, int recordings, int samples,
                                      int loadRuns, int saveRuns)
{
    CWorkloadBench::Workload workload;
    workload.name = std::move(name);
    workload.description = std::move(description);
    workload.options.jumps = jumps;
    workload.options.recordings = recordings;
    workload.options.samples = samples;
    workload.options.barometric = 0;
    workload.options.seed = 1;
    workload.loadRuns = loadRuns;
    workload.saveRuns = saveRuns;
    return workload;
}

int Usage()
{
    std::fprintf(stderr, "usage: bench_document [--quick] [--only NAME] [--runs N] [--save-runs N] [--big-runs N] "
                         "[--dir FOLDER] [--keep] [--callgrind]\n");
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    int exitCode = 0;
    if (CPeakMemoryProbe::RunChildIfAsked(argc, argv, exitCode))
        return exitCode;

    bool quick = false;
    bool keep = false;
    bool callgrind = false;
    int runs = 7;
    int saveRuns = 3;
    int bigRuns = 0;               // 0: 3 loads and 2 saves
    std::vector<std::string> only; // names of the workloads to run; empty: all
    std::string parent = std::filesystem::temp_directory_path().string();
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--quick")
            quick = true;
        else if (arg == "--keep")
            keep = true;
        else if (arg == "--callgrind")
            callgrind = true;
        else if (arg == "--runs" && i + 1 < argc)
            runs = std::max(1, std::atoi(argv[++i]));
        else if (arg == "--save-runs" && i + 1 < argc)
            saveRuns = std::max(0, std::atoi(argv[++i]));
        else if (arg == "--big-runs" && i + 1 < argc)
            bigRuns = std::max(1, std::atoi(argv[++i]));
        else if (arg == "--only" && i + 1 < argc)
            only.push_back(argv[++i]);
        else if (arg == "--dir" && i + 1 < argc)
            parent = argv[++i];
        else
            return Usage();
    }

    std::vector<CWorkloadBench::Workload> workloads;
    workloads.push_back(MakeWorkload("1k", "1,000 jumps, no recordings", 1000, 0, 0, runs, saveRuns));
    workloads.push_back(MakeWorkload("10k", "10,000 jumps, no recordings", 10000, 0, 0, runs, saveRuns));
    if (quick) {
        workloads.push_back(MakeWorkload("1k-gps", "1,000 jumps, 100 GPS recordings of 1,500 waypoints", 1000, 100,
                                         1500, runs, saveRuns));
    } else {
        workloads.push_back(MakeWorkload("100k", "100,000 jumps, no recordings", 100000, 0, 0, runs, saveRuns));
        workloads.push_back(MakeWorkload("10k-gps", "10,000 jumps, 1,000 GPS recordings of 1,500 waypoints", 10000,
                                         1000, 1500, bigRuns > 0 ? bigRuns : 3,
                                         saveRuns == 0 ? 0
                                         : bigRuns > 0 ? bigRuns
                                                       : 2));
    }
    if (!only.empty()) {
        std::erase_if(workloads, [&](const CWorkloadBench::Workload& w) {
            return std::find(only.begin(), only.end(), w.name) == only.end();
        });
        if (workloads.empty())
            return Usage();
    }

    std::error_code ec;
    const std::string folder = parent + "/bench_document." + std::to_string(getpid());
    std::filesystem::create_directories(folder, ec);
    if (ec) {
        std::fprintf(stderr, "bench_document: cannot create %s\n", folder.c_str());
        return 1;
    }

    CBenchReport report;
    const long long baseline = CPeakMemoryProbe::Measure({"empty"});
    char line[256];
    std::snprintf(line, sizeof line,
                  "files in %s; saves include the flush to the disk on both sides; "
                  "tool with an empty logbook: %.1f MB peak",
                  folder.c_str(), baseline / 1048576.0);
    report.Note(line);
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    const int usable = sched_getaffinity(0, sizeof allowed, &allowed) == 0 ? CPU_COUNT(&allowed) : -1;
    std::snprintf(line, sizeof line,
                  "processor cores: %u in the machine, %d usable here; the gzip save compresses on %u threads",
                  std::thread::hardware_concurrency(), usable, std::max(1u, std::thread::hardware_concurrency()));
    report.Note(line);
    if (callgrind && !CInstructionCount::Available()) {
        std::fprintf(stderr, "bench_document: --callgrind needs valgrind\n");
        return 2;
    }

    CWorkloadBench bench(folder, baseline);
    bench.SetCountInstructions(callgrind);
    std::map<std::string, CWorkloadBench::Result> results;
    bool ok = true;
    for (const CWorkloadBench::Workload& workload : workloads) {
        // The memory target concerns the logbook whose size comes from its recordings.
        const double memoryTarget = workload.options.recordings > 0 ? 0.6 : 0.0;
        CWorkloadBench::Result result;
        if (!bench.Run(workload, report, result, memoryTarget)) {
            ok = false;
            break;
        }
        results[workload.name] = result;
    }

    if (ok && results.count("10k") != 0 && results.count("100k") != 0) {
        const CWorkloadBench::Result& small = results["10k"];
        const CWorkloadBench::Result& large = results["100k"];
        report.Note("growth from 10,000 to 100,000 jumps (time of 100k / time of 10k)");
        report.Growth("load .tvl", small.loadTvl, large.loadTvl, 11);
        report.Growth("load .tvz", small.loadTvz, large.loadTvz, 11);
        if (saveRuns > 0) {
            report.Growth("save .tvz", small.saveTvz, large.saveTvz, 11);
            report.Growth("save .tvl", small.saveTvl, large.saveTvl, 11);
        }
    }

    if (!keep)
        std::filesystem::remove_all(folder, ec);
    if (!ok)
        return 100;
    std::printf("%d target(s) missed\n", report.Misses());
    return std::min(report.Misses(), 100);
}
