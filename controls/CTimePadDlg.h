#pragma once

#include "controls/CKqStatePadDlg.h"
#include "editing/CTimePadState.h"

// The time-of-day pad: hour keys 1 to 24 ("24" is midnight), the quarter keys ":00" to ":45" and
// minute steps of 1, 5, 10 and 15 up and down that wrap round the clock. No key is ever
// disabled. The keyboard's digits 1 to 9 set the hour, "+" and "-" step the minutes by one.
class CTimePadDlg : public CKqStatePadDlg<CTimePadState>
{
    Q_OBJECT

public:
    // A pad titled "Time" when the title is empty, opened with the caller's time.
    CTimePadDlg(QWidget* parent, const QString& title, int hour, int minute);

    // The time as set so far; after Cancel the starting time again.
    int Hour() const { return State().Hour(); }
    int Minute() const { return State().Minute(); }

protected:
    QLayout* ArrangeKeys(bool landscape) override;
};
