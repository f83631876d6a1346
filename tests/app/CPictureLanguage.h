#pragma once

#include "translations/CTranslations.h"

#include <QLocale>

// The language of the test pictures: the system's when the program is translated into it (run
// with LANG=de_DE.UTF-8 to draw German pictures), otherwise the one the test asks for, so that
// an untranslated locale of the machine does not change them.
namespace PictureLanguage {

// Makes the locale the default and installs the program's translations for it; returns it.
inline QLocale Use(const QLocale& otherwise)
{
    const QLocale system = QLocale::system();
    const bool translated = CTranslations::Languages().contains(QLocale::languageToCode(system.language()));
    const QLocale locale = translated ? system : otherwise;
    QLocale::setDefault(locale);
    CTranslations::Install(locale);
    return locale;
}

} // namespace PictureLanguage
