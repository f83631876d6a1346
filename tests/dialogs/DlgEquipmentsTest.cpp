#include "CRecordingMessages.h"
#include "CScriptedDialogs.h"

#include "controls/CKqDateEdit.h"
#include "dialogs/CDlgEquipment.h"
#include "dialogs/CDlgEquipments.h"
#include "dialogs/CDlgEquipmentsPageAlarm.h"
#include "dialogs/CDlgEquipmentsPageEquipments.h"
#include "document/CLogbookDoc.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QSpinBox>
#include <QTest>

#include <memory>

namespace {

QStringList Rows(const QListWidget* list)
{
    QStringList rows;
    for (int i = 0; i < list->count(); ++i)
        rows.append(list->item(i)->text());
    return rows;
}

} // namespace

class TestDlgEquipments : public QObject
{
    Q_OBJECT

private slots:
    // One shown dialog on rigs 1 and 4: the alarm box enables its fields; a tap and Enter open
    // a rig, New adds an active one numbered above the highest (a cancelled editor adds
    // nothing), Remove asks and drops the rig only on Yes; the logbook takes it all on OK.
    void alarmAndRigListTakeEffectOnOk()
    {
        CLogbookDoc doc;
        CLogbookSettings settings;
        for (const auto& [number, harness] : {std::pair{1, "Javelin"}, std::pair{4, "Vector"}}) {
            auto rig = std::make_unique<CEquipment>(number);
            rig->SetHarness(harness);
            rig->SetMainCanopy("Sabre2");
            settings.GetEquipmentList().Add(std::move(rig));
        }
        doc.ReplaceSettings(settings);
        const CEquipmentList& rigs = doc.GetSettings().GetEquipmentList();
        CRecordingMessages messages;
        CScriptedDialogs runner;
        runner.steps.append(CScriptedDialogs::Ok<CDlgEquipment>(
            [](CDlgEquipment& rig) { rig.HarnessEdit()->setText(QStringLiteral("Infinity")); }));
        runner.steps.append(CScriptedDialogs::Ok<CDlgEquipment>(
            [](CDlgEquipment& rig) { rig.MainEdit()->setText(QStringLiteral("Pilot")); }));
        runner.steps.append(CScriptedDialogs::Ok<CDlgEquipment>([](CDlgEquipment& rig) {
            QVERIFY(rig.ActiveBox()->isChecked());
            rig.HarnessEdit()->setText(QStringLiteral(" Mirage "));
            rig.MainEdit()->setText(QStringLiteral("Stiletto"));
        }));
        CDlgEquipments dlg(doc, &messages);
        dlg.SetDialogRunner(&runner);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));

        CDlgEquipmentsPageAlarm* alarm = dlg.AlarmPage();
        QVERIFY(!alarm->AlarmBox()->isChecked());
        QVERIFY(!alarm->DaysPriorSpin()->isEnabled() && !alarm->CycleSpin()->isEnabled());
        QCOMPARE(alarm->DaysPriorSpin()->value(), 30);
        QCOMPARE(alarm->CycleSpin()->value(), 180);
        alarm->AlarmBox()->setChecked(true);
        QVERIFY(alarm->DaysPriorSpin()->isEnabled() && alarm->CycleSpin()->isEnabled());
        alarm->CycleSpin()->setValue(730);

        CDlgEquipmentsPageEquipments* page = dlg.EquipmentsPage();
        QListWidget* list = page->List();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
        list->setCurrentRow(0);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(Rows(list), (QStringList{"[1] Javelin / Pilot", "[4] Infinity / Sabre2"}));
        page->NewButton()->click();
        page->NewButton()->click();
        QCOMPARE(Rows(list).mid(2), QStringList{"[5] Mirage / Stiletto"});
        list->setCurrentRow(0);
        messages.yesNoAnswer = false;
        page->RemoveButton()->click();
        QCOMPARE(list->count(), 3);
        messages.yesNoAnswer = true;
        page->RemoveButton()->click();
        QCOMPARE(messages.Texts(CRecordingMessages::Kind::YesNo).last(),
                 QStringLiteral("Do you want to remove the equipment [1] Javelin / Pilot?"));
        QCOMPARE(Rows(list), (QStringList{"[4] Infinity / Sabre2", "[5] Mirage / Stiletto"}));
        QCOMPARE(runner.ran.size(), 4);
        QCOMPARE(rigs.GetCount(), std::size_t(2));
        QCOMPARE(rigs.Get(0).GetNumber(), 1);

        dlg.accept();
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QVERIFY(dlg.Edit().Apply(doc));
        QCOMPARE(rigs.GetInspectionCycle(), 730);
        QCOMPARE(rigs.GetAlarmDays(), 30);
        QCOMPARE(rigs.GetCount(), std::size_t(2));
        QCOMPARE(rigs.Get(1).GetNumber(), 5);
    }

    // Each refused value shows one message and puts the focus on its field, the editor staying
    // open; mended, OK hands every value back.
    void rigEditorFocusesTheRefusedFieldAndKeepsEveryValueOnOk()
    {
        CEquipment rig(3);
        rig.SetInspectionDate(CDateTime(2024, 2, 29));
        CRecordingMessages messages;
        CDlgEquipment dlg(rig, &messages);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        QCOMPARE(dlg.DateEdit()->date(), QDate(2024, 2, 29));
        using Kind = CRecordingMessages::Kind;
        const struct
        {
            const char *harness, *main, *size, *focus, *message;
            Kind kind;
        } cases[] = {
            {"   ", "Sabre2", "170", "harnessEdit", "Please enter a harness.", Kind::Error},
            {"Javelin", " ", "170", "mainEdit", "Please enter a main canopy.", Kind::Error},
            {"Javelin", "Sabre2", "1000", "mainSizeEdit", "Please enter a value between 0 and 999.", Kind::Warning}};
        for (const auto& c : cases) {
            dlg.HarnessEdit()->setText(QLatin1String(c.harness));
            dlg.MainEdit()->setText(QLatin1String(c.main));
            dlg.MainSizeEdit()->setText(QLatin1String(c.size));
            dlg.accept();
            QCOMPARE(messages.boxes.last().text, QLatin1String(c.message));
            QCOMPARE(messages.boxes.last().kind, c.kind);
            QCOMPARE(dlg.focusWidget()->objectName(), QLatin1String(c.focus));
        }
        QCOMPARE(messages.boxes.size(), qsizetype(3));
        QVERIFY(dlg.isVisible());

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

    // A rig never inspected shows "None"; its calendar opens on this month, and until a day is
    // picked the rig stays without a date.
    void rigWithoutInspectionShowsNoneAndItsCalendarOpensOnToday()
    {
        CEquipment rig(4);
        rig.SetHarness("Javelin");
        rig.SetMainCanopy("Sabre2");
        CDlgEquipment dlg(rig, nullptr);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        QCOMPARE(dlg.DateEdit()->text(), QStringLiteral("None"));
        QCalendarWidget* calendar = dlg.DateEdit()->calendarWidget();
        QShowEvent shown;
        QCoreApplication::sendEvent(calendar, &shown);
        QCOMPARE(calendar->yearShown(), QDate::currentDate().year());
        QCOMPARE(calendar->monthShown(), QDate::currentDate().month());
        dlg.accept();
        QVERIFY(!dlg.Result()->GetInspectionDate().IsValid());

        CDlgEquipment picked(rig, nullptr);
        picked.DateEdit()->setDate(QDate(2024, 3, 1));
        picked.accept();
        QVERIFY(picked.Result()->GetInspectionDate().SameDay(CDateTime(2024, 3, 1)));
    }
};

QTEST_MAIN(TestDlgEquipments)
#include "DlgEquipmentsTest.moc"
