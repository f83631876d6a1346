#pragma once

#include <QString>

// Where the program's message boxes go. The window program shows real boxes (CMessageBoxes);
// tests record the messages and answer questions without blocking.
class IMessageSink
{
public:
    // The answer to a question.
    enum class Answer { Yes, No, Cancel };

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
};
