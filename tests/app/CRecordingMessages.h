#pragma once

#include "controls/IMessageSink.h"

#include <QList>
#include <QString>

// Records every message box instead of showing it and answers questions from a script.
class CRecordingMessages final : public IMessageSink
{
public:
    enum class Kind
    {
        Error,
        Information,
        Warning,
        YesNo,
        YesNoCancel,
        About,
        Choice
    };
    struct Box
    {
        Kind kind;
        QString text;
    };

    void Error(const QString& text) override { boxes.append({Kind::Error, text}); }
    void Information(const QString& text) override { boxes.append({Kind::Information, text}); }
    void Warning(const QString& text) override { boxes.append({Kind::Warning, text}); }
    bool AskYesNo(const QString& text) override
    {
        boxes.append({Kind::YesNo, text});
        return yesNoAnswer;
    }
    Answer AskYesNoCancel(const QString& text) override
    {
        boxes.append({Kind::YesNoCancel, text});
        return yesNoCancelAnswer;
    }
    void About(const QString& title, const QString& text) override { boxes.append({Kind::About, title + '\n' + text}); }
    int AskChoice(const QString& text, const QStringList& buttons) override
    {
        boxes.append({Kind::Choice, text + '\n' + buttons.join('|')});
        return choiceAnswers.isEmpty() ? -1 : choiceAnswers.takeFirst();
    }

    // The texts of the boxes of one kind, in order.
    QStringList Texts(Kind kind) const
    {
        QStringList texts;
        for (const Box& box : boxes)
            if (box.kind == kind)
                texts.append(box.text);
        return texts;
    }

    QList<Box> boxes;
    bool yesNoAnswer = true;
    Answer yesNoCancelAnswer = Answer::No;
    QList<int> choiceAnswers; // the buttons chosen in turn; Cancel when none is left
};
