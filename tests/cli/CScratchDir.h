#pragma once

#include <QString>
#include <QTemporaryDir>

#include <string>
#include <string_view>

// A temporary folder for one test: logbook files written as plain or gzip bytes, read back,
// and a settings folder for the tool's runs.
class CScratchDir
{
public:
    // A new empty folder with an empty settings folder in it.
    CScratchDir();

    // The absolute path of a name inside the folder.
    QString Path(const QString& name) const;
    // The settings folder handed to the tool as XDG_CONFIG_HOME.
    QString ConfigHome() const { return Path(QStringLiteral("config")); }

    // Writes bytes to name as they are; returns the path.
    QString WritePlain(const QString& name, std::string_view bytes) const;
    // Writes bytes to name as a gzip stream; returns the path.
    QString WriteGzip(const QString& name, std::string_view bytes) const;
    // Stores the window program's unit preference ("Preferences"/"Units") where the tool reads it.
    void StoreUnitsPreference(int units) const;

    // The bytes of a file; empty when it cannot be read.
    static std::string Read(const QString& path);
    // The bytes of a gzip file, uncompressed; empty when it cannot be read.
    static std::string ReadGzip(const QString& path);
    // Whether a file exists at path.
    static bool Exists(const QString& path);

private:
    QTemporaryDir m_dir;
};
