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

    const bool save = purpose == Purpose::Save;
    const bool csv = purpose == Purpose::Csv;
    const bool track = purpose == Purpose::Track || csv;
    const QString title = save    ? QCoreApplication::translate("CFileDialogs", "Save as")
                          : csv   ? QCoreApplication::translate("CFileDialogs", "Import CSV")
                          : track ? QCoreApplication::translate("CFileDialogs", "Import track")
                                  : QCoreApplication::translate("CFileDialogs", "Open");
    // Loggers write upper-case names (TRACK.CSV) and file systems may tell case apart.
    const QString filter = csv ? QCoreApplication::translate("CFileDialogs", "Spreadsheets (*.csv *.CSV *.txt *.tsv)")
                           : track ? QCoreApplication::translate("CFileDialogs", "GPS tracks (*.csv *.CSV)")
                                   : Filter();
    QFileDialog dialog(parent, title, start, filter);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // Open: only existing files. Save: the folder must exist; replacing a file is confirmed.
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!track)
        dialog.setDefaultSuffix(QStringLiteral("tvz"));

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
