// The printed logbook: a generated logbook of 1,000 jumps (signatures with their strokes, notes,
// rigs) painted into a PDF file as "tervola print" and the window's Export PDF do it. Prints the
// median, best and worst wall-clock and processor time of several runs, the file's size and
// pages, and the process's peak resident memory (everything: Qt, fonts, the logbook and the
// runs). Targets: at most 5 s and at most 100 MB.

#include "bench/BenchClock.h"
#include "cli/generator/CLogbookGenerator.h"
#include "document/CLogbookDoc.h"
#include "qtformats/CLogbookPageRenderer.h"
#include "qtformats/CLogbookPdf.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <numeric>
#include <string>
#include <vector>

namespace {

using BenchClock::CpuSeconds;
using BenchClock::Median;

// The process's peak resident memory in megabytes (getrusage's maximum resident set).
double PeakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const bool quick = argc > 1 && std::string(argv[1]) == "--quick";
    const int runs = quick ? 3 : 7;
    constexpr int kJumps = 1000;
    constexpr double kTargetSeconds = 5.0;
    constexpr double kTargetMegabytes = 100.0;

    CGeneratorOptions options;
    options.jumps = kJumps;
    options.barometric = 0;
    CLogbookDoc doc;
    CLogbookGenerator(options).Fill(doc);
    std::vector<std::size_t> rows(doc.GetJumpCount());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    const QString path = QDir::temp().filePath(QStringLiteral("tervola_bench_print.pdf"));

    std::vector<double> wall, cpu;
    int pages = 0;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        const double cpuStart = CpuSeconds();
        CLogbookPageRenderer renderer(doc, rows, CUnitSettings(CUnitSettings::Metric, 0, 0));
        QString error;
        if (!CLogbookPdf::Write(renderer, path, QPageSize::A4, {}, error)) {
            std::fprintf(stderr, "PDF not written: %s\n", qPrintable(error));
            return 1;
        }
        pages = renderer.PageCount();
        cpu.push_back(CpuSeconds() - cpuStart);
        wall.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    const double megabytes = PeakMegabytes();
    const double median = Median(wall);
    std::printf("%d jumps -> %d pages, %.0f KB PDF, %d runs\n", kJumps, pages, QFileInfo(path).size() / 1024.0, runs);
    std::printf("wall s: median %.2f (best %.2f, worst %.2f); cpu s: median %.2f; target %.1f s: %s\n", median,
                *std::min_element(wall.begin(), wall.end()), *std::max_element(wall.begin(), wall.end()), Median(cpu),
                kTargetSeconds, median <= kTargetSeconds ? "PASS" : "MISS");
    std::printf("peak resident memory of the process: %.1f MB; target %.0f MB: %s\n", megabytes, kTargetMegabytes,
                megabytes <= kTargetMegabytes ? "PASS" : "MISS");
    QFile::remove(path);
    return median <= kTargetSeconds && megabytes <= kTargetMegabytes ? 0 : 1;
}
