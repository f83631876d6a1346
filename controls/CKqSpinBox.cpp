#include "controls/CKqSpinBox.h"

#include <algorithm>

CKqSpinBox::CKqSpinBox(QWidget* parent) : QSpinBox(parent)
{
    setRange(-9999999, 9999999);
    setAccelerated(true);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Wide enough for five digits, not for the seven the range allows.
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("999999")) + 28);
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
