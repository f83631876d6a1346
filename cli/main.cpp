#include "cli/CCommandLineTool.h"

#include <QCoreApplication>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tervola"));
    return CCommandLineTool().Run(QCoreApplication::arguments().mid(1));
}
