#include <core/device/CDeviceHardwareId.h>
#include <core/tlxCoreQTest.h>

#include <tests/support/Texts.h>

#include <QRegExp>
#include <QtTest>

namespace {

constexpr unsigned short NOT_SET = 65535;

/// The richest form that an object has; it has those before it, too.
enum ERichestForm
{
    NO_FORM,
    MINIMUM_FORM,
    SHORT_FORM,
    FULL_FORM
};

/// The tag of a row that is named after its text.
QByteArray tagOf(const char* source)
{
    return *source ? QByteArray(source).replace('\n', "\\n") : QByteArray("empty text");
}

} // namespace

Q_DECLARE_METATYPE(ERichestForm)

class tst_CDeviceHardwareId : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void parse_data();
    void parse();
    void parseRejects_data();
    void parseRejects();
    void assignFromOwnParts();
    void staticForms_data();
    void staticForms();
    void expressionsAreFresh();
    void textualNumbers_data();
    void textualNumbers();
    void numberTexts_data();
    void numberTexts();
    void formsOfObject_data();
    void formsOfObject();
    void anyFieldMakesItNotEmpty();
};

void tst_CDeviceHardwareId::defaults()
{
    const CDeviceHardwareId id;
    QCOMPARE(id.prefix(), QString());
    QCOMPARE(id.platform(), NOT_SET);
    QCOMPARE(id.version(), NOT_SET);
    QCOMPARE(id.revision(), NOT_SET);
    QCOMPARE(id.name(), QString());
    QCOMPARE(id.hardwareId(), QString());
    QCOMPARE(id.platformStr(), QString());
    QVERIFY(!id.isValid());
    QVERIFY(id.isEmpty());
    QVERIFY(id.isNull());
}

void tst_CDeviceHardwareId::parse_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<int>("platform");
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("revision");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("printed");
    const auto row = [](const char* source, const char* prefix, int platform, int version, int revision,
                        const char* name, const char* printed) {
        QTest::newRow(tagOf(source).constData())
            << text(source) << text(prefix) << platform << version << revision << text(name) << text(printed);
    };
    constexpr int NONE = 65535;
    row("", "", NONE, NONE, NONE, "", "");
    row("012", "", 12, NONE, NONE, "", "012");
    row("A012", "A", 12, NONE, NONE, "", "A012");
    row("A012_003", "A", 12, 3, NONE, "", "A012_003");
    row("A012_003_001", "A", 12, 3, 1, "", "A012_003_001");
    row("012_003_001_Board", "", 12, 3, 1, "Board", "012_003_001_Board");
    row("A012_003_001_Name_More", "A", 12, 3, 1, "Name_More", "A012_003_001_Name_More");
    row("1_2_3", "", 1, 2, 3, "", "001_002_003");
    row("A12_3", "A", 12, 3, NONE, "", "A012_003");
    row("A012_Board", "A", 12, NONE, NONE, "Board", "A012_Board");
    row("A012_003_X_Y", "A", 12, 3, NONE, "X_Y", "A012_003_X_Y");
    row("A012__001", "A", 12, NONE, NONE, "_001", "A012__001");
    row("A012_", "A", 12, NONE, NONE, "", "A012");
    row("A012_003_001_", "A", 12, 3, 1, "", "A012_003_001");
    row("A012_003_001__", "A", 12, 3, 1, "_", "A012_003_001__");
    row("1_2_3_4", "", 1, 2, 3, "4", "001_002_003_4");
    row("A012_1234", "A", 12, NONE, NONE, "1234", "A012_1234");
    row("A012_003_ 1", "A", 12, 3, NONE, " 1", "A012_003_ 1");
    row("\n012", "\n", 12, NONE, NONE, "", "\n012");
    row("-5", "-", 5, NONE, NONE, "", "-005");
    row("999_0_999", "", 999, 0, 999, "", "999_000_999");
    row("\u0661\u0662_\u0967", "", 12, 1, NONE, "", "012_001");
    row("\u00E97\uFF18", "\u00E9", 78, NONE, NONE, "", "\u00E9078");
}

