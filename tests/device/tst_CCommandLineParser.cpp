#include <core/device/CCommandLineParser.h>

#include <QtTest>

namespace {

using Map = QMap<QString, QString>;

CCommandLineParser parserOf(const QString& argument)
{
    QStringList list{argument};
    return CCommandLineParser(&list);
}

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '));
}

} // namespace

class tst_CCommandLineParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keyValueForm_data();
    void keyValueForm();
    void nullList();
    void listIsLeftAlone();
    void genericAccess();
    void texts();
    void signedNumbers_data();
    void signedNumbers();
    void unsignedNumbers_data();
    void unsignedNumbers();
    void absentNumbers();
    void port_data();
    void port();
    void language_data();
    void language();
    void languageOfNothing();
    void setLanguage_data();
    void setLanguage();
    void copies();
};

void tst_CCommandLineParser::keyValueForm_data()
{
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<Map>("map");

    const auto one = [](const char* key, const char* value) {
        return Map{{QString::fromUtf8(key), QString::fromUtf8(value)}};
    };
    QTest::newRow("empty list") << QStringList() << Map();
    QTest::newRow("the first one counts too") << words("a=1") << one("a", "1");
    QTest::newRow("last wins") << words("a=1 b=0 a=2")
                               << Map{{QStringLiteral("a"), QStringLiteral("2")},
                                      {QStringLiteral("b"), QStringLiteral("0")}};
    QTest::newRow("case-sensitive") << words("a=1 A=2")
                                    << Map{{QStringLiteral("a"), QStringLiteral("1")},
                                           {QStringLiteral("A"), QStringLiteral("2")}};
    QTest::newRow("empty value") << words("key=") << one("key", "");
    QTest::newRow("empty value replaces") << words("key=1 key=") << one("key", "");
    QTest::newRow("no equals sign") << words("key") << Map();
    QTest::newRow("begins with an equals sign") << words("=5") << Map();
    QTest::newRow("equals signs only") << words("==") << Map();
    QTest::newRow("first equals sign parts") << words("a=b=c") << one("a", "b=c");
    QTest::newRow("dash stays") << words("-port=4000") << one("-port", "4000");
    QTest::newRow("slash stays") << words("/port=4000") << one("/port", "4000");
    QTest::newRow("blanks belong") << QStringList{QStringLiteral(" a = b ")} << one(" a ", " b ");
    QTest::newRow("empty argument") << QStringList{QString()} << Map();
    QTest::newRow("other letters") << words("größe=µm") << one("größe", "µm");
}

void tst_CCommandLineParser::keyValueForm()
{
    QFETCH(QStringList, list);
    QFETCH(Map, map);

    QCOMPARE(CCommandLineParser::argumentsMap(&list), map);
    QCOMPARE(CCommandLineParser(&list).count(), map.size());
}

void tst_CCommandLineParser::nullList()
{
    QCOMPARE(CCommandLineParser::argumentsMap(static_cast<QStringList*>(nullptr)), Map());
    QCOMPARE(CCommandLineParser::argumentsMap(nullptr), Map());
    QCOMPARE(CCommandLineParser(nullptr).count(), 0);
}

void tst_CCommandLineParser::listIsLeftAlone()
{
    QStringList list = words("tool a=1 b");
    const QStringList before = list;

    CCommandLineParser::argumentsMap(&list);

    QCOMPARE(list, before);
}

void tst_CCommandLineParser::genericAccess()
{
    QStringList list = words("a=1 key= =5 b=2");
    const CCommandLineParser parser(&list);

    QCOMPARE(parser.count(), 3);
    QVERIFY(parser.contains(QStringLiteral("a")));
    QVERIFY(parser.contains(QStringLiteral("key")));
    QVERIFY(!parser.contains(QStringLiteral("A")));
    QVERIFY(!parser.contains(QString()));
    QCOMPARE(parser.value(QStringLiteral("b")), QStringLiteral("2"));
    QCOMPARE(parser.value(QStringLiteral("key")), QString());
    QCOMPARE(parser.value(QStringLiteral("absent")), QString());
}

void tst_CCommandLineParser::texts()
{
    QStringList list = words("abadr=0.3.1 ip=192.168.1.2 server=bench-7 -ip=1.1.1.1");
    const CCommandLineParser parser(&list);
    const CCommandLineParser none(nullptr);

    QCOMPARE(parser.abAddress(), QStringLiteral("0.3.1"));
    QCOMPARE(parser.ip(), QStringLiteral("192.168.1.2"));
    QCOMPARE(parser.serverName(), QStringLiteral("bench-7"));
    QVERIFY(none.abAddress().isEmpty() && none.ip().isEmpty() && none.serverName().isEmpty());
}

void tst_CCommandLineParser::signedNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");

    QTest::newRow("3") << QStringLiteral("3") << 3;
    QTest::newRow("-7") << QStringLiteral("-7") << -7;
    QTest::newRow("leading zero is decimal") << QStringLiteral("010") << 10;
    QTest::newRow("greatest") << QStringLiteral("2147483647") << 2147483647;
    QTest::newRow("too great") << QStringLiteral("2147483648") << 0;
    QTest::newRow("least") << QStringLiteral("-2147483648") << (-2147483647 - 1);
    QTest::newRow("hexadecimal") << QStringLiteral("0x10") << 0;
    QTest::newRow("letters") << QStringLiteral("abc") << 0;
    QTest::newRow("fraction") << QStringLiteral("1.5") << 0;
    QTest::newRow("empty") << QString() << 0;
}

