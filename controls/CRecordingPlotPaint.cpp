// The painting of CRecordingPlot: the two time panels with their axes, the marks, annotations
// and winds, the ground track, and the cursor with its box.

#include "bridge/CoreText.h"
#include "controls/CRecordingPlot.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace {

const QColor kAltitudeColour(0x1f, 0x5f, 0xa8);
const QColor kSpeedColour(0xb0, 0x3a, 0x2e);
const QColor kExitColour(0x2e, 0x7d, 0x32);
const QColor kOpenColour(0xd8, 0x5c, 0x00);
const QColor kNoteColour(0x6a, 0x1b, 0x9a);
const QColor kClimbColour(0x9e, 0x9e, 0x9e);
const QColor kGridColour(0xe3, 0xe3, 0xe3);
const QColor kFrameColour(0xa0, 0xa0, 0xa0);

using CoreText::ToQt;

// A short text with a light backing, so that it reads over grid lines and curves.
void PaintLabel(QPainter& painter, const QRectF& box, const QString& text, const QColor& colour)
{
    painter.fillRect(box, QColor(255, 255, 255, 210));
    painter.setPen(colour);
    painter.drawText(box, Qt::AlignCenter, text);
}

} // namespace

void CRecordingPlot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    if (m_series.IsEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect(), Qt::AlignCenter, tr("No recording"));
        return;
    }
    painter.setFont(SmallFont());
    painter.setRenderHint(QPainter::Antialiasing);
    PaintTimePanel(painter, m_altitudeArea, m_altitudeAxis, tr("Altitude (%1)").arg(ToQt(m_units.HeightLabel())),
                   m_series.Altitudes(), m_units.HeightToDisplay(1.0), kAltitudeColour);
    PaintTimePanel(painter, m_speedArea, m_speedAxis, tr("Vertical speed (%1)").arg(ToQt(m_units.SpeedLabel())),
                   m_series.VerticalSpeeds(), m_units.SpeedToDisplay(1.0), kSpeedColour);
    PaintTimeAxis(painter);
    QList<QRectF> taken;
    PaintMarks(painter, taken);
    PaintAnnotations(painter, taken);
    PaintWinds(painter);
    PaintGround(painter);
    PaintCursor(painter, taken);
}

void CRecordingPlot::PaintTimePanel(QPainter& painter, const QRectF& area, const CPlotAxis& axis, const QString& title,
                                    const std::vector<double>& values, double toDisplay, const QColor& colour) const
{
    const QFontMetricsF metrics(painter.font());
    const double line = metrics.height();
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRectF(area.left(), area.top() - line, width() - area.left(), line),
                     Qt::AlignLeft | Qt::AlignVCenter, title);
    // Grid and value labels; the labels stand left of the panel.
    painter.setPen(QPen(kGridColour, 1));
    for (double tick : m_timeAxis.Ticks())
        painter.drawLine(QPointF(m_timeAxis.ToPixel(tick), area.top()),
                         QPointF(m_timeAxis.ToPixel(tick), area.bottom()));
    for (double tick : axis.Ticks()) {
        const double y = axis.ToPixel(tick);
        painter.setPen(QPen(tick == 0.0 ? kFrameColour : kGridColour, 1));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
        painter.setPen(palette().color(QPalette::Text));
        // The lowest label sits on its line rather than reaching into the time labels below.
        painter.drawText(QRectF(0, std::min(y - line / 2, area.bottom() + 2 - line), area.left() - 4, line),
                         Qt::AlignRight | Qt::AlignVCenter, CPlotAxis::Label(tick, axis.Step()));
    }
    painter.setPen(QPen(kFrameColour, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area);

    QPolygonF curve;
    curve.reserve(static_cast<int>(values.size()));
    for (std::size_t i = 0; i < values.size(); ++i)
        curve.append(QPointF(m_timeAxis.ToPixel(m_series.Times()[i]), axis.ToPixel(values[i] * toDisplay)));
    painter.save();
    painter.setClipRect(area);
    painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(curve);
    painter.restore();
}

void CRecordingPlot::PaintTimeAxis(QPainter& painter) const
{
    const QFontMetricsF metrics(painter.font());
    const std::vector<double> ticks = m_timeAxis.Ticks();
    painter.setPen(palette().color(QPalette::Text));
    double lastRight = -1e9;
    for (std::size_t i = 0; i < ticks.size(); ++i) {
        // The last label carries the unit.
        QString label = CPlotAxis::Label(ticks[i], m_timeAxis.Step());
        if (i + 1 == ticks.size())
            label += QStringLiteral(" s");
        const double w = metrics.horizontalAdvance(label);
        const double x = std::clamp(m_timeAxis.ToPixel(ticks[i]) - w / 2, 0.0, width() - w);
        if (x < lastRight + 4)
            continue;
        painter.drawText(QRectF(x, m_speedArea.bottom() + 1, w, metrics.height()), Qt::AlignCenter, label);
        lastRight = x + w;
    }
}

