#include "controls/CDurationPadDlg.h"

#include "controls/CKqButton.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace {

using Key = CDurationPadState::Key;

// Key faces: hours set directly, and the steps.
const QColor kHourFace(188, 204, 239);
const QColor kStepFace(153, 170, 204);
// Room between the hour keys and the minute and second steps on wide screens.
constexpr int kGroupGap = 8;

// The object name of a key: "h_7", "h_plus10", "m_minus5", "s_plus1".
QString KeyName(Key key)
{
    if (key < Key::HourPlus1)
        return QStringLiteral("h_") + QString::fromStdString(CDurationPadState::Label(key));
    const char* field = key <= Key::HourMinus500 ? "h_" : key <= Key::MinuteMinus10 ? "m_" : "s_";
    QString label = QString::fromStdString(CDurationPadState::Label(key));
    label.replace(QLatin1Char('+'), QStringLiteral("plus")).replace(QLatin1Char('-'), QStringLiteral("minus"));
    return QLatin1String(field) + label;
}

Key At(Key first, int offset)
{
    return static_cast<Key>(static_cast<int>(first) + offset);
}

} // namespace

CDurationPadDlg::CDurationPadDlg(QWidget* parent, const QString& title, int hours, int minutes, int seconds,
                                 int maxHours)
    : CKqStatePadDlg(parent, title, tr("Duration"), CDurationPadState(hours, minutes, seconds, maxHours))
{
    setObjectName(QStringLiteral("durationPad"));
    for (int i = 0; i < static_cast<int>(Key::Count); ++i) {
        const Key key = static_cast<Key>(i);
        AddStateKey(key, KeyName(key), QString::fromStdString(CDurationPadState::Label(key)),
                    key < Key::HourPlus1 ? kHourFace : kStepFace);
    }
    for (int digit = 0; digit <= 9; ++digit)
        AddShortcut(Qt::Key_0 + digit, KeyButton(CDurationPadState::Hour(digit)));
    m_minutesCaption = AddCaption(tr("Minutes"));
    m_secondsCaption = AddCaption(tr("Seconds"));
    SetDisplayAlignment(Qt::AlignCenter);
    Refresh();
}

QLayout* CDurationPadDlg::ArrangeKeys(bool landscape)
{
    // The hours: two rows of hour keys, the steps up, the steps down.
    QGridLayout* hours = NewGrid();
    for (int i = 0; i < 6; ++i) {
        hours->addWidget(KeyButton(At(Key::Hour0, i)), 0, i);
        hours->addWidget(KeyButton(At(Key::Hour6, i)), 1, i);
        hours->addWidget(KeyButton(At(Key::HourPlus1, i)), 2, i);
        hours->addWidget(KeyButton(At(Key::HourMinus1, i)), 3, i);
    }
    // The minutes and seconds: a caption, the steps up, the steps down; upright screens put
    // them side by side under the hours, wide screens one over the other beside the hours.
    QGridLayout* steps = landscape ? NewGrid() : hours;
    const int top = landscape ? 0 : 4;
    const int secondsRow = landscape ? 3 : top;
    const int secondsColumn = landscape ? 0 : 3;
    steps->addWidget(m_minutesCaption, top, 0, 1, 3);
    steps->addWidget(m_secondsCaption, secondsRow, secondsColumn, 1, 3);
    for (int i = 0; i < 3; ++i) {
        steps->addWidget(KeyButton(At(Key::MinutePlus1, i)), top + 1, i);
        steps->addWidget(KeyButton(At(Key::MinuteMinus1, i)), top + 2, i);
        steps->addWidget(KeyButton(At(Key::SecondPlus1, i)), secondsRow + 1, secondsColumn + i);
        steps->addWidget(KeyButton(At(Key::SecondMinus1, i)), secondsRow + 2, secondsColumn + i);
    }
    if (!landscape)
        return hours;
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGroupGap);
    row->addLayout(hours, 6);
    row->addLayout(steps, 3);
    return row;
}
