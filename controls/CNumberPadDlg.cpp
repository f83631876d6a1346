#include "controls/CNumberPadDlg.h"

#include "controls/CKqButton.h"

#include <QGridLayout>
#include <QLocale>

namespace {

using Key = CNumberPadState::Key;

// Key faces: digits, sign and separator; correction keys; arithmetic keys.
const QColor kDigitFace(188, 204, 239);
const QColor kEditFace(240, 234, 134);
const QColor kSumFace(153, 170, 204);

CNumberPadState LocaleState(int scaledValue, int maxDecimals, bool allowNegative)
{
    const QLocale locale;
    return CNumberPadState(scaledValue, maxDecimals, allowNegative, locale.decimalPoint().toStdString(),
                           locale.groupSeparator().toStdString());
}

} // namespace

CNumberPadDlg::CNumberPadDlg(QWidget* parent, const QString& title, int scaledValue, int maxDecimals,
                             bool allowNegative)
    : CKqStatePadDlg(parent, title, tr("Number"), LocaleState(scaledValue, maxDecimals, allowNegative))
{
    setObjectName(QStringLiteral("numberPad"));
    const auto add = [this](Key key, const QString& name, const QString& text, const QColor& face) {
        return AddStateKey(key, name, text, face);
    };
    for (int digit = 0; digit <= 9; ++digit) {
        CKqButton* key = add(CNumberPadState::Digit(digit), QString::number(digit), QString::number(digit), kDigitFace);
        AddShortcut(Qt::Key_0 + digit, key);
    }
    const QString separator = QLocale().decimalPoint();
    AddShortcut(Qt::Key_Minus, add(Key::Sign, QStringLiteral("sign"), QStringLiteral("+/-"), kDigitFace));
    CKqButton* separatorKey = add(Key::Separator, QStringLiteral("separator"), separator, kDigitFace);
    AddShortcut(Qt::Key_Comma, separatorKey);
    AddShortcut(Qt::Key_Period, separatorKey);
    AddShortcut(separator, separatorKey);
    AddShortcut(Qt::Key_Backspace, add(Key::Back, QStringLiteral("back"), QStringLiteral("<--"), kEditFace));
    AddShortcut(Qt::Key_Delete, add(Key::Clear, QStringLiteral("clear"), QStringLiteral("C"), kEditFace));
    AddShortcut(Qt::Key_Plus, add(Key::Plus, QStringLiteral("plus"), QStringLiteral("+"), kSumFace));
    AddShortcut(Qt::Key_Equal, add(Key::Equals, QStringLiteral("equals"), QStringLiteral("="), kSumFace));
    SetDisplayAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Refresh();
}

QLayout* CNumberPadDlg::ArrangeKeys(bool)
{
    // The calculator's order on any screen: 7 8 9 on top, the sign, 0 and separator at the bottom.
    static constexpr Key kRows[4][4] = {{Key::Digit7, Key::Digit8, Key::Digit9, Key::Back},
                                        {Key::Digit4, Key::Digit5, Key::Digit6, Key::Clear},
                                        {Key::Digit1, Key::Digit2, Key::Digit3, Key::Plus},
                                        {Key::Sign, Key::Digit0, Key::Separator, Key::Equals}};
    QGridLayout* grid = NewGrid();
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            grid->addWidget(KeyButton(kRows[row][column]), row, column);
    return grid;
}
