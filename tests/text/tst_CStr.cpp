#include <core/text/CStr.h>

#include <QtTest>

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

} // namespace

class tst_CStr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nTypeToStr_data();
    void nTypeToStr();
    void nTypeToStrOfNoType();
};

void tst_CStr::nTypeToStr_data()
{
    QTest::addColumn<quint32>("type");
    QTest::addColumn<QString>("expected");
    const char* const names[] = {"UNKNOWN",    "U8",        "I8",        "U16",        "I16",      "U32",
                                 "I32",        "F32",       "U64",       "I64",        "F64",      "F80",
                                 "STRING32",   "CHARSTR64", "STRING128", "CHARSTR256", "DATETIME", "STRING64",
                                 "CHARSTR128", "UTF16CHAR", "CHAR"};
    quint32 type = 0;
    for (const char* name : names) {
        QTest::newRow(name) << type++ << text(name);
    }
}

void tst_CStr::nTypeToStr()
{
    QFETCH(quint32, type);
    QFETCH(QString, expected);

    QCOMPARE(CStr::nTypeToStr(NTypes::ETypes(type)), expected);
}

void tst_CStr::nTypeToStrOfNoType()
{
    for (const quint32 type : {21U, 255U, 0x80000000U, 0xFFFFFFFFU}) {
        QVERIFY(CStr::nTypeToStr(NTypes::ETypes(type)).isNull());
    }
}

QTEST_APPLESS_MAIN(tst_CStr)
#include "tst_CStr.moc"
