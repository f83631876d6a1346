#pragma once

#include "controls/CFirstFinger.h"
#include "controls/CPlotAxis.h"
#include "tracks/CRecordingSeries.h"
#include "units/CUnitSettings.h"

#include <QList>
#include <QRectF>
#include <QStringList>
#include <QWidget>

class QPainter;

// The drawing of a flight recording: altitude and vertical speed over time in two panels that
// share the time axis, the exit and deployment marked, the recording's annotations, its winds
// as arrows at their altitude, and for a satellite recording the ground track seen from above
// (beside the time panels on a wide widget, below them on a tall one). Values are in the user's
// display units. The mouse, a finger or the Left and Right keys place a cursor whose values
// show in a small box.
//
// Drawn with QPainter rather than a chart library: a 240 pixel wide screen needs every margin
// and label placed by hand, and the program then depends on nothing beyond Qt Widgets.
class CRecordingPlot : public QWidget
{
    Q_OBJECT

public:
    // A plot in the given units, empty until a series is set.
    explicit CRecordingPlot(const CUnitSettings& units, QWidget* parent = nullptr);

    // Shows a series; the cursor is removed.
    void SetSeries(CRecordingSeries series);
    const CRecordingSeries& Series() const { return m_series; }
    // Marks the exit and the deployment (unset: no mark).
    void SetMarks(std::optional<double> exitTime, std::optional<double> deploymentTime);

    // The cursor: shown after the first placement, at a time within the recording.
    bool HasCursor() const { return m_hasCursor; }
    double CursorTime() const { return m_cursorTime; }
    // Places the cursor at a time, clamped to the recording; nothing for an empty series.
    void SetCursorTime(double time);
    void ClearCursor();
    // The recording's values at the cursor.
    CRecordingSeries::Values CursorValues() const { return m_series.At(m_cursorTime); }
    // The lines of the cursor's box, in display units; empty without a cursor.
    QStringList CursorTexts() const;

    // Where the panels' plotting areas lie in the widget (empty when not shown).
    QRectF AltitudeArea() const { return m_altitudeArea; }
    QRectF SpeedArea() const { return m_speedArea; }
    QRectF GroundArea() const { return m_groundArea; }
    QRectF WindArea() const { return m_windArea; }
    // The cursor's box as last painted (empty without a cursor).
    QRectF CursorBox() const { return m_cursorBox; }
    // The x of a time in the time panels, and the time at an x.
    double XOfTime(double time) const { return m_timeAxis.ToPixel(time); }
    double TimeAtX(double x) const { return m_timeAxis.ToValue(x); }
    // The widget position of the ground track at a time (meaningless without a ground track).
    QPointF GroundPointAt(double time) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // The cursor moved to a time.
    void cursorMoved(double time);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // Works out the panels and axes for the widget's size.
    void UpdateLayout();
    void LayoutTimePanels(const QRectF& room);
    // Places the cursor where the pointer is: a time in the time panels, the nearest point of
    // the ground track; false when the position is on neither.
    bool PointAt(const QPointF& position);
    QFont SmallFont() const;

    // Painting (CRecordingPlotPaint.cpp).
    void PaintTimePanel(QPainter& painter, const QRectF& area, const CPlotAxis& axis, const QString& title,
                        const std::vector<double>& values, double toDisplay, const QColor& colour) const;
    void PaintTimeAxis(QPainter& painter) const;
    // The marks' and annotations' labels go where no other label is (taken grows).
    void PaintMarks(QPainter& painter, QList<QRectF>& taken) const;
    void PaintAnnotations(QPainter& painter, QList<QRectF>& taken) const;
    void PaintWinds(QPainter& painter) const;
    void PaintGround(QPainter& painter) const;
    void PaintGroundScale(QPainter& painter, double metresPerPixel) const;
    // The cursor, with its box where it covers none of the labels.
    void PaintCursor(QPainter& painter, const QList<QRectF>& labels);

    CUnitSettings m_units;
    CRecordingSeries m_series;
    bool m_hasCursor = false;
    double m_cursorTime = 0.0;
    // The finger that moves the cursor.
    CFirstFinger m_finger;

    // The layout for the current size.
    QRectF m_altitudeArea, m_speedArea, m_groundArea, m_windArea, m_cursorBox;
    CPlotAxis m_timeAxis, m_altitudeAxis, m_speedAxis;
    // The ground track's scale and the widget position of its origin.
    double m_groundScale = 1.0;
    QPointF m_groundOrigin;
};
