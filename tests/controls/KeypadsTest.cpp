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

#include <string_view>

namespace {

using NKey = CNumberPadState::Key;

// A number pad key in one character (digits, 's' "+/-", ',' and '.' separator, '<' back,
// 'C' clear, '+', '='): the pad's key and the keyboard's key for it.
std::pair<NKey, Qt::Key> Lookup(char c)
{
    if (c >= '0' && c <= '9')
        return {CNumberPadState::Digit(c - '0'), Qt::Key(Qt::Key_0 + c - '0')};
    const std::pair<NKey, Qt::Key> others[] = {{NKey::Sign, Qt::Key_Minus},       {NKey::Separator, Qt::Key_Comma},
                                               {NKey::Separator, Qt::Key_Period}, {NKey::Back, Qt::Key_Backspace},
                                               {NKey::Clear, Qt::Key_Delete},     {NKey::Plus, Qt::Key_Plus},
                                               {NKey::Equals, Qt::Key_Equal}};
    return others[std::string_view("s,.<C+=").find(c)];
}

CKqButton* KeyNamed(QWidget& pad, const char* name)
{
    auto* key = pad.findChild<CKqButton*>(QStringLiteral("key_") + QLatin1String(name));
    if (!key)
        qFatal("no key %s", name);
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
    QTest::keyClick(pad.focusWidget() ? pad.focusWidget() : &pad, key);
}

// A pad of each kind (number 12,50, duration 1:02:03, time 8:15).
std::unique_ptr<CKqPadDlg> MakePad(int kind, const QString& title = {})
{
    if (kind == 0)
        return std::make_unique<CNumberPadDlg>(nullptr, title, 1250, 2, false);
    if (kind == 1)
        return std::make_unique<CDurationPadDlg>(nullptr, title, 1, 2, 3, 99);
    return std::make_unique<CTimePadDlg>(nullptr, title, 8, 15);
}

QList<int> ValueOf(CKqPadDlg& pad)
{
    if (auto* number = dynamic_cast<CNumberPadDlg*>(&pad))
        return {number->Value()};
    if (auto* duration = dynamic_cast<CDurationPadDlg*>(&pad))
        return {duration->Hours(), duration->Minutes(), duration->Seconds()};
    auto& time = dynamic_cast<CTimePadDlg&>(pad);
    return {time.Hour(), time.Minute()};
}

} // namespace

