#include "controls/CBarChart.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

const QColor kBarColour(0x1f, 0x5f, 0xa8);
const QColor kGridColour(0xe3, 0xe3, 0xe3);
const QColor kFrameColour(0xa0, 0xa0, 0xa0);
constexpr double kPad = 4;

} // namespace

CBarChart::CBarChart(Orientation orientation, QWidget* parent) : QWidget(parent), m_orientation(orientation)
{
    setSizePolicy(QSizePolicy::Expanding,
                  orientation == Orientation::Rows ? QSizePolicy::Fixed : QSizePolicy::Expanding);
}

void CBarChart::SetTitle(const QString& title)
{
    m_title = title;
    UpdateLayout();
    update();
}

void CBarChart::SetBars(const QStringList& labels, const QList<double>& values,
                        std::function<QString(double)> valueText)
{
    m_labels = labels;
    m_values = values;
    while (m_labels.size() < m_values.size())
        m_labels.append(QString());
    m_valueText = std::move(valueText);
    updateGeometry();
    UpdateLayout();
    update();
}

void CBarChart::SetWholeNumbers(bool whole)
{
    m_wholeNumbers = whole;
    UpdateLayout();
    update();
}

QFont CBarChart::TitleFont() const
{
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

int CBarChart::RowHeight() const
{
    return qCeil(QFontMetricsF(font()).height()) + 4;
}

QSize CBarChart::sizeHint() const
{
    const int title = qCeil(QFontMetricsF(TitleFont()).height()) + 4;
    if (m_orientation == Orientation::Rows)
        return QSize(320, title + std::max<int>(1, static_cast<int>(m_values.size())) * RowHeight() + 4);
    return QSize(360, 200);
}

QSize CBarChart::minimumSizeHint() const
{
    if (m_orientation == Orientation::Rows)
        return QSize(180, sizeHint().height());
    return QSize(180, 130);
}

QRectF CBarChart::BarRect(int index) const
{
    return index >= 0 && index < m_bars.size() ? m_bars[index] : QRectF();
}

QRectF CBarChart::LabelRect(int index) const
{
    return index >= 0 && index < m_labelBoxes.size() ? m_labelBoxes[index] : QRectF();
}

void CBarChart::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    UpdateLayout();
}

void CBarChart::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LocaleChange)
        UpdateLayout();
}

