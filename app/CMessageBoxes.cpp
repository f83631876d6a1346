#include "app/CMessageBoxes.h"

#include "app/CMessageDlg.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QMessageBox>

namespace {

const QString kTitle = QStringLiteral("Tervola Pocket");

// Shows a box and returns the index of the button chosen.
int Run(CMessageDlg& box)
{
    box.exec();
    return box.Choice();
}

} // namespace

QWidget* CMessageBoxes::Parent() const
{
    return m_parent ? m_parent.data() : QApplication::activeWindow();
}

std::unique_ptr<CMessageDlg> CMessageBoxes::Box(QStyle::StandardPixmap icon, const QString& text)
{
    const QString ok = CMessageDlg::StandardText(QDialogButtonBox::Ok);
    return std::make_unique<CMessageDlg>(icon, kTitle, text, QStringList{ok}, 0, 0, Parent());
}

std::unique_ptr<CMessageDlg> CMessageBoxes::YesNoCancelBox(const QString& text, QWidget* parent)
{
    const QStringList buttons = {CMessageDlg::StandardText(QDialogButtonBox::Yes),
                                 CMessageDlg::StandardText(QDialogButtonBox::No),
                                 CMessageDlg::StandardText(QDialogButtonBox::Cancel)};
    return std::make_unique<CMessageDlg>(QStyle::SP_MessageBoxQuestion, kTitle, text, buttons, 0, 2, parent);
}

std::unique_ptr<CMessageDlg> CMessageBoxes::ChoiceBox(const QString& text, const QStringList& buttons, QWidget* parent)
{
    const QStringList all = QStringList(buttons) << CMessageDlg::StandardText(QDialogButtonBox::Cancel);
    const int cancel = static_cast<int>(buttons.size());
    return std::make_unique<CMessageDlg>(QStyle::SP_MessageBoxQuestion, kTitle, text, all, 0, cancel, parent);
}

void CMessageBoxes::Error(const QString& text)
{
    Run(*Box(QStyle::SP_MessageBoxCritical, text));
}

void CMessageBoxes::Information(const QString& text)
{
    Run(*Box(QStyle::SP_MessageBoxInformation, text));
}

void CMessageBoxes::Warning(const QString& text)
{
    Run(*Box(QStyle::SP_MessageBoxWarning, text));
}

bool CMessageBoxes::AskYesNo(const QString& text)
{
    const QStringList buttons = {CMessageDlg::StandardText(QDialogButtonBox::Yes),
                                 CMessageDlg::StandardText(QDialogButtonBox::No)};
    CMessageDlg box(QStyle::SP_MessageBoxQuestion, kTitle, text, buttons, 1, 1, Parent());
    return Run(box) == 0;
}

IMessageSink::Answer CMessageBoxes::AskYesNoCancel(const QString& text)
{
    switch (Run(*YesNoCancelBox(text, Parent()))) {
    case 0:
        return Answer::Yes;
    case 1:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

void CMessageBoxes::About(const QString& title, const QString& text)
{
    QMessageBox::about(Parent(), title, text);
}

int CMessageBoxes::AskChoice(const QString& text, const QStringList& buttons)
{
    const int chosen = Run(*ChoiceBox(text, buttons, Parent()));
    return chosen < buttons.size() ? chosen : -1;
}
