#include <core/files/CTar.h>
#include <core/text/CStr.h>

#include <QDataStream>
#include <QTranslator>
#include <QtTest>

/// The texts that go through translation follow the catalogue that a tool has loaded, and are their own without one.
class tst_Catalogues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void streamMessage_data();
    void streamMessage();
    void archiveMessage_data();
    void archiveMessage();

private:
    static void languages();
    static bool loadCatalogue(QTranslator& translator, const QString& language);
};

// An empty language is the text itself, without a catalogue.
bool tst_Catalogues::loadCatalogue(QTranslator& translator, const QString& language)
{
    return language.isEmpty()
           || (translator.load(QStringLiteral("tlxCore_") + language, QStringLiteral(TLX_CATALOGUE_DIR))
               && QCoreApplication::installTranslator(&translator));
}

void tst_Catalogues::languages()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
}

void tst_Catalogues::streamMessage_data()
{
    languages();
    QTest::newRow("none") << QString()
                          << QStringLiteral(
                                 "Stream ERROR while reading value \"speed\" : The data stream has read past "
                                 "the end of the data.");
    QTest::newRow("de") << QStringLiteral("de")
                        << QStringLiteral(
                               "Stream-FEHLER beim Lesen des Wertes \"speed\" : Der Datenstrom wurde über "
                               "das Ende der Daten hinaus gelesen.");
    QTest::newRow("en") << QStringLiteral("en")
                        << QStringLiteral(
                               "Stream error while reading value \"speed\": the data stream has read past "
                               "the end of the data.");
}

void tst_Catalogues::streamMessage()
{
    QFETCH(QString, language);
    QFETCH(QString, text);
    QTranslator translator;
    QVERIFY(loadCatalogue(translator, language));
    QDataStream stream(QByteArray(1, '\0'));
    qint32 number = 0;
    stream >> number;

    QString message;
    QVERIFY(!CStr::inStreamStatus(stream, QStringLiteral("speed"), message));
    QCOMPARE(message, text);
}

void tst_Catalogues::archiveMessage_data()
{
    languages();
    QTest::newRow("none") << QString() << QStringLiteral("ERROR: You must open an archive first !");
    QTest::newRow("de") << QStringLiteral("de")
                        << QStringLiteral("FEHLER: Zuerst muss ein Archiv geöffnet werden !");
    QTest::newRow("en") << QStringLiteral("en") << QStringLiteral("Error: open an archive first.");
}

void tst_Catalogues::archiveMessage()
{
    QFETCH(QString, language);
    QFETCH(QString, text);
    QTranslator translator;
    QVERIFY(loadCatalogue(translator, language));

    CTar tar;
    QByteArray data;
    QVERIFY(!tar.file(0, data));
    QCOMPARE(tar.error(), text);
}

QTEST_GUILESS_MAIN(tst_Catalogues)
#include "tst_Catalogues.moc"
