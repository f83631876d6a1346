#pragma once

#include <QString>

#include <vector>

// One axis of a plot: a straight mapping of values onto a run of pixels, with ticks at round
// values (1, 2 or 5 times a power of ten) spaced so that their labels stay readable.
class CPlotAxis
{
public:
    // An axis over 0..1 onto 0..1.
    CPlotAxis() = default;
    // Values min..max onto pixels from..to; to may lie below from (a y axis grows upwards). An
    // empty value range is widened by one either way, so nothing divides by zero.
    CPlotAxis(double min, double max, double from, double to);

    // The round step that gives at most count intervals over a span (count at least 1).
    static double NiceStep(double span, int count);
    // The label of a tick: as many decimals as the step needs, and "0" rather than "-0".
    static QString Label(double value, double step);

    // Uses a round step with ticks at least minSpacing pixels apart, or closer where that
    // leaves fewer than two ticks.
    void ChooseStep(double minSpacing);

    // Uses this step for the ticks (a positive value).
    void SetStep(double step) { m_step = step > 0.0 ? step : m_step; }

    double Min() const { return m_min; }
    double Max() const { return m_max; }
    double Step() const { return m_step; }
    // The values of the ticks within the range, lowest first.
    std::vector<double> Ticks() const;

    // The pixel of a value (values outside the range fall outside the pixel run).
    double ToPixel(double value) const { return m_from + (value - m_min) * (m_to - m_from) / (m_max - m_min); }
    // The value at a pixel.
    double ToValue(double pixel) const { return m_min + (pixel - m_from) * (m_max - m_min) / (m_to - m_from); }
    // The length of the pixel run.
    double Length() const { return m_to > m_from ? m_to - m_from : m_from - m_to; }

private:
    double m_min = 0.0;
    double m_max = 1.0;
    double m_from = 0.0;
    double m_to = 1.0;
    double m_step = 1.0;
};
