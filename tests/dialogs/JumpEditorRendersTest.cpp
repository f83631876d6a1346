// Pictures of every page of the jump editor for a new, a changed and a signed (view-only) jump,
// one with a formatted note and a drawn signature, at 240x320, 320x240, 360x640 and 1024x768,
// written as PNG files into the folder named by TERVOLA_RENDER_DIR (nothing is written without
// it). Each picture is checked: no text cut short, no page that only fits by scrolling sideways.

#include "CPictureLanguage.h"
#include "CRecordingMessages.h"
#include "CRenderCheck.h"

#include "dialogs/CDlgJump.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"

#include <QDir>
#include <QTabWidget>
#include <QTest>

#include <cmath>
#include <memory>

namespace {

// A logbook whose second jump is signed, with a formatted note, wind and a rig.
std::unique_ptr<CLogbookDoc> Logbook(std::vector<CJump*>& added)
{
    auto doc = std::make_unique<CLogbookDoc>();
    auto rig = std::make_unique<CEquipment>(3);
    rig->SetHarness("Javelin Odyssey");
    rig->SetMainCanopy("Sabre2 170");
    doc->GetSettings().GetEquipmentList().Add(std::move(rig));
    for (int number : {41, 42}) {
        auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2024, 7, number - 30, 15, 40, 0), 180},
                                            CDateTime(2024, 7, 20));
        jump->SetFallrate(Standard, 4000, 1000, 0, 0, 0);
        jump->SetPlace("Jämijärvi");
        jump->SetAircraft("Cessna 208 Caravan");
        jump->SetType("4-way FS");
        jump->SetLanding("OK");
        jump->SetWind(250, 4.5);
        jump->SetEquipmentByIndex(0);
        added.push_back(doc->AddJump(std::move(jump)));
    }
    CJump* signedJump = added[1];
    signedJump->SetNote("<p>Exit <b>on time</b>, <i>clean</i> break-off.</p><ul><li>track 10 s</li></ul>");
    std::vector<CJumpSignature::Stroke> strokes;
    CJumpSignature::Stroke stroke;
    for (int x = 20; x <= 220; x += 4)
        stroke.push_back({x, 50 + static_cast<int>(25 * std::sin(x / 14.0))});
    strokes.push_back(stroke);
    strokes.push_back({{60, 80}, {180, 82}});
    signedJump->SetSignature("Mikko Virtanen, D-1187", strokes);
    return doc;
}

} // namespace

class TestJumpEditorRenders : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { PictureLanguage::Use(QLocale()); }

    void everyPageAtEverySize()
    {
        const QString folder = qEnvironmentVariable("TERVOLA_RENDER_DIR");
        std::vector<CJump*> jumps;
        std::unique_ptr<CLogbookDoc> doc = Logbook(jumps);
        CMemorySettingsStore store;
        CFixedClock clock(CDateTime(2024, 7, 21, 11, 5, 0));
        CRecordingMessages messages;
        const struct
        {
            const char* name;
            CJump* jump;
            bool metric;
        } modes[] = {{"new", nullptr, true}, {"change", jumps[0], false}, {"signed", jumps[1], true}};
        for (const auto& mode : modes) {
            CUnitSettings units(mode.metric ? CUnitSettings::Metric : CUnitSettings::Imperial, 0, 0);
            for (const QSize size : {QSize(240, 320), QSize(320, 240), QSize(360, 640), QSize(1024, 768)}) {
                CDlgJump dialog(*doc, units, &store, clock, mode.jump, &messages);
                dialog.show();
                QVERIFY(QTest::qWaitForWindowExposed(&dialog));
                // A desktop shows the editor at its natural size, a handheld or phone full-screen.
                dialog.resize(size.width() > 500 ? dialog.sizeHint().expandedTo(QSize(480, 420)) : size);
                for (int page = 0; page < dialog.PageCount(); ++page) {
                    dialog.StartOnPage(page);
                    QCoreApplication::processEvents();
                    const QString file = QStringLiteral("jump_%1_%2_%3x%4.png")
                                             .arg(QString::fromLatin1(mode.name))
                                             .arg(page)
                                             .arg(size.width())
                                             .arg(size.height());
                    if (!folder.isEmpty())
                        QVERIFY(dialog.grab().save(QDir(folder).filePath(file)));
                    QWidget* shown = dialog.Tabs()->currentWidget();
                    const QStringList problems = RenderCheck::Clipped(shown) + RenderCheck::ScrollsSideways(shown);
                    QVERIFY2(problems.isEmpty(), qPrintable(file + ": " + problems.join(QStringLiteral("; "))));
                }
            }
        }
        QVERIFY(messages.boxes.isEmpty());
    }
};

QTEST_MAIN(TestJumpEditorRenders)
#include "JumpEditorRendersTest.moc"
