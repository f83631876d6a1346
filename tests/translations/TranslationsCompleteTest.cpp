// Every text the window program shows has a translation into every language it ships: lupdate
// reads the program's folders and the string table afresh into a copy of each .ts file, so a
// text added to the code without a translation fails here, as does a translation that drops or
// adds a "%1"/"%2". The texts in the code are English: a source with German letters or words
// fails, and so does an entry of the .ts files that is not finished. The built .qm is then asked
// for every message of the string table by the program's own look-up.

#include "editing/CUserProfileEdit.h"
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

// A source text that is German rather than English: German letters, or a common German word.
bool LooksGerman(const QString& source)
{
    static const QRegularExpression german(
        QStringLiteral("[äöüÄÖÜß]|\\b(Zeit|Uhrzeit|Zahl|Dauer|Flugdauer|Sprung|Datei|Bitte|bitte|und|oder|nicht|der|"
                       "die|das|ein|eine|mit|ist|wird)\\b"));
    return german.match(source).hasMatch();
}

// The entries of a .ts file whose translation is marked (unfinished, vanished or obsolete).
QStringList Unfinished(const QString& ts)
{
    QFile file(ts);
    if (!file.open(QIODevice::ReadOnly))
        return {ts + " cannot be read"};
    QStringList marked;
    QXmlStreamReader xml(&file);
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"source")
            source = xml.readElementText();
        else if (xml.name() == u"translation" && !xml.attributes().value(QLatin1String("type")).isEmpty())
            marked << ts + ": \"" + source + "\" is " + xml.attributes().value(QLatin1String("type")).toString();
    }
    return marked;
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
                    if (LooksGerman(source))
                        problems << where + " is not English";
                    if (translation.isEmpty() || unfinished)
                        problems << where + " has no translation";
                    else if (Placeholders(translation) != Placeholders(source))
                        problems << where + " changes the placeholders: " + translation;
                }
            }
            QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
            QVERIFY(messages > static_cast<int>(StringTable::Ids().size()));
            problems += Unfinished(ts);
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
            // The profile's lists hold at most kMaxEntries entries, and their messages say so.
            for (const int id :
                 {StringTable::IDS_MAX_LICENSES, StringTable::IDS_MAX_RATINGS, StringTable::IDS_MAX_AWARDS})
                if (language != QLatin1String("en") &&
                    !MessageText::Text(id).contains(QString::number(CUserProfileEdit::kMaxEntries)))
                    problems << QStringLiteral("%1 %2: not the limit of %3 entries")
                                    .arg(language)
                                    .arg(id)
                                    .arg(CUserProfileEdit::kMaxEntries);
            QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
        }
        CTranslations::Install(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(MessageText::Text(StringTable::IDS_OPEN_FAILED), QStringLiteral("The file could not be opened."));
    }
};

} // namespace

QTEST_GUILESS_MAIN(TranslationsComplete)
#include "TranslationsCompleteTest.moc"
