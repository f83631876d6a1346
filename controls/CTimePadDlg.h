#pragma once

#include "controls/CKqPadDlg.h"
#include "editing/CTimePadState.h"

#include <array>

// The time-of-day pad: hour keys 1 to 24 ("24" is midnight), the quarter keys ":00" to ":45" and
// minute steps of 1, 5, 10 and 15 up and down that wrap round the clock. No key is ever
// disabled. The keyboard's digits 1 to 9 set the hour, "+" and "-" step the minutes by one.
class CTimePadDlg : public CKqPadDlg
{
    Q_OBJECT

public:
    // A pad titled "Zeit" when the title is empty, opened with the caller's time.
    CTimePadDlg(QWidget* parent, const QString& title, int hour, int minute);

    // The time as set so far; after Cancel the starting time again.
    int Hour() const { return m_state.Hour(); }
    int Minute() const { return m_state.Minute(); }
    // The pad's fields.
    const CTimePadState& State() const { return m_state; }
    // The key of the pad for one of the state's keys.
    CKqButton* KeyButton(CTimePadState::Key key) const { return m_keys[static_cast<std::size_t>(key)]; }

public slots:
    // Cancel puts the starting time back.
    void reject() override;

protected:
    void OnKey(int id) override;
    QLayout* ArrangeKeys(bool landscape) override;

private:
    // Shows the display line.
    void Refresh();

    CTimePadState m_state;
    CTimePadState m_start;
    std::array<CKqButton*, static_cast<std::size_t>(CTimePadState::Key::Count)> m_keys{};
};
