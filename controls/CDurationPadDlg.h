#pragma once

#include "controls/CKqStatePadDlg.h"
#include "editing/CDurationPadState.h"

// The duration pad: hour keys 0 to 11, hour steps of 1 to 500 up and down, and minute and second
// steps of 1, 5 and 10 up and down that carry into the larger fields. Steps that would leave
// 0:00:00 .. max hours:59:59 are disabled after every key. The keyboard's digits set the hours
// 0 to 9.
class CDurationPadDlg : public CKqStatePadDlg<CDurationPadState>
{
    Q_OBJECT

public:
    // A pad titled "Duration" when the title is empty, opened with the caller's duration.
    CDurationPadDlg(QWidget* parent, const QString& title, int hours, int minutes, int seconds, int maxHours);

    // The fields as set so far; after Cancel the starting values again.
    int Hours() const { return State().Hours(); }
    int Minutes() const { return State().Minutes(); }
    int Seconds() const { return State().Seconds(); }

protected:
    QLayout* ArrangeKeys(bool landscape) override;

private:
    QLabel* m_minutesCaption;
    QLabel* m_secondsCaption;
};
