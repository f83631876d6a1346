#include "cli/CUnitsOption.h"

#include "bridge/CoreText.h"
#include "units/CMemorySettingsStore.h"

#include <QSettings>

QCommandLineOption CUnitsOption::Option()
{
    return QCommandLineOption(QStringLiteral("units"),
                              QStringLiteral("Units of the shown values: metric or imperial. Default: the window "
                                             "program's stored preference, imperial when there is none."),
                              QStringLiteral("metric|imperial"));
}

void CUnitsOption::AddTo(QCommandLineParser& parser)
{
    parser.addOption(Option());
}

CUnitSettings CUnitsOption::StoredPreference()
{
    // Copy the three values into a store of our own: the tool never writes the program's settings.
    const QSettings settings(QStringLiteral("Orlithe"), QStringLiteral("Tervola Pocket"));
    CMemorySettingsStore store;
    for (std::string_view name : {CUnitSettings::kUnits, CUnitSettings::kSpeed, CUnitSettings::kGlide}) {
        const QString key = CoreText::ToQt(CUnitSettings::kSection) + QLatin1Char('/') + CoreText::ToQt(name);
        bool ok = false;
        const int value = settings.value(key).toString().trimmed().toInt(&ok);
        if (ok)
            store.SetInt(CUnitSettings::kSection, name, value);
    }
    CUnitSettings units;
    units.Load(store);
    return units;
}

bool CUnitsOption::Resolve(const QCommandLineParser& parser, CUnitSettings& units, QString& error)
{
    const QCommandLineOption option = Option();
    if (!parser.isSet(option)) {
        units = StoredPreference();
        return true;
    }
    const QString value = parser.value(option).trimmed().toLower();
    const CUnitSettings stored = StoredPreference();
    if (value == QLatin1String("metric")) {
        units.Set(CUnitSettings::Metric, stored.GetSpeedDisplay(), stored.GetGlideDisplay());
        return true;
    }
    if (value == QLatin1String("imperial")) {
        units.Set(CUnitSettings::Imperial, stored.GetSpeedDisplay(), stored.GetGlideDisplay());
        return true;
    }
    error = QStringLiteral("unknown units \"%1\" (use metric or imperial)").arg(parser.value(option));
    return false;
}
