// The keypad dialogs driven like a user drives them: mouse clicks on the keys and typing on the
// keyboard give what the pads' rules give, disabled keys ignore both, OK hands the value back
// and Cancel restores the starting value.

#include "controls/CDurationPadDlg.h"
#include "controls/CKqButton.h"
#include "controls/CNumberPadDlg.h"
#include "controls/CTimePadDlg.h"

#include <QLabel>
#include <QLocale>
#include <QSignalSpy>
#include <QtTest>

#include <map>

namespace {

using NKey = CNumberPadState::Key;

// A number pad key in one character (digits, 's' "+/-", ',' and '.' separator, '<' back,
// 'C' clear, '+', '='): the pad's key and the keyboard's key for it.
std::pair<NKey, Qt::Key> Lookup(char c)
{
    if (c >= '0' && c <= '9')
        return {CNumberPadState::Digit(c - '0'), static_cast<Qt::Key>(Qt::Key_0 + (c - '0'))};
    const std::map<char, std::pair<NKey, Qt::Key>> others = {
        {'s', {NKey::Sign, Qt::Key_Minus}},       {',', {NKey::Separator, Qt::Key_Comma}},
        {'.', {NKey::Separator, Qt::Key_Period}}, {'<', {NKey::Back, Qt::Key_Backspace}},
        {'C', {NKey::Clear, Qt::Key_Delete}},     {'+', {NKey::Plus, Qt::Key_Plus}},
        {'=', {NKey::Equals, Qt::Key_Equal}}};
    return others.at(c);
}

CKqButton* KeyNamed(QWidget& pad, const QString& name)
{
    auto* key = pad.findChild<CKqButton*>(QStringLiteral("key_") + name);
    if (!key)
        qFatal("no key %s", qPrintable(name));
    return key;
}

void Show(QDialog& pad)
{
    pad.show();
    pad.activateWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&pad));
}

// Types on the keyboard: the event goes to the focused key when there is one.
void Type(QDialog& pad, Qt::Key key)
{
    QWidget* target = pad.focusWidget() ? pad.focusWidget() : &pad;
    QTest::keyClick(target, key);
}

} // namespace