void CRecordingPlot::PaintMarks(QPainter& painter, QList<QRectF>& taken) const
{
    const QFontMetricsF metrics(painter.font());
    const CRecordingSeries::Range range = m_series.TimeRange();
    const auto mark = [&](std::optional<double> time, const QString& text, const QColor& colour, bool left) {
        if (!time || *time < range.min || *time > range.max)
            return;
        const double x = XOfTime(*time);
        painter.setPen(QPen(colour, 1.4, Qt::DashLine));
        for (const QRectF& area : {m_altitudeArea, m_speedArea})
            painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        // The label beside its line at the foot of the altitude panel, where a jump's curve
        // seldom is and the cursor's box never: the exit's before its line, the deployment's
        // after it, so that the two keep apart; above another label it would cover.
        const double w = metrics.horizontalAdvance(text) + 4;
        QRectF box(left ? x - 2 - w : x + 2, m_altitudeArea.bottom() - 2 - metrics.height(), w, metrics.height());
        if (box.left() < m_altitudeArea.left())
            box.moveLeft(x + 2);
        if (box.right() > m_altitudeArea.right())
            box.moveRight(x - 2);
        for (const QRectF& other : taken)
            if (box.intersects(other))
                box.moveBottom(other.top() - 1);
        PaintLabel(painter, box, text, colour);
        taken.append(box);
    };
    mark(m_series.ExitTime(), tr("Exit"), kExitColour, true);
    mark(m_series.DeploymentTime(), tr("Open"), kOpenColour, false);
}

void CRecordingPlot::PaintAnnotations(QPainter& painter, QList<QRectF>& taken) const
{
    const QFontMetricsF metrics(painter.font());
    const CRecordingSeries::Range range = m_series.TimeRange();
    for (const CRecordingSeries::Annotation& note : m_series.Annotations()) {
        if (note.time < range.min || note.time > range.max)
            continue;
        const QPointF at(XOfTime(note.time), m_altitudeAxis.ToPixel(m_units.HeightToDisplay(note.altitude)));
        if (!m_altitudeArea.contains(at))
            continue;
        painter.setPen(QPen(kNoteColour, 1.2));
        painter.setBrush(Qt::white);
        painter.drawPolygon(
            QPolygonF({at + QPointF(0, -4), at + QPointF(4, 0), at + QPointF(0, 4), at + QPointF(-4, 0)}));
        // The text above and right of the point, else in another corner around it; left out
        // where no corner is free of other labels.
        const QString text = metrics.elidedText(ToQt(note.text), Qt::ElideRight, m_altitudeArea.width() / 2);
        if (text.isEmpty())
            continue;
        const QSizeF size(metrics.horizontalAdvance(text) + 4, metrics.height());
        const QPointF corners[] = {at + QPointF(4, -4 - size.height()),
                                   at + QPointF(-4 - size.width(), -4 - size.height()), at + QPointF(4, 4),
                                   at + QPointF(-4 - size.width(), 4)};
        for (const QPointF& corner : corners) {
            const QRectF box(corner, size);
            const bool clash =
                std::any_of(taken.begin(), taken.end(), [&](const QRectF& r) { return r.intersects(box); });
            if (clash || !m_altitudeArea.contains(box))
                continue;
            PaintLabel(painter, box, text, kNoteColour);
            taken.append(box);
            break;
        }
    }
    painter.setBrush(Qt::NoBrush);
}

