#include "CAppHarness.h"

#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CSettingsCommands.h"
#include "app/CSummaryPane.h"
#include "dialogs/CDlgEquipment.h"
#include "dialogs/CDlgEquipments.h"
#include "dialogs/CDlgEquipmentsPageEquipments.h"
#include "dialogs/CDlgPreferences.h"
#include "dialogs/CDlgUser.h"
#include "model/CJumpSeal.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <memory>

class TestSettingsCommands : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<CAppHarness> h;

    CTestLogbook Logbook() const
    {
        CTestLogbook logbook;
        logbook.Rig(1, true, CTestLogbook::Day(2024, 1, 10)).Rig(2, true, {}).Rig(3, false, {});
        logbook.Jumps(1, 3);
        return logbook;
    }

    QStringList RigTexts() const
    {
        const CLogbookDoc& doc = h->Frame()->Document();
        QStringList texts;
        for (const auto& jump : doc.GetJumps())
            texts.append(QString::fromStdString(jump->GetEquipmentText(doc.GetSettings().GetEquipmentList())));
        return texts;
    }

    QAction* Action(const char* name) const { return h->Frame()->findChild<QAction*>(QLatin1String(name)); }

private slots:
    void init() { h = std::make_unique<CAppHarness>(); }
    void cleanup() { h.reset(); }

    void commandsAreGreyedWithoutALogbook()
    {
        QVERIFY(h->StartWithoutSplash());
        for (const char* name : {"userProfileAction", "equipmentAction", "preferencesAction"}) {
            QVERIFY2(Action(name) && !Action(name)->isEnabled(), name);
        }
        h->Frame()->SettingsCommands()->OnPreferences();
        QVERIFY(h->dialogs.ran.isEmpty());
        QVERIFY(!h->StartWith(Logbook()).isEmpty());
        QVERIFY(Action("userProfileAction")->isEnabled());
    }

    // Each command applies its dialog only on OK: Cancel leaves the logbook untouched, the units
    // change the summary but not the logbook, a logbook value marks it modified, and removing a
    // rig keeps what every jump shows as its rig.
    void commandsApplyTheirDialogsOnOk()
    {
        QVERIFY(!h->StartWith(Logbook()).isEmpty());
        CLogbookDoc& doc = h->Frame()->Document();
        h->dialogs.steps.append([](QDialog& dialog) {
            qobject_cast<CDlgUser*>(&dialog)->InitialisePages();
            return int(QDialog::Rejected);
        });
        Action("userProfileAction")->trigger();
        QCOMPARE(h->dialogs.ran, QStringList{"dlgUser"});
        QVERIFY(!doc.IsModified());

        CSummaryPane* summary = h->View()->Summary();
        QCOMPARE(summary->LabelText(2), QStringLiteral("Freefall Dist. [mi]"));
        QCOMPARE(summary->ValueText(2), QStringLiteral("6"));
        h->dialogs.steps.append(CScriptedDialogs::Ok<CDlgPreferences>(
            [](CDlgPreferences& dlg) { dlg.findChild<QComboBox*>("unitsCombo")->setCurrentIndex(1); }));
        Action("preferencesAction")->trigger();
        QCOMPARE(summary->LabelText(2), QStringLiteral("Freefall Dist. [km]"));
        QCOMPARE(summary->ValueText(2), QStringLiteral("9"));
        QVERIFY(h->Frame()->Units().IsMetric());
        QCOMPARE(h->settings.GetInt("Preferences", "Units", -1), 1);
        QVERIFY(!doc.IsModified());

        h->dialogs.steps.append(CScriptedDialogs::Ok<CDlgPreferences>(
            [](CDlgPreferences& dlg) { dlg.findChild<QSpinBox*>("previousJumpsSpin")->setValue(12); }));
        h->Frame()->SettingsCommands()->OnPreferences();
        QVERIFY(doc.IsModified());

        doc.SetModified(false);
        for (int i = 0; i < 3; ++i)
            doc.ChangeJump(std::size_t(i), [i](CJump& jump) { return jump.SetEquipmentByIndex(i); });
        const QStringList before = RigTexts();
        h->dialogs.steps.append(CScriptedDialogs::Ok<CDlgEquipments>([](CDlgEquipments& dlg) {
            dlg.InitialisePages();
            dlg.findChild<QListWidget*>("equipmentList")->setCurrentRow(1);
            dlg.findChild<QPushButton*>("removeEquipmentButton")->click();
        }));
        Action("equipmentAction")->trigger();
        QCOMPARE(doc.GetSettings().GetEquipmentList().GetCount(), std::size_t(2));
        QCOMPARE(RigTexts(), before);
        QVERIFY(doc.IsModified());
    }

    // A rig renamed under signed jumps changes what they show: the command asks with their
    // number first, and No leaves rigs and seals alone. Removing a rig asks nothing.
    void aChangeToWhatSignedJumpsShowIsAskedFirst()
    {
        QVERIFY(!h->StartWith(Logbook()).isEmpty());
        CLogbookDoc& doc = h->Frame()->Document();
        for (std::size_t i = 0; i < 3; ++i)
            doc.ChangeJump(i, [&doc, i](CJump& jump) {
                jump.SetEquipmentByIndex(i == 2 ? 1 : 0);
                jump.SetSignature("Anna", {{{1, 1}}});
                jump.Signature().SetId(JumpSeal::Compute(jump, doc.GetSettings()));
                return true;
            });
        const auto rename = [this](int row) {
            h->dialogs.steps = {CScriptedDialogs::Ok<CDlgEquipments>([row](CDlgEquipments& dlg) {
                                    dlg.InitialisePages();
                                    dlg.findChild<CDlgEquipmentsPageEquipments*>()->OpenRow(row);
                                }),
                                CScriptedDialogs::Ok<CDlgEquipment>([](CDlgEquipment& dlg) {
                                    dlg.findChild<QLineEdit*>("harnessEdit")->setText("Mirage");
                                    dlg.findChild<QLineEdit*>("mainEdit")->setText("Sabre");
                                })};
            Action("equipmentAction")->trigger();
        };
        const auto states = [&doc] {
            QList<SealState> all;
            for (const auto& jump : doc.GetJumps())
                all.append(jump->GetSealState());
            return all;
        };
        h->messages.yesNoAnswer = false;
        rename(0);
        QCOMPARE(h->messages.Texts(CRecordingMessages::Kind::YesNo),
                 QStringList{"This changes what 2 signed jumps show. Their witnesses signed the values as they were, "
                             "so these jumps will show as changed after signing. Do you want to make the change?"});
        QCOMPARE(RigTexts(), (QStringList{"[1] Rig 1", "[1] Rig 1", "[2] Rig 2"}));
        QCOMPARE(states(), (QList<SealState>{SealState::Intact, SealState::Intact, SealState::Intact}));

        h->messages.boxes.clear();
        h->messages.yesNoAnswer = true;
        rename(1);
        QCOMPARE(h->messages.Texts(CRecordingMessages::Kind::YesNo).size(), 1);
        QCOMPARE(states(), (QList<SealState>{SealState::Intact, SealState::Intact, SealState::Changed}));

        h->messages.boxes.clear();
        h->dialogs.steps.append(CScriptedDialogs::Ok<CDlgEquipments>([](CDlgEquipments& dlg) {
            dlg.InitialisePages();
            dlg.findChild<QListWidget*>("equipmentList")->setCurrentRow(0);
            dlg.findChild<QPushButton*>("removeEquipmentButton")->click();
        }));
        Action("equipmentAction")->trigger();
        const QStringList asked = h->messages.Texts(CRecordingMessages::Kind::YesNo);
        QCOMPARE(asked.size(), 1);
        QVERIFY2(asked[0].startsWith("Do you want to remove the equipment"), qPrintable(asked[0]));
        QCOMPARE(states(), (QList<SealState>{SealState::Intact, SealState::Intact, SealState::Changed}));
    }

    // Values at and beyond the ends of the fields' ranges, as a file may hold them, are shown as
    // they are; OK without a change keeps them and leaves the logbook unmodified.
    void untouchedDialogsKeepValuesBeyondTheirFields()
    {
        for (const int beyond : {0, 1}) {
            const CRow trace{beyond ? "beyond the ends" : "at the ends"};
            h.reset();
            h = std::make_unique<CAppHarness>();
            CTestLogbook logbook;
            logbook.Membership(CTestLogbook::Day(2030, 1, 31), 365 + 35 * beyond)
                .RigAlarm(365 + 10 * beyond, 730 + 270 * beyond)
                .Rig(1, true, CTestLogbook::Day(2024, 1, 10), beyond ? 123456 : 32767, beyond ? 1200 : 999)
                .PreviousJumps(beyond ? 40000 : 32767)
                .Jumps(1, 2);
            QVERIFY(!h->StartWith(logbook).isEmpty());
            QMap<QString, int> shown;
            const auto record = [&shown](QWidget& dialog, const char* name) {
                shown[QLatin1String(name)] = dialog.findChild<QSpinBox*>(QLatin1String(name))->value();
            };
            h->dialogs.steps = {CScriptedDialogs::Ok<CDlgUser>([&](CDlgUser& dlg) {
                                    dlg.InitialisePages();
                                    record(dlg, "daysPriorSpin");
                                }),
                                CScriptedDialogs::Ok<CDlgEquipments>([&](CDlgEquipments& dlg) {
                                    dlg.InitialisePages();
                                    record(dlg, "rigDaysPriorSpin");
                                    record(dlg, "inspectionCycleSpin");
                                    dlg.findChild<CDlgEquipmentsPageEquipments*>()->OpenRow(0);
                                }),
                                CScriptedDialogs::Ok<CDlgEquipment>([&](CDlgEquipment& dlg) {
                                    record(dlg, "previousJumpsSpin");
                                    shown["mainSize"] = dlg.findChild<QLineEdit*>("mainSizeEdit")->text().toInt();
                                }),
                                CScriptedDialogs::Ok<CDlgPreferences>([&](CDlgPreferences& dlg) {
                                    shown["previousJumps"] = dlg.findChild<QSpinBox*>("previousJumpsSpin")->value();
                                })};
            Action("userProfileAction")->trigger();
            Action("equipmentAction")->trigger();
            Action("preferencesAction")->trigger();
            QCOMPARE(h->dialogs.ran, (QStringList{"dlgUser", "dlgEquipments", "dlgEquipment", "dlgPreferences"}));
            const QMap<QString, int> stored = {
                {"daysPriorSpin", 365 + 35 * beyond},        {"rigDaysPriorSpin", 365 + 10 * beyond},
                {"inspectionCycleSpin", 730 + 270 * beyond}, {"previousJumpsSpin", beyond ? 123456 : 32767},
                {"mainSize", beyond ? 1200 : 999},           {"previousJumps", beyond ? 40000 : 32767}};
            QCOMPARE(shown, stored);
            QVERIFY(h->messages.boxes.isEmpty());
            QVERIFY(!h->Frame()->Document().IsModified());
            const CLogbookSettings& settings = h->Frame()->Document().GetSettings();
            QCOMPARE(settings.GetPreviousJumps(), stored["previousJumps"]);
            QCOMPARE(settings.GetEquipmentList().Get(0).GetPreviousJumps(), stored["previousJumpsSpin"]);
        }
    }

    // New: the three dialogs follow one another while each ends with OK.
    void newLogbookChainStopsAtTheFirstCancel()
    {
        const QStringList all = {"dlgUser", "dlgEquipments", "dlgPreferences"};
        for (const int oks : {0, 1, 3}) {
            h.reset(); // one window at a time, as the program has
            h = std::make_unique<CAppHarness>();
            QVERIFY(h->StartWithoutSplash());
            h->files.saveAnswers.append(h->Path(QStringLiteral("new.tvz")));
            for (int i = 0; i < oks; ++i)
                h->dialogs.steps.append(CScriptedDialogs::Ok<QDialog>([](QDialog&) {}));
            Action("fileNewAction")->trigger();
            QCOMPARE(h->dialogs.ran, all.mid(0, std::min(oks + 1, 3)));
        }
    }
};

QTEST_MAIN(TestSettingsCommands)
#include "SettingsCommandsTest.moc"
