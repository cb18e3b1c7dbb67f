#include <core/device/CDeviceHardwareId.h>
#include <core/tlxCoreQTest.h>

#include <tests/support/StreamBytes.h>
#include <tests/support/Texts.h>

#include <QHash>
#include <QtTest>

namespace {

constexpr unsigned short NOT_SET = 65535;

CDeviceHardwareId makeId(const char* prefix, int platform, int version, int revision, const char* name)
{
    CDeviceHardwareId id;
    id.setPrefix(text(prefix));
    id.setPlatform(static_cast<unsigned short>(platform));
    id.setVersion(static_cast<unsigned short>(version));
    id.setRevision(static_cast<unsigned short>(revision));
    id.setName(text(name));
    return id;
}

} // namespace

/// What leaves a hardware identifier: texts, streams, hashes, debug output.
class tst_CDeviceHardwareIdOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void print_data();
    void print();
    void everyFieldCounts_data();
    void everyFieldCounts();
    void copies();
    void nullAndEmptyTextsAreEqual();
    void streamBytes_data();
    void streamBytes();
    void shortStreams();
    void metaTypeAndDebug();
};

void tst_CDeviceHardwareIdOutput::print_data()
{
    QTest::addColumn<CDeviceHardwareId>("id");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("shortForm");
    QTest::addColumn<QString>("full");

    QTest::newRow("full") << makeId("A", 12, 3, 1, "") << text("A012") << text("A012_003")
                          << text("A012_003_001");
    QTest::newRow("full with name") << makeId("A", 12, 3, 1, "Name_More") << text("A012_Name_More")
                                    << text("A012_003_Name_More") << text("A012_003_001_Name_More");
    QTest::newRow("no prefix") << makeId("", 0, 0, 0, "") << text("000") << text("000_000")
                               << text("000_000_000");
    QTest::newRow("name like a placeholder") << makeId("A", 1, 2, 3, "%1%9") << text("A001_%1%9")
                                             << text("A001_002_%1%9") << text("A001_002_003_%1%9");
    // "%012" is filled by the next text, one at a time, as "%01" followed by "2".
    QTest::newRow("percent sign as prefix")
        << makeId("%", 12, 3, 1, "") << text("%012") << text("0032_%3") << text("0032_001_%4");
    QTest::newRow("percent sign as prefix, with name")
        << makeId("%", 12, 3, 1, "N") << text("N2_%3") << text("0032_N_%4") << text("0032_001_N_%5");
    QTest::newRow("percent sign before a large number")
        << makeId("%", 999, 3, 1, "") << text("%999") << text("%999_003") << text("%999_003_001");
}

void tst_CDeviceHardwareIdOutput::print()
{
    QFETCH(CDeviceHardwareId, id);
    QFETCH(QString, minimum);
    QFETCH(QString, shortForm);
    QFETCH(QString, full);

    QCOMPARE(id.minimumHardwareId(), minimum);
    QCOMPARE(id.shortHardwareId(), shortForm);
    QCOMPARE(id.fullHardwareId(), full);
    QCOMPARE(id.hardwareId(), full);
    id.setRevision(NOT_SET);
    QCOMPARE(id.fullHardwareId(), QString());
    QCOMPARE(id.hardwareId(), shortForm);
    id.setVersion(1000);
    QCOMPARE(id.hardwareId(), minimum);
    id.setPlatform(1000);
    QCOMPARE(id.hardwareId(), id.name());
}

void tst_CDeviceHardwareIdOutput::everyFieldCounts_data()
{
    QTest::addColumn<CDeviceHardwareId>("other");
    QTest::newRow("prefix") << makeId("B", 1, 2, 3, "N");
    QTest::newRow("platform") << makeId("A", 9, 2, 3, "N");
    QTest::newRow("version") << makeId("A", 1, 9, 3, "N");
    QTest::newRow("revision") << makeId("A", 1, 2, 9, "N");
    QTest::newRow("name") << makeId("A", 1, 2, 3, "n");
}

void tst_CDeviceHardwareIdOutput::everyFieldCounts()
{
    QFETCH(CDeviceHardwareId, other);
    const CDeviceHardwareId id = makeId("A", 1, 2, 3, "N");

    QVERIFY(id != other);
    QVERIFY(!(id == other));
    QVERIFY(qHash(id) != qHash(other));
    other.clear();
    QVERIFY(other.isEmpty());
    other = id;
    QVERIFY(id == other);
    QVERIFY(!(id != other));
    QCOMPARE(qHash(id, 7U), qHash(other, 7U));
}

