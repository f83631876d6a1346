#pragma once

#include <QSpinBox>

#include <functional>

// A number field whose arrows move within a step range while typing may go beyond it, so that
// an editor's own check can name the allowed bounds. An optional stepper decides where a step
// goes (heights step to multiples of ten).
class CKqSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    // Where the arrows move from value by steps (positive up, negative down).
    using Stepper = std::function<int(int value, int steps)>;

    // A field that takes any whole number (a stored value is never cut to a range); arrows move
    // within 0..100.
    explicit CKqSpinBox(QWidget* parent = nullptr);

    // The range the arrows stay in.
    void SetStepRange(int minimum, int maximum);
    void SetStepper(Stepper stepper) { m_stepper = std::move(stepper); }

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    StepEnabled stepEnabled() const override;

private:
    QSize FitHint(QSize hint) const;

    int m_stepMinimum = 0;
    int m_stepMaximum = 100;
    Stepper m_stepper;
};
