#pragma once

#include "units/CUnitSettings.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>

// The "--units metric|imperial" option and the preference it falls back to: the window
// program's stored "Preferences"/"Units" (QSettings of "Orlithe"/"Tervola Pocket", only read),
// imperial when nothing is stored.
class CUnitsOption
{
public:
    // Adds the option to parser.
    static void AddTo(QCommandLineParser& parser);
    // The units to use: the option's value when given, else the stored preference. False and
    // error set for a value other than "metric" or "imperial".
    static bool Resolve(const QCommandLineParser& parser, CUnitSettings& units, QString& error);
    // The window program's stored unit preferences.
    static CUnitSettings StoredPreference();

private:
    static QCommandLineOption Option();
};
