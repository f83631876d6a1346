#include "cli/CCommandLineTool.h"

#include <QApplication>
#include <QCoreApplication>

#include <cstdio>
#include <cstring>
#include <memory>

namespace {

QtMessageHandler g_previousHandler = nullptr;

// The platform's note on a missing runtime folder means nothing to a tool that shows no window.
void QuietHandler(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(QLatin1String("QStandardPaths: ")))
        return;
    if (g_previousHandler)
        g_previousHandler(type, context, message);
    else
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char* argv[])
{
    // "print" lays out text and draws recordings, which takes fonts and widgets: a full
    // application, on the offscreen platform unless one is chosen, as the tool never shows a
    // window. Every other command needs only the core.
    std::unique_ptr<QCoreApplication> app;
    if (argc > 1 && std::strcmp(argv[1], "print") == 0) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        g_previousHandler = qInstallMessageHandler(QuietHandler);
        app = std::make_unique<QApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("tervola"));
    return CCommandLineTool().Run(QCoreApplication::arguments().mid(1));
}
