#include "controls/IDialogRunner.h"

#include <QDialog>

int RunDialog(IDialogRunner* runner, QDialog& dialog)
{
    return runner ? runner->Run(dialog) : dialog.exec();
}
