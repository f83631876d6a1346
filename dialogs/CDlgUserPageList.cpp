#include "dialogs/CDlgUserPageList.h"

#include "dialogs/DialogText.h"

#include <QEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QVBoxLayout>

namespace {

const int kFields[3] = {CUserProfileEdit::Licenses, CUserProfileEdit::Ratings, CUserProfileEdit::Awards};
// The edits' object names, the same in every language.
const char* const kNames[3] = {"licensesEdit", "ratingsEdit", "awardsEdit"};

} // namespace

CDlgUserPageList::CDlgUserPageList(CUserProfileEdit& edit, CUserProfileEdit::List list, const QString& title,
                                   QWidget* parent)
    : CKqPropertyPage(title, parent), m_edit(edit), m_list(list)
{
    auto* label = new QLabel(title, this);
    m_text = new QPlainTextEdit(this);
    m_text->setObjectName(QString::fromLatin1(kNames[list]));
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setMinimumSize(120, 60);
    m_text->installEventFilter(this);
    label->setBuddy(m_text);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(label);
    layout->addWidget(m_text, 1);
    MapField(kFields[list], m_text);
}

void CDlgUserPageList::Initialise()
{
    // The edit works with bare line breaks; the working text keeps "\r\n".
    m_text->setPlainText(DialogText::ToQt(m_edit.lists[m_list]).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

CCheckResult CDlgUserPageList::Validate()
{
    m_edit.lists[m_list] = DialogText::FromQt(m_text->toPlainText().replace(QLatin1Char('\n'), QStringLiteral("\r\n")));
    return m_edit.ValidateList(m_list);
}

bool CDlgUserPageList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_text && event->type() == QEvent::FocusIn) {
        QTextCursor cursor = m_text->textCursor();
        cursor.movePosition(QTextCursor::End);
        m_text->setTextCursor(cursor);
    }
    return CKqPropertyPage::eventFilter(watched, event);
}
