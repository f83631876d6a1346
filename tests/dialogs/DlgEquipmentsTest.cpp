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
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QSpinBox>
#include <QTest>

#include <algorithm>
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
            [](CDlgEquipment& rig) { rig.findChild<QLineEdit*>("harnessEdit")->setText(QStringLiteral("Infinity")); }));
        runner.steps.append(CScriptedDialogs::Ok<CDlgEquipment>(
            [](CDlgEquipment& rig) { rig.findChild<QLineEdit*>("mainEdit")->setText(QStringLiteral("Pilot")); }));
        runner.steps.append(CScriptedDialogs::Ok<CDlgEquipment>([](CDlgEquipment& rig) {
            QVERIFY(rig.findChild<QCheckBox*>("activeBox")->isChecked());
            rig.findChild<QLineEdit*>("harnessEdit")->setText(QStringLiteral(" Mirage "));
            rig.findChild<QLineEdit*>("mainEdit")->setText(QStringLiteral("Stiletto"));
        }));
        CDlgEquipments dlg(doc, &messages);
        dlg.SetDialogRunner(&runner);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));

        auto* alarm = dlg.findChild<CDlgEquipmentsPageAlarm*>();
        QVERIFY(!alarm->findChild<QCheckBox*>("rigAlarmBox")->isChecked());
        QVERIFY(!alarm->findChild<QSpinBox*>("rigDaysPriorSpin")->isEnabled() &&
                !alarm->findChild<QSpinBox*>("inspectionCycleSpin")->isEnabled());
        QCOMPARE(alarm->findChild<QSpinBox*>("rigDaysPriorSpin")->value(), 30);
        QCOMPARE(alarm->findChild<QSpinBox*>("inspectionCycleSpin")->value(), 180);
        alarm->findChild<QCheckBox*>("rigAlarmBox")->setChecked(true);
        QVERIFY(alarm->findChild<QSpinBox*>("rigDaysPriorSpin")->isEnabled() &&
                alarm->findChild<QSpinBox*>("inspectionCycleSpin")->isEnabled());
        alarm->findChild<QSpinBox*>("inspectionCycleSpin")->setValue(730);

        auto* page = dlg.findChild<CDlgEquipmentsPageEquipments*>();
        auto* list = page->findChild<QListWidget*>("equipmentList");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
        list->setCurrentRow(0);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(Rows(list), (QStringList{"[1] Javelin / Pilot", "[4] Infinity / Sabre2"}));
        page->findChild<QPushButton*>("newEquipmentButton")->click();
        page->findChild<QPushButton*>("newEquipmentButton")->click();
        QCOMPARE(Rows(list).mid(2), QStringList{"[5] Mirage / Stiletto"});
        list->setCurrentRow(0);
        messages.yesNoAnswer = false;
        page->findChild<QPushButton*>("removeEquipmentButton")->click();
        QCOMPARE(list->count(), 3);
        messages.yesNoAnswer = true;
        page->findChild<QPushButton*>("removeEquipmentButton")->click();
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

    // Each refused value shows one message (a missing name as an error, a number out of range as
    // a warning) and puts the focus on its field, the editor staying open; mended, OK hands every
    // value back.
    void rigEditorFocusesTheRefusedFieldAndKeepsEveryValueOnOk()
    {
        CEquipment rig(3);
        rig.SetInspectionDate(CDateTime(2024, 2, 29));
        CRecordingMessages messages;
        CDlgEquipment dlg(rig, &messages);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        QCOMPARE(dlg.findChild<CKqDateEdit*>("inspectionDate")->date(), QDate(2024, 2, 29));
        // Both canopy sizes are square feet.
        const QList<QLabel*> labels = dlg.findChildren<QLabel*>();
        QCOMPARE(
            std::count_if(labels.begin(), labels.end(), [](QLabel* l) { return l->text() == QStringLiteral("ft²"); }),
            qsizetype(2));
        const struct
        {
            const char *harness, *main, *size, *focus, *message;
            CRecordingMessages::Kind kind;
        } cases[] = {
            {"   ", "Sabre2", "170", "harnessEdit", "Please enter a harness.", CRecordingMessages::Kind::Error},
            {"Javelin", " ", "170", "mainEdit", "Please enter a main canopy.", CRecordingMessages::Kind::Error},
            {"Javelin", "Sabre2", "1000", "mainSizeEdit", "Please enter a value between 0 and 999.",
             CRecordingMessages::Kind::Warning}};
        for (const auto& c : cases) {
            dlg.findChild<QLineEdit*>("harnessEdit")->setText(QLatin1String(c.harness));
            dlg.findChild<QLineEdit*>("mainEdit")->setText(QLatin1String(c.main));
            dlg.findChild<QLineEdit*>("mainSizeEdit")->setText(QLatin1String(c.size));
            dlg.accept();
            QCOMPARE(messages.boxes.last().text, QLatin1String(c.message));
            QVERIFY(messages.boxes.last().kind == c.kind);
            QCOMPARE(dlg.focusWidget()->objectName(), QLatin1String(c.focus));
        }
        QCOMPARE(messages.boxes.size(), qsizetype(3));
        QVERIFY(dlg.isVisible());

        dlg.findChild<QLineEdit*>("mainSizeEdit")->setText(QStringLiteral("0"));
        dlg.findChild<QLineEdit*>("reserveSizeEdit")->setText(QStringLiteral("143"));
        dlg.findChild<QSpinBox*>("previousJumpsSpin")->setValue(32767);
        dlg.findChild<QCheckBox*>("activeBox")->setChecked(false);
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
        QCOMPARE(dlg.findChild<CKqDateEdit*>("inspectionDate")->text(), QStringLiteral("None"));
        QCalendarWidget* calendar = dlg.findChild<CKqDateEdit*>("inspectionDate")->calendarWidget();
        QShowEvent shown;
        QCoreApplication::sendEvent(calendar, &shown);
        QCOMPARE(calendar->yearShown(), QDate::currentDate().year());
        QCOMPARE(calendar->monthShown(), QDate::currentDate().month());
        dlg.accept();
        QVERIFY(!dlg.Result()->GetInspectionDate().IsValid());

        CDlgEquipment picked(rig, nullptr);
        picked.findChild<CKqDateEdit*>("inspectionDate")->setDate(QDate(2024, 3, 1));
        picked.accept();
        QVERIFY(picked.Result()->GetInspectionDate().SameDay(CDateTime(2024, 3, 1)));
    }
};

QTEST_MAIN(TestDlgEquipments)
#include "DlgEquipmentsTest.moc"
