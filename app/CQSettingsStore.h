#pragma once

#include "units/ISettingsStore.h"

#include <QString>

#include <memory>

class QSettings;

// The program's settings store on QSettings: section and value become the key "Section/Name" under
// the company "Orlithe" and the program's name (or in an INI file of the caller's choice).
class CQSettingsStore final : public ISettingsStore
{
public:
    // The platform's native store of organisation and application.
    CQSettingsStore(const QString& organisation, const QString& application);
    // An INI file (tests and portable installs).
    explicit CQSettingsStore(const QString& iniFile);
    // Writes what is pending.
    ~CQSettingsStore() override;
    CQSettingsStore(const CQSettingsStore&) = delete;
    CQSettingsStore& operator=(const CQSettingsStore&) = delete;

    // Text values as UTF-8.
    std::string GetString(std::string_view section, std::string_view name, std::string_view fallback) const override;
    void SetString(std::string_view section, std::string_view name, std::string_view value) override;
    // Integers; a stored text that is not a number gives the fallback.
    int GetInt(std::string_view section, std::string_view name, int fallback) const override;
    void SetInt(std::string_view section, std::string_view name, int value) override;

    // Writes pending changes to permanent storage.
    void Sync();

private:
    static QString Key(std::string_view section, std::string_view name);
    std::unique_ptr<QSettings> m_settings;
};
