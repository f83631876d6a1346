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
    void composedMessages_data()
    {
        QTest::addColumn<QString>("composed");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("german");

        using namespace StringTable;
        QTest::newRow("range") << "Please enter a value between 1 and 99999." << int(IDS_VALUE_RANGE)
                               << "Bitte einen Wert zwischen 1 und 99999 eingeben.";
        QTest::newRow("range, any id") << "Please enter a value between -50 and 50." << 0
                                       << "Bitte einen Wert zwischen -50 und 50 eingeben.";
        QTest::newRow("argument looks like a placeholder")
            << "Please enter a value between %2 and x." << int(IDS_VALUE_RANGE)
            << "Bitte einen Wert zwischen %2 und x eingeben.";
        QTest::newRow("parser detail stays")
            << "Parser error: Open Tag: jump" << 0 << "Fehler beim Lesen der Datei: Open Tag: jump";
        QTest::newRow("file version")
            << "The file version (9.0) can not be processed. Please install an actual version of Tervola or "
               "contact support@tervola.example.org"
            << 0
            << "Die Dateiversion (9.0) kann nicht verarbeitet werden. Bitte eine aktuelle Version von Tervola "
               "installieren oder an support@tervola.example.org wenden.";
        QTest::newRow("no placeholder") << "The file is no valid tervola file." << 0
                                        << "Die Datei ist keine gültige Tervola-Datei.";
        QTest::newRow("unit after the message")
            << "Custom Fallrate [km/h]" << int(IDS_CUSTOM_FALLRATE) << "Eigene Fallrate [km/h]";
        QTest::newRow("no tail without an id") << "Custom Fallrate [km/h]" << 0 << "Custom Fallrate [km/h]";
        QTest::newRow("no message") << "disk full" << 0 << "disk full";
        QTest::newRow("other message than the id")
            << "The file is no valid tervola file." << int(IDS_PARSER_ERROR) << "The file is no valid tervola file.";
        QTest::newRow("unknown id") << "Jump" << 4011 << "Jump";
    }

    void composedMessages()
    {
        QFETCH(QString, composed);
        QFETCH(int, id);
        QFETCH(QString, german);
        const std::string text = composed.toStdString();
        QCOMPARE(CTranslations::Install(QLocale(QLocale::German, QLocale::Germany)), QStringLiteral("de"));
        QCOMPARE(MessageText::Translate(text, id), german);
        QCOMPARE(CTranslations::Install(QLocale(QLocale::English, QLocale::UnitedStates)), QString());
        QCOMPARE(MessageText::Translate(text, id), composed);
    }

    // Any German locale finds the German messages by number; French has no translation and stays
    // English.
    void numberedLookUp()
    {
        QCOMPARE(CTranslations::Install(QLocale(QLocale::German, QLocale::Austria)), QStringLiteral("de"));
        QCOMPARE(MessageText::Text(StringTable::IDS_SIGNATURE), QStringLiteral("Unterschrift"));
        QCOMPARE(MessageText::Format(StringTable::IDS_INSPECTION_DUE, QStringLiteral("3"), QStringLiteral("%1")),
                 QStringLiteral("Ausrüstung 3 muss bis %1 geprüft werden."));
        QCOMPARE(MessageText::Text(4011), QString());
        QCOMPARE(CTranslations::Install(QLocale(QLocale::French, QLocale::France)), QString());
        QCOMPARE(MessageText::Text(StringTable::IDS_SIGNATURE), QStringLiteral("Signature"));
    }
};

QTEST_GUILESS_MAIN(TestMessageText)
#include "MessageTextTest.moc"
