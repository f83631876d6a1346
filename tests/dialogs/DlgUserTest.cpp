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
    // The membership page shows the profile read-only and takes the owner edited through Edit;
    // clearing "Expires" clears and disables the alarm and its fields. OK saves the trimmed
    // entries, the owner and the cleared expiry.
    void membershipAndListsAreSavedOnOk()
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
        CDlgUserPageMembership* page = dlg.MembershipPage();
        QCOMPARE(page->NameEdit()->text(), QStringLiteral("Aino"));
        QVERIFY(page->NameEdit()->isReadOnly() && page->NumberEdit()->isReadOnly());
        QCOMPARE(page->DateEdit()->date(), QDate(2025, 3, 31));
        QCOMPARE(page->DaysSpin()->value(), 14);
        QCOMPARE(dlg.ListPage(1)->Editor()->toPlainText(), QStringLiteral("Coach\nPacker\n"));
        QCOMPARE(dlg.Tabs()->count(), 4);
        page->EditButton()->click();
        QCOMPARE(page->NameEdit()->text(), QStringLiteral("Aino Mäkelä"));

        QVERIFY(page->DaysSpin()->isEnabled());
        page->ExpiresBox()->setChecked(false);
        QVERIFY(!page->AlarmBox()->isChecked() && !page->AlarmBox()->isEnabled());
        QVERIFY(!page->DateEdit()->isEnabled() && !page->DaysSpin()->isEnabled());
        page->ExpiresBox()->setChecked(true);
        QVERIFY(page->AlarmBox()->isEnabled() && !page->DaysSpin()->isEnabled());
        page->ExpiresBox()->setChecked(false);
        dlg.ListPage(0)->Editor()->setPlainText(QStringLiteral("\n  A-License \n\n   B\n  \n"));
        dlg.accept();
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QVERIFY(dlg.Changed());
        QVERIFY(!settings.GetMembership().HasExpirationDate());
        QCOMPARE(settings.GetLicenses(), (std::vector<std::string>{"A-License", "B"}));
        QCOMPARE(settings.GetOwnerName(), std::string("Aino Mäkelä"));
        QCOMPARE(settings.GetMembership().GetMemberNumber(), std::string("SIL 20417"));
    }

    // Five entries on any list page: one warning with the page's text, the page on top and the
    // focus in its edit; the sheet stays open, and Cancel leaves the settings as they were.
    void tooManyEntriesFocusTheListAndKeepTheSheetOpen()
    {
        CLogbookSettings settings = Profile();
        CRecordingMessages messages;
        CDlgUser dlg(settings, &messages);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        const QStringList texts = {"Max. 4 licenses are allowed.", "Max. ratings are allowed.",
                                   "Max. 10 awards are allowed."};
        for (int list = 0; list < 3; ++list) {
            dlg.ListPage(list)->Editor()->setPlainText(QStringLiteral("a\nb\nc\nd\ne"));
            dlg.accept();
            QCOMPARE(messages.Texts(CRecordingMessages::Kind::Warning), texts.mid(0, list + 1));
            QCOMPARE(dlg.ActiveIndex(), list + 1);
            QCOMPARE(dlg.focusWidget(), dlg.ListPage(list)->Editor());
            QVERIFY(dlg.isVisible());
            dlg.ListPage(list)->Editor()->setPlainText(QString());
        }
        dlg.reject();
        QVERIFY(settings == Profile());
    }

    // Focus on a list puts the caret at the end; OK without a change reports none.
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
        dlg.accept();
        QVERIFY(!dlg.Changed());
    }
};

QTEST_MAIN(TestDlgUser)
#include "DlgUserTest.moc"
