#pragma once

#include "editing/CPrintOptionsEdit.h"
#include "units/CUnitSettings.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class CLogbookDoc;
class CLogbookPageRenderer;
class CLogbookPdf;
class QPrinter;
class QProgressDialog;
class QWidget;
struct CAppServices;

// "File" > "Print...", "Print preview..." and "Export PDF...": the print options, then the
// platform's print dialog, its preview or a file name, and the pages painted one at a time from
// the event loop with a progress dialog that can cancel, so the window stays usable meanwhile.
// The pages are painted from a copy of the logbook taken at the start, which later edits leave
// alone.
class CPrintPagesCommand : public QObject
{
    Q_OBJECT

public:
    // The rows of the jumps the window shows, in order (positions in the document's list).
    using ShownRows = std::function<std::vector<std::size_t>()>;

    CPrintPagesCommand(CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services, QWidget* window);
    ~CPrintPagesCommand() override;

    // What "the jumps the list shows" prints; without it the choice is not offered.
    void SetShownRows(ShownRows rows) { m_shownRows = std::move(rows); }

    void Print();
    void Preview();
    void ExportPdf();

    // True while pages are being painted.
    bool IsRunning() const { return static_cast<bool>(m_renderer); }

signals:
    // Painting began.
    void started();
    // The painting ended: written (or printed), cancelled or failed.
    void finished(bool done);

private:
    // Asks for the options; false when cancelled.
    bool AskOptions(CPrintOptionsEdit& options);
    // A copy of the logbook and a renderer of the chosen jumps.
    void Prepare(const CPrintOptionsEdit& options);
    // Starts painting on the event loop; next paints a page.
    void Start(const QString& label, std::function<bool()> next);
    void Step();
    void Finish(bool done, const QString& error = {});

    CLogbookDoc& m_doc;
    const CUnitSettings& m_units;
    const CAppServices& m_services;
    QPointer<QWidget> m_window;
    ShownRows m_shownRows;

    std::unique_ptr<CLogbookDoc> m_copy;
    std::unique_ptr<CLogbookPageRenderer> m_renderer;
    std::unique_ptr<CLogbookPdf> m_pdf;
    std::unique_ptr<QPrinter> m_printer;
    std::function<bool()> m_next;
    QTimer m_timer;
    QPointer<QProgressDialog> m_progress;
};
