// Pictures of every page of the profile, equipment and preferences dialogs, of the rig editor
// and of the owner editor at the handheld's 240x320 and 320x240 and at 360x640 and 1024x768,
// written as PNG files into the folder named by TERVOLA_RENDER_DIR (nothing is written without
// it). Each picture is also checked: no label or button may be narrower or lower than it needs
// to show its text.

#include "CPictureLanguage.h"
#include "CRecordingMessages.h"
#include "CRenderCheck.h"

#include "controls/CKqPropertyPage.h"
#include "dialogs/CDlgEquipment.h"
#include "dialogs/CDlgEquipments.h"
#include "dialogs/CDlgPreferences.h"
#include "dialogs/CDlgUser.h"
#include "dialogs/CDlgUserOwner.h"
#include "document/CLogbookDoc.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QTabWidget>
#include <QTest>

#include <memory>

class TestSettingsRenders : public QObject
{
    Q_OBJECT

private:
    void Shoot(QDialog& dlg, const QString& name)
    {
        const QList<QSize> sizes = {{240, 320}, {320, 240}, {360, 640}, {1024, 768}};
        auto* tabs = dlg.findChild<QTabWidget*>();
        const int pages = tabs ? tabs->count() : 1;
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        for (const QSize& size : sizes) {
            dlg.resize(size);
            for (int page = 0; page < pages; ++page) {
                if (tabs)
                    tabs->setCurrentIndex(page);
                QCoreApplication::processEvents();
                const QString file =
                    QStringLiteral("%1_%2_%3x%4.png").arg(name).arg(page).arg(size.width()).arg(size.height());
                if (!m_folder.isEmpty())
                    QVERIFY(dlg.grab().save(QDir(m_folder).filePath(file)));
                QWidget* shown = tabs ? tabs->currentWidget() : &dlg;
                QVERIFY2(RenderCheck::Clipped(shown).isEmpty(),
                         qPrintable(file + ": " + RenderCheck::Clipped(shown).join(QStringLiteral("; "))));
            }
        }
    }

    std::unique_ptr<CLogbookDoc> Logbook() const
    {
        auto doc = std::make_unique<CLogbookDoc>();
        CLogbookSettings& settings = doc->GetSettings();
        settings.SetOwnerName("Aino Mäkelä");
        settings.GetMembership().SetMemberNumber("SIL 20417");
        settings.GetMembership().SetExpirationDate(CDateTime(2025, 3, 31));
        settings.GetMembership().SetAlarmDays(14);
        settings.SetLicenses({"A-License", "B-License"});
        for (int number : {1, 2}) {
            auto rig = std::make_unique<CEquipment>(number);
            rig->SetHarness("Javelin Odyssey");
            rig->SetMainCanopy("Sabre2 170");
            rig->SetReserveCanopy("PD Reserve 160");
            settings.GetEquipmentList().Add(std::move(rig));
        }
        return doc;
    }

private slots:
    void initTestCase()
    {
        PictureLanguage::Use(QLocale());
        m_folder = qEnvironmentVariable("TERVOLA_RENDER_DIR");
        if (!m_folder.isEmpty())
            QDir().mkpath(m_folder);
    }

    void userProfile()
    {
        auto doc = Logbook();
        CDlgUser dlg(doc->GetSettings(), &m_messages);
        Shoot(dlg, QStringLiteral("user"));
    }

    void equipment()
    {
        auto doc = Logbook();
        CDlgEquipments dlg(*doc, &m_messages);
        Shoot(dlg, QStringLiteral("equipments"));
    }

    void rigEditor()
    {
        auto doc = Logbook();
        CDlgEquipment dlg(doc->GetSettings().GetEquipmentList().Get(0), &m_messages);
        Shoot(dlg, QStringLiteral("rig"));
    }

    void preferences()
    {
        auto doc = Logbook();
        CMemorySettingsStore store;
        CUnitSettings units;
        CDlgPreferences dlg(units, &store, *doc, &m_messages);
        Shoot(dlg, QStringLiteral("preferences"));
    }

    void owner()
    {
        CDlgUserOwner dlg(QStringLiteral("Aino Mäkelä"), QStringLiteral("SIL 20417"));
        Shoot(dlg, QStringLiteral("owner"));
    }

private:
    QString m_folder;
    CRecordingMessages m_messages;
};

QTEST_MAIN(TestSettingsRenders)
#include "SettingsRendersTest.moc"
