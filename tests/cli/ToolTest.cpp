#include "tests/cli/ToolTest.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <filesystem>
#include <sstream>

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

void CToolTest::Start(QProcess& process, const std::vector<std::string>& arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(m_dir / "config"));
    process.setProcessEnvironment(environment);
    QStringList list;
    for (const std::string& argument : arguments)
        list << QString::fromStdString(argument);
    process.start(QStringLiteral(TERVOLA_TOOL), list);
}

CToolResult CToolTest::Run(const std::vector<std::string>& arguments) const
{
    QProcess process;
    Start(process, arguments);
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
    result.out = process.readAllStandardOutput().toStdString();
    result.err = process.readAllStandardError().toStdString();
    return result;
}

std::string CToolTest::Write(const std::string& name, std::string_view bytes, bool gzip) const
{
    const std::string path = m_dir / name;
    EXPECT_TRUE(gzip ? WriteGzip(path, bytes) : WriteBytes(path, bytes)) << path;
    return path;
}

void CToolTest::StoreUnitsPreference(int units) const
{
    std::filesystem::create_directories(m_dir.Path() / "config/Orlithe");
    Write("config/Orlithe/Tervola Pocket.conf", "[Preferences]\nUnits=" + std::to_string(units) + "\n");
}
