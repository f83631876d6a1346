#include "qtformats/CSignatureCell.h"

#include "bridge/CoreText.h"
#include "formats/CLogbookPagePlan.h"
#include "model/CJump.h"
#include "model/CJumpSeal.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

// Text sizes in tenths of a point.
constexpr int kLineSize = 60;
constexpr double kLineHeight = 70.0;
constexpr double kPad = 15.0;
// Pen of the strokes: 0.6 pt.
constexpr double kStrokeWidth = 6.0;

} // namespace

CSignatureCell CSignatureCell::FromJump(const CJump& jump)
{
    CSignatureCell cell;
    cell.strokes = jump.GetSignature().GetStrokes();
    cell.signer = CoreText::ToQt(jump.GetSignature().GetName());
    const std::string& licence = jump.GetSignature().GetLicence();
    if (!licence.empty())
        cell.lines << QCoreApplication::translate("CSignatureCell", "Licence %1").arg(CoreText::ToQt(licence));
    // The seal the document checked when it loaded or last changed the jump.
    if (jump.GetSealState() == SealState::Changed)
        cell.lines << QCoreApplication::translate("CSignatureCell", "changed after signing");
    return cell;
}

QRectF CSignatureCellPainter::Bounds(const std::vector<CJumpSignature::Stroke>& strokes)
{
    bool any = false;
    double left = 0, top = 0, right = 0, bottom = 0;
    for (const auto& stroke : strokes) {
        for (const CPoint& point : stroke) {
            if (!any) {
                left = right = point.x;
                top = bottom = point.y;
                any = true;
            }
            left = std::min<double>(left, point.x);
            right = std::max<double>(right, point.x);
            top = std::min<double>(top, point.y);
            bottom = std::max<double>(bottom, point.y);
        }
    }
    return any ? QRectF(QPointF(left, top), QPointF(right, bottom)) : QRectF();
}

void CSignatureCellPainter::Paint(QPainter& painter, const QRectF& box, const CSignatureCell& cell, double dot,
                                  const TextSink& sink)
{
    QStringList texts;
    if (!cell.signer.isEmpty())
        texts << cell.signer;
    texts << cell.lines;

    QFont font = painter.font();
    font.setBold(false);
    font.setItalic(false);
    // The text lines stand at the foot of the cell, the strokes take what is left above them.
    const double textHeight = std::min(texts.size() * kLineHeight, box.height() - 2 * kPad);
    const QRectF inner = box.adjusted(kPad, kPad, -kPad, -kPad);
    const double gap = texts.isEmpty() ? 0.0 : kPad;
    const QRectF strokeArea(inner.left(), inner.top(), inner.width(), std::max(0.0, inner.height() - textHeight - gap));

    const QRectF bounds = Bounds(cell.strokes);
    if (!cell.strokes.empty() && strokeArea.height() > kStrokeWidth) {
        // Scaled to fit, aspect kept, centred; a dot or a straight line is not blown up.
        const double w = std::max(bounds.width(), 1.0), h = std::max(bounds.height(), 1.0);
        const double avail = strokeArea.height() - kStrokeWidth;
        const double scale = std::min((strokeArea.width() - kStrokeWidth) / w, avail / h);
        const QPointF offset(strokeArea.center().x() - (bounds.left() + w / 2) * scale,
                             strokeArea.center().y() - (bounds.top() + h / 2) * scale);
        const double minDistance = scale > 0 ? dot / scale : 0.0;
        QPainterPath path;
        for (const auto& stroke : cell.strokes) {
            const std::vector<CPoint> kept = CLogbookPagePlan::SimplifyStroke(stroke, minDistance);
            if (kept.empty())
                continue;
            const QPointF first = offset + QPointF(kept.front().x, kept.front().y) * scale;
            path.moveTo(first);
            if (kept.size() == 1)
                path.lineTo(first + QPointF(0.1, 0));
            for (std::size_t i = 1; i < kept.size(); ++i)
                path.lineTo(offset + QPointF(kept[i].x, kept[i].y) * scale);
        }
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(0x10, 0x2a, 0x6b), kStrokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        painter.restore();
    }

    // Each line on its own, shrunk and then cut to the cell's width.
    double y = inner.bottom() - textHeight;
    for (const QString& text : texts) {
        if (y + kLineHeight > inner.bottom() + 0.5)
            break;
        font.setPixelSize(kLineSize);
        QFontMetricsF metrics(font);
        QString shown = text;
        if (metrics.horizontalAdvance(shown) > inner.width()) {
            font.setPixelSize(
                std::max(45, static_cast<int>(kLineSize * inner.width() / metrics.horizontalAdvance(shown))));
            metrics = QFontMetricsF(font);
            shown = metrics.elidedText(shown, Qt::ElideRight, inner.width());
        }
        const QRectF lineRect(inner.left(), y, inner.width(), kLineHeight);
        painter.setFont(font);
        painter.drawText(lineRect, Qt::AlignHCenter | Qt::AlignVCenter, shown);
        if (sink)
            sink(metrics.boundingRect(lineRect, Qt::AlignHCenter | Qt::AlignVCenter, shown), shown);
        y += kLineHeight;
    }
}