void CBarChart::UpdateLayout()
{
    const QFontMetricsF metrics(font());
    const QFontMetricsF titleMetrics(TitleFont());
    const QRectF area = QRectF(rect()).adjusted(kPad, 2, -kPad, -2);
    m_titleBox = QRectF(area.left(), area.top(), area.width(), titleMetrics.height());
    m_bars.clear();
    m_labelBoxes.clear();
    const double top = m_titleBox.bottom() + 4;
    const double maxValue = m_values.isEmpty() ? 0.0 : *std::max_element(m_values.begin(), m_values.end());
    const int count = static_cast<int>(m_values.size());

    if (m_orientation == Orientation::Rows) {
        // Labels take up to two fifths of the width; the values' text sits after the bars.
        double labels = 0;
        for (const QString& label : m_labels)
            labels = std::max(labels, metrics.horizontalAdvance(label));
        m_labelWidth = std::min(std::ceil(labels) + 2, std::floor(area.width() * 0.4));
        double valueWidth = 0;
        if (m_valueText)
            for (double value : m_values)
                valueWidth = std::max(valueWidth, metrics.horizontalAdvance(m_valueText(value)));
        m_plot = QRectF(area.left() + m_labelWidth + kPad, top, area.width() - m_labelWidth - kPad - valueWidth - kPad,
                        count * RowHeight());
        for (int i = 0; i < count; ++i) {
            const double y = top + i * RowHeight();
            const double length = maxValue > 0 ? m_plot.width() * m_values[i] / maxValue : 0.0;
            m_bars.append(QRectF(m_plot.left(), y + 2, length, RowHeight() - 4));
            m_labelBoxes.append(QRectF(area.left(), y, m_labelWidth, RowHeight()));
        }
        return;
    }

    // Columns: a value axis on the left, labels below, as many as fit without touching.
    const double labelHeight = metrics.height() + 2;
    const double plotTop = top + metrics.height() / 2;
    const double plotBottom = area.bottom() - labelHeight;
    // The axis ends on a tick; counts never get ticks between whole numbers.
    const auto chooseStep = [&] {
        m_axis.ChooseStep(metrics.height() * 1.6);
        if (m_wholeNumbers && m_axis.Step() < 1.0)
            m_axis.SetStep(1.0);
    };
    m_axis = CPlotAxis(0.0, std::max(maxValue, 1.0), plotBottom, plotTop);
    chooseStep();
    m_axis = CPlotAxis(0.0, std::ceil(std::max(maxValue, 1.0) / m_axis.Step()) * m_axis.Step(), plotBottom, plotTop);
    chooseStep();
    double tickWidth = 0;
    for (double tick : m_axis.Ticks())
        tickWidth = std::max(tickWidth, metrics.horizontalAdvance(CPlotAxis::Label(tick, m_axis.Step())));
    m_plot = QRectF(area.left() + std::ceil(tickWidth) + kPad, plotTop, 0, plotBottom - plotTop);
    m_plot.setRight(area.right());
    if (count == 0)
        return;
    const double slot = m_plot.width() / count;
    // A few bars on a wide chart stay slim columns rather than blocks.
    const double gap = std::max({1.0, slot * 0.2, slot - 48.0});
    double widest = 0;
    for (const QString& label : m_labels)
        widest = std::max(widest, metrics.horizontalAdvance(label));
    const int every = std::max(1, static_cast<int>(std::ceil((widest + 6) / slot)));
    for (int i = 0; i < count; ++i) {
        const double x = m_plot.left() + i * slot;
        const double y = m_axis.ToPixel(m_values[i]);
        m_bars.append(QRectF(x + gap / 2, y, slot - gap, m_plot.bottom() - y));
        // The labels shown are those counted back from the last bar, which is the latest.
        if ((count - 1 - i) % every == 0) {
            const double width = metrics.horizontalAdvance(m_labels[i]) + 2;
            double left = std::clamp(x + slot / 2 - width / 2, area.left(), area.right() - width);
            m_labelBoxes.append(QRectF(left, plotBottom + 2, width, labelHeight - 2));
        } else {
            m_labelBoxes.append(QRectF());
        }
    }
}

void CBarChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setFont(TitleFont());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(m_titleBox, Qt::AlignLeft | Qt::AlignVCenter, m_title);
    painter.setFont(font());
    if (m_values.isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(QRectF(rect()).adjusted(0, m_titleBox.bottom(), 0, 0), Qt::AlignCenter, tr("No jumps"));
        return;
    }
    if (m_orientation == Orientation::Columns) {
        for (double tick : m_axis.Ticks()) {
            const double y = std::round(m_axis.ToPixel(tick)) + 0.5;
            painter.setPen(kGridColour);
            painter.drawLine(QPointF(m_plot.left(), y), QPointF(m_plot.right(), y));
            painter.setPen(palette().color(QPalette::Text));
            const QRectF box(0, y - 10, m_plot.left() - 3, 20);
            painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter, CPlotAxis::Label(tick, m_axis.Step()));
        }
    }
    for (int i = 0; i < m_bars.size(); ++i) {
        painter.fillRect(m_bars[i], kBarColour);
        if (m_labelBoxes[i].isEmpty())
            continue;
        painter.setPen(palette().color(QPalette::Text));
        if (m_orientation == Orientation::Rows) {
            const QString label =
                QFontMetricsF(font()).elidedText(m_labels[i], Qt::ElideRight, m_labelBoxes[i].width() - 2);
            painter.drawText(m_labelBoxes[i], Qt::AlignLeft | Qt::AlignVCenter, label);
            if (m_valueText)
                painter.drawText(
                    QRectF(m_bars[i].right() + 3, m_labelBoxes[i].top(), width(), m_labelBoxes[i].height()),
                    Qt::AlignLeft | Qt::AlignVCenter, m_valueText(m_values[i]));
        } else {
            painter.drawText(m_labelBoxes[i], Qt::AlignCenter, m_labels[i]);
        }
    }
    if (m_orientation == Orientation::Columns) {
        painter.setPen(kFrameColour);
        painter.drawLine(m_plot.bottomLeft(), m_plot.bottomRight());
    }
}
