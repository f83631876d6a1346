#include "controls/CSignatureCtrl.h"

#include <QAbstractButton>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTabletEvent>

#include <algorithm>
#include <cmath>

namespace {

// The two-pixel frame and a two-pixel margin inside it, so that strokes on the area's edge keep
// clear of the frame.
constexpr int kFrame = 2;
constexpr int kInset = kFrame + 2;

} // namespace

CSignatureCtrl::CSignatureCtrl(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("signatureCtrl"));
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    // Wider when there is room, as high as the width asks for.
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setCursor(Qt::CrossCursor);
    setFocusPolicy(Qt::StrongFocus);
}

void CSignatureCtrl::SetStrokes(const std::vector<Stroke>& strokes)
{
    m_strokes = strokes;
    m_drawing = false;
    Changed();
}

void CSignatureCtrl::Clear()
{
    SetStrokes({});
}

void CSignatureCtrl::RemoveLastStroke()
{
    if (m_strokes.empty())
        return;
    m_strokes.pop_back();
    m_drawing = false;
    Changed();
}

void CSignatureCtrl::SetReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    m_drawing = false;
    m_finger.Forget();
    if (readOnly)
        unsetCursor();
    else
        setCursor(Qt::CrossCursor);
    UpdateUndoButton();
    update();
}

void CSignatureCtrl::AttachUndoButton(QAbstractButton* button)
{
    if (m_undo)
        disconnect(m_undo, nullptr, this, nullptr);
    m_undo = button;
    if (button)
        connect(button, &QAbstractButton::clicked, this, &CSignatureCtrl::RemoveLastStroke);
    UpdateUndoButton();
}

void CSignatureCtrl::Changed()
{
    UpdateUndoButton();
    update();
    emit strokesChanged();
}

void CSignatureCtrl::UpdateUndoButton()
{
    if (m_undo)
        m_undo->setEnabled(!m_readOnly && !m_strokes.empty());
}

QSize CSignatureCtrl::sizeHint() const
{
    return QSize(CJumpSignature::kLogicalWidth + 2 * kInset, CJumpSignature::kLogicalHeight + 2 * kInset);
}

QSize CSignatureCtrl::minimumSizeHint() const
{
    return QSize(CJumpSignature::kLogicalWidth * 2 / 3 + 2 * kInset,
                 CJumpSignature::kLogicalHeight * 2 / 3 + 2 * kInset);
}

int CSignatureCtrl::heightForWidth(int width) const
{
    return (width - 2 * kInset) * CJumpSignature::kLogicalHeight / CJumpSignature::kLogicalWidth + 2 * kInset;
}

double CSignatureCtrl::Scale() const
{
    const QRectF inner = QRectF(rect()).adjusted(kInset, kInset, -kInset, -kInset);
    return std::max(
        0.01, std::min(inner.width() / CJumpSignature::kLogicalWidth, inner.height() / CJumpSignature::kLogicalHeight));
}

QRectF CSignatureCtrl::Area() const
{
    const double scale = Scale();
    QRectF area(0, 0, CJumpSignature::kLogicalWidth * scale, CJumpSignature::kLogicalHeight * scale);
    area.moveCenter(QRectF(rect()).center());
    return area;
}

bool CSignatureCtrl::ToLogical(const QPointF& position, CPoint& point) const
{
    const QRectF area = Area();
    const double scale = Scale();
    const int x = static_cast<int>(std::lround((position.x() - area.left()) / scale));
    const int y = static_cast<int>(std::lround((position.y() - area.top()) / scale));
    if (x < 0 || y < 0 || x >= CJumpSignature::kLogicalWidth || y >= CJumpSignature::kLogicalHeight)
        return false;
    point = {x, y};
    return true;
}

QPointF CSignatureCtrl::ToWidget(const CPoint& point) const
{
    const QRectF area = Area();
    const double scale = Scale();
    return {area.left() + point.x * scale, area.top() + point.y * scale};
}

double CSignatureCtrl::PenWidth() const
{
    return std::max(1.0, Scale());
}

QRect CSignatureCtrl::DotRect(const QPointF& centre) const
{
    // Whole pixels, so that a tap stays a crisp dot instead of a grey smudge at small scales.
    const int side = std::max(1, static_cast<int>(std::lround(PenWidth())));
    return {static_cast<int>(std::lround(centre.x() - side / 2.0)),
            static_cast<int>(std::lround(centre.y() - side / 2.0)), side, side};
}

