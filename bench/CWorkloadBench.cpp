#include "CWorkloadBench.h"

#include "CBenchReport.h"
#include "CExpatCounter.h"
#include "CInstructionCount.h"
#include "CPeakMemoryProbe.h"
#include "CReferenceTools.h"

#include "cli/generator/CLogbookGenerator.h"
#include "document/SafeFileReplace.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <utility>

namespace {

// The document reads in blocks of this size; the reference readers use the same.
constexpr std::size_t kChunkBytes = 64 * 1024;
// Twice the largest last-level cache of the machines this runs on.
constexpr std::size_t kScratchBytes = 128u * 1024u * 1024u;

// Every save stamps this moment, so that all saves of a logbook give the same bytes.
CDateTime SaveMoment()
{
    return CDateTime(2024, 6, 1, 12, 0, 0);
}

} // namespace

CWorkloadBench::CWorkloadBench(std::string folder, long long baselineBytes)
    : m_folder(std::move(folder)), m_baseline(baselineBytes), m_clock(SaveMoment())
{
}

bool CWorkloadBench::Fail(const std::string& message)
{
    std::fprintf(stderr, "bench_document: %s\n", message.c_str());
    return false;
}

void CWorkloadBench::CoolCaches()
{
    if (m_scratch.size() != kScratchBytes)
        m_scratch.resize(kScratchBytes);
    std::memset(m_scratch.data(), static_cast<unsigned char>(m_scratch[0] + 1), m_scratch.size());
}

std::string CWorkloadBench::PathOf(const Workload& workload, const std::string& suffix) const
{
    return m_folder + "/" + workload.name + suffix;
}

bool CWorkloadBench::Prepare(const Workload& workload, std::string& text)
{
    m_doc = std::make_unique<CLogbookDoc>(nullptr, &m_clock);
    CLogbookGenerator(workload.options).Fill(*m_doc);
    m_expectedJumps = m_doc->GetJumpCount();
    const std::string tvl = PathOf(workload, ".tvl");
    const std::string tvz = PathOf(workload, ".tvz");
    if (!m_doc->Save(tvl) || !m_doc->Save(tvz))
        return Fail("cannot save the generated logbook in " + m_folder);
    if (!CReferenceTools::ReadWhole(tvl, text))
        return Fail("cannot read " + tvl);
    // A load of the compressed file saved again as plain text must give the same bytes: the
    // timed loads and saves below then certainly do the whole job.
    CLogbookDoc check(nullptr, &m_clock);
    const std::string again = PathOf(workload, "-check.tvl");
    std::string againText;
    if (!check.Load(tvz) || !check.Save(again) || !CReferenceTools::ReadWhole(again, againText) || againText != text)
        return Fail("the logbook " + tvz + " does not load and save back to the same bytes");
    SafeFileReplace::RemoveQuietly(again);
    return true;
}

bool CWorkloadBench::TimeLoads(const Workload& workload, Result& result)
{
    const std::string tvl = PathOf(workload, ".tvl");
    const std::string tvz = PathOf(workload, ".tvz");
    for (int run = 0; run < workload.loadRuns; ++run) {
        for (const auto& [path, own] : {std::pair{tvl, &result.loadTvl}, std::pair{tvz, &result.loadTvz}}) {
            // The loaded document is destroyed after the clock has stopped: freeing is no part of a load.
            auto doc = std::make_unique<CLogbookDoc>();
            const std::string& file = path;
            CoolCaches();
            if (!own->Measure([&] { return static_cast<bool>(doc->Load(file)); }) ||
                doc->GetJumpCount() != m_expectedJumps)
                return Fail("the document could not load " + path);
            doc.reset();
        }
        CExpatCounter expat;
        CoolCaches();
        if (!result.expatTvl.Measure([&] { return expat.ParseFile(tvl, kChunkBytes); }))
            return Fail("expat could not parse " + tvl + ": " + expat.ErrorText());
        long long inflated = 0;
        CoolCaches();
        if (!result.inflateTvz.Measure([&] { return (inflated = CReferenceTools::InflateToNowhere(tvz)) >= 0; }) ||
            inflated != result.plainBytes)
            return Fail("zlib could not inflate " + tvz);
    }
    return true;
}

