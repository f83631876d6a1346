// The jump editor on large logbooks: how long from the New-jump command (and from a tap on the
// last row of the jump list) until the editor is on screen, and how long OK takes until the list
// and the summary show the result. Logbooks of 1,000, 10,000 and 100,000 generated jumps; each
// time is the median of several runs. Target: at most 100 ms each at 100,000 jumps, growing at
// most linearly. Run with QT_QPA_PLATFORM=offscreen where there is no display.

#include "CBenchWindow.h"

#include "app/AppCommands.h"
#include "app/CJumpListCtrl.h"
#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "controls/IDialogRunner.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QSpinBox>

#include <cstdio>
#include <vector>

namespace {

// Shows the editor, notes when it is on screen, and presses OK (with a changed place, so that
// OK has something to write).
class CTimingRunner final : public IDialogRunner
{
public:
    int Run(QDialog& dialog) override
    {
        dialog.show();
        QCoreApplication::processEvents();
        shownAt = clock.nsecsElapsed();
        dialog.findChild<QComboBox*>(QStringLiteral("jumpPlace"))->setEditText(QStringLiteral("Bench %1").arg(++runs));
        if (number > 0)
            dialog.findChild<QSpinBox*>(QStringLiteral("jumpNumber"))->setValue(number);
        dialog.accept();
        lastResult = dialog.result();
        return lastResult;
    }

    QElapsedTimer clock;
    qint64 shownAt = 0;
    int runs = 0;
    int lastResult = QDialog::Rejected;
    // The number a new jump is given (0: the editor's proposal).
    int number = 0;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int repeats = argc > 1 && std::string(argv[1]) == "--quick" ? 3 : 7;
    std::printf("%-8s %14s %14s %14s %14s\n", "jumps", "new: shown ms", "new: OK ms", "tap: shown ms", "tap: OK ms");
    for (int jumps : {1000, 10000, 100000}) {
        CTimingRunner runner;
        CGeneratorOptions options;
        options.jumps = jumps;
        // New jumps without wind: the last generated jump may have none to copy.
        CBenchWindow window(options, &runner,
                            [](CMemorySettingsStore& settings) { settings.SetInt("Jump", "HasWind", 0); });
        CMainFrame& frame = window.Frame();
        // Jump numbers end at 99,999 and a large generated logbook uses them up: new jumps get
        // the lowest free number instead of the one after the last.
        CLogbookDoc& doc = window.Document();
        int freeNumber = 1;
        while (doc.HasJumpNumber(freeNumber))
            ++freeNumber;
        doc.SetPath("/tmp/bench-editor.tvz");
        window.ShowJumpList();
        CLogbookView* view = frame.View();
        // The tap goes to the newest row whose number the editor accepts.
        int tapRow = view->List()->RowCount() - 1;
        while (tapRow > 0 && view->List()->JumpAt(tapRow)->GetNumber() > 99999)
            --tapRow;

        std::vector<double> times[4];
        for (int run = 0; run < repeats; ++run) {
            for (int kind = 0; kind < 2; ++kind) {
                runner.number = kind == 0 ? freeNumber : 0;
                runner.clock.start();
                if (kind == 0)
                    frame.Commands()->Execute(AppCommands::ID_JUMP_NEW);
                else
                    frame.Commands()->OnRowActivated(tapRow);
                const qint64 done = runner.clock.nsecsElapsed();
                if (runner.lastResult != QDialog::Accepted) {
                    std::printf("the editor refused OK: %s\n", qPrintable(window.Quiet().lastWarning));
                    return 1;
                }
                times[kind * 2].push_back(runner.shownAt / 1e6);
                times[kind * 2 + 1].push_back((done - runner.shownAt) / 1e6);
                // The new jump goes again (untimed), so the next run's number is free too.
                if (kind == 0) {
                    for (const CJump* jump : doc.GetJumps())
                        if (jump->GetNumber() == freeNumber) {
                            doc.RemoveJump(static_cast<std::size_t>(doc.IndexOf(jump)));
                            break;
                        }
                }
            }
        }
        std::printf("%-8d %14.1f %14.1f %14.1f %14.1f\n", jumps, Median(times[0]), Median(times[1]), Median(times[2]),
                    Median(times[3]));
        doc.SetModified(false);
    }
    return 0;
}