void tst_CDeviceHardwareId::parse()
{
    QFETCH(QString, source);
    QFETCH(QString, prefix);
    QFETCH(int, platform);
    QFETCH(int, version);
    QFETCH(int, revision);
    QFETCH(QString, name);
    QFETCH(QString, printed);

    CDeviceHardwareId id(QStringLiteral("Q111_222_333_before"));
    QVERIFY(id.setHardwareId(source));

    QCOMPARE(id.prefix(), prefix);
    QCOMPARE(int(id.platform()), platform);
    QCOMPARE(int(id.version()), version);
    QCOMPARE(int(id.revision()), revision);
    QCOMPARE(id.name(), name);
    QCOMPARE(id.hardwareId(), printed);
    QCOMPARE(QString(id), printed);
    QCOMPARE(CDeviceHardwareId(source), id);
    QCOMPARE(id.isEmpty(), source.isEmpty());
    QCOMPARE(id.isValid(), !source.isEmpty());
}

void tst_CDeviceHardwareId::parseRejects_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("prefix");
    const auto row = [](const char* tag, const QString& source, const QString& prefix) {
        QTest::newRow(tag) << source << prefix;
    };
    row("AB12 keeps the prefix", text("AB12"), text("A"));
    row("A1234 has four digits", text("A1234"), text("A"));
    row("1234 has four digits", text("1234"), QString());
    row("A without a number", text("A"), text("A"));
    row("two letters before more parts", text("AB1_2_3"), text("A"));
    row("empty first part", text("_012"), QString());
    row("lone separator", text("_"), QString());
    row("letter behind the number", text("A012x"), text("A"));
    row("line end behind the number", text("A012\n"), text("A"));
    row("superscript digit", text("1\u00B2"), QString());
    row("surrogate pair is two units", text("\U0001D7CE12"), QString(QChar(0xD835)));
    row("embedded zero", QStringLiteral("1") + QChar(0) + QStringLiteral("2"), QString());
}

void tst_CDeviceHardwareId::parseRejects()
{
    QFETCH(QString, source);
    QFETCH(QString, prefix);

    CDeviceHardwareId id(QStringLiteral("Q111_222_333_before"));
    QVERIFY(!id.setHardwareId(source));

    QCOMPARE(id.prefix(), prefix);
    QCOMPARE(id.platform(), NOT_SET);
    QCOMPARE(id.version(), NOT_SET);
    QCOMPARE(id.revision(), NOT_SET);
    QCOMPARE(id.name(), QString());
    QVERIFY(!id.isValid());
}

void tst_CDeviceHardwareId::assignFromOwnParts()
{
    CDeviceHardwareId id;
    id.setName(QStringLiteral("A001_002_003_Board"));
    QVERIFY(id.setHardwareId(id.name()));
    QCOMPARE(id.hardwareId(), text("A001_002_003_Board"));

    id = QString(id);
    QCOMPARE(id.fullHardwareId(), text("A001_002_003_Board"));

    id.setPrefix(QStringLiteral("7_8"));
    id = id.prefix();
    QCOMPARE(id.hardwareId(), text("007_008"));
}

void tst_CDeviceHardwareId::staticForms_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("minimum");
    QTest::addColumn<bool>("shortForm");
    QTest::addColumn<bool>("full");
    const auto row = [](const char* source, bool minimum, bool shortForm, bool full) {
        QTest::newRow(tagOf(source).constData()) << text(source) << minimum << shortForm << full;
    };
    row("012", true, false, false);
    row("A012", true, false, false);
    row("_012", true, false, false);
    row("A012_Board", true, false, false);
    row("A012_003", true, true, false);
    row("A012_003_001", true, true, true);
    row("012_003_001_Board", true, true, true);
    row("012_003_001_Name_More", true, true, true);
    row("012_003_001__", true, true, true);
    row("\u0660\u0661\u0662_003_\uFF10\uFF11\uFF12_\u00E9\u0301", true, true, true);
    row("", false, false, false);
    row("1_2_3", false, false, false);
    row("12", false, false, false);
    row("A0123", false, false, false);
    row("AB012", false, false, false);
    row("A012_", false, false, false);
    row("A012_003_001_", true, true, false);
    row("A012-003", false, false, false);
    row("A012_Bo ard", false, false, false);
    row("A012\n", false, false, false);
    row("A012_003_001\n", false, false, false);
}

