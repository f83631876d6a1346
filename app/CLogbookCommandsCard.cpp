// The card command of CLogbookCommands: every track of a logger's card (or a copy of it) is read
// with progress and Cancel, the new jumps are listed to tick and to give to a new jump or a jump
// of the same day without a recording, and the ticked ones are imported in the order of their
// exits with progress and Cancel.

#include "app/CLogbookCommands.h"

#include "app/CLogbookView.h"
#include "app/IFileChooser.h"
#include "bridge/CorePaths.h"
#include "controls/IDialogRunner.h"
#include "controls/IMessageSink.h"
#include "dialogs/CDlgCardImport.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "editing/CCardImportEdit.h"
#include "translations/MessageText.h"
#include "units/ISettingsStore.h"

#include <QApplication>
#include <QProgressDialog>

namespace {

constexpr std::string_view kSection = "Import";
constexpr std::string_view kCardFolder = "CardFolder";

} // namespace

void CLogbookCommands::OnJumpImportCard()
{
    if (!m_view.IsLogbookOpen() || !m_services.files)
        return;
    QString start;
    if (m_services.settings)
        start = QString::fromStdString(m_services.settings->GetString(kSection, kCardFolder, ""));
    if (start.isEmpty())
        start = StartFolder();
    const QString folder = m_services.files->ChooseTrackFolder(start);
    if (folder.isEmpty())
        return;
    if (m_services.settings)
        m_services.settings->SetString(kSection, kCardFolder, folder.toStdString());

    // Both steps run here, on the window's thread, with the events handled between the files, so
    // that the bar moves and Cancel answers.
    const auto follow = [](QProgressDialog& bar) {
        return [&bar](std::size_t done, std::size_t total) {
            bar.setMaximum(static_cast<int>(total));
            bar.setValue(static_cast<int>(done));
            QCoreApplication::processEvents();
            return !bar.wasCanceled();
        };
    };
    QProgressDialog reading(tr("Reading the tracks..."), tr("Cancel"), 0, 0, m_window);
    reading.setObjectName(QStringLiteral("cardProgress"));
    reading.setWindowModality(Qt::WindowModal);
    reading.setMinimumDuration(300);
    CCardScan scan =
        CTrackCardScan::Scan(CorePaths::LocalPath(folder), CCardImportEdit::KnownExits(m_doc), {}, follow(reading));
    reading.reset();
    if (scan.cancelled)
        return;

    CCardImportEdit edit(m_doc, std::move(scan.found));
    CDlgCardImport dialog(edit, scan.skipped, m_units, m_services.messages, m_window);
    if (RunDialog(m_services.dialogs, dialog) != QDialog::Accepted)
        return;
    static const CSystemClock systemClock;
    const IClock& clock = m_services.clock ? *m_services.clock : systemClock;
    QProgressDialog importing(tr("Importing the tracks..."), tr("Cancel"), 0, 0, m_window);
    importing.setWindowModality(Qt::WindowModal);
    importing.setMinimumDuration(300);
    CCheckResult refused;
    std::string error;
    edit.Apply(m_doc, m_units, m_services.settings, clock, follow(importing), refused, error);
    importing.reset();
    if (!m_services.messages)
        return;
    if (!refused.Passed())
        m_services.messages->Error(MessageText::Text(refused.Message()));
    else if (!error.empty())
        m_services.messages->Error(QString::fromStdString(error));
}