void CSignatureCtrl::StrokeStart(const QPointF& position)
{
    CPoint point;
    if (m_readOnly || !ToLogical(position, point))
        return;
    m_drawing = true;
    m_strokes.push_back({point});
    UpdateUndoButton();
    update(DotRect(ToWidget(point)).adjusted(-1, -1, 1, 1));
    emit strokesChanged();
}

void CSignatureCtrl::StrokeMove(const QPointF& position)
{
    if (m_readOnly || !m_drawing || m_strokes.empty())
        return;
    CPoint point;
    // Leaving the area ends the stroke; coming back adds nothing until the next press.
    if (!ToLogical(position, point)) {
        m_drawing = false;
        return;
    }
    Stroke& stroke = m_strokes.back();
    if (stroke.back() == point)
        return;
    const QPointF from = ToWidget(stroke.back());
    stroke.push_back(point);
    const double pen = PenWidth() / 2 + 2;
    update(QRectF(from, ToWidget(point)).normalized().adjusted(-pen, -pen, pen, pen).toAlignedRect());
    emit strokesChanged();
}

void CSignatureCtrl::StrokeEnd()
{
    m_drawing = false;
}

void CSignatureCtrl::mousePressEvent(QMouseEvent* event)
{
    // Touch arrives as touch events; the mouse events synthesised from it are not drawn twice.
    if (event->button() != Qt::LeftButton || event->source() == Qt::MouseEventSynthesizedByQt)
        return QWidget::mousePressEvent(event);
    StrokeStart(event->position());
}

void CSignatureCtrl::mouseMoveEvent(QMouseEvent* event)
{
    if (event->source() == Qt::MouseEventSynthesizedByQt || !(event->buttons() & Qt::LeftButton))
        return QWidget::mouseMoveEvent(event);
    StrokeMove(event->position());
}

void CSignatureCtrl::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        StrokeEnd();
    QWidget::mouseReleaseEvent(event);
}

void CSignatureCtrl::tabletEvent(QTabletEvent* event)
{
    switch (event->type()) {
    case QEvent::TabletPress:
        StrokeStart(event->position());
        break;
    case QEvent::TabletMove:
        if (event->buttons() & Qt::LeftButton)
            StrokeMove(event->position());
        break;
    case QEvent::TabletRelease:
        StrokeEnd();
        break;
    default:
        break;
    }
    // Accepted, so that no mouse event is made from the pen as well.
    event->accept();
}

bool CSignatureCtrl::event(QEvent* event)
{
    // Only the finger that came down first draws.
    const auto follow = [this](const QEventPoint& point) {
        if (point.state() == QEventPoint::Pressed)
            StrokeStart(point.position());
        else if (point.state() == QEventPoint::Released)
            StrokeEnd();
        else
            StrokeMove(point.position());
    };
    const bool touched = m_finger.Handle(event, follow, [this] { StrokeEnd(); });
    return touched || QWidget::event(event);
}

void CSignatureCtrl::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QColor face = m_readOnly ? palette().color(QPalette::Window) : QColor(Qt::white);
    painter.fillRect(event->rect(), face);
    // Nothing is drawn over the frame, however large the pen.
    painter.setClipRect(rect().adjusted(kFrame, kFrame, -kFrame, -kFrame), Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, PenWidth(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const Stroke& stroke : m_strokes) {
        if (stroke.empty())
            continue;
        if (stroke.size() == 1) {
            // A tap is one pixel of the handheld, enlarged like everything else.
            painter.fillRect(DotRect(ToWidget(stroke.front())), Qt::black);
            continue;
        }
        QPainterPath path(ToWidget(stroke.front()));
        for (std::size_t i = 1; i < stroke.size(); ++i)
            path.lineTo(ToWidget(stroke[i]));
        painter.strokePath(path, painter.pen());
    }
    painter.setClipping(false);
    PaintFrame(painter);
}

void CSignatureCtrl::PaintFrame(QPainter& painter) const
{
    // Sunken: dark above and on the left with a softer line inside, lighter below and on the
    // right, and visible all round on a white dialog.
    const QColor dark = palette().color(QPalette::Dark);
    const QColor mid = palette().color(QPalette::Mid);
    const int w = width();
    const int h = height();
    painter.fillRect(0, 0, w, 1, dark);
    painter.fillRect(0, 0, 1, h, dark);
    painter.fillRect(1, h - 1, w - 1, 1, mid);
    painter.fillRect(w - 1, 1, 1, h - 1, mid);
    painter.fillRect(1, 1, w - 2, 1, mid);
    painter.fillRect(1, 1, 1, h - 2, mid);
}
