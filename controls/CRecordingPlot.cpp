#include "controls/CRecordingPlot.h"

#include "bridge/CoreText.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Room around everything, between panels, and around the ground track inside its panel.
constexpr double kMargin = 4.0;
constexpr double kGap = 6.0;
constexpr double kGroundPadding = 10.0;
// How far the Left and Right keys move the cursor, in seconds (with Shift: ten times that).
constexpr double kKeyStep = 1.0;

} // namespace

CRecordingPlot::CRecordingPlot(const CUnitSettings& units, QWidget* parent) : QWidget(parent), m_units(units)
{
    setObjectName(QStringLiteral("recordingPlot"));
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    UpdateLayout();
}

void CRecordingPlot::SetSeries(CRecordingSeries series)
{
    m_series = std::move(series);
    m_hasCursor = false;
    m_cursorBox = {};
    UpdateLayout();
    updateGeometry();
    update();
}

void CRecordingPlot::SetMarks(std::optional<double> exitTime, std::optional<double> deploymentTime)
{
    m_series.SetExitTime(exitTime);
    m_series.SetDeploymentTime(deploymentTime);
    UpdateLayout();
    update();
}

void CRecordingPlot::SetCursorTime(double time)
{
    if (m_series.IsEmpty() || !std::isfinite(time))
        return;
    const CRecordingSeries::Range range = m_series.TimeRange();
    const double clamped = std::clamp(time, range.min, range.max);
    if (m_hasCursor && clamped == m_cursorTime)
        return;
    m_hasCursor = true;
    m_cursorTime = clamped;
    update();
    emit cursorMoved(clamped);
}

void CRecordingPlot::ClearCursor()
{
    m_hasCursor = false;
    m_cursorBox = {};
    update();
}

QStringList CRecordingPlot::CursorTexts() const
{
    if (!m_hasCursor)
        return {};
    const CRecordingSeries::Values v = CursorValues();
    const QLocale locale;
    const auto whole = [&locale](double value) { return locale.toString(static_cast<qlonglong>(std::lround(value))); };
    return {locale.toString(v.time, 'f', 1) + QStringLiteral(" s"),
            whole(m_units.HeightToDisplay(v.altitude)) + QLatin1Char(' ') + CoreText::ToQt(m_units.HeightLabel()),
            whole(m_units.SpeedToDisplay(v.verticalSpeed)) + QLatin1Char(' ') + CoreText::ToQt(m_units.SpeedLabel())};
}

QPointF CRecordingPlot::GroundPointAt(double time) const
{
    const CRecordingSeries::GroundPoint p = m_series.At(time).ground;
    return {m_groundOrigin.x() + p.east * m_groundScale, m_groundOrigin.y() - p.north * m_groundScale};
}

QSize CRecordingPlot::sizeHint() const
{
    return m_series.HasGround() ? QSize(640, 420) : QSize(520, 360);
}

QSize CRecordingPlot::minimumSizeHint() const
{
    return {160, 140};
}

QFont CRecordingPlot::SmallFont() const
{
    // A handheld's screen takes a slightly smaller type for the axes than a desktop's.
    QFont small = font();
    if (width() < 420 || height() < 320)
        small.setPointSizeF(small.pointSizeF() * 0.85);
    return small;
}

void CRecordingPlot::resizeEvent(QResizeEvent* event)
{
    UpdateLayout();
    QWidget::resizeEvent(event);
}

void CRecordingPlot::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        UpdateLayout();
    QWidget::changeEvent(event);
}

