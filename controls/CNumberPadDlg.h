#pragma once

#include "controls/CKqStatePadDlg.h"
#include "editing/CNumberPadState.h"

// The number pad: digits, "+/-", the decimal separator, "<--", "C", "+" and "=". The value goes
// in and out as a whole number scaled to the allowed decimals (12.5 with two decimals is 1250).
// Keys that would leave the allowed entry are disabled after every key. The keyboard's digits,
// "," and "." (both the separator), Backspace, Delete ("C"), "+", "-" ("+/-") and "=" work too.
class CNumberPadDlg : public CKqStatePadDlg<CNumberPadState>
{
    Q_OBJECT

public:
    // A pad titled "Number" when the title is empty, opened with the scaled value.
    CNumberPadDlg(QWidget* parent, const QString& title, int scaledValue, int maxDecimals, bool allowNegative);

    // The value scaled to max decimals as typed so far; after Cancel the starting value again.
    int Value() const { return State().ScaledValue(); }

protected:
    QLayout* ArrangeKeys(bool landscape) override;
};
