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

struct Message
{
    QString context;
    QString source;
    QString translation;
    QString type;
};

QList<Message> ReadTs(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<Message> messages;
    QString context;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        const QString name = xml.name().toString();
        if (name == QLatin1String("name"))
            context = xml.readElementText();
        else if (name == QLatin1String("message"))
            messages.append(Message{context, {}, {}, {}});
        else if (name == QLatin1String("source"))
            messages.last().source = xml.readElementText();
        else if (name == QLatin1String("translation")) {
            messages.last().type = xml.attributes().value(QLatin1String("type")).toString();
            messages.last().translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        }
    }
    return xml.hasError() ? QList<Message>{} : messages;
}

class TranslationsComplete : public QObject
{
    Q_OBJECT

private slots:
    void everyTextHasATranslation_data()
    {
        QTest::addColumn<QString>("ts");
        for (const QString& ts : QStringLiteral(TERVOLA_TS_FILES).split(QLatin1Char(';')))
            QTest::newRow(qPrintable(QFileInfo(ts).fileName())) << ts;
    }

    void everyTextHasATranslation()
    {
        QFETCH(QString, ts);
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        const QString copy = folder.filePath(QFileInfo(ts).fileName());
        QVERIFY(QFile::copy(ts, copy));
        QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);

        QStringList arguments{QStringLiteral("-locations"), QStringLiteral("none"), QStringLiteral("-no-obsolete"),
                              QStringLiteral("-I"), QStringLiteral(TERVOLA_SOURCE_DIR)};
        for (const QString& dir : QStringLiteral(TERVOLA_TRANSLATED_FOLDERS).split(QLatin1Char(';')))
            arguments << QStringLiteral(TERVOLA_SOURCE_DIR "/") + dir;
        arguments << QStringLiteral(TERVOLA_STRING_TABLE_SOURCE) << QStringLiteral("-ts") << copy;
        QProcess lupdate;
        lupdate.start(QStringLiteral(TERVOLA_LUPDATE), arguments);
        QVERIFY(lupdate.waitForFinished(120000));
        QVERIFY2(lupdate.exitCode() == 0, lupdate.readAllStandardError().constData());

        const QList<Message> messages = ReadTs(copy);
        QVERIFY(messages.size() > static_cast<qsizetype>(StringTable::Ids().size()));
        QStringList problems;
        int fromTable = 0;
        for (const Message& m : messages) {
            const QString where = m.context + QStringLiteral(" \"") + m.source + QLatin1Char('"');
            fromTable += m.context == QLatin1String(MessageText::kContext);
            if (m.translation.isEmpty() || m.type == QLatin1String("unfinished"))
                problems << where + QStringLiteral(" has no translation");
            else if (Placeholders(m.translation) != Placeholders(m.source))
                problems << where + QStringLiteral(" changes the placeholders: ") + m.translation;
        }
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
        // The generated source brought every message of the string table along.
        QCOMPARE(fromTable, static_cast<int>(StringTable::Ids().size()));
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
