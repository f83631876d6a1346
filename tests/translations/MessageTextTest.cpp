// The core's messages (number, arguments, line) come out in the user's language with the
// arguments kept as they are, and in English where no translation is installed.

#include "translations/MessageText.h"
#include "resources/StringTable.h"
#include "translations/CTranslations.h"

#include <QTest>

class TestMessageText : public QObject
{
    Q_OBJECT

private slots:
    void composedMessages()
    {
        using namespace StringTable;
        CMessage latitude(IDS_TRACK_LATITUDE, "%2", "x"); // an argument that looks like a placeholder
        latitude.line = 12;
        const CMessage bytes(IDS_CARD_TWICE, "caf\xC3\xA9 \xFF.CSV"); // a file name that is no UTF-8
        using Row = std::tuple<CMessage, QString, std::string>;       // message, German, English
        const Row rows[] = {{{IDS_VALUE_RANGE, "-50", "50"},
                             "Bitte einen Wert zwischen -50 und 50 eingeben.",
                             "Please enter a value between -50 and 50."},
                            {{IDS_PARSER_ERROR, "Open Tag: jump"},
                             "Fehler beim Lesen der Datei: Open Tag: jump",
                             "Parser error: Open Tag: jump"},
                            {latitude, "Zeile 12: die geografische Breite %2 liegt nicht zwischen -90 und 90 Grad.",
                             "Line 12: the latitude %2 is outside -90 to 90 degrees."},
                            {{IDS_TRACK_EMPTY}, "Die Datei ist leer.", "The file is empty."},
                            {{4011}, "", ""}}; // unknown id
        QCOMPARE(CTranslations::Install(QLocale(QLocale::German, QLocale::Germany)), QStringLiteral("de"));
        for (const auto& [message, german, english] : rows)
            QCOMPARE(MessageText::Text(message), german);
        QCOMPARE(CTranslations::Install(QLocale(QLocale::English, QLocale::UnitedStates)), QString());
        for (const auto& [message, german, english] : rows) {
            QCOMPARE(MessageText::Text(message), QString::fromStdString(english));
            QCOMPARE(MessageText::Utf8(message), english);
        }
        // The tool's text keeps an argument's bytes as they are.
        QCOMPARE(MessageText::Utf8(bytes), std::string("The jump is the same as the one of caf\xC3\xA9 \xFF.CSV."));
    }

    // Any German locale finds the German messages by number; French has no translation and stays
    // English.
    void numberedLookUp()
    {
        QCOMPARE(CTranslations::Install(QLocale(QLocale::German, QLocale::Austria)), QStringLiteral("de"));
        QCOMPARE(MessageText::Text(StringTable::IDS_SIGNATURE), QStringLiteral("Unterschrift"));
        QCOMPARE(MessageText::Format(StringTable::IDS_INSPECTION_DUE, QStringLiteral("3"), QStringLiteral("%1")),
                 QStringLiteral("Ausrüstung 3: Reservepacken fällig am %1."));
        QCOMPARE(MessageText::Text(4011), QString());
        QCOMPARE(CTranslations::Install(QLocale(QLocale::French, QLocale::France)), QString());
        QCOMPARE(MessageText::Text(StringTable::IDS_SIGNATURE), QStringLiteral("Signature"));
    }
};

QTEST_GUILESS_MAIN(TestMessageText)
#include "MessageTextTest.moc"
