#pragma once

#include <string>
#include <string_view>

// The program's persistent key-value settings, by section and value name ("General"/"LastFile",
// "Preferences"/"Units", "Jump"/"HasTime" ...). The window program stores them with QSettings;
// tests and the command-line tool use CMemorySettingsStore.
class ISettingsStore
{
public:
    virtual ~ISettingsStore() = default;
    // The stored text, or fallback when the value is absent.
    virtual std::string GetString(std::string_view section, std::string_view name, std::string_view fallback) const = 0;
    virtual void SetString(std::string_view section, std::string_view name, std::string_view value) = 0;
    // The stored integer, or fallback when the value is absent or not a number.
    virtual int GetInt(std::string_view section, std::string_view name, int fallback) const = 0;
    virtual void SetInt(std::string_view section, std::string_view name, int value) = 0;
};
