#include "CRecordingMessages.h"
#include "CScriptedDialogs.h"

#include "dialogs/CDlgEquipment.h"
#include "dialogs/CDlgEquipments.h"
#include "dialogs/CDlgEquipmentsPageAlarm.h"
#include "dialogs/CDlgEquipmentsPageEquipments.h"
#include "document/CLogbookDoc.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <memory>

class TestDlgEquipments : public QObject
{
    Q_OBJECT

private:
    static void AddRig(CLogbookDoc& doc, int number, const char* harness)
    {
        auto rig = std::make_unique<CEquipment>(number);
        rig->SetHarness(harness);
        rig->SetMainCanopy("Sabre2");
        doc.GetSettings().GetEquipmentList().Add(std::move(rig));
    }

    static QStringList Rows(const QListWidget* list)
    {
        QStringList rows;
        for (int i = 0; i < list->count(); ++i)
            rows.append(list->item(i)->text());
        return rows;
    }

private slots:
    void init()
    {
        doc = std::make_unique<CLogbookDoc>();
        AddRig(*doc, 1, "Javelin");
        AddRig(*doc, 4, "Vector");
        messages = CRecordingMessages();
        runner = CScriptedDialogs();
    }

    void alarmBoxEnablesItsFieldsAndOkTakesTheValues()
    {
        CDlgEquipments dlg(*doc, &messages);
        dlg.InitialisePages();
        CDlgEquipmentsPageAlarm* page = dlg.AlarmPage();
        QVERIFY(!page->AlarmBox()->isChecked());
        QVERIFY(!page->DaysPriorSpin()->isEnabled() && !page->CycleSpin()->isEnabled());
        QCOMPARE(page->DaysPriorSpin()->value(), 30);
        QCOMPARE(page->CycleSpin()->value(), 180);
        page->AlarmBox()->setChecked(true);
        QVERIFY(page->DaysPriorSpin()->isEnabled() && page->CycleSpin()->isEnabled());
        page->CycleSpin()->setValue(730);
        dlg.accept();
        QVERIFY(dlg.Changed());
        QCOMPARE(doc->GetSettings().GetEquipmentList().GetInspectionCycle(), 730);
        QCOMPARE(doc->GetSettings().GetEquipmentList().GetAlarmDays(), 30);
    }

    void newAddsAnActiveRigNumberedAboveTheHighest()
    {
        runner.steps.append(CScriptedDialogs::Ok<CDlgEquipment>([](CDlgEquipment& rig) {
            QVERIFY(rig.ActiveBox()->isChecked());
            rig.HarnessEdit()->setText(QStringLiteral(" Mirage "));
            rig.MainEdit()->setText(QStringLiteral("Stiletto"));
        }));
        CDlgEquipments dlg(*doc, &messages);
        dlg.SetDialogRunner(&runner);
        dlg.InitialisePages();
        dlg.EquipmentsPage()->NewButton()->click();
        QCOMPARE(Rows(dlg.EquipmentsPage()->List()).last(), QStringLiteral("[5] Mirage / Stiletto"));
        // A cancelled editor adds nothing.
        dlg.EquipmentsPage()->NewButton()->click();
        QCOMPARE(dlg.EquipmentsPage()->List()->count(), 3);
        QCOMPARE(doc->GetSettings().GetEquipmentList().GetCount(), std::size_t(2));
        dlg.accept();
        QCOMPARE(doc->GetSettings().GetEquipmentList().GetCount(), std::size_t(3));
    }

    void tapAndEnterOpenTheRig()
    {
        runner.steps.append(CScriptedDialogs::Ok<CDlgEquipment>(
            [](CDlgEquipment& rig) { rig.HarnessEdit()->setText(QStringLiteral("Infinity")); }));
        runner.steps.append(CScriptedDialogs::Ok<CDlgEquipment>(
            [](CDlgEquipment& rig) { rig.MainEdit()->setText(QStringLiteral("Pilot")); }));
        CDlgEquipments dlg(*doc, &messages);
        dlg.SetDialogRunner(&runner);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        QListWidget* list = dlg.EquipmentsPage()->List();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
        QCOMPARE(Rows(list), (QStringList{"[1] Javelin / Sabre2", "[4] Infinity / Sabre2"}));
        list->setCurrentRow(0);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(Rows(list), (QStringList{"[1] Javelin / Pilot", "[4] Infinity / Sabre2"}));
        QCOMPARE(runner.ran.size(), 2);
    }

