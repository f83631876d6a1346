#include "controls/CSignatureCtrl.h"

#include <QAbstractButton>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTabletEvent>
#include <QTouchEvent>

#include <algorithm>
#include <cmath>

CSignatureCtrl::CSignatureCtrl(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("signatureCtrl"));
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
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
    setCursor(readOnly ? Qt::ArrowCursor : Qt::CrossCursor);
    Changed();
}

void CSignatureCtrl::AttachUndoButton(QAbstractButton* button)
{
    if (m_undo)
        disconnect(m_undo, nullptr, this, nullptr);
    m_undo = button;
    if (button)
        connect(button, &QAbstractButton::clicked, this, &CSignatureCtrl::RemoveLastStroke);
    Changed();
}

void CSignatureCtrl::Changed()
{
    if (m_undo)
        m_undo->setEnabled(!m_readOnly && !m_strokes.empty());
    update();
    emit strokesChanged();
}

QSize CSignatureCtrl::sizeHint() const
{
    return QSize(kLogicalWidth, kLogicalHeight) + QSize(4, 4);
}

QSize CSignatureCtrl::minimumSizeHint() const
{
    return QSize(kLogicalWidth * 2 / 3, kLogicalHeight * 2 / 3);
}

int CSignatureCtrl::heightForWidth(int width) const
{
    return (width - 4) * kLogicalHeight / kLogicalWidth + 4;
}

double CSignatureCtrl::Scale() const
{
    const QRectF inner = QRectF(rect()).adjusted(2, 2, -2, -2);
    return std::max(0.01, std::min(inner.width() / kLogicalWidth, inner.height() / kLogicalHeight));
}

QRectF CSignatureCtrl::Area() const
{
    const double scale = Scale();
    QRectF area(0, 0, kLogicalWidth * scale, kLogicalHeight * scale);
    area.moveCenter(QRectF(rect()).center());
    return area;
}

bool CSignatureCtrl::ToLogical(const QPointF& position, CPoint& point) const
{
    const QRectF area = Area();
    const double scale = Scale();
    const int x = static_cast<int>(std::lround((position.x() - area.left()) / scale));
    const int y = static_cast<int>(std::lround((position.y() - area.top()) / scale));
    if (x < 0 || y < 0 || x > kLogicalWidth || y > kLogicalHeight)
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

void CSignatureCtrl::StrokeStart(const QPointF& position)
{
    CPoint point;
    if (m_readOnly || !ToLogical(position, point))
        return;
    m_drawing = true;
    m_strokes.push_back({point});
    Changed();
}

void CSignatureCtrl::StrokeMove(const QPointF& position)
{
    if (m_readOnly || !m_drawing || m_strokes.empty())
        return;
    CPoint point;
    // Leaving the area ends the stroke; coming back adds nothing until the next press.
    if (!rect().contains(position.toPoint()) || !ToLogical(position, point))
    {
        m_drawing = false;
        return;
    }
    Stroke& stroke = m_strokes.back();
    if (stroke.back() == point)
        return;
    const QPointF from = ToWidget(stroke.back());
    stroke.push_back(point);
    const double pen = std::max(1.0, Scale()) + 2;
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
    switch (event->type())
    {
    case QEvent::TabletPress: StrokeStart(event->position()); break;
    case QEvent::TabletMove:
        if (event->buttons() & Qt::LeftButton)
            StrokeMove(event->position());
        break;
    case QEvent::TabletRelease: StrokeEnd(); break;
    default: break;
    }
    // Accepted, so that no mouse event is made from the pen as well.
    event->accept();
}

bool CSignatureCtrl::event(QEvent* event)
{
    switch (event->type())
    {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    {
        auto* touch = static_cast<QTouchEvent*>(event);
        if (touch->points().isEmpty())
            return true;
        const QPointF position = touch->points().first().position();
        if (event->type() == QEvent::TouchBegin)
            StrokeStart(position);
        else if (event->type() == QEvent::TouchUpdate)
            StrokeMove(position);
        else
            StrokeEnd();
        event->accept();
        return true;
    }
    default: return QWidget::event(event);
    }
}

void CSignatureCtrl::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QColor face = m_readOnly ? palette().color(QPalette::Window) : QColor(Qt::white);
    painter.fillRect(event->rect(), face);
    // A sunken frame, so that the white area stands out on a white dialog.
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));

    painter.setRenderHint(QPainter::Antialiasing);
    const double width = std::max(1.0, Scale());
    painter.setPen(QPen(Qt::black, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::black);
    for (const Stroke& stroke : m_strokes)
    {
        if (stroke.size() == 1)
        {
            // A tap is one dot of the pen's width.
            const QPointF centre = ToWidget(stroke.front());
            painter.setPen(Qt::NoPen);
            painter.drawRect(QRectF(centre.x() - width / 2, centre.y() - width / 2, width, width));
            painter.setPen(QPen(Qt::black, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            continue;
        }
        QPainterPath path(ToWidget(stroke.front()));
        for (std::size_t i = 1; i < stroke.size(); ++i)
            path.lineTo(ToWidget(stroke[i]));
        painter.strokePath(path, painter.pen());
    }
}
