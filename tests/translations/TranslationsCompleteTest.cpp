// Every text the window program shows has a translation into every language it ships: lupdate
// reads the program's folders and the string table afresh into a copy of each .ts file, so a
// text added to the code without a translation fails here, as does a translation that drops or
// adds a "%1"/"%2". The built .qm is then asked for every message of the string table by the
// program's own look-up.

#include "resources/StringTable.h"
#include "translations/CTranslations.h"
#include "translations/MessageText.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

// The placeholders of a text, sorted: "%2 of %1" and "%1 ... %2" both give {"%1", "%2"}.
QStringList Placeholders(const QString& text)
{
    static const QRegularExpression marker(QStringLiteral("%\\d"));
    QStringList found;
    for (auto it = marker.globalMatch(text); it.hasNext();)
        found.append(it.next().captured());
    std::sort(found.begin(), found.end());
    return found;
}

class TranslationsComplete : public QObject
{
    Q_OBJECT

private slots:
    void everyTextHasATranslation()
    {
        for (const QString& ts : QStringLiteral(TERVOLA_TS_FILES).split(QLatin1Char(';'))) {
            QTemporaryDir folder;
            const QString copy = folder.filePath(QFileInfo(ts).fileName());
            QVERIFY(QFile::copy(ts, copy));
            QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);

            QStringList arguments{"-locations", "none", "-no-obsolete", "-I", TERVOLA_SOURCE_DIR};
            for (const QString& dir : QStringLiteral(TERVOLA_TRANSLATED_FOLDERS).split(QLatin1Char(';')))
                arguments << QStringLiteral(TERVOLA_SOURCE_DIR "/") + dir;
            arguments << TERVOLA_STRING_TABLE_SOURCE << "-ts" << copy;
            QProcess lupdate;
            lupdate.start(TERVOLA_LUPDATE, arguments);
            QVERIFY(lupdate.waitForFinished(120000));
            QVERIFY2(lupdate.exitCode() == 0, lupdate.readAllStandardError().constData());

            // Each message of the refreshed copy: its context's name, its source, then its translation.
            QFile file(copy);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QXmlStreamReader xml(&file);
            QString context;
            QString source;
            QStringList problems;
            int messages = 0;
            int fromTable = 0;
            while (!xml.atEnd()) {
                if (xml.readNext() != QXmlStreamReader::StartElement)
                    continue;
                if (xml.name() == u"name") {
                    context = xml.readElementText();
                } else if (xml.name() == u"source") {
                    source = xml.readElementText();
                } else if (xml.name() == u"translation") {
                    const bool unfinished = xml.attributes().value(QLatin1String("type")) == u"unfinished";
                    const QString translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
                    const QString where = ts + ": " + context + " \"" + source + '"';
                    ++messages;
                    fromTable += context == QLatin1String(MessageText::kContext);
                    if (translation.isEmpty() || unfinished)
                        problems << where + " has no translation";
                    else if (Placeholders(translation) != Placeholders(source))
                        problems << where + " changes the placeholders: " + translation;
                }
            }
            QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
            QVERIFY(messages > static_cast<int>(StringTable::Ids().size()));
            QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
            // The generated source brought every message of the string table along.
            QCOMPARE(fromTable, static_cast<int>(StringTable::Ids().size()));
        }
    }

    // Each built .qm holds every message of the string table under its number, and the
    // program's look-up by number returns that translation.
    void everyMessageIsFoundById()
    {
        const QStringList languages = CTranslations::Languages();
        QVERIFY(!languages.isEmpty());
        for (const QString& language : languages) {
            QTranslator qm;
            QVERIFY(qm.load(QStringLiteral("tervola_") + language, CTranslations::Folder()));
            QCOMPARE(CTranslations::Install(QLocale(language)), language);
            QStringList problems;
            for (const int id : StringTable::Ids()) {
                const std::string english(StringTable::Text(id));
                const QString translated =
                    qm.translate(MessageText::kContext, english.c_str(), QByteArray::number(id).constData());
                if (translated.isEmpty())
                    problems << QStringLiteral("%1 %2: no translation").arg(language).arg(id);
                else if (Placeholders(translated) != Placeholders(QString::fromStdString(english)))
                    problems << QStringLiteral("%1 %2: placeholders differ").arg(language).arg(id);
                else if (MessageText::Text(id) != translated)
                    problems << QStringLiteral("%1 %2: not found by the look-up").arg(language).arg(id);
            }
            QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
        }
        CTranslations::Install(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(MessageText::Text(StringTable::IDS_OPEN_FAILED), QStringLiteral("The file could not be opened."));
    }
};

} // namespace

QTEST_GUILESS_MAIN(TranslationsComplete)
#include "TranslationsCompleteTest.moc"
