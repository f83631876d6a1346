#pragma once

#include "app/IFileChooser.h"

#include <QStringList>

// Answers the file dialogs with prepared paths (the empty text, as a cancel, when none is left).
class CScriptedFiles final : public IFileChooser
{
public:
    QString ChooseOpen(const QString& startPath) override
    {
        asked.append(startPath);
        return openAnswers.isEmpty() ? QString() : openAnswers.takeFirst();
    }
    QString ChooseSave(const QString& startPath) override
    {
        asked.append(startPath);
        return saveAnswers.isEmpty() ? QString() : saveAnswers.takeFirst();
    }
    QString ChooseTrack(const QString& startPath) override
    {
        asked.append(startPath);
        return trackAnswers.isEmpty() ? QString() : trackAnswers.takeFirst();
    }

    QStringList openAnswers;
    QStringList saveAnswers;
    QStringList trackAnswers;
    QStringList asked;
};