    void removeAsksAndDropsTheRigOnlyOnYes()
    {
        CDlgEquipments dlg(*doc, &messages);
        dlg.InitialisePages();
        CDlgEquipmentsPageEquipments* page = dlg.EquipmentsPage();
        page->List()->setCurrentRow(0);
        messages.yesNoAnswer = false;
        page->RemoveButton()->click();
        QCOMPARE(page->List()->count(), 2);
        messages.yesNoAnswer = true;
        page->RemoveButton()->click();
        QCOMPARE(messages.Texts(CRecordingMessages::Kind::YesNo).last(),
                 QStringLiteral("Do you want to remove the equipment [1] Javelin / Sabre2?"));
        QCOMPARE(Rows(page->List()), QStringList{"[4] Vector / Sabre2"});
        dlg.reject();
        QCOMPARE(doc->GetSettings().GetEquipmentList().GetCount(), std::size_t(2));
    }

    // Each refused value shows one message and puts the focus on its field; the editor stays open.
    void rigEditorFocusesTheRefusedField()
    {
        CDlgEquipment dlg(doc->GetSettings().GetEquipmentList().Get(0), &messages);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        const struct
        {
            const char *harness, *main, *size, *focus, *message;
        } cases[] = {{"   ", "Sabre2", "170", "harnessEdit", "Please enter a harness."},
                     {"Javelin", " ", "170", "mainEdit", "Please enter a main canopy."},
                     {"Javelin", "Sabre2", "1000", "mainSizeEdit", "Please enter a value between 0 and 999."}};
        for (const auto& c : cases) {
            dlg.HarnessEdit()->setText(QLatin1String(c.harness));
            dlg.MainEdit()->setText(QLatin1String(c.main));
            dlg.MainSizeEdit()->setText(QLatin1String(c.size));
            dlg.accept();
            QCOMPARE(messages.boxes.last().text, QLatin1String(c.message));
            QCOMPARE(dlg.focusWidget()->objectName(), QLatin1String(c.focus));
        }
        QCOMPARE(messages.boxes.size(), qsizetype(3));
        QVERIFY(dlg.isVisible());
    }

    void rigEditorKeepsEveryValueOnOk()
    {
        CEquipment rig(3);
        rig.SetInspectionDate(CDateTime(2024, 2, 29));
        CDlgEquipment dlg(rig, &messages);
        QCOMPARE(dlg.DateEdit()->date(), QDate(2024, 2, 29));
        dlg.HarnessEdit()->setText(QStringLiteral("Javelin"));
        dlg.MainEdit()->setText(QStringLiteral("Sabre2"));
        dlg.MainSizeEdit()->setText(QStringLiteral("0"));
        dlg.ReserveSizeEdit()->setText(QStringLiteral("143"));
        dlg.PreviousJumpsSpin()->setValue(32767);
        dlg.ActiveBox()->setChecked(false);
        dlg.accept();
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        const auto result = dlg.Result();
        QCOMPARE(result->GetNumber(), 3);
        QCOMPARE(result->GetReserveSize(), 143);
        QCOMPARE(result->GetPreviousJumps(), 32767);
        QVERIFY(!result->IsActive());
        QVERIFY(result->GetInspectionDate().SameDay(CDateTime(2024, 2, 29)));
    }

private:
    std::unique_ptr<CLogbookDoc> doc;
    CRecordingMessages messages;
    CScriptedDialogs runner;
};

QTEST_MAIN(TestDlgEquipments)
#include "DlgEquipmentsTest.moc"