void tst_CDeviceHardwareId::staticForms()
{
    QFETCH(QString, source);
    QFETCH(bool, minimum);
    QFETCH(bool, shortForm);
    QFETCH(bool, full);

    QCOMPARE(CDeviceHardwareId::isMinimumHardwareId(source), minimum);
    QCOMPARE(CDeviceHardwareId::isShortHardwareId(source), shortForm);
    QCOMPARE(CDeviceHardwareId::isFullHardwareId(source), full);
    QCOMPARE(CDeviceHardwareId::minimumRegExp().exactMatch(source), minimum);
    QCOMPARE(CDeviceHardwareId::shortRegExp().exactMatch(source), shortForm);
    QCOMPARE(CDeviceHardwareId::fullRegExp().exactMatch(source), full);
}

void tst_CDeviceHardwareId::expressionsAreFresh()
{
    QRegExp first = CDeviceHardwareId::minimumRegExp();
    QCOMPARE(first.pattern(), text("^((\\D?\\d{3}){1})(_{1}\\w+)?$"));
    QCOMPARE(CDeviceHardwareId::shortRegExp().pattern(), text("^((\\D?\\d{3}_\\d{3}){1})(_{1}\\w+)?$"));
    QCOMPARE(CDeviceHardwareId::fullRegExp().pattern(), text("^((\\D?\\d{3}_\\d{3}_\\d{3}){1})(_{1}\\w+)?$"));
    QCOMPARE(first.caseSensitivity(), Qt::CaseSensitive);
    QCOMPARE(first.patternSyntax(), QRegExp::RegExp);
    first.setPattern(QStringLiteral("changed"));
    QVERIFY(CDeviceHardwareId::minimumRegExp().exactMatch(QStringLiteral("A012")));
}

void tst_CDeviceHardwareId::textualNumbers_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("expected"); // -1: rejected

    QTest::newRow("one digit") << text("7") << 7;
    QTest::newRow("two digits") << text("07") << 7;
    QTest::newRow("three digits") << text("999") << 999;
    QTest::newRow("Arabic-Indic digits") << text("\u0664\u0662") << 42;
    QTest::newRow("digits of two scripts") << text("1\u0967\uFF13") << 113;
    QTest::newRow("empty") << QString() << -1;
    QTest::newRow("four digits") << text("0007") << -1;
    QTest::newRow("sign") << text("+7") << -1;
    QTest::newRow("minus") << text("-7") << -1;
    QTest::newRow("blank") << text(" 7") << -1;
    QTest::newRow("line end") << text("7\n") << -1;
    QTest::newRow("hexadecimal") << text("0x7") << -1;
    QTest::newRow("Roman numeral") << text("\u2166") << -1;
}

void tst_CDeviceHardwareId::textualNumbers()
{
    QFETCH(QString, source);
    QFETCH(int, expected);
    const bool accepted = expected >= 0;
    const int after = accepted ? expected : 5;

    CDeviceHardwareId id;
    id.setPlatform(5);
    id.setVersion(5);
    id.setRevision(5);
    QCOMPARE(id.checkIVR(source), accepted);
    QCOMPARE(id.setPlatform(source), accepted);
    QCOMPARE(id.setVersion(source), accepted);
    QCOMPARE(id.setRevision(source), accepted);
    QCOMPARE(int(id.platform()), after);
    QCOMPARE(int(id.version()), after);
    QCOMPARE(int(id.revision()), after);
}

void tst_CDeviceHardwareId::numberTexts_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    QTest::newRow("0") << 0 << text("000");
    QTest::newRow("7") << 7 << text("007");
    QTest::newRow("12") << 12 << text("012");
    QTest::newRow("999") << 999 << text("999");
    QTest::newRow("1234") << 1234 << text("1234");
    QTest::newRow("65534") << 65534 << text("65534");
    QTest::newRow("65535, not set") << 65535 << QString();
}

void tst_CDeviceHardwareId::numberTexts()
{
    QFETCH(int, number);
    QFETCH(QString, expected);

    CDeviceHardwareId id;
    id.setPlatform(static_cast<unsigned short>(number));
    QCOMPARE(id.platformStr(), expected);
    QCOMPARE(id.versionStr(), QString());
    id.setVersion(static_cast<unsigned short>(number));
    QCOMPARE(id.versionStr(), expected);
    QCOMPARE(id.revisionStr(), QString());
    id.setRevision(static_cast<unsigned short>(number));
    QCOMPARE(id.revisionStr(), expected);
}