class TestKeypads : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    // Each key clicked on one pad and typed on another: both show the locale's display and
    // value and enable the keys the rules enable.
    void numberPadClicksAndTypingFollowTheRules()
    {
        const struct
        {
            int decimals;
            bool negative;
            int start;
            const char *keys, *display;
        } cases[] = {{2, false, 0, "1234,5", "1.234,5"}, {2, false, 0, "12.3<<4", "124"}, {0, false, 0, "2+3==", "8"},
                     {0, false, 0, "2+3C4", "4"},        {1, true, 0, "7s", "-7"},        {2, true, -150, "<", "-1,5"}};
        for (const auto& c : cases) {
            CNumberPadState rules(c.start, c.decimals, c.negative, ",", ".");
            CNumberPadDlg clicked(nullptr, QString(), c.start, c.decimals, c.negative);
            CNumberPadDlg typed(nullptr, QString(), c.start, c.decimals, c.negative);
            Show(clicked);
            Show(typed);
            for (const char* k = c.keys; *k; ++k) {
                const auto [padKey, keyboardKey] = Lookup(*k);
                rules.Press(padKey);
                QTest::mouseClick(clicked.KeyButton(padKey), Qt::LeftButton);
                Type(typed, keyboardKey);
            }
            for (CNumberPadDlg* pad : {&clicked, &typed}) {
                QVERIFY2(pad->Display()->text() == QLatin1String(c.display), c.keys);
                QVERIFY2(pad->Value() == rules.ScaledValue(), c.keys);
                for (int k = 0; k < int(NKey::Count); ++k)
                    QVERIFY2(pad->KeyButton(NKey(k))->isEnabled() == rules.IsEnabled(NKey(k)), c.keys);
            }
        }
    }

    void disabledKeysIgnoreClicksAndShortcuts()
    {
        // The pad opens on 5,2 ready to replace it; once 7,3 is typed its one decimal is full.
        CNumberPadDlg number(nullptr, QString(), 52, 1, false);
        Show(number);
        QCOMPARE(number.Display()->text(), QStringLiteral("5,2"));
        for (Qt::Key key : {Qt::Key_7, Qt::Key_Comma, Qt::Key_3})
            Type(number, key);
        QSignalSpy sevenClicked(KeyNamed(number, "7"), &CKqButton::clicked);
        QTest::mouseClick(KeyNamed(number, "7"), Qt::LeftButton);
        QTest::mouseClick(KeyNamed(number, "sign"), Qt::LeftButton);
        for (Qt::Key key : {Qt::Key_7, Qt::Key_Minus, Qt::Key_Comma, Qt::Key_Equal})
            Type(number, key);
        QCOMPARE(number.Display()->text(), QStringLiteral("7,3"));
        QCOMPARE(number.Value(), 73);
        QCOMPARE(sevenClicked.count(), 0);

        CDurationPadDlg duration(nullptr, QString(), 999, 59, 59, 999);
        Show(duration);
        for (const char* name : {"h_plus1", "m_plus1", "s_plus10"}) {
            QVERIFY(!KeyNamed(duration, name)->isEnabled());
            QTest::mouseClick(KeyNamed(duration, name), Qt::LeftButton);
        }
        QCOMPARE(duration.Display()->text(), QStringLiteral("999:59:59"));
    }

    void durationAndTimePadsFollowTheRules()
    {
        CDurationPadDlg duration(nullptr, QString(), 998, 59, 50, 999);
        Show(duration);
        QTest::mouseClick(KeyNamed(duration, "s_plus10"), Qt::LeftButton);
        QCOMPARE(duration.Display()->text(), QStringLiteral("999:00:00"));
        Type(duration, Qt::Key_7);
        QCOMPARE(duration.Hours(), 7);

        CTimePadDlg time(nullptr, QString(), 23, 50);
        Show(time);
        QTest::mouseClick(KeyNamed(time, "plus15"), Qt::LeftButton);
        QCOMPARE(time.Display()->text(), QStringLiteral("00:05"));
        QTest::mouseClick(KeyNamed(time, "minus10"), Qt::LeftButton);
        QCOMPARE(time.Display()->text(), QStringLiteral("23:55"));
        QTest::mouseClick(KeyNamed(time, "h_24"), Qt::LeftButton);
        QTest::mouseClick(KeyNamed(time, "m_30"), Qt::LeftButton);
        Type(time, Qt::Key_Plus);
        QCOMPARE(time.Hour(), 0);
        QCOMPARE(time.Minute(), 31);
        Type(time, Qt::Key_9);
        QCOMPARE(time.Display()->text(), QStringLiteral("09:31"));
    }

    // Every pad, with an empty or a given title, changed ("C" 7 on the number pad, hour 6,
    // minutes :45) and closed with OK, Enter, Cancel or Escape.
    void okHandsBackAndCancelRestores()
    {
        const QList<int> start[] = {{1250}, {1, 2, 3}, {8, 15}}, typed[] = {{700}, {6, 2, 3}, {6, 45}};
        const char* const titles[] = {"Number", "Duration", "Time"};
        for (int kind = 0; kind < 3; ++kind) {
            QCOMPARE(MakePad(kind)->windowTitle(), QLatin1String(titles[kind]));
            QCOMPARE(MakePad(kind, QStringLiteral("Exit height"))->windowTitle(), QStringLiteral("Exit height"));
            for (const QString close : {"ok", "enter", "cancel", "escape"}) {
                const QByteArray row = QByteArray(titles[kind]) + ' ' + close.toLatin1();
                const std::unique_ptr<CKqPadDlg> pad = MakePad(kind);
                QSignalSpy finished(pad.get(), &QDialog::finished);
                Show(*pad);
                for (const char* name : {"clear", "7", "h_6", "m_45"})
                    if (auto* key = pad->findChild<CKqButton*>(QStringLiteral("key_") + QLatin1String(name)))
                        QTest::mouseClick(key, Qt::LeftButton);
                if (close == QLatin1String("ok") || close == QLatin1String("cancel"))
                    QTest::mouseClick(pad->findChild<CKqButton*>(close), Qt::LeftButton);
                else
                    Type(*pad, close == QLatin1String("enter") ? Qt::Key_Return : Qt::Key_Escape);
                const bool ok = close == QLatin1String("ok") || close == QLatin1String("enter");
                QVERIFY2(pad->result() == (ok ? QDialog::Accepted : QDialog::Rejected), row);
                QVERIFY2(finished.count() == 1 && finished[0][0].toInt() == pad->result(), row);
                QVERIFY2(!pad->isVisible(), row);
                QVERIFY2(ValueOf(*pad) == (ok ? typed[kind] : start[kind]), row);
            }
        }
    }
};

QTEST_MAIN(TestKeypads)
#include "KeypadsTest.moc"
