// The window while it saves a large logbook: the longest time its event loop is blocked from the
// Save command (and from the automatic save when the program loses the user's attention) until
// the save has ended, while the jump list is scrolled all the time. A timer asks to run every
// 5 ms; the longest gap between its runs, less those 5 ms, is the block. Logbooks: 10,000 jumps
// with 1,000 GPS recordings of 1,500 waypoints, and 100,000 jumps. Target: at most 50 ms.
// Usage: bench_save_window [--quick] [--runs N] [--only NAME]; run with QT_QPA_PLATFORM=offscreen where there
// is no display. The exit status is the number of missed targets.

#include "CBenchWindow.h"

#include "app/AppCommands.h"
#include "app/CBackgroundSaver.h"
#include "app/CJumpListCtrl.h"
#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kTickMs = 5;
constexpr double kTargetMs = 50;

// One save from start to end with a timer watching the event loop and the list scrolling.
struct CSaveRun
{
    double blockMs = 0; // the longest gap between timer runs, less the timer's interval
    double saveMs = 0;  // from the command until the save has ended
};

CSaveRun MeasureSave(CMainFrame& frame, const std::function<void()>& start)
{
    CBackgroundSaver& saver = *frame.Commands()->Saver();
    QScrollBar* scroll = frame.View()->List()->verticalScrollBar();
    CSaveRun run;
    QElapsedTimer clock;
    qint64 last = 0;
    QTimer probe;
    probe.setTimerType(Qt::PreciseTimer);
    probe.setInterval(kTickMs);
    QObject::connect(&probe, &QTimer::timeout, [&] {
        const qint64 now = clock.nsecsElapsed();
        run.blockMs = std::max(run.blockMs, (now - last) / 1e6 - kTickMs);
        last = now;
        // The user scrolls the list all the while, so the window also paints.
        scroll->setValue(scroll->value() >= scroll->maximum() - 10 ? 0 : scroll->value() + 10);
    });
    QEventLoop loop;
    const QMetaObject::Connection idle = QObject::connect(&saver, &CBackgroundSaver::idle, &loop, &QEventLoop::quit);
    clock.start();
    probe.start();
    // The command itself runs inside the loop, as a click would.
    QTimer::singleShot(0, [&] {
        last = clock.nsecsElapsed();
        start();
    });
    loop.exec();
    run.saveMs = clock.nsecsElapsed() / 1e6;
    // The last gap, up to the save's end, counts too.
    run.blockMs = std::max(run.blockMs, (clock.nsecsElapsed() - last) / 1e6 - kTickMs);
    probe.stop();
    QObject::disconnect(idle);
    return run;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    bool quick = false;
    int runs = 5;
    std::string only;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--quick")
            quick = true;
        else if (arg == "--runs" && i + 1 < argc)
            runs = std::max(1, std::atoi(argv[++i]));
        else if (arg == "--only" && i + 1 < argc)
            only = argv[++i];
    }
    QTemporaryDir folder;
    std::printf("processor cores: %u; the event loop is watched by a %d ms timer while the jump list scrolls\n",
                std::thread::hardware_concurrency(), kTickMs);

    struct Workload
    {
        const char* name;
        int jumps;
        int recordings;
    };
    std::vector<Workload> workloads = {{"10k-gps", 10000, 1000}, {"100k", 100000, 0}};
    if (quick)
        workloads = {{"1k-gps", 1000, 100}};
    if (!only.empty())
        std::erase_if(workloads, [&](const Workload& w) { return only != w.name; });
    int misses = 0;
    for (const Workload& workload : workloads) {
        CGeneratorOptions options;
        options.jumps = workload.jumps;
        options.recordings = workload.recordings;
        options.samples = 1500;
        options.barometric = 0;
        CBenchWindow window(options);
        CMainFrame& frame = window.Frame();
        CLogbookDoc& doc = window.Document();
        const std::string path =
            QDir(folder.path()).filePath(QStringLiteral("%1.tvz").arg(workload.name)).toStdString();
        if (!doc.Save(path)) {
            std::printf("%s: cannot save %s\n", workload.name, path.c_str());
            return 100;
        }
        window.ShowJumpList();

        std::vector<double> blocks[2];
        std::vector<double> saves[2];
        for (int run = 0; run < runs; ++run) {
            for (int kind = 0; kind < 2; ++kind) {
                doc.SetModified();
                const CSaveRun measured = MeasureSave(frame, [&] {
                    if (kind == 0)
                        frame.Commands()->Execute(AppCommands::ID_FILE_SAVE);
                    else
                        frame.OnApplicationStateChanged(Qt::ApplicationInactive);
                });
                if (doc.IsModified() || !window.Quiet().errors.isEmpty()) {
                    std::printf("%s: the save did not succeed\n", workload.name);
                    return 100;
                }
                blocks[kind].push_back(measured.blockMs);
                saves[kind].push_back(measured.saveMs);
            }
        }
        for (int kind = 0; kind < 2; ++kind) {
            const double worst = *std::max_element(blocks[kind].begin(), blocks[kind].end());
            const bool pass = worst <= kTargetMs;
            misses += pass ? 0 : 1;
            std::printf("%-8s %-15s longest block: median %6.1f ms, worst %6.1f ms of %d runs | save %7.0f ms "
                        "(median) | target <= %.0f ms | %s\n",
                        workload.name, kind == 0 ? "Save command" : "automatic save", Median(blocks[kind]), worst, runs,
                        Median(saves[kind]), kTargetMs, pass ? "PASS" : "MISS");
        }
        std::fflush(stdout);
    }
    std::printf("%d target(s) missed\n", misses);
    return misses;
}
