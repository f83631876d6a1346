#include "translations/CTranslations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QPointer>
#include <QTranslator>

namespace {

// The program's translator and Qt's, owned by the application once installed.
QPointer<QTranslator> g_program;
QPointer<QTranslator> g_qt;

void Remove(QPointer<QTranslator>& translator)
{
    if (!translator)
        return;
    QCoreApplication::removeTranslator(translator);
    delete translator;
}

} // namespace

QString CTranslations::Folder()
{
    return QStringLiteral(":/i18n");
}

QStringList CTranslations::Languages()
{
    QStringList languages;
    const QStringList files = QDir(Folder()).entryList({QStringLiteral("tervola_*.qm")}, QDir::Files, QDir::Name);
    for (const QString& file : files)
        languages.append(file.mid(8, file.size() - 8 - 3));
    return languages;
}

QString CTranslations::Install(const QLocale& locale)
{
    Remove(g_program);
    Remove(g_qt);
    auto* program = new QTranslator(QCoreApplication::instance());
    if (!program->load(locale, QStringLiteral("tervola"), QStringLiteral("_"), Folder())) {
        delete program;
        return {};
    }
    QCoreApplication::installTranslator(program);
    g_program = program;
    // Qt's own texts in the same language as the program's, never in another one.
    const QLocale language(program->language());
    auto* qt = new QTranslator(QCoreApplication::instance());
    if (qt->load(language, QStringLiteral("qtbase"), QStringLiteral("_"),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(qt);
        g_qt = qt;
    } else {
        delete qt;
    }
    return program->language();
}
