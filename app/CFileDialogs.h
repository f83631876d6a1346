#pragma once

#include "app/IFileChooser.h"

#include <QPointer>
#include <QWidget>

// The program's file dialogs: for logbooks filter "Tervola Files (*.tvz)", default extension
// ".tvz"; the open dialog takes existing files only, the save dialog asks before replacing a
// file. Tracks are chosen among CSV files; exports are saved as a CSV table or as JSON.
class CFileDialogs final : public IFileChooser
{
public:
    // Dialogs open over this window once it is set (null: the active window).
    void SetParent(QWidget* parent) { m_parent = parent; }

    // An existing ".tvz" file, starting at startPath.
    QString ChooseOpen(const QString& startPath) override;
    // A file to write; ".tvz" is added when no extension is typed.
    QString ChooseSave(const QString& startPath) override;
    // An existing CSV file of a GPS logger, starting at startPath.
    QString ChooseTrack(const QString& startPath) override;
    // A CSV or JSON file to write; the suffix of the chosen filter is added when none is typed.
    QString ChooseExport(const QString& startPath) override;
    // "Export PDF": a PDF file to write.
    QString ChoosePdf(const QString& startPath) override;
    // An existing spreadsheet of jumps, starting at startPath.
    QString ChooseCsv(const QString& startPath) override;
    // An existing folder of tracks, starting at startPath.
    QString ChooseTrackFolder(const QString& startPath) override;

    // The name filter of both dialogs.
    static QString Filter();

private:
    enum class Purpose
    {
        Open,
        Save,
        Track,
        Export,
        Pdf,
        Csv
    };
    QString Run(Purpose purpose, const QString& startPath);
    QPointer<QWidget> m_parent;
};
