#include "dialogs/CDlgJumpPageNote.h"

#include "dialogs/DialogText.h"
#include "resources/StringTable.h"

#include <QPlainTextEdit>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace {

// A rich-text view for notes from any logbook: it loads no picture or style sheet from the
// disk or the network and follows no link, whatever the note's markup asks for.
class CNoteView final : public QTextBrowser
{
public:
    explicit CNoteView(QWidget* parent) : QTextBrowser(parent)
    {
        setOpenLinks(false);
        setOpenExternalLinks(false);
        setReadOnly(true);
        setUndoRedoEnabled(false);
    }
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

} // namespace

CDlgJumpPageNote::CDlgJumpPageNote(CJumpEdit& edit, QWidget* parent)
    : CDlgJumpPage(DialogText::Message(StringTable::IDS_NOTE), edit, parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    if (edit.Values().noteHasFormat) {
        m_view = new CNoteView(this);
        m_view->setObjectName(QStringLiteral("jumpNoteView"));
        layout->addWidget(m_view);
        MapField(CJumpEdit::FieldNote, m_view);
    } else {
        m_editor = new QPlainTextEdit(this);
        m_editor->setObjectName(QStringLiteral("jumpNote"));
        m_editor->setTabChangesFocus(true);
        m_editor->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        layout->addWidget(m_editor);
        MapField(CJumpEdit::FieldNote, m_editor);
    }
}

void CDlgJumpPageNote::Initialise()
{
    const CJumpValues& v = m_edit.Values();
    if (m_view) {
        m_view->setHtml(DialogText::ToQt(v.note));
        return;
    }
    // The note keeps "\r\n" line breaks; the editor has "\n".
    m_editor->setPlainText(DialogText::ToQt(v.note).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    m_editor->setReadOnly(m_edit.IsViewOnly());
    // The caret starts at the end, where a note is usually continued.
    m_editor->moveCursor(QTextCursor::End);
}

void CDlgJumpPageNote::ReadBack()
{
    if (m_editor) {
        QString text = m_editor->toPlainText();
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        m_edit.Values().note = DialogText::FromQt(text.replace(QLatin1Char('\n'), QStringLiteral("\r\n")));
    }
}
