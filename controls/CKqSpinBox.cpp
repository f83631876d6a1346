#include "controls/CKqSpinBox.h"

#include <algorithm>
#include <climits>

namespace {

// The width the field is sized for: a sign and seven digits.
const QString kSizeText = QStringLiteral("-9999999");

} // namespace

CKqSpinBox::CKqSpinBox(QWidget* parent) : QSpinBox(parent)
{
    // Any whole number a file may hold is shown as it is; the editor's check names the bounds.
    setRange(INT_MIN, INT_MAX);
    setAccelerated(true);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Wide enough for five digits, not for the seven the range allows.
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("999999")) + 28);
}

QSize CKqSpinBox::FitHint(QSize hint) const
{
    // The base sizes the field for the widest number of the range; ours is far wider than
    // anything typed, so the text part is sized for kSizeText instead.
    const QFontMetrics metrics = fontMetrics();
    const int rangeText = std::max(metrics.horizontalAdvance(textFromValue(minimum())),
                                   metrics.horizontalAdvance(textFromValue(maximum())));
    hint.setWidth(hint.width() - rangeText + metrics.horizontalAdvance(kSizeText));
    return hint;
}

QSize CKqSpinBox::sizeHint() const
{
    return FitHint(QSpinBox::sizeHint());
}

QSize CKqSpinBox::minimumSizeHint() const
{
    return FitHint(QSpinBox::minimumSizeHint());
}

void CKqSpinBox::SetStepRange(int minimum, int maximum)
{
    m_stepMinimum = minimum;
    m_stepMaximum = maximum;
}

void CKqSpinBox::stepBy(int steps)
{
    if (isReadOnly())
        return;
    const int target = m_stepper ? m_stepper(value(), steps) : value() + steps;
    setValue(std::clamp(target, m_stepMinimum, m_stepMaximum));
    selectAll();
}

QAbstractSpinBox::StepEnabled CKqSpinBox::stepEnabled() const
{
    if (isReadOnly())
        return StepNone;
    StepEnabled enabled = StepNone;
    if (value() < m_stepMaximum)
        enabled |= StepUpEnabled;
    if (value() > m_stepMinimum)
        enabled |= StepDownEnabled;
    return enabled;
}
