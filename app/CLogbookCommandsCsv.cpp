// The spreadsheet command of CLogbookCommands: the jumps of a CSV file are shown in the import
// dialog, with the columns, date form and units to correct and the rows as they will be
// imported, and join the logbook only on Import.

#include "app/CLogbookCommands.h"

#include "app/CLogbookView.h"
#include "app/IFileChooser.h"
#include "bridge/CorePaths.h"
#include "controls/IDialogRunner.h"
#include "controls/IMessageSink.h"
#include "dialogs/CDlgCsvImport.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "editing/CCsvImportEdit.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"
#include "units/ISettingsStore.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>

namespace {

// Where the last spreadsheet came from.
constexpr std::string_view kSection = "Import";
constexpr std::string_view kCsvFolder = "CsvFolder";

} // namespace

void CLogbookCommands::OnFileImportCsv()
{
    if (!m_view.IsLogbookOpen() || !m_services.files)
        return;
    QString start;
    if (m_services.settings)
        start = QString::fromStdString(m_services.settings->GetString(kSection, kCsvFolder, ""));
    if (start.isEmpty())
        start = StartFolder();
    const QString path = m_services.files->ChooseCsv(start);
    if (path.isEmpty())
        return;
    const QFileInfo info(path);
    if (m_services.settings)
        m_services.settings->SetString(kSection, kCsvFolder, info.absolutePath().toStdString());

    const auto refuse = [&](const QString& reason) {
        if (m_services.messages)
            m_services.messages->Error(info.fileName() + QStringLiteral(": ") + reason);
    };
    QFile file(path);
    if (info.size() > static_cast<qint64>(CCsvReader::kLargestFile))
        return refuse(MessageText::Text(StringTable::IDS_CSV_TOO_LARGE));
    if (!file.open(QIODevice::ReadOnly))
        return refuse(
            MessageText::Format(StringTable::IDS_TRACK_UNREADABLE, QLatin1Char('"') + path + QLatin1Char('"')));
    const QByteArray bytes = file.readAll();

    const CSystemClock systemClock;
    const IClock& clock = m_services.clock ? *m_services.clock : systemClock;
    CCsvImportEdit edit(m_doc, clock.Now(), clock.UtcOffsetMinutes());
    if (const int problem = edit.Load(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))))
        return refuse(MessageText::Text(problem));
    CDlgCsvImport dialog(edit, m_doc, m_units, m_services.messages, info.fileName(), m_window);
    if (RunDialog(m_services.dialogs, dialog) != QDialog::Accepted)
        return;
    edit.Apply(m_doc);
}
