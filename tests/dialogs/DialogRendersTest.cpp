// Pictures of every page of the jump editor (a new jump, a changed one with an imported
// barometric recording, a signed view-only one with a formatted note, a drawn signature and a
// satellite recording), of the profile, equipment and preferences dialogs, of the rig editor and
// of the owner editor at 240x320, 320x240, 360x640 and 1024x768, written as PNG files into the
// folder named by TERVOLA_RENDER_DIR (nothing is written without it). Each picture is checked:
// no text cut short, no page that only fits by scrolling sideways, no tab row that scrolls from
// 320 pixels on, and a recording's plot with its cursor's box fits its page without scrolling up
// and down.

#include "CRecordingMessages.h"
#include "CRenderCheck.h"
#include "tests/controls/SyntheticJump.h"

#include "controls/CRecordingPlot.h"
#include "dialogs/CDlgEquipment.h"
#include "dialogs/CDlgEquipments.h"
#include "dialogs/CDlgJump.h"
#include "dialogs/CDlgJumpPageRecording.h"
#include "dialogs/CDlgJumpPageSignature.h"
#include "dialogs/CDlgPreferences.h"
#include "dialogs/CDlgPrintOptions.h"
#include "dialogs/CDlgUser.h"
#include "dialogs/CDlgUserOwner.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "model/CJumpSeal.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"

#include <QComboBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <cmath>
#include <functional>
#include <memory>

namespace {

// A profile with a membership and licenses, two rigs, and jumps 41 and 42 with wind and a rig;
// 41 has a barometric recording imported with its fall rate, 42 a satellite recording, a
// signature and a formatted note.
std::unique_ptr<CLogbookDoc> Logbook(std::vector<const CJump*>& added)
{
    auto doc = std::make_unique<CLogbookDoc>();
    CLogbookSettings settings;
    settings.SetOwnerName("Aino Mäkelä");
    settings.GetMembership().SetMemberNumber("SIL 20417");
    settings.GetMembership().SetExpirationDate(CDateTime(2025, 3, 31));
    settings.GetMembership().SetAlarmDays(14);
    settings.SetLicenses({"A-License", "B-License"});
    for (int number : {3, 4}) {
        auto rig = std::make_unique<CEquipment>(number);
        rig->SetHarness("Javelin Odyssey");
        rig->SetMainCanopy("Sabre2 170");
        rig->SetReserveCanopy("PD Reserve 160");
        settings.GetEquipmentList().Add(std::move(rig));
    }
    doc->ReplaceSettings(settings);
    CJumpSignature::Stroke wave;
    for (int x = 20; x <= 220; x += 4)
        wave.push_back({x, 50 + static_cast<int>(25 * std::sin(x / 14.0))});
    for (int number : {41, 42}) {
        auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2024, 7, number - 30, 15, 40, 0), 180},
                                            CDateTime(2024, 7, 20));
        jump->SetFallrate(FallrateKind::Standard, 4000, 1000, 0, 0, 0);
        jump->SetPlace("Jämijärvi");
        jump->SetAircraft("Cessna 208 Caravan");
        jump->SetType("4-way FS");
        jump->SetLanding("OK");
        jump->SetWind(250, 4.5);
        jump->SetEquipmentByIndex(0);
        jump->Recording() =
            SyntheticJump::Recording(number == 41 ? CJumpRecording::Barometric : CJumpRecording::Satellite);
        if (number == 41) {
            jump->SetFallrateValues({FallrateKind::Import, 4000, 1000,
                                     static_cast<int>(std::lround(SyntheticJump::FreefallTime())), 200, 55.0, 47.0});
        } else {
            jump->SetNote("<p>Exit <b>on time</b>, <i>clean</i> break-off.</p><ul><li>track 10 s</li></ul>");
            jump->SetSignature("Mikko Virtanen, D-1187", {wave, {{60, 80}, {180, 82}}});
        }
        added.push_back(doc->AddJump(std::move(jump)));
    }
    return doc;
}

} // namespace