void tst_CDeviceHardwareIdOutput::copies()
{
    const CDeviceHardwareId id = makeId("A", 1, 2, 3, "N");
    CDeviceHardwareId copy(id);
    QCOMPARE(copy, id);
    copy.setName(QStringLiteral("M"));
    QCOMPARE(id.name(), text("N"));
    const CDeviceHardwareId moved(std::move(copy));
    QCOMPARE(moved, makeId("A", 1, 2, 3, "M"));
    CDeviceHardwareId parsed;
    parsed = QStringLiteral("A1_2_3_M");
    QCOMPARE(parsed, moved);
    const QHash<CDeviceHardwareId, int> table{{id, 1}, {moved, 2}};
    QCOMPARE(table.value(parsed), 2);
}

void tst_CDeviceHardwareIdOutput::nullAndEmptyTextsAreEqual()
{
    CDeviceHardwareId id;
    id.setPrefix(QStringLiteral(""));
    id.setName(QStringLiteral(""));
    QCOMPARE(id, CDeviceHardwareId());
    QCOMPARE(qHash(id), qHash(CDeviceHardwareId()));
    QVERIFY(id.isEmpty());
}

void tst_CDeviceHardwareIdOutput::streamBytes_data()
{
    QTest::addColumn<CDeviceHardwareId>("id");
    QTest::addColumn<QByteArray>("bigEndian");
    QTest::addColumn<QByteArray>("littleEndian");

    QTest::newRow("default: null texts, numbers not set")
        << CDeviceHardwareId() << fromHexText("ffffffff ffff ffff ffff ffffffff")
        << fromHexText("ffffffff ffff ffff ffff ffffffff");
    QTest::newRow("A012_003_256_Bo") << makeId("A", 12, 3, 256, "Bo")
                                     << fromHexText("00000002 0041 000c 0003 0100 00000004 0042 006f")
                                     << fromHexText("02000000 4100 0c00 0300 0001 04000000 4200 6f00");
    QTest::newRow("numbers of 32768 and more travel as negative")
        << makeId("", 0x8000, 0xFFFE, 0x7FFF, "x") << fromHexText("00000000 8000 fffe 7fff 00000002 0078")
        << fromHexText("00000000 0080 feff ff7f 02000000 7800");
}

void tst_CDeviceHardwareIdOutput::streamBytes()
{
    QFETCH(CDeviceHardwareId, id);
    QFETCH(QByteArray, bigEndian);
    QFETCH(QByteArray, littleEndian);

    QCOMPARE(streamed(id).toHex(), bigEndian.toHex());
    QCOMPARE(streamed(id, QDataStream::LittleEndian).toHex(), littleEndian.toHex());
    CDeviceHardwareId back(QStringLiteral("Q111_222_333_before"));
    QCOMPARE(unstreamed(bigEndian, back), QDataStream::Ok);
    QCOMPARE(back, id);
    QCOMPARE(back.isEmpty(), id.isEmpty());
    back = CDeviceHardwareId(QStringLiteral("Q111_222_333_before"));
    QCOMPARE(unstreamed(littleEndian, back, QDataStream::LittleEndian), QDataStream::Ok);
    QCOMPARE(back, id);
}

void tst_CDeviceHardwareIdOutput::shortStreams()
{
    const QByteArray whole = fromHexText("00000002 0041 000c 0003 0100 00000004 0042 006f");
    for (int length = 0; length < whole.size(); ++length) {
        CDeviceHardwareId id(QStringLiteral("Q111_222_333_before"));
        QCOMPARE(unstreamed(whole.left(length), id), QDataStream::ReadPastEnd);
        // Qt's readers leave 0 for a number and an empty text where the bytes end.
        QCOMPARE(id.prefix(), length >= 6 ? text("A") : QString());
        QCOMPARE(int(id.platform()), length >= 8 ? 12 : 0);
        QCOMPARE(int(id.version()), length >= 10 ? 3 : 0);
        QCOMPARE(int(id.revision()), length >= 12 ? 256 : 0);
        QCOMPARE(id.name(), QString());
    }
}

void tst_CDeviceHardwareIdOutput::metaTypeAndDebug()
{
    const CDeviceHardwareId id = makeId("A", 12, 3, 65535, "Bo");
    const QVariant variant = QVariant::fromValue(id);
    QCOMPARE(variant.value<CDeviceHardwareId>(), id);
    QString shown;
    QDebug(&shown).nospace() << id << 1;
    QCOMPARE(shown, text("CDeviceHardwareId(prefix \"A\", platform 12, version 3, name \"Bo\")1"));
    const QScopedArrayPointer<char> failing(QTest::toString(id));
    QCOMPARE(QByteArray(failing.data()),
             QByteArray("CDeviceHardwareId(prefix \"A\", platform 12, version 3, name \"Bo\")"));
}

QTEST_APPLESS_MAIN(tst_CDeviceHardwareIdOutput)
#include "tst_CDeviceHardwareIdOutput.moc"
