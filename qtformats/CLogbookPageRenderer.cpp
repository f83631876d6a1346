#include "qtformats/CLogbookPageRenderer.h"

#include "bridge/CoreText.h"
#include "document/CLogbookDoc.h"
#include "formats/CTextFormat.h"
#include "model/CJump.h"
#include "model/JumpFields.h"
#include "units/DurationText.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

namespace {

// Sizes in tenths of a point.
constexpr double kHeaderHeight = 440.0;
constexpr double kHeaderGap = 40.0;
constexpr double kTitleHeight = 200.0;
constexpr double kRowHeight = 300.0;
constexpr double kFooterGap = 40.0;
constexpr double kFooterLine = 110.0;
constexpr double kFooterHeight = kFooterGap + 4 * kFooterLine;
constexpr double kCellPad = 20.0;
constexpr int kTextSize = 80;
constexpr int kMinTextSize = 55;
constexpr int kTitleSize = 70;

const QColor kRuleColour(0x80, 0x80, 0x80);
const QColor kTitleFill(0xee, 0xee, 0xee);

// The core's UTF-8 text as a QString.
constexpr auto& Qs = CoreText::ToQt;

QString Height(const CUnitSettings& units, int metres)
{
    return metres == 0 ? QString() : Qs(CTextFormat::WholeNumber(units.HeightToDisplay(metres)));
}

} // namespace

CLogbookPageRenderer::CLogbookPageRenderer(const CLogbookDoc& doc, std::vector<std::size_t> rows,
                                           const CUnitSettings& units)
    : m_doc(doc), m_rows(std::move(rows)), m_units(units)
{
    m_rows.erase(
        std::remove_if(m_rows.begin(), m_rows.end(), [&](std::size_t row) { return row >= doc.GetJumpCount(); }),
        m_rows.end());
}

CLogbookPageRenderer::~CLogbookPageRenderer() = default;

void CLogbookPageRenderer::SetDetailPages(bool on, RecordingPainter painter)
{
    m_details = on;
    m_recordingPainter = std::move(painter);
}

QPageLayout CLogbookPageRenderer::PageLayout(QPageSize::PageSizeId paper)
{
    // 25 mm on the binding side, 12 mm elsewhere.
    return QPageLayout(QPageSize(paper), QPageLayout::Landscape, QMarginsF(25, 12, 12, 12), QPageLayout::Millimeter);
}

QPageSize::PageSizeId CLogbookPageRenderer::DefaultPaper(const QLocale& locale)
{
    switch (locale.territory()) {
    case QLocale::UnitedStates:
    case QLocale::Canada:
    case QLocale::Mexico:
    case QLocale::Chile:
    case QLocale::Colombia:
    case QLocale::Venezuela:
    case QLocale::Philippines:
    case QLocale::PuertoRico:
        return QPageSize::Letter;
    default:
        return QPageSize::A4;
    }
}

int CLogbookPageRenderer::Layout(const QSizeF& areaPoints)
{
    m_area = areaPoints * 10.0;
    const QString height =
        QString::fromLatin1(m_units.HeightLabel().data(), static_cast<int>(m_units.HeightLabel().size()));
    // Widths in points for a page 767 points wide, stretched or squeezed to the page.
    m_columns = {
        {JumpField::Number, tr("No."), 34, Qt::AlignRight},
        {JumpField::Date, tr("Date"), 50, Qt::AlignLeft},
        {JumpField::Place, tr("Place"), 78, Qt::AlignLeft},
        {JumpField::Aircraft, tr("Aircraft"), 56, Qt::AlignLeft},
        {JumpField::Equipment, tr("Equipment"), 66, Qt::AlignLeft},
        {JumpField::Exit, tr("Exit (%1)").arg(height), 38, Qt::AlignRight},
        {JumpField::Open, tr("Opening (%1)").arg(height), 40, Qt::AlignRight},
        {JumpField::Freefall, tr("Freefall"), 40, Qt::AlignRight},
        {JumpField::Fallrate, tr("Fall rate"), 46, Qt::AlignLeft},
        {JumpField::Type, tr("Type"), 58, Qt::AlignLeft},
        {JumpField::Landing, tr("Landing"), 50, Qt::AlignLeft},
        {JumpField::Note, tr("Description"), 101, Qt::AlignLeft},
        // The witness's strokes and name (CSignatureCell), always the last column.
        {JumpField::Signer, tr("Signature"), 110, Qt::AlignHCenter},
    };
    double sum = 0;
    for (const Column& column : m_columns)
        sum += column.width;
    for (Column& column : m_columns)
        column.width = column.width * m_area.width() / sum;

    const double body = m_area.height() - kHeaderHeight - kHeaderGap - kTitleHeight - kFooterHeight;
    m_rowsPerPage = CLogbookPagePlan::RowsPerPage(body, kRowHeight);
    const CLogbookSettings& settings = m_doc.GetSettings();
    std::vector<CLogbookPagePlan::Row> rows;
    rows.reserve(m_rows.size());
    for (std::size_t index : m_rows) {
        const CJump& jump = m_doc.GetJump(index);
        rows.push_back({jump.FreefallTime(settings), m_details && jump.GetRecording().IsPresent()});
    }
    m_pages = CLogbookPagePlan::Plan(rows, m_rowsPerPage, CLogbookPagePlan::BroughtForward(m_doc, m_rows));
    return PageCount();
}

