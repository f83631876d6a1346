#pragma once

#include <QLocale>
#include <QString>

// The program's language. Its own texts come from translations built into the program (the
// ".qm" files under ":/i18n"), Qt's standard buttons and dialogs from Qt's translations folder.
// A language the program has no translation for stays English throughout, Qt's parts included.
class CTranslations
{
public:
    // Replaces the translators installed before with those for the locale's languages (the
    // window program passes the default locale, which follows the system's). Returns the
    // language of the program's translation that was found ("de"), or empty for English.
    static QString Install(const QLocale& locale);
    // The languages the program has a translation for, as their names ("de").
    static QStringList Languages();
    // The resource folder of the program's translations.
    static QString Folder();
};
