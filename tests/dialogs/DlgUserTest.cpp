#include "CRecordingMessages.h"
#include "CScriptedDialogs.h"

#include "dialogs/CDlgUser.h"
#include "dialogs/CDlgUserOwner.h"
#include "dialogs/CDlgUserPageList.h"
#include "dialogs/CDlgUserPageMembership.h"
#include "model/CLogbookSettings.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>

class TestDlgUser : public QObject
{
    Q_OBJECT

private:
    CLogbookSettings Profile() const
    {
        CLogbookSettings settings;
        settings.SetOwnerName("Aino");
        settings.GetMembership().SetMemberNumber("SIL 1");
        settings.GetMembership().SetExpirationDate(CDateTime(2025, 3, 31));
        settings.GetMembership().SetAlarmDays(14);
        settings.SetRatings({"Coach", "Packer"});
        return settings;
    }

private slots:
    void showsTheProfileReadOnly()
    {
        CLogbookSettings settings = Profile();
        CRecordingMessages messages;
        CDlgUser dlg(settings, &messages);
        dlg.InitialisePages();
        const CDlgUserPageMembership* page = dlg.MembershipPage();
        QCOMPARE(page->NameEdit()->text(), QStringLiteral("Aino"));
        QVERIFY(page->NameEdit()->isReadOnly());
        QVERIFY(page->NumberEdit()->isReadOnly());
        QCOMPARE(page->DateEdit()->date(), QDate(2025, 3, 31));
        QCOMPARE(page->DaysSpin()->value(), 14);
        QCOMPARE(dlg.ListPage(1)->Editor()->toPlainText(), QStringLiteral("Coach\nPacker\n"));
        QCOMPARE(dlg.Tabs()->count(), 4);
    }

    void clearingExpiresClearsAndDisablesTheAlarm()
    {
        CLogbookSettings settings = Profile();
        CDlgUser dlg(settings, nullptr);
        dlg.InitialisePages();
        CDlgUserPageMembership* page = dlg.MembershipPage();
        QVERIFY(page->DaysSpin()->isEnabled());
        page->ExpiresBox()->setChecked(false);
        QVERIFY(!page->AlarmBox()->isChecked());
        QVERIFY(!page->AlarmBox()->isEnabled());
        QVERIFY(!page->DateEdit()->isEnabled());
        QVERIFY(!page->DaysSpin()->isEnabled());
        page->ExpiresBox()->setChecked(true);
        QVERIFY(page->AlarmBox()->isEnabled());
        QVERIFY(!page->DaysSpin()->isEnabled());
        page->ExpiresBox()->setChecked(false);
        dlg.accept();
        QVERIFY(dlg.Changed());
        QVERIFY(!settings.GetMembership().HasExpirationDate());
    }

    // Five entries on any list page: one warning with the page's text, the page on top and the
    // focus in its edit; the sheet stays open and the settings keep their lists.
    void tooManyEntriesFocusTheListAndKeepTheSheetOpen_data()
    {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("message");
        QTest::newRow("licenses") << 0 << QStringLiteral("Max. 4 licenses are allowed.");
        QTest::newRow("ratings") << 1 << QStringLiteral("Max. ratings are allowed.");
        QTest::newRow("awards") << 2 << QStringLiteral("Max. 10 awards are allowed.");
    }
    void tooManyEntriesFocusTheListAndKeepTheSheetOpen()
    {
        QFETCH(int, list);
        QFETCH(QString, message);
        CLogbookSettings settings = Profile();
        CRecordingMessages messages;
        CDlgUser dlg(settings, &messages);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        dlg.ListPage(list)->Editor()->setPlainText(QStringLiteral("a\nb\nc\nd\ne"));
        dlg.accept();
        QCOMPARE(messages.Texts(CRecordingMessages::Kind::Warning), QStringList{message});
        QCOMPARE(dlg.ActiveIndex(), list + 1);
        QCOMPARE(dlg.focusWidget(), dlg.ListPage(list)->Editor());
        QVERIFY(dlg.isVisible());
        QCOMPARE(settings.GetRatings().size(), std::size_t(2));
    }

    void okSavesTrimmedEntriesAndTheOwnerEditedThroughEdit()
    {
        CLogbookSettings settings = Profile();
        CScriptedDialogs runner;
        runner.steps.append(CScriptedDialogs::Ok<CDlgUserOwner>([](CDlgUserOwner& owner) {
            owner.NameEdit()->setText(QStringLiteral(" Aino Mäkelä "));
            owner.NumberEdit()->setText(QStringLiteral("SIL 20417"));
        }));
        CDlgUser dlg(settings, nullptr);
        dlg.SetDialogRunner(&runner);
        dlg.InitialisePages();
        dlg.MembershipPage()->EditButton()->click();
        QCOMPARE(dlg.MembershipPage()->NameEdit()->text(), QStringLiteral("Aino Mäkelä"));
        dlg.ListPage(0)->Editor()->setPlainText(QStringLiteral("\n  A-License \n\n   B\n  \n"));
        dlg.accept();
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QVERIFY(dlg.Changed());
        QCOMPARE(settings.GetLicenses(), (std::vector<std::string>{"A-License", "B"}));
        QCOMPARE(settings.GetOwnerName(), std::string("Aino Mäkelä"));
        QCOMPARE(settings.GetMembership().GetMemberNumber(), std::string("SIL 20417"));
    }

    void okWithoutChangesAndCancelLeaveTheSettings()
    {
        const CLogbookSettings original = Profile();
        CLogbookSettings settings = original;
        {
            CDlgUser dlg(settings, nullptr);
            dlg.InitialisePages();
            dlg.accept();
            QVERIFY(!dlg.Changed());
        }
        CDlgUser dlg(settings, nullptr);
        dlg.InitialisePages();
        dlg.ListPage(2)->Editor()->setPlainText(QStringLiteral("Gold"));
        dlg.reject();
        QVERIFY(settings == original);
    }

    void listEditPutsTheCaretAtTheEndOnFocus()
    {
        CLogbookSettings settings = Profile();
        CDlgUser dlg(settings, nullptr);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowActive(&dlg));
        dlg.SetActivePage(2);
        QPlainTextEdit* edit = dlg.ListPage(1)->Editor();
        QTextCursor start = edit->textCursor();
        start.setPosition(0);
        edit->setTextCursor(start);
        edit->setFocus(Qt::TabFocusReason);
        QCOMPARE(edit->textCursor().position(), edit->toPlainText().size());
        QVERIFY(!edit->textCursor().hasSelection());
    }
};

QTEST_MAIN(TestDlgUser)
#include "DlgUserTest.moc"