class TestDialogRenders : public QObject
{
    Q_OBJECT

private:
    // Every page at every size: a handheld or phone full-screen, a desktop at the size desktop
    // gives for the dialog (the screen's without it).
    void Shoot(QDialog& dlg, const QString& name, const std::function<QSize(QSize)>& desktop = {})
    {
        auto* sheet = qobject_cast<CKqPropertySheet*>(&dlg);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        for (const QSize& size : RenderCheck::kSizes) {
            dlg.resize(size.width() > 500 && desktop ? desktop(size) : size);
            for (int page = 0; page < (sheet ? sheet->PageCount() : 1); ++page) {
                if (sheet)
                    sheet->StartOnPage(page);
                QCoreApplication::processEvents();
                const QString file =
                    QStringLiteral("%1_%2_%3x%4.png").arg(name).arg(page).arg(size.width()).arg(size.height());
                QWidget* shown = sheet ? sheet->Tabs()->currentWidget() : &dlg;
                QStringList problems = RenderCheck::Clipped(&dlg) + RenderCheck::ScrollsSideways(shown);
                // Every page's title is in sight without scrolling: in the tab row, or where that
                // cannot fit, in the list of pages that takes its place; a sheet of one page shows
                // neither.
                if (sheet && sheet->PageCount() == 1) {
                    if (sheet->Tabs()->tabBar()->isVisibleTo(&dlg) ||
                        sheet->findChild<QComboBox*>(QStringLiteral("sheetPages"))->isVisibleTo(&dlg))
                        problems.append(QStringLiteral("a single page with tabs"));
                } else if (sheet) {
                    const QTabBar* bar = sheet->Tabs()->tabBar();
                    const auto* pages = sheet->findChild<QComboBox*>(QStringLiteral("sheetPages"));
                    if (bar->isVisibleTo(&dlg) && bar->sizeHint().width() > sheet->Tabs()->width())
                        problems.append(QStringLiteral("the tab row scrolls"));
                    if (bar->isVisibleTo(&dlg) == pages->isVisibleTo(&dlg) ||
                        (pages->isVisibleTo(&dlg) && pages->currentIndex() != page))
                        problems.append(QStringLiteral("tabs and list of pages disagree"));
                }
                if (auto* recording = qobject_cast<CDlgJumpPageRecording*>(sheet ? sheet->Page(page) : nullptr)) {
                    CRecordingPlot* plot = recording->Plot();
                    QTest::mouseMove(plot, QPoint(qRound(plot->XOfTime(20.0)), qRound(plot->SpeedArea().center().y())));
                    dlg.grab(); // the cursor's box is placed as it is painted
                    if (!plot->HasCursor() || !QRectF(plot->rect()).contains(plot->CursorBox()))
                        problems.append(QStringLiteral("cursor box outside"));
                    if (qobject_cast<QScrollArea*>(shown)->verticalScrollBar()->maximum() > 0)
                        problems.append(QStringLiteral("scrolls up and down"));
                }
                QVERIFY(RenderCheck::Save(&dlg, file));
                QVERIFY2(problems.isEmpty(), qPrintable(file + ": " + problems.join(QStringLiteral("; "))));
            }
        }
    }

    std::vector<const CJump*> m_jumps;
    std::unique_ptr<CLogbookDoc> m_doc = Logbook(m_jumps);
    CMemorySettingsStore m_store;
    CFixedClock m_clock{CDateTime(2024, 7, 21, 11, 5, 0)};
    CRecordingMessages m_messages;

private slots:
    void initTestCase() { RenderCheck::UseLanguage(QLocale()); }
    void cleanupTestCase() { QVERIFY(m_messages.boxes.isEmpty()); }

