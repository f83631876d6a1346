#pragma once

#include "controls/CKqButton.h"
#include "controls/CKqPadDlg.h"

#include <QString>

#include <array>
#include <cstddef>

// A keypad over the rules of one pad state (CNumberPadState, CTimePadState, CDurationPadState):
// one key per state key, in the state's key order; a key presses the state's key, and after
// every key the display line shows the state and each key is enabled as the state says. Cancel
// puts the state the pad opened with back.
template <class TState>
class CKqStatePadDlg : public CKqPadDlg
{
public:
    using Key = typename TState::Key;
    static constexpr std::size_t kKeyCount = static_cast<std::size_t>(Key::Count);

    // The pad's fields and rules.
    const TState& State() const { return m_state; }
    // The key of the pad for one of the state's keys.
    CKqButton* KeyButton(Key key) const { return m_stateKeys[static_cast<std::size_t>(key)]; }

    // Cancel puts the starting state back.
    void reject() override
    {
        m_state = m_start;
        Refresh();
        CKqPadDlg::reject();
    }

protected:
    CKqStatePadDlg(QWidget* parent, const QString& title, const QString& fallbackTitle, const TState& state)
        : CKqPadDlg(parent, title, fallbackTitle), m_state(state), m_start(state)
    {
    }

    // Adds the pad's key for a state key (see CKqPadDlg::AddKey).
    CKqButton* AddStateKey(Key key, const QString& name, const QString& text, const QColor& face)
    {
        const auto index = static_cast<std::size_t>(key);
        m_stateKeys[index] = AddKey(name, text, face, static_cast<int>(index));
        return m_stateKeys[index];
    }

    void OnKey(int id) override
    {
        m_state.Press(static_cast<Key>(id));
        Refresh();
    }

    // Shows the display line and the key states.
    void Refresh()
    {
        SetDisplayText(QString::fromStdString(m_state.Display()));
        for (std::size_t i = 0; i < kKeyCount; ++i)
            m_stateKeys[i]->setEnabled(m_state.IsEnabled(static_cast<Key>(i)));
    }

private:
    TState m_state;
    TState m_start;
    std::array<CKqButton*, kKeyCount> m_stateKeys{};
};
