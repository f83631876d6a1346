#include "app/CFileDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QScreen>
#include <QStandardPaths>

QString CFileDialogs::Filter()
{
    return QStringLiteral("Tervola Files (*.tvz)");
}

QString CFileDialogs::ChooseOpen(const QString& startPath)
{
    return Run(false, startPath);
}

QString CFileDialogs::ChooseSave(const QString& startPath)
{
    return Run(true, startPath);
}

QString CFileDialogs::Run(bool save, const QString& startPath)
{
    QWidget* parent = m_parent ? m_parent.data() : QApplication::activeWindow();
    QString start = startPath;
    if (start.isEmpty())
        start = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);

    QFileDialog dialog(parent, save ? QStringLiteral("Save as") : QStringLiteral("Open"), start, Filter());
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // Open: only existing files. Save: the folder must exist; replacing a file is confirmed.
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QStringLiteral("tvz"));

    // On a handheld-sized screen the desktop's dialog does not fit: use Qt's own, full screen.
    const QScreen* screen = parent ? parent->screen() : QApplication::primaryScreen();
    if (screen && screen->availableGeometry().width() <= 480)
    {
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setWindowState(Qt::WindowMaximized);
    }
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? QString() : files.front();
}
