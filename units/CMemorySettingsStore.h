#pragma once

#include "units/ISettingsStore.h"

#include <map>
#include <string>

// Settings kept in memory only: for tests and for the command-line tool.
class CMemorySettingsStore final : public ISettingsStore
{
public:
    std::string GetString(std::string_view section, std::string_view name, std::string_view fallback) const override;
    void SetString(std::string_view section, std::string_view name, std::string_view value) override;
    int GetInt(std::string_view section, std::string_view name, int fallback) const override;
    void SetInt(std::string_view section, std::string_view name, int value) override;

    // True when the value exists in either form.
    bool Contains(std::string_view section, std::string_view name) const;

private:
    static std::string Key(std::string_view section, std::string_view name);
    std::map<std::string, std::string> m_values;
};
