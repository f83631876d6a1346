#pragma once

#include <QString>

// Picks logbook files for New, Open and Save as, the track files to import, the file an export
// of jumps writes and the PDF file of printed pages. The window program shows file dialogs
// (CFileDialogs); tests answer with prepared paths.
class IFileChooser
{
public:
    // Implementations are owned by the program or the test.
    virtual ~IFileChooser() = default;
    // An existing logbook to open, or the empty text when the user cancels.
    virtual QString ChooseOpen(const QString& startPath) = 0;
    // A path to save to (the user has agreed to replace an existing file), or the empty text.
    virtual QString ChooseSave(const QString& startPath) = 0;
    // A logger's track (a CSV file) to import, or the empty text when the user cancels.
    virtual QString ChooseTrack(const QString& startPath) = 0;
    // A file to export jumps to: a name ending in ".json" gets JSON, any other a CSV table (the
    // user has agreed to replace an existing file), or the empty text.
    virtual QString ChooseExport(const QString& startPath) = 0;
    // A PDF file to write the printed pages to (replacing it agreed), or the empty text.
    virtual QString ChoosePdf(const QString& startPath) = 0;
    // A spreadsheet (CSV) of jumps to import, or the empty text when the user cancels.
    virtual QString ChooseCsv(const QString& startPath) = 0;
    // A folder of tracks (a logger's card or a copy of it), or the empty text when the user
    // cancels.
    virtual QString ChooseTrackFolder(const QString& startPath) = 0;
};
