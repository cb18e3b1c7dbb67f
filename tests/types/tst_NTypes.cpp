#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/support/StreamBytes.h>

#include <QtTest>

#include <thread>
#include <type_traits>
#include <vector>

Q_DECLARE_METATYPE(NTypes::ETypes)

class tst_NTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstUseByManyThreads(); // must be first: nothing has registered the types yet
    void metaTypes_data();
    void metaTypes();
    void plainVariantStream_data();
    void plainVariantStream();
    void numbers_data();
    void numbers();
    void shape();
    void recordEquality();
    void recordStream_data();
    void recordStream();
    void recordTruncated();
    void recordHash();
    void recordDebug();
};

namespace {

const NTypes::tsDateTime SAMPLE = {{56, 10, 22, 13}, {4, 5, 2018}};

} // namespace

void tst_NTypes::firstUseByManyThreads()
{
    QCOMPARE(QMetaType::type("CString64"), int(QMetaType::UnknownType));
    std::vector<std::thread> threads;
    std::vector<std::array<int, 4>> seen(8);
    for (auto& numbers : seen) {
        threads.emplace_back([&numbers] {
            NTypes::registerMetaTypes();
            numbers = {QMetaType::type("CString32"), QMetaType::type("CString64"),
                       QMetaType::type("CString128"), QMetaType::type("NTypes::tsDateTime")};
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const auto& numbers : seen) {
        QVERIFY(numbers == seen.front());
        for (const int number : numbers) {
            QVERIFY(number >= QMetaType::User);
        }
    }
}

void tst_NTypes::metaTypes_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("number");
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const int declared = QMetaType::WasDeclaredAsMetaType;
    const int movable = QMetaType::MovableType;
#else
    const int declared = 0; // no flag of Qt 6
    const int movable = QMetaType::RelocatableType;
#endif
    const int text = QMetaType::NeedsConstruction | QMetaType::NeedsDestruction | declared;
    QTest::newRow("CString32") << QByteArray("CString32") << int(2 * sizeof(void*)) << text
                               << CVariant(CString32()).operator QVariant().userType();
    QTest::newRow("CString64") << QByteArray("CString64") << int(2 * sizeof(void*)) << text
                               << CVariant().defaultValue(NTypes::TYPE_STRING64).userType();
    QTest::newRow("CString128") << QByteArray("CString128") << int(2 * sizeof(void*)) << text
                                << qMetaTypeId<CString128>();
    QTest::newRow("tsDateTime") << QByteArray("NTypes::tsDateTime") << 8 << (movable | declared)
                                << CVariant(SAMPLE).operator QVariant().userType();
}

void tst_NTypes::metaTypes()
{
    QFETCH(QByteArray, name);
    QFETCH(int, size);
    QFETCH(int, flags);
    QFETCH(int, number);
    const QMetaType type(number);
    QVERIFY(type.isRegistered());
    QCOMPARE(QByteArray(QMetaType::typeName(number)), name);
    QCOMPARE(QMetaType::type(name), number);
    QCOMPARE(type.sizeOf(), size);
    QCOMPARE(int(type.flags()), flags);
    // Default-constructed without a source, copied from one.
    void* fresh = type.create();
    void* copy = type.create(fresh);
    QVERIFY(fresh && copy);
    type.destroy(copy);
    type.destroy(fresh);
}

void tst_NTypes::plainVariantStream_data()
{
    NTypes::registerMetaTypes();
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("bytes");
    // Qt's form: type number of user types, null flag, name with its length and terminator, then the value.
    QTest::newRow("CString32") << QVariant::fromValue(CString32(QStringLiteral("A")))
                               << fromHexText("00000400 00 0000000a") + QByteArray("CString32\0", 10)
                                      + fromHexText("0041") + QByteArray(62, '\0');
    QTest::newRow("tsDateTime") << QVariant::fromValue(SAMPLE)
                                << fromHexText("00000400 00 00000013")
                                       + QByteArray("NTypes::tsDateTime\0", 19)
                                       + fromHexText("380a160d 0405 07e2");
}

void tst_NTypes::plainVariantStream()
{
    QFETCH(QVariant, value);
    QFETCH(QByteArray, bytes);
    const MessageLog log;
    QCOMPARE(streamed(value), bytes);
    QVariant read;
    QCOMPARE(unstreamed(bytes, read), QDataStream::Ok);
    QCOMPARE(read.userType(), value.userType());
    QCOMPARE(streamed(read), bytes);
    QCOMPARE(log.messages(), QStringList());
}

void tst_NTypes::numbers_data()
{
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<uint>("number");
    QTest::newRow("UNKNOWN") << NTypes::TYPE_UNKNOWN << 0U;
    QTest::newRow("U8") << NTypes::TYPE_U8 << 1U;
    QTest::newRow("I8") << NTypes::TYPE_I8 << 2U;
    QTest::newRow("U16") << NTypes::TYPE_U16 << 3U;
    QTest::newRow("I16") << NTypes::TYPE_I16 << 4U;
    QTest::newRow("U32") << NTypes::TYPE_U32 << 5U;
    QTest::newRow("I32") << NTypes::TYPE_I32 << 6U;
    QTest::newRow("F32") << NTypes::TYPE_F32 << 7U;
    QTest::newRow("U64") << NTypes::TYPE_U64 << 8U;
    QTest::newRow("I64") << NTypes::TYPE_I64 << 9U;
    QTest::newRow("F64") << NTypes::TYPE_F64 << 10U;
    QTest::newRow("F80") << NTypes::TYPE_F80 << 11U;
    QTest::newRow("STRING32") << NTypes::TYPE_STRING32 << 12U;
    QTest::newRow("CHARSTR64") << NTypes::TYPE_CHARSTR64 << 13U;
    QTest::newRow("STRING128") << NTypes::TYPE_STRING128 << 14U;
    QTest::newRow("CHARSTR256") << NTypes::TYPE_CHARSTR256 << 15U;
    QTest::newRow("DATETIME") << NTypes::TYPE_DATETIME << 16U;
    QTest::newRow("STRING64") << NTypes::TYPE_STRING64 << 17U;
    QTest::newRow("CHARSTR128") << NTypes::TYPE_CHARSTR128 << 18U;
    QTest::newRow("UTF16CHAR") << NTypes::TYPE_UTF16CHAR << 19U;
    QTest::newRow("CHAR") << NTypes::TYPE_CHAR << 20U;
}

void tst_NTypes::numbers()
{
    QFETCH(NTypes::ETypes, type);
    QFETCH(uint, number);
    QCOMPARE(static_cast<uint>(type), number);
}

void tst_NTypes::shape()
{
    QVERIFY((std::is_same<std::underlying_type<NTypes::ETypes>::type, quint32>::value));
    QVERIFY(std::is_trivial<NTypes::tsDate>::value);
    QVERIFY(std::is_trivial<NTypes::tsTime>::value);
    QVERIFY(std::is_trivial<NTypes::tsDateTime>::value);
    QCOMPARE(sizeof(NTypes::tsDate), std::size_t(4));
    QCOMPARE(sizeof(NTypes::tsTime), std::size_t(4));
    QCOMPARE(sizeof(NTypes::tsDateTime), std::size_t(8));
    const quint8 fields[] = {56, 10, 22, 13, 4, 5};
    QVERIFY(std::memcmp(&SAMPLE, fields, sizeof(fields)) == 0);
    QCOMPARE(offsetof(NTypes::tsDateTime, date), std::size_t(4));
    QCOMPARE(offsetof(NTypes::tsDate, year), std::size_t(2));
}

void tst_NTypes::recordEquality()
{
    const NTypes::tsDateTime others[] = {
        {{57, 10, 22, 13}, {4, 5, 2018}}, {{56, 11, 22, 13}, {4, 5, 2018}}, {{56, 10, 23, 13}, {4, 5, 2018}},
        {{56, 10, 22, 14}, {4, 5, 2018}}, {{56, 10, 22, 13}, {5, 5, 2018}}, {{56, 10, 22, 13}, {4, 6, 2018}},
        {{56, 10, 22, 13}, {4, 5, 2019}},
    };
    for (const NTypes::tsDateTime& other : others) {
        QVERIFY(other != SAMPLE);
        QVERIFY(!(other == SAMPLE));
        QVERIFY((other.time != SAMPLE.time) != (other.date != SAMPLE.date));
    }
    const NTypes::tsDateTime same = SAMPLE;
    QCOMPARE(same, SAMPLE);
    QVERIFY(!(same != SAMPLE));
}

void tst_NTypes::recordStream_data()
{
    QTest::addColumn<NTypes::tsDateTime>("value");
    QTest::addColumn<QByteArray>("big");
    QTest::addColumn<QByteArray>("little");
    QTest::newRow("date") << SAMPLE << fromHexText("380a160d 0405 07e2") << fromHexText("380a160d 0405 e207");
    QTest::newRow("zero") << NTypes::tsDateTime() << QByteArray(8, '\0') << QByteArray(8, '\0');
    QTest::newRow("negative") << NTypes::tsDateTime{{-1, -2, -128, 127}, {-3, -4, -2}}
                              << fromHexText("fffe807f fdfc fffe") << fromHexText("fffe807f fdfc feff");
}

void tst_NTypes::recordStream()
{
    QFETCH(NTypes::tsDateTime, value);
    QFETCH(QByteArray, big);
    QFETCH(QByteArray, little);
    QCOMPARE(streamed(value, QDataStream::BigEndian), big);
    QCOMPARE(streamed(value, QDataStream::LittleEndian), little);
    QCOMPARE(streamed(value.time), big.left(4));
    QCOMPARE(streamed(value.date), big.mid(4));
    NTypes::tsDateTime read = {{1, 2, 3, 4}, {5, 6, 7}};
    QCOMPARE(unstreamed(big, read, QDataStream::BigEndian), QDataStream::Ok);
    QCOMPARE(read, value);
    QCOMPARE(unstreamed(little, read, QDataStream::LittleEndian), QDataStream::Ok);
    QCOMPARE(read, value);
}

void tst_NTypes::recordTruncated()
{
    const QByteArray whole = fromHexText("380a160d 0405 07e2");
    const qint8 fields[] = {56, 10, 22, 13, 4, 5};
    for (int size = 0; size < whole.size(); ++size) {
        NTypes::tsDateTime read = {{9, 9, 9, 9}, {9, 9, 9}};
        QCOMPARE(unstreamed(whole.left(size), read), QDataStream::ReadPastEnd);
        const auto field = [&](int i) { return i < size ? fields[i] : qint8(0); };
        QCOMPARE(read,
                 (NTypes::tsDateTime{{field(0), field(1), field(2), field(3)}, {field(4), field(5), 0}}));
    }
}

void tst_NTypes::recordHash()
{
    const NTypes::tsDateTime same = SAMPLE;
    QCOMPARE(qHash(same), qHash(SAMPLE));
    QVERIFY(qHash(same, 1) != qHash(SAMPLE, 2));
    QSet<NTypes::tsDateTime> set;
    set << SAMPLE << same << NTypes::tsDateTime();
    QCOMPARE(set.size(), 2);
    QCOMPARE((QSet<NTypes::tsDate>{SAMPLE.date, same.date}).size(), 1);
    QCOMPARE((QSet<NTypes::tsTime>{SAMPLE.time, NTypes::tsTime()}).size(), 2);
}

void tst_NTypes::recordDebug()
{
    QString shown;
    QDebug(&shown) << SAMPLE;
    QCOMPARE(shown.trimmed(),
             QStringLiteral("NTypes::tsDateTime(NTypes::tsDate(2018-5-4), NTypes::tsTime(13:22:10.56))"));
}

QTEST_APPLESS_MAIN(tst_NTypes)
#include "tst_NTypes.moc"
