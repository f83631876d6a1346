#include "tests/cli/CScratchDir.h"

#include <QDir>
#include <QFile>

CScratchDir::CScratchDir()
{
    QDir().mkpath(ConfigHome());
}

QString CScratchDir::WritePlain(const QString& name, std::string_view bytes) const
{
    WriteBytes(m_folder / name.toStdString(), bytes);
    return Path(name);
}

QString CScratchDir::WriteGzip(const QString& name, std::string_view bytes) const
{
    ::WriteGzip(m_folder / name.toStdString(), bytes);
    return Path(name);
}

void CScratchDir::StoreUnitsPreference(int units) const
{
    QDir().mkpath(ConfigHome() + QStringLiteral("/Orlithe"));
    WriteBytes((ConfigHome() + QStringLiteral("/Orlithe/Tervola Pocket.conf")).toStdString(),
               "[Preferences]\nUnits=" + std::to_string(units) + "\n");
}

bool CScratchDir::Exists(const QString& path)
{
    return QFile::exists(path);
}
