// Messages the core composed in English come out in the user's language with the parts the core
// put in kept as they are, and unchanged where no translation is installed.

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
        const char* const version = "The file version (9.0) can not be processed. Please install an actual version of "
                                    "Tervola or contact support@tervola.example.org";
        const char* const unit = "Custom Fallrate [km/h]";
        const char* const invalid = "The file is no valid tervola file.";
        using Row = std::tuple<const char*, int, QString>; // composed, message id (0: any), German
        const Row rows[] = {
            {"Please enter a value between 1 and 9.", IDS_VALUE_RANGE, "Bitte einen Wert zwischen 1 und 9 eingeben."},
            {"Please enter a value between -50 and 50.", 0, "Bitte einen Wert zwischen -50 und 50 eingeben."},
            {"Please enter a value between %2 and x.", IDS_VALUE_RANGE, "Bitte einen Wert zwischen %2 und x eingeben."},
            {"Parser error: Open Tag: jump", 0, "Fehler beim Lesen der Datei: Open Tag: jump"},
            {version, 0,
             "Die Dateiversion (9.0) kann nicht verarbeitet werden. Bitte eine aktuelle Version von "
             "Tervola installieren oder an support@tervola.example.org wenden."},
            {invalid, 0, "Die Datei ist keine gültige Tervola-Datei."},
            {unit, IDS_CUSTOM_FALLRATE, "Eigene Fallrate [km/h]"},
            {unit, 0, unit},                      // no tail without an id
            {"disk full", 0, "disk full"},        // no message
            {invalid, IDS_PARSER_ERROR, invalid}, // another message than the id's
            {"Jump", 4011, "Jump"}};              // unknown id
        QCOMPARE(CTranslations::Install(QLocale(QLocale::German, QLocale::Germany)), QStringLiteral("de"));
        for (const auto& [composed, id, german] : rows)
            QCOMPARE(MessageText::Translate(composed, id), german);
        QCOMPARE(CTranslations::Install(QLocale(QLocale::English, QLocale::UnitedStates)), QString());
        for (const auto& [composed, id, german] : rows)
            QCOMPARE(MessageText::Translate(composed, id), QString::fromUtf8(composed));
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
