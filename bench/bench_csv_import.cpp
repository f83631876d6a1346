// The spreadsheet import: a generated logbook of 10,000 jumps exported as CSV (the program's own
// export, every column filled as real logbooks fill it) and read back into an empty logbook:
// the table read, the columns and date form proposed, every row made into a jump and the jumps
// added through the document. Median of several runs in milliseconds, wall clock and processor
// time. Target: at most 1 s for the 10,000 rows.

#include "bench/BenchClock.h"
#include "cli/generator/CLogbookGenerator.h"
#include "document/CLogbookDoc.h"
#include "formats/CCsvExporter.h"
#include "formats/CCsvJumpImport.h"
#include "units/CUnitSettings.h"

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
    const int runs = argc > 1 && std::string(argv[1]) == "--quick" ? 3 : 9;
    constexpr int kRows = 10000;
    constexpr double kTargetMs = 1000.0;
    CGeneratorOptions options;
    options.jumps = kRows;
    options.barometric = 0;
    CLogbookDoc source;
    CLogbookGenerator(options).Fill(source);
    const CUnitSettings units(CUnitSettings::Metric, 0, 0);
    const std::string csv = CCsvExporter(units).Export(source);

    std::vector<double> wall, cpu;
    std::size_t added = 0;
    for (int run = 0; run < runs; ++run) {
        CLogbookDoc doc;
        const auto start = std::chrono::steady_clock::now();
        const double cpuStart = CpuSeconds();
        const CCsvReadResult read = CCsvReader::Read(csv);
        const CCsvProposal proposal = CCsvJumpImport::Propose(read.table);
        CCsvImportPlan plan = CCsvJumpImport::Plan(read.table, proposal.mapping, doc, CDateTime(2026, 1, 1), 0);
        added = CCsvJumpImport::Apply(plan, doc);
        cpu.push_back((CpuSeconds() - cpuStart) * 1000.0);
        wall.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    const double median = Median(wall);
    std::printf("%-24s %8s %10s %10s %10s\n", "workload", "rows", "wall ms", "cpu ms", "target ms");
    std::printf("%-24s %8zu %10.1f %10.1f %10.0f %s\n", "CSV import (10,000 rows)", added, median, Median(cpu),
                kTargetMs, median <= kTargetMs && added == kRows ? "PASS" : "MISS");
    std::printf("(%zu bytes of CSV, median of %d runs)\n", csv.size(), runs);
    return median <= kTargetMs && added == kRows ? 0 : 1;
}
