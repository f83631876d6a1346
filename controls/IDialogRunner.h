#pragma once

class QDialog;

// How modal dialogs run. The program runs them for real (a null runner means QDialog::exec);
// tests pass a runner that fills the dialog in and closes it, so nothing blocks.
class IDialogRunner
{
public:
    virtual ~IDialogRunner() = default;
    // Runs the dialog modally; returns QDialog::Accepted or QDialog::Rejected.
    virtual int Run(QDialog& dialog) = 0;
};

// Runs the dialog through the runner, or with QDialog::exec when the runner is null.
int RunDialog(IDialogRunner* runner, QDialog& dialog);
