#include <core/base/QtVariant.h>
#include <tests/base/KnownLines.h>
#include <tests/base/VariantValues.h>

#include <QtTest>

#include <climits>
#include <cstring>

using namespace NVariantValues;

namespace {

template <typename T>
QByteArray shown(const T& value)
{
    return QByteArray::number(value);
}

// The same on machines whose char has no sign.
QByteArray shown(char value)
{
    return shown<signed char>(value);
}

QByteArray shown(const QByteArray& value)
{
    return '"' + value.toPercentEncoding(" ,") + '"';
}

QByteArray shown(const QString& value)
{
    return shown(value.toUtf8());
}

QByteArray shown(double value)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return QByteArray::number(bits, 16);
}

QByteArray shown(float value)
{
    return shown(static_cast<double>(value));
}

QByteArray shown(QChar value)
{
    return shown(int(value.unicode()));
}

// "-" where the type does not convert, "!" where the value does not.
template <typename T>
QByteArray converted(const QVariant& value)
{
    const int type = qMetaTypeId<T>();
    QVariant copy = value;
    if (!NQtVariant::canConvert(value, type)) {
        return NQtVariant::convert(copy, type) ? "?" : "-";
    }
    return NQtVariant::convert(copy, type) ? shown(*static_cast<const T*>(copy.constData())) : "!";
}

template <typename T>
QByteArray read(const QVariant& value, T (*reader)(const QVariant&, bool*))
{
    bool ok = false;
    const T number = reader(value, &ok);
    return ok ? shown(number) : "!";
}

QByteArray lineOf(const QVariant& value)
{
    return QList<QByteArray>{value.isValid() ? value.typeName() : "invalid",
                             NQtVariant::isNull(value) ? "null" : "",
                             // to int, uint, qlonglong, qulonglong, short, ushort, char, signed char, uchar
                             converted<int>(value), converted<uint>(value), converted<qlonglong>(value),
                             converted<qulonglong>(value), converted<short>(value), converted<ushort>(value),
                             converted<char>(value), converted<signed char>(value), converted<uchar>(value),
                             // to float, double, QChar, QByteArray
                             converted<float>(value), converted<double>(value), converted<QChar>(value),
                             converted<QByteArray>(value),
                             // the readers
                             read(value, NQtVariant::toInt), read(value, NQtVariant::toUInt),
                             read(value, NQtVariant::toLongLong), read(value, NQtVariant::toULongLong),
                             read(value, NQtVariant::toDouble), shown(NQtVariant::toString(value))}
        .join('\t');
}

// The file was written where char has a sign; where it has none, these count from 128 to 255.
bool isOtherNumber(const QVariant& value)
{
    return CHAR_MIN == 0 && value.userType() == QMetaType::Char && value.toInt() > SCHAR_MAX;
}

} // namespace

/// A variant converts as Qt 5.15's QVariant, which wrote the lines of data/conversions.txt.
class tst_QtVariant : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void conversions();
    void charHasTheMachinesSign();
};

void tst_QtVariant::conversions()
{
    QList<QByteArray> lines;
    for (const QVariant& value : integers() + others()) {
        lines << (isOtherNumber(value) ? QByteArray() : lineOf(value));
    }
    QCOMPARE(differences(lines, "conversions.txt"), 0);
}

void tst_QtVariant::charHasTheMachinesSign()
{
    const QVariant value = as<char>(-1);
    bool ok = false;
    QCOMPARE(NQtVariant::toInt(value, &ok), CHAR_MIN == 0 ? 255 : -1);
    QVERIFY(ok);
    QCOMPARE(NQtVariant::toDouble(value, &ok), CHAR_MIN == 0 ? 255.0 : -1.0);
    QVERIFY(ok);
}

QTEST_APPLESS_MAIN(tst_QtVariant)

#include "tst_QtVariant.moc"
