#include "tests/cli/CScratchDir.h"

#include <QDir>
#include <QFile>

#include <zlib.h>

CScratchDir::CScratchDir()
{
    QDir().mkpath(ConfigHome());
}

QString CScratchDir::Path(const QString& name) const
{
    return m_dir.filePath(name);
}

QString CScratchDir::WritePlain(const QString& name, std::string_view bytes) const
{
    const QString path = Path(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    return path;
}

QString CScratchDir::WriteGzip(const QString& name, std::string_view bytes) const
{
    const QString path = Path(name);
    gzFile file = gzopen(QFile::encodeName(path).constData(), "wb9");
    if (file) {
        gzwrite(file, bytes.data(), static_cast<unsigned>(bytes.size()));
        gzclose(file);
    }
    return path;
}

void CScratchDir::StoreUnitsPreference(int units) const
{
    QDir().mkpath(ConfigHome() + QStringLiteral("/Orlithe"));
    const std::string text = "[Preferences]\nUnits=" + std::to_string(units) + "\n";
    QFile file(ConfigHome() + QStringLiteral("/Orlithe/Tervola Pocket.conf"));
    if (file.open(QIODevice::WriteOnly))
        file.write(text.data(), static_cast<qint64>(text.size()));
}

std::string CScratchDir::Read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

std::string CScratchDir::ReadGzip(const QString& path)
{
    std::string text;
    gzFile file = gzopen(QFile::encodeName(path).constData(), "rb");
    if (!file)
        return text;
    char buffer[4096];
    int count = 0;
    while ((count = gzread(file, buffer, sizeof buffer)) > 0)
        text.append(buffer, static_cast<std::size_t>(count));
    gzclose(file);
    return text;
}

bool CScratchDir::Exists(const QString& path)
{
    return QFile::exists(path);
}
