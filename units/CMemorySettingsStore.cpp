#include "units/CMemorySettingsStore.h"

#include <charconv>

std::string CMemorySettingsStore::Key(std::string_view section, std::string_view name)
{
    std::string key(section);
    key += '/';
    key += name;
    return key;
}

std::string CMemorySettingsStore::GetString(std::string_view section, std::string_view name,
                                            std::string_view fallback) const
{
    auto it = m_values.find(Key(section, name));
    return it == m_values.end() ? std::string(fallback) : it->second;
}

void CMemorySettingsStore::SetString(std::string_view section, std::string_view name, std::string_view value)
{
    m_values[Key(section, name)] = std::string(value);
}

int CMemorySettingsStore::GetInt(std::string_view section, std::string_view name, int fallback) const
{
    auto it = m_values.find(Key(section, name));
    if (it == m_values.end())
        return fallback;
    int value = 0;
    const std::string& text = it->second;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return (ec == std::errc() && end == text.data() + text.size()) ? value : fallback;
}

void CMemorySettingsStore::SetInt(std::string_view section, std::string_view name, int value)
{
    m_values[Key(section, name)] = std::to_string(value);
}

bool CMemorySettingsStore::Contains(std::string_view section, std::string_view name) const
{
    return m_values.count(Key(section, name)) != 0;
}
