#pragma once

#include "formats/CLogbookPagePlan.h"
#include "model/FallrateKind.h"
#include "model/JumpFields.h"
#include "qtformats/CSignatureCell.h"
#include "units/CUnitSettings.h"

#include <QCoreApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QRectF>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class CJump;
class CLogbookDoc;
class QLocale;
class QPagedPaintDevice;
class QPainter;

// The logbook as printed pages, for a PDF file (QPdfWriter) and a printer (QPrinter) alike:
// landscape pages with a margin for binding, a header on every page (owner, member number,
// licences, "page x of y"), one row per jump that never splits across pages, the totals of the
// page, brought forward and carried forward at the foot, and optionally a detail page with the
// recording after the page of each jump that has one.
//
// The rows are the jumps at the given positions of the document, in that order: the whole
// logbook, a range of numbers or the jumps a search found. Painting works in tenths of a point
// (fonts by pixel size in that unit), so every device gets the same layout.
class CLogbookPageRenderer
{
    Q_DECLARE_TR_FUNCTIONS(CLogbookPageRenderer)

public:
    // Paints the recording of a jump into a rectangle (tenths of a point) of a detail page.
    using RecordingPainter = std::function<void(QPainter& painter, const QRectF& area, const CJump& jump)>;
    // A text as painted: the rectangle of the cell it belongs to and the text's own box.
    struct TextBox
    {
        int page = 0;
        QRectF cell;
        QRectF text;
        QString content;
    };

    // doc must outlive the renderer; rows are positions in doc's list.
    CLogbookPageRenderer(const CLogbookDoc& doc, std::vector<std::size_t> rows, const CUnitSettings& units);
    ~CLogbookPageRenderer();

    // Detail pages after the pages of jumps with a recording; painter draws the recording (none:
    // only the values).
    void SetDetailPages(bool on, RecordingPainter painter = {});

    // Landscape paper with a margin for binding on the left.
    static QPageLayout PageLayout(QPageSize::PageSizeId paper);
    // Letter in the countries that use it, A4 elsewhere.
    static QPageSize::PageSizeId DefaultPaper(const QLocale& locale);

    // Plans the pages for a printable area of size points; returns the number of pages.
    int Layout(const QSizeF& areaPoints);
    int PageCount() const { return static_cast<int>(m_pages.size()); }
    const std::vector<CPrintedPage>& Pages() const { return m_pages; }
    int RowsPerPage() const { return m_rowsPerPage; }

    // Paints page (0-based) with the painter's unit a tenth of a point and the origin at the
    // printable area's top left. dot is the smallest distance the device shows, in tenths of a
    // point.
    void PaintPage(QPainter& painter, int page, double dot = 1.0);

    // Lays out for device's printable area and paints every page, calling progress(done, total)
    // after each; stops when it returns false. Returns whether all pages were painted.
    bool Print(QPagedPaintDevice& device, const std::function<bool(int, int)>& progress = {});
    // The same a page at a time, for work spread over the event loop: Begin lays out and starts
    // painting on device, PaintNext paints the next page, End finishes the device's painting.
    // Each returns false when the device fails.
    bool Begin(QPagedPaintDevice& device);
    bool PaintNext();
    bool End();
    // Pages painted since Begin.
    int PagesDone() const { return m_done; }
    bool IsDone() const { return m_done >= PageCount(); }

    // Keeps every text box painted from now on (for checks of the layout).
    void RecordTextBoxes(bool on) { m_record = on; }
    const std::vector<TextBox>& TextBoxes() const { return m_boxes; }

    // The painter's scale from tenths of a point to a device of dpi dots per inch.
    static double Scale(double dpi) { return dpi / 720.0; }

private:
    // A column of the rows: the jump's field it shows, its title, width and alignment.
    struct Column
    {
        JumpField field;
        QString title;
        double width;
        Qt::Alignment align;
    };

    void PaintHeader(QPainter& painter, int page);
    void PaintRows(QPainter& painter, const CPrintedPage& page, double dot);
    void PaintFooter(QPainter& painter, const CPrintedPage& page);
    void PaintDetail(QPainter& painter, const CPrintedPage& page);
    // The text of a field in a row's cell: heights in the display units and empty for 0, the
    // note's first line.
    QString CellText(const CJump& jump, JumpField field) const;
    // The texts of a row's cells, in column order (the signature cell's text is not among them).
    QStringList RowTexts(const CJump& jump) const;
    // Text in cell on one line: shrunk down to minSize and then cut with an ellipsis to fit.
    void Text(QPainter& painter, const QRectF& cell, const QString& text, Qt::Alignment align, int size,
              int minSize = 0, bool bold = false);
    // The fall-rate kind as the editor names it.
    static QString KindText(FallrateKind kind);

    const CLogbookDoc& m_doc;
    std::vector<std::size_t> m_rows;
    CUnitSettings m_units;
    bool m_details = false;
    RecordingPainter m_recordingPainter;
    std::vector<Column> m_columns;
    std::vector<CPrintedPage> m_pages;
    QSizeF m_area;
    int m_rowsPerPage = 1;
    int m_page = 0;
    bool m_record = false;
    // The painting in progress between Begin and End.
    QPagedPaintDevice* m_device = nullptr;
    std::unique_ptr<QPainter> m_painter;
    double m_scale = 1.0;
    double m_dot = 1.0;
    int m_done = 0;
    std::vector<TextBox> m_boxes;
};