void CRecordingPlot::PaintWinds(QPainter& painter) const
{
    if (m_windArea.isEmpty())
        return;
    const QFontMetricsF metrics(painter.font());
    const double line = metrics.height();
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRectF(m_windArea.left(), m_windArea.top() - line, m_windArea.width() + 4, line),
                     Qt::AlignLeft | Qt::AlignVCenter, ToQt(m_units.WindLabel()));
    // Each wind at its altitude, from the lowest up; a wind too close above the last one shown
    // is left out rather than drawn over it.
    double lastY = 1e9;
    for (const CRecordingWind& wind : m_series.Winds()) {
        const double at = m_altitudeAxis.ToPixel(m_units.HeightToDisplay(wind.altitude));
        if (at < m_windArea.top() || at > m_windArea.bottom())
            continue;
        // Rows at the panel's ends move in by half a row, clear of the unit above.
        const double y = std::clamp(at, m_windArea.top() + line / 2, m_windArea.bottom() - line / 2);
        if (lastY - y < line)
            continue;
        lastY = y;
        // The arrow points where the wind blows to; the direction is where it comes from.
        const double angle = (wind.direction + 180.0) * std::numbers::pi / 180.0;
        const QPointF centre(m_windArea.left() + line / 2, y);
        const QPointF along(std::sin(angle) * line * 0.42, -std::cos(angle) * line * 0.42);
        const QPointF across(-along.y() * 0.6, along.x() * 0.6);
        painter.setPen(QPen(palette().color(QPalette::Text), 1.3));
        painter.drawLine(centre - along, centre + along);
        painter.setBrush(palette().color(QPalette::Text));
        painter.drawPolygon(
            QPolygonF({centre + along * 1.3, centre + along * 0.3 + across, centre + along * 0.3 - across}));
        painter.setBrush(Qt::NoBrush);
        painter.drawText(QRectF(m_windArea.left() + line + 1, y - line / 2, m_windArea.width(), line),
                         Qt::AlignLeft | Qt::AlignVCenter,
                         QString::number(std::lround(m_units.WindToDisplay(wind.speed))));
    }
}

void CRecordingPlot::PaintCursor(QPainter& painter, const QList<QRectF>& labels)
{
    m_cursorBox = {};
    if (!m_hasCursor)
        return;
    const CRecordingSeries::Values v = CursorValues();
    const double x = XOfTime(v.time);
    const QColor ink = palette().color(QPalette::Text);
    painter.setPen(QPen(ink, 1));
    for (const QRectF& area : {m_altitudeArea, m_speedArea})
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
    painter.setBrush(kAltitudeColour);
    painter.drawEllipse(QPointF(x, m_altitudeAxis.ToPixel(m_units.HeightToDisplay(v.altitude))), 3, 3);
    painter.setBrush(kSpeedColour);
    painter.drawEllipse(QPointF(x, m_speedAxis.ToPixel(m_units.SpeedToDisplay(v.verticalSpeed))), 3, 3);
    if (m_series.HasGround()) {
        painter.setBrush(Qt::white);
        painter.setPen(QPen(ink, 2));
        painter.drawEllipse(GroundPointAt(v.time), 4, 4);
    }

    // The box beside the line at the top of the altitude panel on the side with room, else on
    // the other side, lower down, or in the speed panel: wherever it covers no label.
    const QFontMetricsF metrics(painter.font());
    const QStringList texts = CursorTexts();
    double w = 0;
    for (const QString& text : texts)
        w = std::max(w, metrics.horizontalAdvance(text));
    const QSizeF size(w + 8, metrics.height() * texts.size() + 4);
    const bool rightHasRoom = x + 5 + size.width() <= width() - 1.0;
    const double sides[] = {rightHasRoom ? x + 5 : x - 5 - size.width(), rightHasRoom ? x - 5 - size.width() : x + 5};
    const double tops[] = {m_altitudeArea.top() + 2, m_altitudeArea.center().y() - size.height() / 2,
                           m_speedArea.center().y() - size.height() / 2};
    QRectF box;
    for (double top : tops) {
        for (double left : sides) {
            const QRectF candidate(QPointF(std::clamp(left, 1.0, width() - 1.0 - size.width()), top), size);
            if (std::none_of(labels.begin(), labels.end(), [&](const QRectF& r) { return r.intersects(candidate); })) {
                box = candidate;
                break;
            }
        }
        if (!box.isEmpty())
            break;
    }
    if (box.isEmpty())
        box = QRectF(QPointF(std::clamp(sides[0], 1.0, width() - 1.0 - size.width()), tops[0]), size);
    painter.setPen(QPen(kFrameColour, 1));
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawRect(box);
    painter.setBrush(Qt::NoBrush);
    const QColor colours[] = {ink, kAltitudeColour, kSpeedColour};
    for (int i = 0; i < texts.size(); ++i) {
        painter.setPen(colours[i]);
        painter.drawText(QRectF(box.left() + 4, box.top() + 2 + i * metrics.height(), w, metrics.height()),
                         Qt::AlignLeft | Qt::AlignVCenter, texts[i]);
    }
    m_cursorBox = box;
}

