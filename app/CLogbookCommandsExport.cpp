// The export command of CLogbookCommands: the jumps chosen in the window written with the same
// CSV and JSON exporters as the command-line tool.

#include "app/CLogbookCommands.h"

#include "app/CLogbookView.h"
#include "app/IFileChooser.h"
#include "bridge/CorePaths.h"
#include "controls/IMessageSink.h"
#include "document/CLogbookDoc.h"
#include "document/SafeFileReplace.h"
#include "formats/CCsvExporter.h"
#include "qtformats/CJsonExporter.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>

#include <filesystem>
#include <fstream>

namespace {

bool WriteWhole(const std::string& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return !out.fail();
}

} // namespace

bool CLogbookCommands::CanExportSelection() const
{
    return m_view.CanExportJumps();
}

bool CLogbookCommands::ExportJumps(const QString& path, const std::vector<std::size_t>& jumps) const
{
    std::string bytes;
    if (path.endsWith(QStringLiteral(".json"), Qt::CaseInsensitive))
        bytes = QJsonDocument(CJsonExporter::Export(m_doc, jumps)).toJson(QJsonDocument::Indented).toStdString();
    else
        bytes = CCsvExporter(m_units).Export(m_doc, jumps);
    // The file is put in place only once it is whole; an existing one stays until then.
    const std::string target = CorePaths::LocalPath(path);
    const std::string temporary = SafeFileReplace::TemporaryPath(target);
    if (!WriteWhole(temporary, bytes) || !SafeFileReplace::SyncFile(temporary)) {
        SafeFileReplace::RemoveQuietly(temporary);
        return false;
    }
    std::error_code error;
    std::filesystem::rename(temporary, target, error);
    if (error) {
        SafeFileReplace::RemoveQuietly(temporary);
        return false;
    }
    return true;
}

void CLogbookCommands::OnFileExportSelection()
{
    if (!CanExportSelection() || !m_services.files)
        return;
    const std::vector<std::size_t> jumps = m_view.JumpsToExport();
    const QString proposal = QDir(StartFolder()).filePath(tr("Jumps") + QStringLiteral(".csv"));
    const QString path = m_services.files->ChooseExport(proposal);
    if (path.isEmpty())
        return;
    if (!ExportJumps(path, jumps) && m_services.messages)
        m_services.messages->Error(tr("The jumps could not be written to %1.").arg(QDir::toNativeSeparators(path)));
}
