#include <core/tlxCoreQTest.h>
#include <tests/types/Variants.h>

#include <QtTest>

// Default values: their payloads, and what setDefaultValue keeps.
class tst_CVariantDefault : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void payload_data();
    void payload();
    void none_data();
    void none();
    void textOfNoType();
    void independentOfOwnValue();
    void setDefault_data() { payload_data(); }
    void setDefault();
    void keepsPayload_data() { none_data(); }
    void keepsPayload();
};

void tst_CVariantDefault::payload_data()
{
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("U8") << NTypes::TYPE_U8 << QVariant(0);
    QTest::newRow("I8") << NTypes::TYPE_I8 << QVariant(0);
    QTest::newRow("U16") << NTypes::TYPE_U16 << QVariant(0);
    QTest::newRow("I16") << NTypes::TYPE_I16 << QVariant(0);
    QTest::newRow("U32") << NTypes::TYPE_U32 << QVariant(0U);
    QTest::newRow("I32") << NTypes::TYPE_I32 << QVariant(0);
    QTest::newRow("F32") << NTypes::TYPE_F32 << QVariant(0.0F);
    QTest::newRow("U64") << NTypes::TYPE_U64 << QVariant(0ULL);
    QTest::newRow("I64") << NTypes::TYPE_I64 << QVariant(0LL);
    QTest::newRow("F64") << NTypes::TYPE_F64 << QVariant(0.0);
    QTest::newRow("STRING32") << NTypes::TYPE_STRING32 << QVariant::fromValue(CString32());
    QTest::newRow("CHARSTR64") << NTypes::TYPE_CHARSTR64 << QVariant(QByteArray(64, '\0'));
    QTest::newRow("STRING128") << NTypes::TYPE_STRING128 << QVariant::fromValue(CString128());
    QTest::newRow("CHARSTR256") << NTypes::TYPE_CHARSTR256 << QVariant(QByteArray(256, '\0'));
    QTest::newRow("DATETIME") << NTypes::TYPE_DATETIME << QVariant::fromValue(NTypes::tsDateTime());
    QTest::newRow("STRING64") << NTypes::TYPE_STRING64 << QVariant::fromValue(CString64());
    QTest::newRow("CHARSTR128") << NTypes::TYPE_CHARSTR128 << QVariant(QByteArray(128, '\0'));
    QTest::newRow("UTF16CHAR") << NTypes::TYPE_UTF16CHAR << QVariant(QChar(0));
    QTest::newRow("CHAR") << NTypes::TYPE_CHAR << QVariant(QByteArray(1, '\0'));
}

namespace {

// QVariants of user types compare by address; the library's own compare by value here.
template <typename T>
bool sameUserValue(const QVariant& left, const QVariant& right)
{
    return left.userType() == qMetaTypeId<T>() && left.value<T>() == right.value<T>();
}

bool samePayload(const QVariant& left, const QVariant& right)
{
    if (left.userType() != right.userType()) {
        return false;
    }
    return sameUserValue<CString32>(left, right) || sameUserValue<CString64>(left, right)
           || sameUserValue<CString128>(left, right) || sameUserValue<NTypes::tsDateTime>(left, right)
           || (left.userType() < QMetaType::User && left == right);
}

} // namespace

void tst_CVariantDefault::payload()
{
    QFETCH(NTypes::ETypes, type);
    QFETCH(QVariant, expected);
    const QVariant value = CVariant().defaultValue(type);
    QVERIFY(samePayload(value, expected));
    QVERIFY(value.isValid());
    // Qt 6 does not call QChar(0) null; the variant does with both.
    QCOMPARE(value.isNull(), type == NTypes::TYPE_UTF16CHAR && QT_VERSION < QT_VERSION_CHECK(6, 0, 0));
    QCOMPARE(CVariant(type).isNull(), type == NTypes::TYPE_UTF16CHAR);
}

void tst_CVariantDefault::none_data()
{
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::newRow("UNKNOWN") << NTypes::TYPE_UNKNOWN;
    QTest::newRow("F80") << NTypes::TYPE_F80;
    QTest::newRow("21") << static_cast<NTypes::ETypes>(21);
    QTest::newRow("255") << static_cast<NTypes::ETypes>(255);
    QTest::newRow("0x80000001") << static_cast<NTypes::ETypes>(0x80000001);
    QTest::newRow("0xFFFFFFFF") << static_cast<NTypes::ETypes>(0xFFFFFFFF);
}

void tst_CVariantDefault::none()
{
    QFETCH(NTypes::ETypes, type);
    QVERIFY(!CVariant().defaultValue(type).isValid());
}

void tst_CVariantDefault::textOfNoType()
{
    for (const uint number :
         {NTypes::TYPE_CHAR + 1U, NTypes::TYPE_CHAR + 2U, 255U, 0x80000000U, 0xFFFFFFFFU}) {
        const CVariant value(QStringLiteral("5"), static_cast<NTypes::ETypes>(number));
        QCOMPARE(value.type(), NTypes::TYPE_UNKNOWN);
        QVERIFY(!value.isValid());
    }
}

void tst_CVariantDefault::independentOfOwnValue()
{
    QCOMPARE(CVariant(5).defaultValue(NTypes::TYPE_I32), QVariant(0));
    QCOMPARE(CVariant(NTypes::TYPE_F80).defaultValue(NTypes::TYPE_I64), QVariant(0LL));
}

void tst_CVariantDefault::setDefault()
{
    QFETCH(NTypes::ETypes, type);
    QFETCH(QVariant, expected);
    for (const NTypes::ETypes before : allTypes()) {
        CVariant value = sampleOf(before);
        CVariant& result = value.setDefaultValue(type);
        QCOMPARE(&result, &value);
        QCOMPARE(value.type(), type);
        QVERIFY(samePayload(value, expected));
    }
}

// The old payload stays readable through the Qt side, while every typed reader refuses because of the tag.
void tst_CVariantDefault::keepsPayload()
{
    QFETCH(NTypes::ETypes, type);
    CVariant value(7);
    value.setDefaultValue(type);
    QCOMPARE(value.type(), type);
    QCOMPARE(payloadOf(value), QVariant(7));
    bool ok = true;
    QCOMPARE(value.toI32(&ok), 0);
    QVERIFY(!ok);
    QCOMPARE(value.toStr(), QStringLiteral("7"));
    QCOMPARE(value.isNull(), type == NTypes::TYPE_UNKNOWN);
    QCOMPARE(value.isValid(), type != NTypes::TYPE_UNKNOWN);
}

QTEST_APPLESS_MAIN(tst_CVariantDefault)
#include "tst_CVariantDefault.moc"
