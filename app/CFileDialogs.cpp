#include "app/CFileDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QScreen>
#include <QStandardPaths>

QString CFileDialogs::Filter()
{
    return QCoreApplication::translate("CFileDialogs", "Tervola Files (*.tvz)");
}

QString CFileDialogs::ChooseOpen(const QString& startPath)
{
    return Run(Purpose::Open, startPath);
}

QString CFileDialogs::ChooseSave(const QString& startPath)
{
    return Run(Purpose::Save, startPath);
}

QString CFileDialogs::ChooseTrack(const QString& startPath)
{
    return Run(Purpose::Track, startPath);
}

QString CFileDialogs::ChooseExport(const QString& startPath)
{
    return Run(Purpose::Export, startPath);
}

QString CFileDialogs::ChoosePdf(const QString& startPath)
{
    return Run(Purpose::Pdf, startPath);
}

QString CFileDialogs::ChooseCsv(const QString& startPath)
{
    return Run(Purpose::Csv, startPath);
}

QString CFileDialogs::ChooseTrackFolder(const QString& startPath)
{
    QWidget* parent = m_parent ? m_parent.data() : QApplication::activeWindow();
    return QFileDialog::getExistingDirectory(parent, QCoreApplication::translate("CFileDialogs", "Import tracks"),
                                             startPath);
}

QString CFileDialogs::Run(Purpose purpose, const QString& startPath)
{
    QWidget* parent = m_parent ? m_parent.data() : QApplication::activeWindow();
    QString start = startPath;
    if (start.isEmpty())
        start = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);

    const bool exporting = purpose == Purpose::Export;
    const bool pdf = purpose == Purpose::Pdf;
    const bool csvIn = purpose == Purpose::Csv;
    const bool save = purpose == Purpose::Save || exporting || pdf;
    const bool track = purpose == Purpose::Track || csvIn;
    const QString title = exporting ? QCoreApplication::translate("CFileDialogs", "Export selection")
                          : pdf     ? QCoreApplication::translate("CFileDialogs", "Export PDF")
                          : save    ? QCoreApplication::translate("CFileDialogs", "Save as")
                          : csvIn   ? QCoreApplication::translate("CFileDialogs", "Import CSV")
                          : track   ? QCoreApplication::translate("CFileDialogs", "Import track")
                                    : QCoreApplication::translate("CFileDialogs", "Open");
    const QString csv = QCoreApplication::translate("CFileDialogs", "CSV tables (*.csv)");
    const QString json = QCoreApplication::translate("CFileDialogs", "JSON files (*.json)");
    // Loggers write upper-case names (TRACK.CSV) and file systems may tell case apart.
    const QString filter = exporting ? csv + QStringLiteral(";;") + json
                           : csvIn
                               ? QCoreApplication::translate("CFileDialogs", "Spreadsheets (*.csv *.CSV *.txt *.tsv)")
                           : track ? QCoreApplication::translate("CFileDialogs", "GPS tracks (*.csv *.CSV)")
                           : pdf   ? QCoreApplication::translate("CFileDialogs", "PDF files (*.pdf)")
                                   : Filter();
    QFileDialog dialog(parent, title, start, filter);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // Open: only existing files. Save: the folder must exist; replacing a file is confirmed.
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (exporting) {
        // A name typed without a suffix takes the chosen filter's.
        dialog.setDefaultSuffix(QStringLiteral("csv"));
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog, json](const QString& chosen) {
            dialog.setDefaultSuffix(chosen == json ? QStringLiteral("json") : QStringLiteral("csv"));
        });
    } else if (!track) {
        dialog.setDefaultSuffix(pdf ? QStringLiteral("pdf") : QStringLiteral("tvz"));
    }

    // On a handheld-sized screen the desktop's dialog does not fit: use Qt's own, full screen.
    const QScreen* screen = parent ? parent->screen() : QApplication::primaryScreen();
    if (screen && screen->availableGeometry().width() <= 480) {
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setWindowState(Qt::WindowMaximized);
    }
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? QString() : files.front();
}