void CRecordingPlot::PaintGround(QPainter& painter) const
{
    if (m_groundArea.isEmpty())
        return;
    const QFontMetricsF metrics(painter.font());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(
        QRectF(m_groundArea.left(), m_groundArea.top() - metrics.height(), m_groundArea.width(), metrics.height()),
        Qt::AlignLeft | Qt::AlignVCenter, tr("Ground track"));
    painter.setPen(QPen(kFrameColour, 1));
    painter.drawRect(m_groundArea);

    // The track in the colours of its phases: climb grey, freefall as the speed, canopy as the
    // altitude; all in one colour when the exit and deployment are not known.
    const auto& times = m_series.Times();
    const double exit = m_series.ExitTime().value_or(times.front() - 1);
    const double open = m_series.DeploymentTime().value_or(times.front() - 1);
    const auto colourAt = [&](double time) {
        if (!m_series.ExitTime() && !m_series.DeploymentTime())
            return kAltitudeColour;
        if (time < exit && m_series.ExitTime())
            return kClimbColour;
        return time < open ? kSpeedColour : kAltitudeColour;
    };
    painter.save();
    painter.setClipRect(m_groundArea);
    QPolygonF run;
    QColor runColour = colourAt(times.front());
    for (std::size_t i = 0; i < times.size(); ++i) {
        const QPointF p = GroundPointAt(times[i]);
        const QColor colour = colourAt(times[i]);
        run.append(p);
        if (colour != runColour || i + 1 == times.size()) {
            painter.setPen(QPen(runColour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawPolyline(run);
            run = QPolygonF({p});
            runColour = colour;
        }
    }
    // Exit and deployment as dots in their marks' colours, the landing as a square.
    painter.setPen(QPen(Qt::white, 1));
    for (const auto& [time, colour] :
         {std::pair{m_series.ExitTime(), kExitColour}, std::pair{m_series.DeploymentTime(), kOpenColour}}) {
        if (!time)
            continue;
        painter.setBrush(colour);
        painter.drawEllipse(GroundPointAt(*time), 4, 4);
    }
    painter.setBrush(palette().color(QPalette::Text));
    const QPointF landing = GroundPointAt(times.back());
    painter.drawRect(QRectF(landing - QPointF(4, 4), QSizeF(8, 8)));
    painter.setBrush(Qt::NoBrush);
    painter.restore();

    // North up, shown by an arrow in the corner.
    const double line = metrics.height();
    const QPointF tip(m_groundArea.right() - line * 0.6, m_groundArea.top() + 3);
    painter.setPen(palette().color(QPalette::Text));
    painter.setBrush(palette().color(QPalette::Text));
    painter.drawPolygon(QPolygonF({tip, tip + QPointF(-3.5, 7), tip + QPointF(3.5, 7)}));
    painter.setBrush(Qt::NoBrush);
    painter.drawText(QRectF(tip.x() - line, tip.y() + 7, line * 2, line), Qt::AlignHCenter | Qt::AlignTop,
                     QStringLiteral("N"));
    PaintGroundScale(painter, 1.0 / m_groundScale);
}

void CRecordingPlot::PaintGroundScale(QPainter& painter, double metresPerPixel) const
{
    // A bar of a round length, about a quarter of the panel wide, in the user's height units or,
    // when that is long, in kilometres or miles.
    const double perUnit = m_units.HeightToDisplay(1.0);
    const double wanted = m_groundArea.width() / 4 * metresPerPixel * perUnit;
    const double length = CPlotAxis::NiceStep(wanted, 1);
    const double bigUnit = m_units.HeightUnitsPerLongDistance();
    QString label;
    if (length >= bigUnit / 2 && std::fmod(length, bigUnit / 2) == 0.0)
        label = QStringLiteral("%1 %2").arg(QLocale().toString(length / bigUnit), ToQt(m_units.LongDistanceLabel()));
    else
        label = QStringLiteral("%1 %2").arg(QLocale().toString(length), ToQt(m_units.HeightLabel()));
    const double pixels = length / perUnit / metresPerPixel;
    const QFontMetricsF metrics(painter.font());
    const double y = m_groundArea.bottom() - 5;
    const double x = m_groundArea.left() + 5;
    const double h = metrics.height();
    painter.fillRect(QRectF(x - 2, y - h - 3, std::max(pixels, metrics.horizontalAdvance(label)) + 4, h + 5),
                     QColor(255, 255, 255, 210));
    painter.setPen(QPen(palette().color(QPalette::Text), 1.4));
    painter.drawText(QRectF(x, y - h - 3, m_groundArea.width(), h), Qt::AlignLeft | Qt::AlignVCenter, label);
    painter.drawLine(QPointF(x, y), QPointF(x + pixels, y));
    painter.drawLine(QPointF(x, y - 3), QPointF(x, y));
    painter.drawLine(QPointF(x + pixels, y - 3), QPointF(x + pixels, y));
}
