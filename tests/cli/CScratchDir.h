#pragma once

#include "tests/common/CScratchFolder.h"

#include <QString>

#include <string>
#include <string_view>

// The shared scratch folder in the tool's terms: paths as QString, logbook files written as
// plain or gzip bytes and read back, and a settings folder for the tool's runs.
class CScratchDir
{
public:
    // A new empty folder with an empty settings folder in it.
    CScratchDir();

    // The absolute path of a name inside the folder.
    QString Path(const QString& name) const { return QString::fromStdString(m_folder / name.toStdString()); }
    // The settings folder handed to the tool as XDG_CONFIG_HOME.
    QString ConfigHome() const { return Path(QStringLiteral("config")); }

    // Write bytes to name, as they are or as a gzip stream; return the path.
    QString WritePlain(const QString& name, std::string_view bytes) const;
    QString WriteGzip(const QString& name, std::string_view bytes) const;
    // Stores the window program's unit preference ("Preferences"/"Units") where the tool reads it.
    void StoreUnitsPreference(int units) const;

    // The bytes of a file, or uncompressed from gzip; empty when it cannot be read.
    static std::string Read(const QString& path) { return ReadBytes(path.toStdString()); }
    static std::string ReadGzip(const QString& path) { return ::ReadGzip(path.toStdString()); }
    static bool Exists(const QString& path);

private:
    CScratchFolder m_folder{"cli"};
};