bool CWorkloadBench::TimeSaves(const Workload& workload, const std::string& text, Result& result)
{
    // Each save goes to a file that does not exist yet, so no backup copy is made; the save's
    // flush to the disk is timed, and the reference tools flush their files too.
    const std::string outTvz = PathOf(workload, "-out.tvz");
    const std::string outTvl = PathOf(workload, "-out.tvl");
    const std::string refTvz = PathOf(workload, "-ref.tvz");
    const std::string refTvl = PathOf(workload, "-ref.tvl");
    for (int run = 0; run < workload.saveRuns; ++run) {
        for (const std::string& path : {outTvz, outTvl, refTvz, refTvl})
            SafeFileReplace::RemoveQuietly(path);
        CoolCaches();
        if (!result.saveTvz.Measure([&] { return m_doc->Save(outTvz); }))
            return Fail("the document could not save " + outTvz);
        CoolCaches();
        if (!result.deflateTvz.Measure([&] { return CReferenceTools::DeflateLevel9(refTvz, text); }))
            return Fail("zlib could not write " + refTvz);
        CoolCaches();
        std::unique_ptr<CLogbookDoc> snapshot;
        result.snapshot.Measure([&] { return (snapshot = m_doc->Snapshot()) != nullptr; });
        result.copyJumps.Measure([&] {
            snapshot->CopyJumps();
            return snapshot->GetJumpCount() == m_doc->GetJumpCount();
        });
        snapshot.reset();
        CoolCaches();
        if (!result.saveTvl.Measure([&] { return m_doc->Save(outTvl); }))
            return Fail("the document could not save " + outTvl);
        CoolCaches();
        if (!result.writeTvl.Measure([&] { return CReferenceTools::WritePlain(refTvl, text); }))
            return Fail("fwrite could not write " + refTvl);
    }
    std::string saved;
    if (!CReferenceTools::ReadWhole(outTvl, saved) || saved != text || !CReferenceTools::ReadWhole(outTvz, saved) ||
        saved != text)
        return Fail("a timed save did not write the logbook's bytes");
    for (const std::string& path : {outTvz, outTvl, refTvz, refTvl})
        SafeFileReplace::RemoveQuietly(path);
    return true;
}

bool CWorkloadBench::Run(const Workload& workload, CBenchReport& report, Result& result, double memoryTarget)
{
    std::string text;
    if (!Prepare(workload, text))
        return false;
    result.plainBytes = static_cast<long long>(text.size());
    result.gzipBytes = CReferenceTools::FileSize(PathOf(workload, ".tvz"));
    char heading[256];
    std::snprintf(heading, sizeof heading, "%s (%s): .tvl %.1f MB, .tvz %.1f MB, best of %d loads, %d saves",
                  workload.name.c_str(), workload.description.c_str(), result.plainBytes / 1048576.0,
                  result.gzipBytes / 1048576.0, workload.loadRuns, workload.saveRuns);
    report.Note(heading);
    std::fflush(stdout);

    if (!TimeLoads(workload, result))
        return false;
    report.Ratio("load .tvl", result.loadTvl, "expat parse", result.expatTvl, 0.5);
    report.Ratio("load .tvz", result.loadTvz, "gzread inflate", result.inflateTvz, 1.3);
    std::fflush(stdout);
    if (workload.saveRuns > 0) {
        if (!TimeSaves(workload, text, result))
            return false;
        report.Ratio("save .tvz", result.saveTvz, "gzwrite level 9", result.deflateTvz, 0.6);
        report.Ratio("save .tvl", result.saveTvl, "one fwrite", result.writeTvl, 0);
        report.Ratio("snapshot", result.snapshot, "save .tvz", result.saveTvz, 0);
        report.Ratio("copy jumps", result.copyJumps, "save .tvz", result.saveTvz, 0);
    }

    const long long tvl = CPeakMemoryProbe::Measure({"load", PathOf(workload, ".tvl")});
    const long long tvz = CPeakMemoryProbe::Measure({"load", PathOf(workload, ".tvz")});
    result.memoryTvl = tvl < 0 || m_baseline < 0 ? -1 : tvl - m_baseline;
    result.memoryTvz = tvz < 0 || m_baseline < 0 ? -1 : tvz - m_baseline;
    report.Memory("mem .tvl", result.memoryTvl, result.plainBytes, memoryTarget);
    report.Memory("mem .tvz", result.memoryTvz, result.plainBytes, memoryTarget);
    std::fflush(stdout);
    if (m_countInstructions) {
        const std::string plain = PathOf(workload, ".tvl");
        report.Instructions("instr .tvl", CInstructionCount::Measure({"load", plain}, m_folder), "expat parse",
                            CInstructionCount::Measure({"expat", plain}, m_folder), 0.5);
        std::fflush(stdout);
    }
    m_doc.reset();
    return true;
}
