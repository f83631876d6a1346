// Tervola Pocket, the skydiver's logbook: the window program.
// Usage: tervola-pocket [logbook.tvz]

#include "app/CLogbookApp.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    CLogbookApp app;
    if (!app.InitInstance(QApplication::arguments()))
        return 1;
    return QApplication::exec();
}