void tst_CDeviceHardwareId::formsOfObject_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<int>("platform");
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("revision");
    QTest::addColumn<ERichestForm>("form");
    const int none = 65535;
    QTest::newRow("all numbers") << text("A") << 1 << 2 << 3 << FULL_FORM;
    QTest::newRow("largest numbers") << text("") << 999 << 999 << 999 << FULL_FORM;
    QTest::newRow("no revision") << text("A") << 1 << 2 << none << SHORT_FORM;
    QTest::newRow("revision 1000") << text("A") << 1 << 2 << 1000 << SHORT_FORM;
    QTest::newRow("no version") << text("A") << 1 << none << 3 << MINIMUM_FORM;
    QTest::newRow("version 1000") << text("") << 1 << 1000 << 3 << MINIMUM_FORM;
    QTest::newRow("platform 1000") << text("A") << 1000 << 2 << 3 << NO_FORM;
    QTest::newRow("no platform") << text("A") << none << 2 << 3 << NO_FORM;
    QTest::newRow("two-character prefix") << text("AB") << 1 << 2 << 3 << NO_FORM;
    QTest::newRow("digit as prefix") << text("5") << 1 << 2 << 3 << NO_FORM;
    QTest::newRow("digit of another script as prefix") << text("\u0665") << 1 << 2 << 3 << NO_FORM;
    QTest::newRow("surrogate pair as prefix") << text("\U0001F600") << 1 << 2 << 3 << NO_FORM;
    QTest::newRow("underscore as prefix") << text("_") << 1 << 2 << 3 << FULL_FORM;
    QTest::newRow("line end as prefix") << text("\n") << 1 << 2 << 3 << FULL_FORM;
}

void tst_CDeviceHardwareId::formsOfObject()
{
    QFETCH(QString, prefix);
    QFETCH(int, platform);
    QFETCH(int, version);
    QFETCH(int, revision);
    QFETCH(ERichestForm, form);

    CDeviceHardwareId id;
    id.setPrefix(prefix);
    id.setPlatform(static_cast<unsigned short>(platform));
    id.setVersion(static_cast<unsigned short>(version));
    id.setRevision(static_cast<unsigned short>(revision));
    id.setName(QStringLiteral("N"));
    QCOMPARE(id.isMinimumHardwareId(), form >= MINIMUM_FORM);
    QCOMPARE(id.isShortHardwareId(), form >= SHORT_FORM);
    QCOMPARE(id.isFullHardwareId(), form >= FULL_FORM);
    QCOMPARE(id.isValid(), form >= MINIMUM_FORM);
    QCOMPARE(id.minimumHardwareId().isEmpty(), form < MINIMUM_FORM);
    QCOMPARE(id.shortHardwareId().isEmpty(), form < SHORT_FORM);
    QCOMPARE(id.fullHardwareId().isEmpty(), form < FULL_FORM);
    if (form == NO_FORM) {
        QCOMPARE(id.hardwareId(), text("N"));
    }
}

// Not empty is not valid: an identifier without a platform may still hold something.
void tst_CDeviceHardwareId::anyFieldMakesItNotEmpty()
{
    const auto isEmptyOrValidWith = [](auto change) {
        CDeviceHardwareId id;
        change(id);
        return id.isEmpty() || id.isNull() || id.isValid();
    };
    QVERIFY(!isEmptyOrValidWith([](CDeviceHardwareId& id) { id.setPrefix(text("A")); }));
    QVERIFY(!isEmptyOrValidWith([](CDeviceHardwareId& id) { id.setPlatform(1000); }));
    QVERIFY(!isEmptyOrValidWith([](CDeviceHardwareId& id) { id.setVersion(0); }));
    QVERIFY(!isEmptyOrValidWith([](CDeviceHardwareId& id) { id.setRevision(0); }));
    QVERIFY(!isEmptyOrValidWith([](CDeviceHardwareId& id) { id.setName(text("N")); }));
    QVERIFY(!isEmptyOrValidWith([](CDeviceHardwareId& id) { id.setHardwareId(text("AB12")); }));
}

QTEST_APPLESS_MAIN(tst_CDeviceHardwareId)
#include "tst_CDeviceHardwareId.moc"
