#include "CRecordingMessages.h"
#include "CScriptedDialogs.h"

#include "controls/CDurationPadDlg.h"
#include "controls/CNumberPadDlg.h"
#include "dialogs/CDlgPreferences.h"
#include "document/CLogbookDoc.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"
#include "units/DurationText.h"

#include <QComboBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <memory>

class TestDlgPreferences : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        doc = std::make_unique<CLogbookDoc>();
        store = CMemorySettingsStore();
        units = CUnitSettings(1, 0, 1);
    }

    // Cancel stores nothing. The units switch refills the speed list and relabels and converts
    // the fallrate, keeping the speed choice; OK stores the units and the speed choice together.
    void switchesRefillTheSpeedListAndOkStoresThem()
    {
        CLogbookSettings settings;
        settings.SetCustomFallrateSpeed(5.0);
        doc->ReplaceSettings(settings);
        CDlgPreferences cancelled(units, &store, *doc, nullptr);
        cancelled.findChild<QComboBox*>("unitsCombo")->setCurrentIndex(0);
        cancelled.reject();
        QVERIFY(units.IsMetric());
        QVERIFY(!store.Contains("Preferences", "Units"));

        CDlgPreferences dlg(units, &store, *doc, nullptr);
        QCOMPARE(dlg.findChild<QLabel*>("fallrateLabel")->text(), QStringLiteral("Custom Fallrate [m/s]"));
        QVERIFY(dlg.findChild<QComboBox*>("glideCombo")->isHidden());
        dlg.findChild<QComboBox*>("unitsCombo")->setCurrentIndex(0);
        QCOMPARE(dlg.findChild<QComboBox*>("speedCombo")->itemText(0), QStringLiteral("ft/s"));
        QCOMPARE(dlg.findChild<QComboBox*>("speedCombo")->itemText(1), QStringLiteral("mph"));
        QCOMPARE(dlg.findChild<QPushButton*>("fallrateButton")->text(), QLocale().toString(16.4, 'f', 1));
        QCOMPARE(dlg.findChild<QLabel*>("fallrateLabel")->text(), QStringLiteral("Custom Fallrate [ft/s]"));
        dlg.findChild<QComboBox*>("unitsCombo")->setCurrentIndex(1);
        dlg.findChild<QComboBox*>("speedCombo")->setCurrentIndex(1);
        QCOMPARE(dlg.findChild<QLabel*>("fallrateLabel")->text(), QStringLiteral("Custom Fallrate [km/h]"));
        dlg.findChild<QComboBox*>("unitsCombo")->setCurrentIndex(0);
        QCOMPARE(dlg.findChild<QComboBox*>("speedCombo")->currentIndex(), 1);
        QCOMPARE(dlg.findChild<QLabel*>("fallrateLabel")->text(), QStringLiteral("Custom Fallrate [mph]"));
        dlg.accept();
        dlg.Edit().Apply(units, &store, *doc); // the command's part of OK
        QVERIFY(!units.IsMetric());
        QCOMPARE(store.GetInt("Preferences", "DisplaySpeedAs", -1), 1);
    }

    void padsTypeTheFallrateAndTheFreefallTime()
    {
        CScriptedDialogs runner;
        int padSeconds = -1;
        runner.steps.append([](QDialog& pad) {
            QTest::keyClick(&pad, Qt::Key_Delete);
            QTest::keyClicks(&pad, QStringLiteral("55.5"));
            return int(QDialog::Accepted);
        });
        runner.steps.append([&padSeconds](QDialog& dialog) {
            auto* pad = qobject_cast<CDurationPadDlg*>(&dialog);
            if (!pad || pad->windowTitle() != QStringLiteral("Freefall Time"))
                return int(QDialog::Rejected);
            QTest::keyClick(pad, Qt::Key_2);
            pad->KeyButton(CDurationPadState::Key::SecondPlus5)->click();
            padSeconds = pad->Hours() * 3600 + pad->Minutes() * 60 + pad->Seconds();
            return int(QDialog::Accepted);
        });
        CDlgPreferences dlg(units, &store, *doc, nullptr);
        dlg.SetDialogRunner(&runner);
        dlg.findChild<QPushButton*>("fallrateButton")->click();
        QCOMPARE(dlg.findChild<QPushButton*>("fallrateButton")->text(), QLocale().toString(55.5, 'f', 1));
        dlg.findChild<QPushButton*>("freefallButton")->click();
        QVERIFY(padSeconds > 0);
        QCOMPARE(dlg.Edit().previousDelay, padSeconds);
        QCOMPARE(dlg.findChild<QPushButton*>("freefallButton")->text(),
                 QString::fromStdString(DurationToText(padSeconds, true)));
        dlg.accept();
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QVERIFY(dlg.Edit().Apply(units, &store, *doc));
        QCOMPARE(doc->GetSettings().FallrateSpeed(FallrateKind::Custom), 55.5);
        QCOMPARE(doc->GetSettings().GetPreviousDelay(), padSeconds);
    }

    // A changed count beyond the range is refused with one warning and the focus on its field;
    // the dialog stays open until it is mended.
    void refusedPreviousJumpsKeepTheDialogOpenOnTheirField()
    {
        CRecordingMessages messages;
        CDlgPreferences dlg(units, &store, *doc, &messages);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        auto* jumps = dlg.findChild<QSpinBox*>("previousJumpsSpin");
        jumps->setValue(CPreferencesEdit::kMaxPreviousJumps + 1);
        dlg.accept();
        QCOMPARE(messages.Texts(CRecordingMessages::Kind::Warning),
                 QStringList{QStringLiteral("Please enter a value between 0 and 32767.")});
        QCOMPARE(dlg.focusWidget(), jumps);
        QVERIFY(dlg.isVisible());
        jumps->setValue(CPreferencesEdit::kMaxPreviousJumps);
        dlg.accept();
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
    }

private:
    std::unique_ptr<CLogbookDoc> doc;
    CMemorySettingsStore store;
    CUnitSettings units;
};

QTEST_MAIN(TestDlgPreferences)
#include "DlgPreferencesTest.moc"