void CLogbookPageRenderer::PaintPage(QPainter& painter, int page, double dot)
{
    if (page < 0 || page >= PageCount())
        return;
    m_page = page;
    painter.save();
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(kTextSize);
    painter.setFont(font);
    painter.setPen(Qt::black);
    PaintHeader(painter, page);
    const CPrintedPage& plan = m_pages[static_cast<std::size_t>(page)];
    if (plan.kind == CPrintedPage::Rows) {
        PaintRows(painter, plan, dot);
        PaintFooter(painter, plan);
    } else {
        PaintDetail(painter, plan);
    }
    painter.restore();
}

bool CLogbookPageRenderer::Print(QPagedPaintDevice& device, const std::function<bool(int, int)>& progress)
{
    if (!Begin(device))
        return false;
    while (!IsDone()) {
        if (!PaintNext() || (progress && !progress(PagesDone(), PageCount()))) {
            End();
            return false;
        }
    }
    return End();
}

bool CLogbookPageRenderer::Begin(QPagedPaintDevice& device)
{
    m_scale = Scale(device.logicalDpiX());
    Layout(QSizeF(device.width(), device.height()) / (m_scale * 10.0));
    // What the device shows apart, but no finer than 600 dpi: finer points add bytes, not ink.
    m_dot = 720.0 / std::min(600, std::max(72, device.logicalDpiX()));
    m_device = &device;
    m_done = 0;
    m_painter = std::make_unique<QPainter>();
    return m_painter->begin(&device);
}

bool CLogbookPageRenderer::PaintNext()
{
    if (!m_painter || !m_painter->isActive() || IsDone())
        return false;
    if (m_done > 0 && !m_device->newPage())
        return false;
    m_painter->save();
    m_painter->scale(m_scale, m_scale);
    PaintPage(*m_painter, m_done, m_dot);
    m_painter->restore();
    ++m_done;
    return true;
}

bool CLogbookPageRenderer::End()
{
    const bool ok = m_painter && m_painter->isActive() && m_painter->end();
    m_painter.reset();
    m_device = nullptr;
    return ok;
}

void CLogbookPageRenderer::PaintHeader(QPainter& painter, int page)
{
    const CLogbookSettings& settings = m_doc.GetSettings();
    const double width = m_area.width();
    const QString pageText = tr("page %1 of %2").arg(page + 1).arg(PageCount());
    const double pageWidth = 1400.0;
    QString owner = Qs(settings.GetOwnerName());
    if (owner.isEmpty())
        owner = tr("Logbook");
    Text(painter, QRectF(0, 0, width - pageWidth, 180), owner, Qt::AlignLeft, 130, 90, true);
    Text(painter, QRectF(width - pageWidth, 0, pageWidth, 180), pageText, Qt::AlignRight, 90, 70);
    const std::string& member = settings.GetMembership().GetMemberNumber();
    Text(painter, QRectF(0, 190, width, 120),
         tr("Member number: %1").arg(member.empty() ? QStringLiteral("-") : Qs(member)), Qt::AlignLeft, 80, 60);
    QStringList licences;
    for (const std::string& licence : settings.GetLicenses())
        licences << Qs(licence);
    Text(painter, QRectF(0, 310, width, 120),
         tr("Licences: %1").arg(licences.isEmpty() ? QStringLiteral("-") : licences.join(QStringLiteral(", "))),
         Qt::AlignLeft, 80, 60);
    painter.setPen(QPen(kRuleColour, 5.0));
    painter.drawLine(QPointF(0, kHeaderHeight), QPointF(width, kHeaderHeight));
    painter.setPen(Qt::black);
}

