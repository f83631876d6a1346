#pragma once

#include "controls/IDialogRunner.h"

#include <QDialog>
#include <QList>
#include <QStringList>

#include <functional>

// Runs modal dialogs from a script instead of blocking: each run takes the next step, which
// fills the dialog in and returns Accepted or Rejected (with no step left: Rejected). The
// object names of the dialogs run are recorded in order.
class CScriptedDialogs final : public IDialogRunner
{
public:
    using Step = std::function<int(QDialog&)>;

    int Run(QDialog& dialog) override
    {
        ran.append(dialog.objectName());
        if (steps.isEmpty())
            return QDialog::Rejected;
        const Step step = steps.takeFirst();
        const int result = step(dialog);
        dialog.setResult(result);
        return result;
    }

    // A step that casts the dialog, calls fill and then accepts through the dialog's own OK, so
    // its checks run; Rejected when the dialog stayed open or is of another type.
    template <class Dialog, class Fill>
    static Step Ok(Fill fill)
    {
        return [fill](QDialog& dialog) {
            auto* typed = qobject_cast<Dialog*>(&dialog);
            if (!typed)
                return int(QDialog::Rejected);
            fill(*typed);
            typed->setResult(QDialog::Rejected);
            typed->accept();
            return typed->result();
        };
    }

    QList<Step> steps;
    QStringList ran;
};
