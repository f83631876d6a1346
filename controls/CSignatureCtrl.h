#pragma once

#include "controls/CFirstFinger.h"
#include "model/CJumpSignature.h"
#include "model/CPoint.h"

#include <QPointer>
#include <QWidget>

#include <vector>

class QAbstractButton;
class QPainter;

// The area a witness signs in with a finger, a pen or the mouse. Strokes are kept in the
// signature's logical space (CJumpSignature::kLogicalWidth x kLogicalHeight); the control scales
// that space uniformly to its size for drawing and input, so a signature looks the same on every
// screen.
class CSignatureCtrl : public QWidget
{
    Q_OBJECT

public:
    // One stroke: its points in the order they were drawn.
    using Stroke = CJumpSignature::Stroke;

    // An empty, writable area.
    explicit CSignatureCtrl(QWidget* parent = nullptr);

    // Replaces every stroke by a copy of strokes.
    void SetStrokes(const std::vector<Stroke>& strokes);
    // The strokes, oldest first.
    const std::vector<Stroke>& Strokes() const { return m_strokes; }
    // True when there is no stroke.
    bool IsEmpty() const { return m_strokes.empty(); }
    // Removes every stroke.
    void Clear();
    // Removes the newest stroke; nothing when there is none.
    void RemoveLastStroke();
    // A read-only control ignores input and shows the dialog's face instead of white.
    void SetReadOnly(bool readOnly);
    // True when input is ignored.
    bool IsReadOnly() const { return m_readOnly; }
    // The button that removes the last stroke: a click on it does, and it is enabled exactly
    // while the control is writable and holds a stroke.
    void AttachUndoButton(QAbstractButton* button);

    // One widget pixel per logical point, with the frame.
    QSize sizeHint() const override;
    // Two thirds of that, small enough for a 240 pixel wide screen.
    QSize minimumSizeHint() const override;
    // The height that keeps the area's proportions at a width.
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

signals:
    // The strokes changed (drawn, removed, replaced).
    void strokesChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void tabletEvent(QTabletEvent* event) override;
    bool event(QEvent* event) override;

private:
    // Where the logical area lies in the widget, and how many pixels one point takes.
    QRectF Area() const;
    double Scale() const;
    // A widget position as a logical point; false when it lies outside the logical area.
    bool ToLogical(const QPointF& position, CPoint& point) const;
    QPointF ToWidget(const CPoint& point) const;
    // The pen's width in widget pixels.
    double PenWidth() const;
    // The widget pixels a tap at a widget position is painted on.
    QRect DotRect(const QPointF& centre) const;
    void StrokeStart(const QPointF& position);
    void StrokeMove(const QPointF& position);
    void StrokeEnd();
    // After the strokes changed: the undo button, a repaint of everything and the signal.
    void Changed();
    void UpdateUndoButton();
    void PaintFrame(QPainter& painter) const;

    std::vector<Stroke> m_strokes;
    bool m_readOnly = false;
    // From a press inside the area until the release or until the pointer leaves the area.
    bool m_drawing = false;
    // The finger that draws.
    CFirstFinger m_finger;
    QPointer<QAbstractButton> m_undo;
};