class TestKeypads : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    void numberPadClicksAndTypingFollowTheRules_data()
    {
        QTest::addColumn<int>("maxDecimals");
        QTest::addColumn<bool>("allowNegative");
        QTest::addColumn<int>("start");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("display");
        const auto row = [](const char* name, int decimals, bool negative, int start, QString keys, QString display) {
            QTest::newRow(name) << decimals << negative << start << keys << display;
        };
        row("decimals", 2, false, 0, "1234,5", "1.234,5");
        row("point is the separator too", 2, false, 0, "12.3", "12,3");
        row("back over separator", 2, false, 0, "12,3<<4", "124");
        row("repeated equals", 0, false, 0, "2+3==", "8");
        row("clear", 0, false, 0, "2+3C4", "4");
        row("negative", 1, true, 0, "7s", "-7");
        row("start value", 2, true, -150, "<", "-1,5");
    }

    void numberPadClicksAndTypingFollowTheRules()
    {
        QFETCH(int, maxDecimals);
        QFETCH(bool, allowNegative);
        QFETCH(int, start);
        QFETCH(QString, keys);
        QFETCH(QString, display);

        CNumberPadState rules(start, maxDecimals, allowNegative, ",", ".");
        CNumberPadDlg clicked(nullptr, QString(), start, maxDecimals, allowNegative);
        CNumberPadDlg typed(nullptr, QString(), start, maxDecimals, allowNegative);
        Show(clicked);
        Show(typed);
        for (QChar c : keys) {
            const auto [padKey, keyboardKey] = Lookup(c.toLatin1());
            rules.Press(padKey);
            QTest::mouseClick(clicked.KeyButton(padKey), Qt::LeftButton);
            Type(typed, keyboardKey);
        }
        QCOMPARE(QString::fromStdString(rules.Display()), display);
        for (CNumberPadDlg* pad : {&clicked, &typed}) {
            QCOMPARE(pad->Display()->text(), display);
            QCOMPARE(pad->Value(), rules.ScaledValue());
            for (int k = 0; k < static_cast<int>(NKey::Count); ++k)
                QCOMPARE(pad->KeyButton(static_cast<NKey>(k))->isEnabled(), rules.IsEnabled(static_cast<NKey>(k)));
        }
    }

    void disabledKeysIgnoreClicksAndShortcuts()
    {
        CNumberPadDlg number(nullptr, QString(), 52, 1, false);
        Show(number);
        QSignalSpy sevenClicked(KeyNamed(number, QStringLiteral("7")), &CKqButton::clicked);
        QTest::mouseClick(KeyNamed(number, QStringLiteral("7")), Qt::LeftButton);
        QTest::mouseClick(KeyNamed(number, QStringLiteral("sign")), Qt::LeftButton);
        for (Qt::Key key : {Qt::Key_7, Qt::Key_Minus, Qt::Key_Comma, Qt::Key_Equal})
            Type(number, key);
        QCOMPARE(number.Display()->text(), QStringLiteral("5,2"));
        QCOMPARE(number.Value(), 52);
        QCOMPARE(sevenClicked.count(), 0);

        CDurationPadDlg duration(nullptr, QString(), 999, 59, 59, 999);
        Show(duration);
        for (const char* name : {"h_plus1", "m_plus1", "s_plus10"}) {
            QVERIFY(!KeyNamed(duration, QLatin1String(name))->isEnabled());
            QTest::mouseClick(KeyNamed(duration, QLatin1String(name)), Qt::LeftButton);
        }
        QCOMPARE(duration.Display()->text(), QStringLiteral("999:59:59"));
    }

    void durationAndTimePadsFollowTheRules()
    {
        CDurationPadDlg duration(nullptr, QString(), 998, 59, 50, 999);
        Show(duration);
        QTest::mouseClick(KeyNamed(duration, QStringLiteral("s_plus10")), Qt::LeftButton);
        QCOMPARE(duration.Display()->text(), QStringLiteral("999:00:00"));
        CDurationPadState rules(999, 0, 0, 999);
        for (int k = 0; k < static_cast<int>(CDurationPadState::Key::Count); ++k) {
            const auto key = static_cast<CDurationPadState::Key>(k);
            QCOMPARE(duration.KeyButton(key)->isEnabled(), rules.IsEnabled(key));
        }
        Type(duration, Qt::Key_7);
        QCOMPARE(duration.Hours(), 7);

        CTimePadDlg time(nullptr, QString(), 23, 50);
        Show(time);
        QTest::mouseClick(KeyNamed(time, QStringLiteral("plus15")), Qt::LeftButton);
        QCOMPARE(time.Display()->text(), QStringLiteral("00:05"));
        QTest::mouseClick(KeyNamed(time, QStringLiteral("minus10")), Qt::LeftButton);
        QCOMPARE(time.Display()->text(), QStringLiteral("23:55"));
        QTest::mouseClick(KeyNamed(time, QStringLiteral("h_24")), Qt::LeftButton);
        QTest::mouseClick(KeyNamed(time, QStringLiteral("m_30")), Qt::LeftButton);
        Type(time, Qt::Key_Plus);
        QCOMPARE(time.Hour(), 0);
        QCOMPARE(time.Minute(), 31);
        Type(time, Qt::Key_9);
        QCOMPARE(time.Display()->text(), QStringLiteral("09:31"));
    }

    void okHandsBackAndCancelRestores_data()
    {
        QTest::addColumn<QString>("pad");
        QTest::addColumn<QString>("close");
        QTest::addColumn<int>("result");
        QTest::addColumn<QList<int>>("values");
        const QList<int> numberStart{1250}, numberTyped{700};
        const QList<int> durationStart{1, 2, 3}, durationTyped{6, 2, 3};
        const QList<int> timeStart{8, 15}, timeTyped{6, 45};
        const struct
        {
            const char* pad;
            QList<int> start, typed;
        } pads[] = {{"number", numberStart, numberTyped},
                    {"duration", durationStart, durationTyped},
                    {"time", timeStart, timeTyped}};
        for (const auto& pad : pads) {
            const QString name = QLatin1String(pad.pad);
            QTest::addRow("%s ok", pad.pad) << name << "ok" << int(QDialog::Accepted) << pad.typed;
            QTest::addRow("%s enter", pad.pad) << name << "enter" << int(QDialog::Accepted) << pad.typed;
            QTest::addRow("%s cancel", pad.pad) << name << "cancel" << int(QDialog::Rejected) << pad.start;
            QTest::addRow("%s escape", pad.pad) << name << "escape" << int(QDialog::Rejected) << pad.start;
        }
    }

    void okHandsBackAndCancelRestores()
    {
        QFETCH(QString, pad);
        QFETCH(QString, close);
        QFETCH(int, result);
        QFETCH(QList<int>, values);

        std::unique_ptr<CKqPadDlg> dialog;
        if (pad == QLatin1String("number"))
            dialog = std::make_unique<CNumberPadDlg>(nullptr, QString(), 1250, 2, false);
        else if (pad == QLatin1String("duration"))
            dialog = std::make_unique<CDurationPadDlg>(nullptr, QString(), 1, 2, 3, 99);
        else
            dialog = std::make_unique<CTimePadDlg>(nullptr, QString(), 8, 15);
        QSignalSpy finished(dialog.get(), &QDialog::finished);
        Show(*dialog);
        // Change the value: "C" 7 on the number pad, hour 6, minutes :45.
        for (const char* name : {"clear", "7", "h_6", "m_45"})
            if (auto* key = dialog->findChild<CKqButton*>(QStringLiteral("key_") + QLatin1String(name)))
                QTest::mouseClick(key, Qt::LeftButton);

        if (close == QLatin1String("ok") || close == QLatin1String("cancel"))
            QTest::mouseClick(dialog->findChild<CKqButton*>(close), Qt::LeftButton);
        else
            Type(*dialog, close == QLatin1String("enter") ? Qt::Key_Return : Qt::Key_Escape);

        QCOMPARE(dialog->result(), result);
        QCOMPARE(finished.count(), 1);
        QCOMPARE(finished.first().first().toInt(), result);
        QVERIFY(!dialog->isVisible());
        QList<int> got;
        if (auto* number = dynamic_cast<CNumberPadDlg*>(dialog.get()))
            got = {number->Value()};
        else if (auto* duration = dynamic_cast<CDurationPadDlg*>(dialog.get()))
            got = {duration->Hours(), duration->Minutes(), duration->Seconds()};
        else if (auto* time = dynamic_cast<CTimePadDlg*>(dialog.get()))
            got = {time->Hour(), time->Minute()};
        QCOMPARE(got, values);
    }

    void emptyTitlesFallBack()
    {
        const QString given = QStringLiteral("Exit height");
        QCOMPARE(CNumberPadDlg(nullptr, QString(), 0, 0, false).windowTitle(), QStringLiteral("Zahl"));
        QCOMPARE(CDurationPadDlg(nullptr, QString(), 0, 0, 0, 99).windowTitle(), QStringLiteral("Flugdauer"));
        QCOMPARE(CTimePadDlg(nullptr, QString(), 0, 0).windowTitle(), QStringLiteral("Zeit"));
        QCOMPARE(CNumberPadDlg(nullptr, given, 0, 0, false).windowTitle(), given);
        QCOMPARE(CDurationPadDlg(nullptr, given, 0, 0, 0, 99).windowTitle(), given);
        QCOMPARE(CTimePadDlg(nullptr, given, 0, 0).windowTitle(), given);
    }
};

QTEST_MAIN(TestKeypads)
#include "KeypadsTest.moc"
