#pragma once

#include "controls/CKqPadDlg.h"
#include "editing/CNumberPadState.h"

#include <array>

// The number pad: digits, "+/-", the decimal separator, "<--", "C", "+" and "=". The value goes
// in and out as a whole number scaled to the allowed decimals (12.5 with two decimals is 1250).
// Keys that would leave the allowed entry are disabled after every key. The keyboard's digits,
// "," and "." (both the separator), Backspace, Delete ("C"), "+", "-" ("+/-") and "=" work too.
class CNumberPadDlg : public CKqPadDlg
{
    Q_OBJECT

public:
    // A pad titled "Zahl" when the title is empty, opened with the scaled value.
    CNumberPadDlg(QWidget* parent, const QString& title, int scaledValue, int maxDecimals, bool allowNegative);

    // The value scaled to max decimals as typed so far; after Cancel the starting value again.
    int Value() const { return m_state.ScaledValue(); }
    // The pad's registers and rules.
    const CNumberPadState& State() const { return m_state; }
    // The key of the pad for one of the state's keys.
    CKqButton* KeyButton(CNumberPadState::Key key) const { return m_keys[static_cast<std::size_t>(key)]; }

public slots:
    // Cancel puts the starting value back.
    void reject() override;

protected:
    void OnKey(int id) override;
    QLayout* ArrangeKeys(bool landscape) override;

private:
    // Shows the display line and the key states.
    void Refresh();

    CNumberPadState m_state;
    CNumberPadState m_start;
    std::array<CKqButton*, static_cast<std::size_t>(CNumberPadState::Key::Count)> m_keys{};
};
