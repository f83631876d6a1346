#pragma once

#include <QString>
#include <QStringList>

// Where the program's message boxes go. The window program shows real boxes (CMessageBoxes);
// tests record the messages and answer questions without blocking.
class IMessageSink
{
public:
    // The answer to a question.
    enum class Answer
    {
        Yes,
        No,
        Cancel
    };

    // Implementations are owned by the program or the test.
    virtual ~IMessageSink() = default;
    // A file error, with the error icon and an OK button.
    virtual void Error(const QString& text) = 0;
    // A reminder, with the information icon and an OK button.
    virtual void Information(const QString& text) = 0;
    // A refused entry in an editor, with the warning icon and an OK button.
    virtual void Warning(const QString& text) = 0;
    // A Yes/No question; true for Yes.
    virtual bool AskYesNo(const QString& text) = 0;
    // A Yes/No/Cancel question (saving changes before closing).
    virtual Answer AskYesNoCancel(const QString& text) = 0;
    // The About box.
    virtual void About(const QString& title, const QString& text) = 0;
    // A question with buttons of its own, the first the default, and Cancel; returns the index
    // of the button chosen, -1 for Cancel. A sink that cannot ask answers Cancel.
    virtual int AskChoice(const QString& text, const QStringList& buttons)
    {
        (void)text;
        (void)buttons;
        return -1;
    }
};