void CRecordingPlot::UpdateLayout()
{
    m_altitudeArea = m_speedArea = m_groundArea = m_windArea = {};
    if (m_series.IsEmpty())
        return;
    const QFontMetricsF metrics(SmallFont());
    const double line = metrics.height();
    const QRectF all = QRectF(rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
    QRectF timeRoom = all;
    if (m_series.HasGround()) {
        // Beside the time panels when the widget is wide, below them when it is tall; either
        // way the time panels keep the larger share.
        if (all.width() > all.height() * 1.15) {
            // As high as the time panels, from the top of the altitude panel to the time labels.
            // A handheld lying on its side keeps most of its width for the time panels.
            const double side = std::min(all.height() - line, all.width() * (all.width() < 480 ? 0.3 : 0.38));
            m_groundArea = QRectF(all.right() - side, all.top() + line, side, all.height() - 2 * line);
            timeRoom.setRight(m_groundArea.left() - kGap * 2);
        } else {
            const double height = std::min(all.width(), all.height() * 0.36);
            m_groundArea = QRectF(all.left(), all.bottom() - height + line, all.width(), height - line);
            timeRoom.setBottom(all.bottom() - height - kGap);
        }
        // The track keeps its shape: one scale for east and north, centred in the panel. With a
        // known exit the jump fills the panel and the long climb runs out of it.
        const auto& ground = m_series.Ground();
        const auto& times = m_series.Times();
        const double from = m_series.ExitTime().value_or(times.front());
        CRecordingSeries::Range east{ground.back().east, ground.back().east};
        CRecordingSeries::Range north{ground.back().north, ground.back().north};
        for (std::size_t i = 0; i < ground.size(); ++i) {
            if (times[i] < from)
                continue;
            east = {std::min(east.min, ground[i].east), std::max(east.max, ground[i].east)};
            north = {std::min(north.min, ground[i].north), std::max(north.max, ground[i].north)};
        }
        const QRectF inner = m_groundArea.adjusted(kGroundPadding, kGroundPadding, -kGroundPadding, -kGroundPadding);
        m_groundScale = std::max(
            std::min(inner.width() / std::max(east.Span(), 1.0), inner.height() / std::max(north.Span(), 1.0)), 1e-6);
        const QPointF middle((east.min + east.max) / 2, (north.min + north.max) / 2);
        m_groundOrigin = inner.center() - QPointF(middle.x() * m_groundScale, -middle.y() * m_groundScale);
    }
    LayoutTimePanels(timeRoom);
}

void CRecordingPlot::LayoutTimePanels(const QRectF& room)
{
    const QFontMetricsF metrics(SmallFont());
    const double line = metrics.height();
    // Titles above each panel and the time labels below the lower one.
    const double panels = std::max(room.height() - 3 * line - kGap, 20.0);
    const double panel = panels / 2;

    // The value axes first: their labels decide the room on the left.
    const CRecordingSeries::Range altitude = m_series.AltitudeRange();
    const CRecordingSeries::Range speed = m_series.SpeedRange();
    // The curves keep a little room above and below, so they do not run along the frame.
    const auto padded = [panel](double min, double max) {
        const double pad = (max - min) * 0.04;
        return CPlotAxis(min - pad, max + pad, panel, 0);
    };
    m_altitudeAxis = padded(m_units.HeightToDisplay(altitude.min), m_units.HeightToDisplay(altitude.max));
    // The speed panel always shows zero, the line between climbing and falling.
    m_speedAxis =
        padded(m_units.SpeedToDisplay(std::min(speed.min, 0.0)), m_units.SpeedToDisplay(std::max(speed.max, 0.0)));
    double labels = 0.0;
    for (CPlotAxis* axis : {&m_altitudeAxis, &m_speedAxis}) {
        axis->ChooseStep(line * 2);
        for (double tick : axis->Ticks())
            labels = std::max(labels, metrics.horizontalAdvance(CPlotAxis::Label(tick, axis->Step())));
    }
    double winds = 0.0;
    if (!m_series.Winds().empty()) {
        double widest = metrics.horizontalAdvance(QStringLiteral("00"));
        for (const CRecordingWind& wind : m_series.Winds())
            widest = std::max(
                widest, metrics.horizontalAdvance(QString::number(std::lround(m_units.WindToDisplay(wind.speed)))));
        winds = std::max(line + 1 + widest, metrics.horizontalAdvance(CoreText::ToQt(m_units.WindLabel()))) + kGap / 2;
    }
    const double left = room.left() + labels + 4;
    // Room on the right for half of the last time label.
    const double right = room.right() - std::max(winds, metrics.horizontalAdvance(QStringLiteral("000")) / 2);
    m_altitudeArea = QRectF(left, room.top() + line, std::max(right - left, 10.0), panel);
    m_speedArea = QRectF(left, m_altitudeArea.bottom() + kGap + line, m_altitudeArea.width(), panel);
    if (winds > 0)
        m_windArea = QRectF(m_altitudeArea.right() + kGap / 2, m_altitudeArea.top(), winds - kGap / 2, panel);

    const auto place = [line](CPlotAxis& axis, const QRectF& area) {
        CPlotAxis placed(axis.Min(), axis.Max(), area.bottom(), area.top());
        placed.ChooseStep(line * 2);
        axis = placed;
    };
    place(m_altitudeAxis, m_altitudeArea);
    place(m_speedAxis, m_speedArea);

    const CRecordingSeries::Range time = m_series.TimeRange();
    m_timeAxis = CPlotAxis(time.min, time.max, m_altitudeArea.left(), m_altitudeArea.right());
    // Time labels at least their own width and a gap apart.
    m_timeAxis.ChooseStep(metrics.horizontalAdvance(QStringLiteral("-0000")) + 8);
    const double widest = std::max(metrics.horizontalAdvance(CPlotAxis::Label(m_timeAxis.Min(), m_timeAxis.Step())),
                                   metrics.horizontalAdvance(CPlotAxis::Label(m_timeAxis.Max(), m_timeAxis.Step())));
    m_timeAxis.ChooseStep(widest + 10);
}

bool CRecordingPlot::PointAt(const QPointF& position)
{
    if (m_series.IsEmpty())
        return false;
    const QFontMetricsF metrics(SmallFont());
    const QRectF timePanels = m_altitudeArea.united(m_speedArea).adjusted(0, -metrics.height(), 0, metrics.height());
    if (position.y() >= timePanels.top() && position.y() <= timePanels.bottom() &&
        position.x() >= timePanels.left() - kGap && position.x() <= timePanels.right() + kGap) {
        SetCursorTime(TimeAtX(std::clamp(position.x(), timePanels.left(), timePanels.right())));
        return true;
    }
    if (!m_groundArea.contains(position))
        return false;
    // On the ground track: the sample drawn nearest to the finger.
    const auto& ground = m_series.Ground();
    std::size_t nearest = 0;
    double best = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < ground.size(); ++i) {
        const QPointF p(m_groundOrigin.x() + ground[i].east * m_groundScale,
                        m_groundOrigin.y() - ground[i].north * m_groundScale);
        const double distance = QPointF::dotProduct(p - position, p - position);
        if (distance < best)
            best = distance, nearest = i;
    }
    SetCursorTime(m_series.Times()[nearest]);
    return true;
}