void tst_CCommandLineParser::signedNumbers()
{
    QFETCH(QString, text);
    QFETCH(int, number);

    QCOMPARE(parserOf(QStringLiteral("cu=") + text).currentUnit(), number);
    QCOMPARE(parserOf(QStringLiteral("level=") + text).userLevel(), number);
    QCOMPARE(parserOf(QStringLiteral("powadr=") + text).powerAddress(), number);
    QCOMPARE(parserOf(QStringLiteral("drvadr=") + text).driveAddress(), number);
}

void tst_CCommandLineParser::unsignedNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("number");

    QTest::newRow("3") << QStringLiteral("3") << 3U;
    QTest::newRow("-1") << QStringLiteral("-1") << 0U;
    QTest::newRow("greatest") << QStringLiteral("4294967295") << 4294967295U;
    QTest::newRow("too great") << QStringLiteral("4294967296") << 0U;
    QTest::newRow("hexadecimal") << QStringLiteral("0x10") << 0U;
    QTest::newRow("letters") << QStringLiteral("abc") << 0U;
    QTest::newRow("empty") << QString() << 0U;
}

void tst_CCommandLineParser::unsignedNumbers()
{
    QFETCH(QString, text);
    QFETCH(quint32, number);

    QCOMPARE(parserOf(QStringLiteral("comadr=") + text).comAddress(), number);
    QCOMPARE(parserOf(QStringLiteral("df=") + text).deviceFunction(), number);
    QCOMPARE(parserOf(QStringLiteral("devtype=") + text).deviceClass(), number);
}

// Tools tell "no address given" by -1, and rely on an absent device function being 0.
void tst_CCommandLineParser::absentNumbers()
{
    const CCommandLineParser none(nullptr);

    QCOMPARE(none.powerAddress(), -1);
    QCOMPARE(none.driveAddress(), -1);
    QCOMPARE(none.deviceFunction(), 0U);
    QCOMPARE(none.currentUnit(), 0);
    QCOMPARE(none.userLevel(), 0);
    QCOMPARE(none.comAddress(), 0U);
    QCOMPARE(none.deviceClass(), 0U);
    QCOMPARE(none.port(), 0);
}

void tst_CCommandLineParser::port_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");

    QTest::newRow("decimal") << QStringLiteral("31") << 31;
    QTest::newRow("hexadecimal") << QStringLiteral("0x1F") << 31;
    QTest::newRow("hexadecimal, small digits") << QStringLiteral("0x1f") << 31;
    QTest::newRow("0X is no prefix") << QStringLiteral("0X1F") << 0;
    QTest::newRow("digits without prefix") << QStringLiteral("1F") << 0;
    QTest::newRow("prefix alone") << QStringLiteral("0x") << 0;
    QTest::newRow("no digit") << QStringLiteral("0xG") << 0;
    QTest::newRow("greatest hexadecimal") << QStringLiteral("0x7FFFFFFF") << 2147483647;
    QTest::newRow("too great") << QStringLiteral("0x80000000") << 0;
    QTest::newRow("negative") << QStringLiteral("-1") << -1;
    QTest::newRow("leading zero is decimal") << QStringLiteral("010") << 10;
    QTest::newRow("letters") << QStringLiteral("x") << 0;
    QTest::newRow("empty") << QString() << 0;
}

void tst_CCommandLineParser::port()
{
    QFETCH(QString, text);
    QFETCH(int, number);

    QCOMPARE(parserOf(QStringLiteral("port=") + text).port(), number);
}

void tst_CCommandLineParser::language_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QLocale>("locale");

    QTest::newRow("language") << QStringLiteral("de") << QLocale(QLocale::German);
    QTest::newRow("language and country")
        << QStringLiteral("en_GB") << QLocale(QLocale::English, QLocale::UnitedKingdom);
    QTest::newRow("no language") << QStringLiteral("!!") << QLocale::c();
}

void tst_CCommandLineParser::language()
{
    QFETCH(QString, text);
    QFETCH(QLocale, locale);

    QCOMPARE(parserOf(QStringLiteral("lang=") + text).language(), locale);
}

// The C locale, whatever the default locale is.
void tst_CCommandLineParser::languageOfNothing()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));

    const QLocale absent = CCommandLineParser(nullptr).language();
    const QLocale empty = parserOf(QStringLiteral("lang=")).language();

    QLocale::setDefault(before);
    QCOMPARE(absent.language(), QLocale::C);
    QCOMPARE(absent.country(), QLocale::AnyCountry);
    QCOMPARE(empty, QLocale::c());
}

void tst_CCommandLineParser::setLanguage_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");

    QTest::newRow("de_DE") << QLocale(QLocale::German, QLocale::Germany) << QStringLiteral("de");
    QTest::newRow("en_US") << QLocale(QLocale::English, QLocale::UnitedStates) << QStringLiteral("en");
    QTest::newRow("C") << QLocale::c() << QStringLiteral("C");
    QTest::newRow("three letters are cut")
        << QLocale(QLocale::SwissGerman, QLocale::Switzerland) << QStringLiteral("gs");
}

void tst_CCommandLineParser::setLanguage()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, text);
    CCommandLineParser parser = parserOf(QStringLiteral("lang=fr_FR"));

    parser.setLanguage(locale);

    QCOMPARE(parser.value(QStringLiteral("lang")), text);
    QCOMPARE(parser.count(), 1);
    QCOMPARE(parser.language(), QLocale(text));
}

void tst_CCommandLineParser::copies()
{
    CCommandLineParser parser = parserOf(QStringLiteral("lang=fr"));
    const CCommandLineParser copy(parser);

    parser.setLanguage(QLocale(QLocale::German));

    QCOMPARE(copy.value(QStringLiteral("lang")), QStringLiteral("fr"));
    static_assert(std::has_virtual_destructor<CCommandLineParser>::value, "tools derive from it");
}

QTEST_APPLESS_MAIN(tst_CCommandLineParser)
#include "tst_CCommandLineParser.moc"
