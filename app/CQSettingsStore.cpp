#include "app/CQSettingsStore.h"

#include "bridge/CoreText.h"

#include <QSettings>

namespace {

using CoreText::ToQt;

} // namespace

CQSettingsStore::CQSettingsStore(const QString& organisation, const QString& application)
    : m_settings(std::make_unique<QSettings>(organisation, application))
{
}

CQSettingsStore::CQSettingsStore(const QString& iniFile)
    : m_settings(std::make_unique<QSettings>(iniFile, QSettings::IniFormat))
{
}

CQSettingsStore::~CQSettingsStore() = default;

QString CQSettingsStore::Key(std::string_view section, std::string_view name)
{
    return ToQt(section) + QLatin1Char('/') + ToQt(name);
}

std::string CQSettingsStore::GetString(std::string_view section, std::string_view name, std::string_view fallback) const
{
    const QVariant value = m_settings->value(Key(section, name));
    if (!value.isValid())
        return std::string(fallback);
    return CoreText::FromQt(value.toString());
}

void CQSettingsStore::SetString(std::string_view section, std::string_view name, std::string_view value)
{
    m_settings->setValue(Key(section, name), ToQt(value));
}

int CQSettingsStore::GetInt(std::string_view section, std::string_view name, int fallback) const
{
    const QVariant value = m_settings->value(Key(section, name));
    if (!value.isValid())
        return fallback;
    bool ok = false;
    // INI files give every value back as text; trim it so " 1" still reads as a number.
    const int number = value.toString().trimmed().toInt(&ok);
    return ok ? number : fallback;
}

void CQSettingsStore::SetInt(std::string_view section, std::string_view name, int value)
{
    m_settings->setValue(Key(section, name), value);
}

void CQSettingsStore::Sync()
{
    m_settings->sync();
}
