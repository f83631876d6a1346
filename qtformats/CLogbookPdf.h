#pragma once

#include <QPageSize>
#include <QString>

#include <functional>
#include <memory>

class CLogbookPageRenderer;
class QPdfWriter;
class QSaveFile;

// A PDF file of the printed logbook, written beside its target and renamed over it at the end,
// so that a failed or cancelled export leaves nothing half-written behind. Pages are painted one
// at a time (Next) so that the window can spread the work over its event loop; Write does it all.
class CLogbookPdf
{
public:
    // Paints renderer's pages into path on paper.
    CLogbookPdf(CLogbookPageRenderer& renderer, QString path, QPageSize::PageSizeId paper);
    ~CLogbookPdf();

    // Opens the temporary file and starts the first page; false with Error() set on failure.
    bool Begin();
    // Paints the next page; false with Error() set on failure.
    bool Next();
    bool IsDone() const;
    // Ends the last page and renames the file over path; false with Error() set on failure.
    bool Commit();
    // Removes the temporary file (also done by the destructor unless committed).
    void Cancel();
    const QString& Error() const { return m_error; }

    // Begin, Next until done (progress(done, total) may stop it) and Commit. Returns whether the
    // file was written; a stop by progress leaves error empty.
    static bool Write(CLogbookPageRenderer& renderer, const QString& path, QPageSize::PageSizeId paper,
                      const std::function<bool(int, int)>& progress, QString& error);

private:
    CLogbookPageRenderer& m_renderer;
    QString m_path;
    QPageSize::PageSizeId m_paper;
    std::unique_ptr<QSaveFile> m_file;
    std::unique_ptr<QPdfWriter> m_writer;
    QString m_error;
};
