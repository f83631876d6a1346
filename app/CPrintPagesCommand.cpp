#include "app/CPrintPagesCommand.h"

#include "app/CAppServices.h"
#include "app/IFileChooser.h"
#include "controls/CRecordingPrint.h"
#include "controls/IDialogRunner.h"
#include "controls/IMessageSink.h"
#include "dialogs/CDlgPrintOptions.h"
#include "document/CLogbookDoc.h"
#include "qtformats/CLogbookPageRenderer.h"
#include "qtformats/CLogbookPdf.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>

namespace {

QPageSize::PageSizeId PaperOf(const CPrintOptionsEdit& options)
{
    return options.paper == CPrintOptionsEdit::Letter ? QPageSize::Letter : QPageSize::A4;
}

} // namespace

CPrintPagesCommand::CPrintPagesCommand(CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services,
                                       QWidget* window)
    : QObject(window), m_doc(doc), m_units(units), m_services(services), m_window(window)
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &CPrintPagesCommand::Step);
}

CPrintPagesCommand::~CPrintPagesCommand()
{
    m_timer.stop();
    // A file still being written is removed, not left half-written.
    m_pdf.reset();
}

bool CPrintPagesCommand::AskOptions(CPrintOptionsEdit& options)
{
    if (IsRunning() || m_doc.GetJumpCount() == 0)
        return false;
    const bool letter = CLogbookPageRenderer::DefaultPaper(QLocale()) == QPageSize::Letter;
    CDlgPrintOptions dialog(m_doc, m_shownRows ? m_shownRows() : std::vector<std::size_t>{},
                            letter ? CPrintOptionsEdit::Letter : CPrintOptionsEdit::A4, m_services.messages, m_window);
    if (RunDialog(m_services.dialogs, dialog) != QDialog::Accepted)
        return false;
    options = dialog.Edit();
    return true;
}

void CPrintPagesCommand::Prepare(const CPrintOptionsEdit& options)
{
    m_copy = m_doc.Snapshot();
    m_copy->CopyJumps();
    m_renderer = std::make_unique<CLogbookPageRenderer>(*m_copy, options.Selection(*m_copy), m_units);
    if (options.recordings) {
        const CUnitSettings units = m_units;
        m_renderer->SetDetailPages(true, [units](QPainter& painter, const QRectF& area, const CJump& jump) {
            CRecordingPrint::Paint(painter, area, jump, units, 96.0 / 720.0);
        });
    }
}

void CPrintPagesCommand::ExportPdf()
{
    CPrintOptionsEdit options;
    if (!AskOptions(options) || !m_services.files)
        return;
    const QFileInfo logbook(QString::fromStdString(m_doc.GetPath()));
    const QString start = m_doc.HasPath()
                              ? logbook.absoluteDir().filePath(logbook.completeBaseName() + QStringLiteral(".pdf"))
                              : QString();
    const QString path = m_services.files->ChoosePdf(start);
    if (path.isEmpty())
        return;
    Prepare(options);
    m_pdf = std::make_unique<CLogbookPdf>(*m_renderer, path, PaperOf(options));
    if (!m_pdf->Begin()) {
        Finish(false, m_pdf->Error());
        return;
    }
    Start(tr("Writing the PDF file..."), [this] { return m_pdf->Next(); });
}

void CPrintPagesCommand::Print()
{
    CPrintOptionsEdit options;
    if (!AskOptions(options))
        return;
    m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    m_printer->setPageLayout(CLogbookPageRenderer::PageLayout(PaperOf(options)));
    m_printer->setDocName(tr("Logbook"));
    QPrintDialog dialog(m_printer.get(), m_window);
    if (RunDialog(m_services.dialogs, dialog) != QDialog::Accepted) {
        m_printer.reset();
        return;
    }
    Prepare(options);
    if (!m_renderer->Begin(*m_printer)) {
        Finish(false, tr("The printer could not be started."));
        return;
    }
    Start(tr("Printing..."), [this] { return m_renderer->PaintNext(); });
}

void CPrintPagesCommand::Preview()
{
    CPrintOptionsEdit options;
    if (!AskOptions(options))
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(CLogbookPageRenderer::PageLayout(PaperOf(options)));
    Prepare(options);
    QPrintPreviewDialog dialog(&printer, m_window);
    // The preview asks for every page at once; its progress shows over the preview.
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this, [this, &dialog](QPrinter* target) {
        QProgressDialog progress(tr("Preparing the preview..."), tr("Cancel"), 0, 0, &dialog);
        progress.setWindowModality(Qt::WindowModal);
        progress.setMinimumDuration(300);
        m_renderer->Print(*target, [&progress](int done, int total) {
            progress.setMaximum(total);
            progress.setValue(done);
            return !progress.wasCanceled();
        });
    });
    if (m_window)
        dialog.resize(m_window->size());
    RunDialog(m_services.dialogs, dialog);
    m_renderer.reset();
    m_copy.reset();
}

void CPrintPagesCommand::Start(const QString& label, std::function<bool()> next)
{
    m_next = std::move(next);
    m_progress = new QProgressDialog(label, tr("Cancel"), 0, m_renderer->PageCount(), m_window);
    m_progress->setObjectName(QStringLiteral("printProgress"));
    // The window stays usable: the pages come from a copy of the logbook.
    m_progress->setWindowModality(Qt::NonModal);
    m_progress->setMinimumDuration(400);
    m_progress->setAutoClose(false);
    m_progress->setAutoReset(false);
    connect(m_progress, &QProgressDialog::canceled, this, [this] { Finish(false); });
    m_timer.start();
    emit started();
}

void CPrintPagesCommand::Step()
{
    if (!m_renderer)
        return;
    if (!m_next()) {
        Finish(false, m_pdf ? m_pdf->Error() : tr("The printer stopped."));
        return;
    }
    if (m_progress)
        m_progress->setValue(m_renderer->PagesDone());
    if (!m_renderer->IsDone())
        return;
    m_timer.stop();
    if (m_pdf && !m_pdf->Commit()) {
        Finish(false, m_pdf->Error());
        return;
    }
    if (!m_pdf)
        m_renderer->End();
    Finish(true);
}

void CPrintPagesCommand::Finish(bool done, const QString& error)
{
    m_timer.stop();
    if (m_progress) {
        m_progress->disconnect(this);
        m_progress->deleteLater();
    }
    if (m_pdf) {
        m_pdf->Cancel();
    } else if (m_renderer) {
        if (!done && m_printer)
            m_printer->abort();
        m_renderer->End();
    }
    m_pdf.reset();
    m_renderer.reset();
    m_printer.reset();
    m_copy.reset();
    if (!error.isEmpty() && m_services.messages)
        m_services.messages->Warning(tr("The pages could not be written: %1").arg(error));
    emit finished(done);
}