QString CLogbookPageRenderer::KindText(FallrateKind kind)
{
    switch (kind) {
    case FallrateKind::Standard:
        return tr("Standard");
    case FallrateKind::Vertical:
        return tr("Vertical");
    case FallrateKind::Custom:
        return tr("Custom");
    case FallrateKind::Manual:
        return tr("Manual");
    case FallrateKind::Import:
        return tr("Import");
    }
    return {};
}

QString CLogbookPageRenderer::CellText(const CJump& jump, JumpField field) const
{
    const CLogbookSettings& settings = m_doc.GetSettings();
    std::string scratch;
    double value = 0;
    JumpFieldNumber(jump, field, settings, value);
    switch (JumpFieldInfoOf(field).type) {
    case JumpFieldType::Whole:
        return QString::number(static_cast<int>(value));
    case JumpFieldType::Date:
        return Qs(CTextFormat::IsoDate(jump.GetTimestamp().dateTime));
    case JumpFieldType::Text: {
        std::string_view text = JumpFieldText(jump, field, settings, scratch);
        // A note gives its first line.
        if (field == JumpField::Note)
            return Qs(std::string(text.substr(0, text.find_first_of("\r\n")))).trimmed();
        return Qs(std::string(text));
    }
    case JumpFieldType::Height:
        return Height(m_units, static_cast<int>(value));
    case JumpFieldType::Duration:
        return Qs(DurationToText(static_cast<int>(value), false));
    case JumpFieldType::Kind:
        return KindText(static_cast<FallrateKind>(static_cast<int>(value)));
    default:
        return {};
    }
}

QStringList CLogbookPageRenderer::RowTexts(const CJump& jump) const
{
    QStringList texts;
    for (std::size_t c = 0; c + 1 < m_columns.size(); ++c)
        texts << CellText(jump, m_columns[c].field);
    return texts;
}