    void jumpEditor()
    {
        const struct
        {
            const char* name;
            const CJump* jump;
            CUnitSettings units;
        } modes[] = {{"new", nullptr, {CUnitSettings::Metric, 0, 0}},
                     {"change", m_jumps[0], {CUnitSettings::Imperial, CUnitSettings::PerSecond, 0}},
                     {"signed", m_jumps[1], {CUnitSettings::Metric, CUnitSettings::PerHour, 0}}};
        for (const auto& mode : modes) {
            CDlgJump dialog(*m_doc, mode.units, &m_store, m_clock, mode.jump, &m_messages);
            Shoot(dialog, QStringLiteral("jump_") + mode.name,
                  [&dialog](QSize) { return dialog.sizeHint().expandedTo(QSize(480, 420)); });
        }
    }

    // The Signature page of a jump sealed here, of one changed after signing and of one signed
    // by another program (jump 42), at the handheld's and the desktop's size.
    void signaturePageInEachSealState()
    {
        for (const int number : {43, 44}) {
            auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2024, 7, 20, 12, 0, 0), 180},
                                                CDateTime(2024, 7, 20));
            jump->SetPlace("Utti");
            jump->SetSignature("Mikko Virtanen", m_jumps[1]->GetSignature().GetStrokes());
            jump->Signature().SetLicence("SIL-D-1042");
            jump->Signature().SetId(JumpSeal::Compute(*jump, m_doc->GetSettings()));
            if (number == 44)
                jump->SetPlace("Utti East");
            m_jumps.push_back(m_doc->AddJump(std::move(jump)));
        }
        const struct
        {
            const char* name;
            const CJump* jump;
            SealState state;
        } states[] = {{"sealed", m_jumps[2], SealState::Intact},
                      {"changed", m_jumps[3], SealState::Changed},
                      {"unsealed", m_jumps[1], SealState::Unsealed}};
        for (const auto& row : states) {
            QCOMPARE(row.jump->GetSealState(), row.state);
            const CUnitSettings units(CUnitSettings::Metric, 0, 0);
            CDlgJump dialog(*m_doc, units, &m_store, m_clock, row.jump, &m_messages);
            dialog.show();
            QVERIFY(QTest::qWaitForWindowExposed(&dialog));
            dialog.StartOnPage(CJumpEdit::PageSignature);
            const auto* seal = dialog.findChild<QLabel*>("jumpSeal");
            QVERIFY(seal->isVisibleTo(&dialog));
            QCOMPARE(seal->text(), CDlgJumpPageSignature::SealLine(row.state));
            for (const QSize size : {QSize(240, 320), dialog.sizeHint().expandedTo(QSize(480, 420))}) {
                dialog.resize(size);
                QCoreApplication::processEvents();
                const QString file =
                    QStringLiteral("jump_seal_%1_%2x%3.png").arg(row.name).arg(size.width()).arg(size.height());
                const QStringList problems =
                    RenderCheck::Clipped(&dialog) + RenderCheck::ScrollsSideways(dialog.Tabs()->currentWidget());
                QVERIFY(RenderCheck::Save(&dialog, file));
                QVERIFY2(problems.isEmpty(), qPrintable(file + ": " + problems.join(QStringLiteral("; "))));
            }
        }
    }

    void settingsDialogs()
    {
        CLogbookSettings settings = m_doc->GetSettings();
        CDlgUser user(settings, &m_messages);
        Shoot(user, QStringLiteral("user"));
        CDlgEquipments equipments(*m_doc, &m_messages);
        Shoot(equipments, QStringLiteral("equipments"));
        CDlgEquipment rig(m_doc->GetSettings().GetEquipmentList().Get(0), &m_messages);
        Shoot(rig, QStringLiteral("rig"));
        CUnitSettings units;
        CDlgPreferences preferences(units, &m_store, *m_doc, &m_messages);
        Shoot(preferences, QStringLiteral("preferences"));
        CDlgUserOwner owner(QStringLiteral("Aino Mäkelä"), QStringLiteral("SIL 20417"));
        Shoot(owner, QStringLiteral("owner"));
        CDlgPrintOptions print(*m_doc, {0}, CPrintOptionsEdit::A4, &m_messages);
        Shoot(print, QStringLiteral("print"));
    }
};

QTEST_MAIN(TestDialogRenders)
#include "DialogRendersTest.moc"
