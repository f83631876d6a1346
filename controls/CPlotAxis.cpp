#include "controls/CPlotAxis.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

CPlotAxis::CPlotAxis(double min, double max, double from, double to) : m_min(min), m_max(max), m_from(from), m_to(to)
{
    if (!std::isfinite(m_min) || !std::isfinite(m_max)) {
        m_min = 0.0;
        m_max = 1.0;
    }
    if (m_max - m_min <= 0.0) {
        m_min -= 1.0;
        m_max += 1.0;
    }
    if (m_to == m_from)
        m_to = m_from + 1.0;
    m_step = NiceStep(m_max - m_min, 5);
}

double CPlotAxis::NiceStep(double span, int count)
{
    if (!(span > 0.0) || !std::isfinite(span))
        return 1.0;
    const double raw = span / std::max(count, 1);
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (double factor : {1.0, 2.0, 5.0, 10.0})
        if (factor * power >= raw * (1.0 - 1e-9))
            return factor * power;
    return 10.0 * power;
}

QString CPlotAxis::Label(double value, double step)
{
    const int decimals = step >= 1.0 ? 0 : std::min(6, static_cast<int>(std::ceil(-std::log10(step) - 1e-9)));
    // Ticks are multiples of the step; rounding to it removes the sums' last-digit errors, and
    // adding zero turns a negative zero into zero.
    const double rounded = std::round(value / step) * step + 0.0;
    // In the user's notation: "1.000" and "2,5" for a German user.
    return QLocale().toString(rounded, 'f', decimals);
}

void CPlotAxis::ChooseStep(double minSpacing)
{
    int count = std::max(1, static_cast<int>(Length() / std::max(minSpacing, 1.0)));
    m_step = NiceStep(m_max - m_min, count);
    // Two labelled ticks at the least, even on a short axis, so that it reads as a scale.
    while (Ticks().size() < 2 && count < 10)
        m_step = NiceStep(m_max - m_min, ++count);
}

std::vector<double> CPlotAxis::Ticks() const
{
    std::vector<double> ticks;
    const double first = std::ceil(m_min / m_step - 1e-9);
    const double last = std::floor(m_max / m_step + 1e-9);
    // A bound on the count keeps a careless step from making millions of ticks.
    for (double k = first; k <= last && ticks.size() < 200; k += 1.0)
        ticks.push_back(k * m_step);
    return ticks;
}
