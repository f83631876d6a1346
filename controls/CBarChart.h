#pragma once

#include "controls/CPlotAxis.h"

#include <QList>
#include <QRectF>
#include <QStringList>
#include <QWidget>

#include <functional>

// A bar chart drawn with QPainter: a title, one bar per value and a label per bar. Columns
// stand on a value axis with round ticks and their labels below (thinned so that they never
// overlap: months and years); rows lie beside their labels with the value at the bar's end
// (the top drop zones and aircraft). Laid out by hand, as the recording plot is, so that it
// reads on a 240 pixel wide screen.
class CBarChart : public QWidget
{
    Q_OBJECT

public:
    enum class Orientation
    {
        Columns,
        Rows
    };

    explicit CBarChart(Orientation orientation, QWidget* parent = nullptr);

    // The title above the bars.
    void SetTitle(const QString& title);
    QString Title() const { return m_title; }
    // The bars: a label and a value (not negative) each. value text writes a bar's value at
    // its end (rows) and may be empty; ticks are written in the locale's notation.
    void SetBars(const QStringList& labels, const QList<double>& values, std::function<QString(double)> valueText = {});
    int BarCount() const { return static_cast<int>(m_values.size()); }
    // Counts: ticks only at whole numbers.
    void SetWholeNumbers(bool whole);

    // Where the bars are drawn, a bar, and a bar's label (empty when left out for room).
    QRectF PlotArea() const { return m_plot; }
    QRectF BarRect(int index) const;
    QRectF LabelRect(int index) const;
    // The value axis of columns.
    const CPlotAxis& Axis() const { return m_axis; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void UpdateLayout();
    QFont TitleFont() const;
    int RowHeight() const;

    Orientation m_orientation;
    QString m_title;
    QStringList m_labels;
    QList<double> m_values;
    std::function<QString(double)> m_valueText;
    CPlotAxis m_axis;
    QRectF m_titleBox;
    QRectF m_plot;
    QList<QRectF> m_bars;
    QList<QRectF> m_labelBoxes;
    double m_labelWidth = 0; // rows: the column of labels
    bool m_wholeNumbers = false;
};
