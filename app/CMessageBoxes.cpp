#include "app/CMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {

const QString kTitle = QStringLiteral("Tervola Pocket");

} // namespace

QWidget* CMessageBoxes::Parent() const
{
    return m_parent ? m_parent.data() : QApplication::activeWindow();
}

void CMessageBoxes::Error(const QString& text)
{
    QMessageBox::critical(Parent(), kTitle, text, QMessageBox::Ok);
}

void CMessageBoxes::Information(const QString& text)
{
    QMessageBox::information(Parent(), kTitle, text, QMessageBox::Ok);
}

void CMessageBoxes::Warning(const QString& text)
{
    QMessageBox::warning(Parent(), kTitle, text, QMessageBox::Ok);
}

bool CMessageBoxes::AskYesNo(const QString& text)
{
    return QMessageBox::question(Parent(), kTitle, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

IMessageSink::Answer CMessageBoxes::AskYesNoCancel(const QString& text)
{
    const auto button = QMessageBox::question(
        Parent(), kTitle, text, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
    if (button == QMessageBox::Yes)
        return Answer::Yes;
    if (button == QMessageBox::No)
        return Answer::No;
    return Answer::Cancel;
}

void CMessageBoxes::About(const QString& title, const QString& text)
{
    QMessageBox::about(Parent(), title, text);
}

int CMessageBoxes::AskChoice(const QString& text, const QStringList& buttons)
{
    QMessageBox box(QMessageBox::Question, kTitle, text, QMessageBox::Cancel, Parent());
    QList<QAbstractButton*> added;
    for (const QString& label : buttons)
        added.append(box.addButton(label, QMessageBox::AcceptRole));
    if (!added.isEmpty())
        box.setDefaultButton(qobject_cast<QPushButton*>(added.front()));
    box.exec();
    return static_cast<int>(added.indexOf(box.clickedButton()));
}
