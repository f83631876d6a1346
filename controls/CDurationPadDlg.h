#pragma once

#include "controls/CKqPadDlg.h"
#include "editing/CDurationPadState.h"

#include <array>

// The duration pad: hour keys 0 to 11, hour steps of 1 to 500 up and down, and minute and second
// steps of 1, 5 and 10 up and down that carry into the larger fields. Steps that would leave
// 0:00:00 .. max hours:59:59 are disabled after every key. The keyboard's digits set the hours
// 0 to 9.
class CDurationPadDlg : public CKqPadDlg
{
    Q_OBJECT

public:
    // A pad titled "Flugdauer" when the title is empty, opened with the caller's duration.
    CDurationPadDlg(QWidget* parent, const QString& title, int hours, int minutes, int seconds, int maxHours);

    // The fields as set so far; after Cancel the starting values again.
    int Hours() const { return m_state.Hours(); }
    int Minutes() const { return m_state.Minutes(); }
    int Seconds() const { return m_state.Seconds(); }
    // The pad's fields and rules.
    const CDurationPadState& State() const { return m_state; }
    // The key of the pad for one of the state's keys.
    CKqButton* KeyButton(CDurationPadState::Key key) const { return m_keys[static_cast<std::size_t>(key)]; }

public slots:
    // Cancel puts the starting values back.
    void reject() override;

protected:
    void OnKey(int id) override;
    QLayout* ArrangeKeys(bool landscape) override;

private:
    // Shows the display line and the key states.
    void Refresh();

    CDurationPadState m_state;
    CDurationPadState m_start;
    std::array<CKqButton*, static_cast<std::size_t>(CDurationPadState::Key::Count)> m_keys{};
    QLabel* m_minutesCaption;
    QLabel* m_secondsCaption;
};
