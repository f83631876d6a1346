#include "controls/CTimePadDlg.h"

#include "controls/CKqButton.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

using Key = CTimePadState::Key;

// Key faces: hours, quarter hours, minute steps.
const QColor kHourFace(188, 204, 239);
const QColor kQuarterFace(240, 234, 134);
const QColor kStepFace(153, 170, 204);
// Room between the hour keys and the minute keys.
constexpr int kGroupGap = 8;

// The object name of a key: "h_24", "m_15", "plus10", "minus1".
QString KeyName(Key key)
{
    QString label = QString::fromStdString(CTimePadState::Label(key));
    if (key <= Key::Hour24)
        return QStringLiteral("h_") + label;
    if (key <= Key::Minute45)
        return QStringLiteral("m_") + label.mid(1);
    return label.replace(QLatin1Char('+'), QStringLiteral("plus")).replace(QLatin1Char('-'), QStringLiteral("minus"));
}

Key At(Key first, int offset)
{
    return static_cast<Key>(static_cast<int>(first) + offset);
}

} // namespace

CTimePadDlg::CTimePadDlg(QWidget* parent, const QString& title, int hour, int minute)
    : CKqStatePadDlg(parent, title, tr("Time"), CTimePadState(hour, minute))
{
    setObjectName(QStringLiteral("timePad"));
    for (int i = 0; i < static_cast<int>(Key::Count); ++i) {
        const Key key = static_cast<Key>(i);
        const QColor face = key <= Key::Hour24 ? kHourFace : key <= Key::Minute45 ? kQuarterFace : kStepFace;
        AddStateKey(key, KeyName(key), QString::fromStdString(CTimePadState::Label(key)), face);
    }
    for (int digit = 1; digit <= 9; ++digit)
        AddShortcut(Qt::Key_0 + digit, KeyButton(CTimePadState::Hour(digit)));
    AddShortcut(Qt::Key_Plus, KeyButton(Key::Plus1));
    AddShortcut(Qt::Key_Minus, KeyButton(Key::Minus1));
    SetDisplayAlignment(Qt::AlignCenter);
    Refresh();
}

QLayout* CTimePadDlg::ArrangeKeys(bool landscape)
{
    // The hours in four rows of six, 1 at the top left and 24 at the bottom right.
    QGridLayout* hours = NewGrid();
    for (int i = 0; i < 24; ++i)
        hours->addWidget(KeyButton(At(Key::Hour1, i)), i / 6, i % 6);
    // The minutes: the quarters, the steps up, the steps down; in rows under the hours on
    // upright screens, in columns beside them on wide screens.
    QGridLayout* minutes = NewGrid();
    const auto place = [&](Key first, int group) {
        for (int i = 0; i < 4; ++i)
            minutes->addWidget(KeyButton(At(first, i)), landscape ? i : group, landscape ? group : i);
    };
    place(Key::Minute00, 0);
    place(Key::Plus1, 1);
    place(Key::Minus1, 2);
    QBoxLayout* both = landscape ? static_cast<QBoxLayout*>(new QHBoxLayout) : new QVBoxLayout;
    both->setContentsMargins(0, 0, 0, 0);
    both->setSpacing(kGroupGap);
    both->addLayout(hours, landscape ? 6 : 4);
    both->addLayout(minutes, 3);
    return both;
}
