#pragma once

#include "CBestTime.h"

#include "cli/generator/CGeneratorOptions.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"

#include <memory>
#include <string>
#include <vector>

class CBenchReport;

// One workload of the document benchmark: generates the logbook once, saves it in both
// containers into the work folder, then times load and save against the reference tools
// (best of several runs, own and reference alternating) and measures the memory of a load.
class CWorkloadBench
{
public:
    // A named logbook shape and how many runs each timing gets.
    struct Workload
    {
        std::string name;
        std::string description;
        CGeneratorOptions options;
        int loadRuns = 7; // loads are quick: more runs find a quiet moment of the machine
        int saveRuns = 3; // saves at compression level 9 take long
    };
    // Best times of each side of each comparison, and the memory figures.
    struct Result
    {
        CBestTime loadTvl, expatTvl;
        CBestTime loadTvz, inflateTvz;
        CBestTime saveTvz, deflateTvz;
        CBestTime saveTvl, writeTvl;
        CBestTime snapshot;  // what a background save takes on the window's thread
        CBestTime copyJumps; // the copy of the jumps it makes on its own thread
        long long plainBytes = 0, gzipBytes = 0;
        long long memoryTvl = -1, memoryTvz = -1; // bytes a load adds to the empty tool
    };

    // folder holds the files; baselineBytes is the peak of a tool with an empty logbook.
    CWorkloadBench(std::string folder, long long baselineBytes);
    // Also counts the instructions of a .tvl load and of expat with callgrind (slow: minutes).
    void SetCountInstructions(bool count) { m_countInstructions = count; }

    // Runs every measurement and prints its lines; false (with a message) when something
    // did not work, for example a load that failed or a save whose bytes differ.
    bool Run(const Workload& workload, CBenchReport& report, Result& result, double memoryTarget);

private:
    bool Prepare(const Workload& workload, std::string& text);
    bool TimeLoads(const Workload& workload, Result& result);
    bool TimeSaves(const Workload& workload, const std::string& text, Result& result);
    bool Fail(const std::string& message);
    // Writes over a buffer twice the size of the processor's caches, so that every timed run
    // starts cold, as a load in a fresh program does, instead of finding the previous run's
    // heap still cached (which would favour the logbooks small enough to fit the cache).
    void CoolCaches();
    std::string PathOf(const Workload& workload, const std::string& suffix) const;

    std::string m_folder;
    long long m_baseline;
    std::size_t m_expectedJumps = 0;
    CFixedClock m_clock;
    std::unique_ptr<CLogbookDoc> m_doc; // the generated logbook, saved in every save run
    std::vector<unsigned char> m_scratch;
    bool m_countInstructions = false;
};