void CRecordingPlot::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !PointAt(event->position()))
        return QWidget::mousePressEvent(event);
    setFocus(Qt::MouseFocusReason);
}

void CRecordingPlot::mouseMoveEvent(QMouseEvent* event)
{
    // Hovering and dragging both move the cursor.
    if (!PointAt(event->position()))
        QWidget::mouseMoveEvent(event);
}

void CRecordingPlot::keyPressEvent(QKeyEvent* event)
{
    if (m_series.IsEmpty())
        return QWidget::keyPressEvent(event);
    const CRecordingSeries::Range range = m_series.TimeRange();
    const double step = event->modifiers() & Qt::ShiftModifier ? kKeyStep * 10 : kKeyStep;
    // The first key press shows the cursor at the exit, or at the start without one.
    const double from = m_hasCursor ? m_cursorTime : m_series.ExitTime().value_or(range.min);
    switch (event->key()) {
    case Qt::Key_Left:
        SetCursorTime(m_hasCursor ? from - step : from);
        break;
    case Qt::Key_Right:
        SetCursorTime(m_hasCursor ? from + step : from);
        break;
    case Qt::Key_Home:
        SetCursorTime(range.min);
        break;
    case Qt::Key_End:
        SetCursorTime(range.max);
        break;
    default:
        return QWidget::keyPressEvent(event);
    }
    event->accept();
}

bool CRecordingPlot::event(QEvent* event)
{
    const bool touched = m_finger.Handle(
        event, [this](const QEventPoint& point) { PointAt(point.position()); }, [] {});
    return touched || QWidget::event(event);
}
