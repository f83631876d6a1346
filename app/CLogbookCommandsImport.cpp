// The track commands of CLogbookCommands: a GPS logger's file becomes a jump, new or one already
// logged without a recording, through the jump editor so that the user checks it before OK.

#include "app/CLogbookCommands.h"

#include "app/CLogbookView.h"
#include "app/IFileChooser.h"
#include "bridge/CorePaths.h"
#include "controls/IMessageSink.h"
#include "dialogs/CDlgJump.h"
#include "document/CLogbookDoc.h"
#include "formats/CTrackFileImport.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"
#include "units/ISettingsStore.h"

#include <QApplication>
#include <QCursor>
#include <QFileInfo>

namespace {

// Where the last track came from, so that the next import starts in the logger's folder.
constexpr std::string_view kSection = "Import";
constexpr std::string_view kTrackFolder = "TrackFolder";

// A note about the file in the user's language after its name: "notes.csv: Line 3: <reason>".
QString AboutFile(const CTrackFileImport& imported, const CMessage& message)
{
    return QString::fromStdString(imported.fileName) + QStringLiteral(": ") + MessageText::Text(message);
}

} // namespace

bool CLogbookCommands::CanAddTrack(const CJump* jump)
{
    return jump && !jump->GetRecording().IsPresent() && !jump->IsSigned();
}

void CLogbookCommands::OnJumpImportTrack()
{
    if (m_view.IsLogbookOpen())
        ImportTrack(nullptr);
}

void CLogbookCommands::OnJumpImportTrackInto()
{
    const CJump* jump = m_view.SelectedJump();
    if (CanAddTrack(jump))
        ImportTrack(jump);
}

void CLogbookCommands::ImportTrack(const CJump* target)
{
    if (!m_services.files)
        return;
    QString start;
    if (m_services.settings)
        start = QString::fromStdString(m_services.settings->GetString(kSection, kTrackFolder, ""));
    if (start.isEmpty())
        start = StartFolder();
    const QString path = m_services.files->ChooseTrack(start);
    if (path.isEmpty())
        return;
    if (m_services.settings)
        m_services.settings->SetString(kSection, kTrackFolder, QFileInfo(path).absolutePath().toStdString());

    // An hour of fixes reads in well under a second; the cursor says the window is busy.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const CTrackFileImport imported = CTrackFileImport::Run(CorePaths::LocalPath(path), {});
    QApplication::restoreOverrideCursor();
    if (!imported.ok) {
        if (m_services.messages)
            m_services.messages->Error(AboutFile(imported, imported.reason));
        return;
    }
    if (imported.skippedLines > 0 && m_services.messages)
        m_services.messages->Information(AboutFile(imported, imported.skipped));

    const auto take = [&imported](CDlgJump& dialog) {
        dialog.Edit().TakeImport(imported.jump.recording, imported.jump.fallrate, imported.jump.exitTime);
    };
    EditJump(target, CJumpEdit::PageDetails, take);
}
