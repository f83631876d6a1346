#include "tests/cli/CToolRunner.h"

#include <QProcess>
#include <QProcessEnvironment>

CToolResult CToolRunner::Run(const QStringList& arguments) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_configHome);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TERVOLA_TOOL), arguments);
    CToolResult result;
    if (!process.waitForStarted(30000))
        return result;
    process.closeWriteChannel();
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        result.crashed = true;
    }
    result.crashed = result.crashed || process.exitStatus() != QProcess::NormalExit;
    result.exitCode = process.exitCode();
    const QByteArray out = process.readAllStandardOutput();
    const QByteArray err = process.readAllStandardError();
    result.out.assign(out.constData(), static_cast<std::size_t>(out.size()));
    result.err.assign(err.constData(), static_cast<std::size_t>(err.size()));
    return result;
}
