// File > "Export PDF..." on the real window: the options dialog's range, the file chooser, the
// pages painted from the event loop while the window keeps working, a range nothing lies in
// refused with its message, and a cancel that leaves no file behind.

#include "CAppHarness.h"

#include "app/CMainFrame.h"
#include "app/CPrintPagesCommand.h"
#include "dialogs/CDlgPrintOptions.h"

#include <QAction>
#include <QProcess>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>

namespace {

QString PdfText(const QString& path)
{
    QProcess process;
    process.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAllStandardOutput()).simplified();
}

CScriptedDialogs::Step Range(int from, int to)
{
    return CScriptedDialogs::Ok<CDlgPrintOptions>([from, to](CDlgPrintOptions& dialog) {
        dialog.findChild<QRadioButton*>("rangeRadio")->setChecked(true);
        dialog.findChild<QSpinBox*>("fromSpin")->setValue(from);
        dialog.findChild<QSpinBox*>("toSpin")->setValue(to);
    });
}

} // namespace

class TestPrintPages : public QObject
{
    Q_OBJECT

private slots:
    void exportsTheRangeAsPdf()
    {
        CAppHarness harness;
        QVERIFY(!harness.StartWith(CTestLogbook().Jumps(1, 40)).isEmpty());
        QAction* exportPdf = harness.Frame()->findChild<QAction*>(QStringLiteral("exportPdfAction"));
        QVERIFY(exportPdf && exportPdf->isEnabled());
        CPrintPagesCommand* command = harness.Frame()->PrintPages();
        QSignalSpy finished(command, &CPrintPagesCommand::finished);

        // Nothing numbered 50..60: the check's message and the focus on the first number, and the
        // dialog stays open (rejected here).
        QString focused;
        harness.dialogs.steps = {[&focused, step = Range(50, 60)](QDialog& dialog) {
            const int result = step(dialog);
            focused = dialog.focusWidget() ? dialog.focusWidget()->objectName() : QString();
            return result;
        }};
        exportPdf->trigger();
        QCOMPARE(harness.messages.Texts(CRecordingMessages::Kind::Warning),
                 QStringList{QStringLiteral("No jump is numbered from 50 to 60.")});
        QCOMPARE(focused, QStringLiteral("fromSpin"));
        QVERIFY(harness.files.asked.isEmpty());

        const QString path = harness.Path(QStringLiteral("pages.pdf"));
        harness.dialogs.steps = {Range(30, 33)};
        harness.files.pdfAnswers = {path};
        exportPdf->trigger();
        QVERIFY(command->IsRunning());
        QVERIFY(!exportPdf->isEnabled());
        QVERIFY(finished.wait(20000));
        QCOMPARE(finished.takeFirst().at(0).toBool(), true);
        QVERIFY(exportPdf->isEnabled());
        const QString text = PdfText(path);
        for (const char* number : {"30", "31", "32", "33"})
            QVERIFY2(text.contains(QStringLiteral(" %1 ").arg(QLatin1String(number))), qPrintable(text));
        QVERIFY2(!text.contains(QStringLiteral(" 34 2")), qPrintable(text));

        // A cancel as soon as painting began leaves no file behind (the last progress dialog gone first).
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QString cancelled = harness.Path(QStringLiteral("cancelled.pdf"));
        harness.dialogs.steps = {Range(1, 40)};
        harness.files.pdfAnswers = {cancelled};
        exportPdf->trigger();
        auto* progress = harness.Frame()->findChild<QProgressDialog*>(QStringLiteral("printProgress"));
        QVERIFY(progress);
        QPushButton* cancel = progress->findChild<QPushButton*>();
        QVERIFY(cancel);
        cancel->click();
        QCOMPARE(finished.count(), 1);
        QCOMPARE(finished.takeFirst().at(0).toBool(), false);
        QVERIFY(!QFileInfo::exists(cancelled));
    }
};

QTEST_MAIN(TestPrintPages)
#include "PrintPagesTest.moc"
