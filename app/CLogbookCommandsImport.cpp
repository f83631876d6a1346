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

// Why the file was refused, in the user's language, composed as the core composes the English:
// "notes.csv: Line 3: <reason>", or the reason with a capital first letter when no line is at
// fault. The arguments are the file's own words and numbers and stay as they are.
QString Refusal(const CTrackFileImport& imported)
{
    const CTrackMessage& reason = imported.reason;
    QString text =
        MessageText::Format(reason.id, QString::fromStdString(reason.arg1), QString::fromStdString(reason.arg2));
    if (text.isEmpty())
        return QString::fromStdString(imported.message);
    if (reason.line > 0)
        text = MessageText::Format(StringTable::IDS_TRACK_LINE, QString::number(reason.line), text);
    else
        text[0] = text[0].toUpper();
    return QString::fromStdString(imported.fileName) + QStringLiteral(": ") + text;
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
            m_services.messages->Error(Refusal(imported));
        return;
    }
    if (imported.skippedLines > 0 && m_services.messages) {
        const CTrackMessage& note = imported.skipped;
        m_services.messages->Information(
            QString::fromStdString(imported.fileName) + QStringLiteral(": ") +
            MessageText::Format(note.id, QString::fromStdString(note.arg1), QString::fromStdString(note.arg2)));
    }

    const auto take = [&imported](CDlgJump& dialog) {
        dialog.Edit().TakeImport(imported.jump.recording, imported.jump.fallrate, imported.jump.exitTime);
    };
    EditJump(target, CJumpEdit::PageDetails, take);
}
