// The tabbed editor base: leaving a page runs its check, OK checks every page in tab order and
// applies only when all pass, and every refusal shows one message and focuses the named field.

#include "CRecordingMessages.h"

#include "controls/CKqPropertyPage.h"
#include "controls/CKqPropertySheet.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

namespace {

// A page with one number field that must lie within 1..10.
class CRangePage final : public CKqPropertyPage
{
public:
    explicit CRangePage(const QString& title) : CKqPropertyPage(title)
    {
        edit = new QLineEdit(this);
        edit->setObjectName(title + QStringLiteral("Edit"));
        (new QVBoxLayout(this))->addWidget(edit);
        MapField(7, edit);
    }
    void Initialise() override
    {
        ++initialised;
        edit->setText(QString::number(value));
    }
    CCheckResult Validate() override
    {
        ++validated;
        value = edit->text().toInt();
        return CheckRange(value, 1, 10, 7);
    }

    QLineEdit* edit;
    int value = 5;
    int initialised = 0;
    int validated = 0;
};

class CTestSheet final : public CKqPropertySheet
{
public:
    explicit CTestSheet(IMessageSink* sink) : CKqPropertySheet(QStringLiteral("Sheet"), sink)
    {
        for (const char* title : {"One", "Two", "Three"}) {
            pages.append(new CRangePage(QString::fromLatin1(title)));
            AddPage(pages.last());
        }
    }
    bool Apply() override
    {
        ++applied;
        return true;
    }
    QList<CRangePage*> pages;
    int applied = 0;
};

} // namespace

class PropertySheetTest : public QObject
{
    Q_OBJECT

private slots:
    // Leaving a refused page keeps the user on it with one message and the focus on its field,
    // without checking the page it was leaving for; mended, it lets the user go. OK stops at
    // each failing page in tab order until all pass; Cancel checks and applies nothing.
    void pagesAreCheckedOnLeavingAndOnOk()
    {
        CRecordingMessages messages;
        CTestSheet sheet(&messages);
        sheet.show();
        QVERIFY(QTest::qWaitForWindowExposed(&sheet));
        sheet.pages[0]->edit->setText(QStringLiteral("11"));
        sheet.Tabs()->setCurrentIndex(2);
        QCOMPARE(sheet.ActiveIndex(), 0);
        QCOMPARE(messages.Texts(CRecordingMessages::Kind::Warning),
                 QStringList{QStringLiteral("Please enter a value between 1 and 10.")});
        QCOMPARE(sheet.focusWidget(), sheet.pages[0]->edit);
        sheet.pages[0]->edit->setText(QStringLiteral("10"));
        sheet.Tabs()->setCurrentIndex(2);
        QCOMPARE(sheet.ActiveIndex(), 2);
        QCOMPARE(sheet.pages[0]->validated, 2);
        QCOMPARE(sheet.pages[0]->initialised, 1);
        QCOMPARE(messages.boxes.size(), 1);

        sheet.pages[1]->edit->setText(QStringLiteral("12"));
        sheet.pages[2]->edit->setText(QStringLiteral("-3"));
        sheet.Buttons()->button(QDialogButtonBox::Ok)->click();
        QCOMPARE(sheet.ActiveIndex(), 1);
        QCOMPARE(messages.boxes.size(), 2);
        QCOMPARE(sheet.focusWidget(), sheet.pages[1]->edit);
        QCOMPARE(sheet.pages[2]->validated, 0);
        QCOMPARE(sheet.applied, 0);
        QVERIFY(sheet.isVisible());
        sheet.pages[1]->edit->setText(QStringLiteral("3"));
        sheet.Buttons()->button(QDialogButtonBox::Ok)->click();
        QCOMPARE(sheet.ActiveIndex(), 2);
        QCOMPARE(messages.boxes.size(), 3);
        sheet.pages[2]->edit->setText(QStringLiteral("4"));
        sheet.Buttons()->button(QDialogButtonBox::Ok)->click();
        QCOMPARE(sheet.applied, 1);
        QCOMPARE(sheet.result(), int(QDialog::Accepted));
        QCOMPARE(sheet.pages[2]->value, 4);

        CTestSheet cancelled(&messages);
        cancelled.show();
        cancelled.pages[0]->edit->setText(QStringLiteral("99"));
        cancelled.Buttons()->button(QDialogButtonBox::Cancel)->click();
        QVERIFY(!cancelled.isVisible());
        QCOMPARE(cancelled.applied, 0);
        QCOMPARE(messages.boxes.size(), 3);
    }
};

QTEST_MAIN(PropertySheetTest)
#include "PropertySheetTest.moc"