void CLogbookPageRenderer::PaintRows(QPainter& painter, const CPrintedPage& page, double dot)
{
    const double top = kHeaderHeight + kHeaderGap;
    const double width = m_area.width();
    const double bottom = top + kTitleHeight + page.count * kRowHeight;
    painter.fillRect(QRectF(0, top, width, kTitleHeight), kTitleFill);

    double x = 0;
    for (const Column& column : m_columns) {
        Text(painter, QRectF(x, top, column.width, kTitleHeight), column.title, column.align, kTitleSize, 45, true);
        x += column.width;
    }
    for (std::size_t r = 0; r < page.count; ++r) {
        const CJump& jump = m_doc.GetJump(m_rows[page.first + r]);
        const double y = top + kTitleHeight + r * kRowHeight;
        const QStringList texts = RowTexts(jump);
        x = 0;
        for (int c = 0; c < texts.size(); ++c) {
            const Column& column = m_columns[static_cast<std::size_t>(c)];
            Text(painter, QRectF(x, y, column.width, kRowHeight), texts[c], column.align, kTextSize, kMinTextSize,
                 c == 0);
            x += column.width;
        }
        const QRectF cell(x, y, m_columns.back().width, kRowHeight);
        CSignatureCellPainter::Paint(painter, cell, CSignatureCell::FromJump(jump), dot,
                                     [&](const QRectF& text, const QString& content) {
                                         if (m_record)
                                             m_boxes.push_back({m_page, cell, text, content});
                                     });
    }

    // The grid: a frame, a rule under each row and between the columns.
    painter.setPen(QPen(kRuleColour, 4.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(0, top, width, bottom - top));
    for (std::size_t r = 0; r <= page.count; ++r) {
        const double y = top + kTitleHeight + r * kRowHeight;
        painter.drawLine(QPointF(0, y), QPointF(width, y));
    }
    x = 0;
    for (std::size_t c = 0; c + 1 < m_columns.size(); ++c) {
        x += m_columns[c].width;
        painter.drawLine(QPointF(x, top), QPointF(x, bottom));
    }
    painter.setPen(Qt::black);
}

void CLogbookPageRenderer::PaintFooter(QPainter& painter, const CPrintedPage& page)
{
    const double top = m_area.height() - kFooterHeight + kFooterGap;
    // Label, jumps and freefall time in three columns at the left of the foot.
    const double label = 1800.0, jumps = 1000.0, freefall = 1000.0;
    Text(painter, QRectF(label, top, jumps, kFooterLine), tr("Jumps"), Qt::AlignRight, 75, 55, true);
    Text(painter, QRectF(label + jumps, top, freefall, kFooterLine), tr("Freefall time"), Qt::AlignRight, 75, 55, true);
    const struct
    {
        QString name;
        CPageTotals totals;
    } lines[] = {
        {tr("Totals of this page"), page.page},
        {tr("Brought forward"), page.broughtForward},
        {tr("Carried forward"), page.carriedForward},
    };
    double y = top + kFooterLine;
    for (const auto& line : lines) {
        const bool last = &line == &lines[2];
        Text(painter, QRectF(0, y, label, kFooterLine), line.name, Qt::AlignLeft, 80, 55, last);
        Text(painter, QRectF(label, y, jumps, kFooterLine), QString::number(line.totals.jumps), Qt::AlignRight, 80, 55,
             last);
        Text(painter, QRectF(label + jumps, y, freefall, kFooterLine),
             Qs(DurationToText(static_cast<int>(line.totals.freefallSeconds), true)), Qt::AlignRight, 80, 55, last);
        y += kFooterLine;
    }
    painter.setPen(QPen(kRuleColour, 4.0));
    painter.drawLine(QPointF(0, top + kFooterLine), QPointF(label + jumps + freefall, top + kFooterLine));
    painter.drawLine(QPointF(0, y - kFooterLine), QPointF(label + jumps + freefall, y - kFooterLine));
    painter.setPen(Qt::black);
}

void CLogbookPageRenderer::PaintDetail(QPainter& painter, const CPrintedPage& page)
{
    const CJump& jump = m_doc.GetJump(m_rows[page.first]);
    const CLogbookSettings& settings = m_doc.GetSettings();
    const double width = m_area.width();
    double y = kHeaderHeight + kHeaderGap;
    const QString title = tr("Jump %1, %2, %3")
                              .arg(jump.GetNumber())
                              .arg(Qs(CTextFormat::IsoDate(jump.GetTimestamp().dateTime)), Qs(jump.GetPlace()));
    Text(painter, QRectF(0, y, width, 180), title, Qt::AlignLeft, 110, 70, true);
    y += 200;

    const QString height =
        QString::fromLatin1(m_units.HeightLabel().data(), static_cast<int>(m_units.HeightLabel().size()));
    const QString speed =
        QString::fromLatin1(m_units.SpeedLabel().data(), static_cast<int>(m_units.SpeedLabel().size()));
    const auto speedText = [&](double value) {
        return value == 0.0
                   ? QStringLiteral("-")
                   : QStringLiteral("%1 %2").arg(Qs(CTextFormat::WholeNumber(m_units.SpeedToDisplay(value))), speed);
    };
    const auto heightText = [&](int metres) {
        const QString text = Height(m_units, metres);
        return text.isEmpty() ? QStringLiteral("-") : QStringLiteral("%1 %2").arg(text, height);
    };
    const CJumpRecording& recording = jump.GetRecording();
    const QString values[][2] = {
        {tr("Exit"), heightText(jump.GetExitHeight())},
        {tr("Opening"), heightText(jump.GetOpenHeight())},
        {tr("Freefall time"), Qs(DurationToText(jump.FreefallTime(settings), true))},
        {tr("Canopy time"), Qs(DurationToText(jump.GetCanopyTime(), true))},
        {tr("Maximum speed"), speedText(jump.GetMaxSpeed())},
        {tr("Average speed"), speedText(jump.GetAvgSpeed())},
        {tr("Aircraft"), Qs(jump.GetAircraft())},
        {tr("Recording"), recording.GetKind() == CJumpRecording::Satellite ? tr("GPS") : tr("Barometric")},
    };
    // Four pairs a line, two lines.
    const double pairWidth = width / 4;
    for (int i = 0; i < 8; ++i) {
        const double x = (i % 4) * pairWidth;
        const double top = y + (i / 4) * 120.0;
        Text(painter, QRectF(x, top, pairWidth * 0.45, 120), values[i][0], Qt::AlignLeft, 75, 55, true);
        Text(painter, QRectF(x + pairWidth * 0.45, top, pairWidth * 0.55, 120), values[i][1], Qt::AlignLeft, 80, 55);
    }
    y += 280;
    const QRectF plot(0, y, width, m_area.height() - y);
    if (m_recordingPainter) {
        painter.save();
        m_recordingPainter(painter, plot, jump);
        painter.restore();
    }
    painter.setPen(QPen(kRuleColour, 4.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(plot);
    painter.setPen(Qt::black);
}

void CLogbookPageRenderer::Text(QPainter& painter, const QRectF& cell, const QString& text, Qt::Alignment align,
                                int size, int minSize, bool bold)
{
    if (text.isEmpty())
        return;
    const QRectF inner = cell.adjusted(kCellPad, 0, -kCellPad, 0);
    QFont font = painter.font();
    font.setBold(bold);
    font.setPixelSize(size);
    QFontMetricsF metrics(font);
    QString shown = text;
    int flags = static_cast<int>(align | Qt::AlignVCenter);
    double advance = metrics.horizontalAdvance(shown);
    bool fits = advance <= inner.width();
    // Words that do not fit on one line go on two where the cell is tall enough, a little smaller
    // if need be; otherwise the line shrinks and is then cut.
    if (!fits && minSize > 0 && text.contains(QLatin1Char(' '))) {
        for (const int wrapSize : {size, (size + minSize) / 2, minSize}) {
            font.setPixelSize(wrapSize);
            metrics = QFontMetricsF(font);
            const QRectF need = metrics.boundingRect(inner, flags | Qt::TextWordWrap, shown);
            if (need.width() <= inner.width() &&
                need.height() <= std::min(inner.height(), 2.2 * metrics.lineSpacing())) {
                flags |= Qt::TextWordWrap;
                fits = true;
                break;
            }
        }
    }
    // Still too long: the words that fit on a first line, the rest cut on a second.
    if (!fits && minSize > 0 && text.contains(QLatin1Char(' '))) {
        font.setPixelSize((size + minSize) / 2);
        metrics = QFontMetricsF(font);
        const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        QString first;
        qsizetype used = 0;
        for (; used < words.size(); ++used) {
            const QString longer = first.isEmpty() ? words[used] : first + QLatin1Char(' ') + words[used];
            if (metrics.horizontalAdvance(longer) > inner.width())
                break;
            first = longer;
        }
        if (!first.isEmpty() && 2 * metrics.lineSpacing() <= inner.height()) {
            const QString rest = words.mid(used).join(QLatin1Char(' '));
            shown = first + QLatin1Char('\n') + metrics.elidedText(rest, Qt::ElideRight, inner.width());
            fits = true;
        }
    }
    if (!fits) {
        font.setPixelSize(size);
        if (minSize > 0 && minSize < size)
            font.setPixelSize(std::max(minSize, static_cast<int>(size * inner.width() / advance)));
        metrics = QFontMetricsF(font);
        if (metrics.horizontalAdvance(shown) > inner.width())
            shown = metrics.elidedText(shown, Qt::ElideRight, inner.width());
    }
    painter.setFont(font);
    painter.drawText(inner, flags, shown);
    if (m_record)
        m_boxes.push_back({m_page, cell, metrics.boundingRect(inner, flags, shown), shown});
}
