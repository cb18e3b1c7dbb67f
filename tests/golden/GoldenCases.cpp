#include <tests/golden/GoldenCases.h>

#include <core/tlxCore.h>
#include <tests/support/StreamBytes.h>

#include <QTimeZone>

#include <cstring>
#include <limits>

namespace {

using TCases = std::vector<SGoldenCase>;

template <typename T>
void add(TCases& cases, const char* className, const char* name, const T& value)
{
    cases.push_back({className, name, [value](QDataStream& stream) { stream << value; },
                     [](QDataStream& in, QDataStream& out) {
                         T read;
                         in >> read;
                         out << read;
                     }});
}

QString umlauts()
{
    return QString::fromUtf8("Läufer 日");
}

template <typename String>
void addFixedStrings(TCases& cases, const char* className, int units)
{
    add(cases, className, "empty", String());
    add(cases, className, "text", String(umlauts()));
    add(cases, className, "full", String(QString(units, QLatin1Char('x'))));
    String rewritten(QStringLiteral("abcdef"));
    rewritten = QStringLiteral("xy");
    add(cases, className, "leftovers", rewritten);
}

template <int Size>
CVariant bytes(char first)
{
    char array[Size] = {};
    for (int i = 0; i < Size - 1; ++i) {
        array[i] = static_cast<char>(first + i);
    }
    return CVariant(array);
}

void addNumbers(TCases& cases)
{
    const auto variant = [&cases](const char* name, const CVariant& value) {
        add(cases, "CVariant", name, value);
    };
    variant("U8 255", CVariant(static_cast<unsigned char>(255)));
    variant("I8 -128", CVariant(static_cast<signed char>(-128)));
    variant("U16 65534", CVariant(static_cast<unsigned short>(65534)));
    variant("I16 -32767", CVariant(static_cast<short>(-32767)));
    variant("U32 4000000000", CVariant(4000000000U));
    variant("I32 -2", CVariant(-2));
    variant("F32 0.1", CVariant(0.1F));
    variant("F32 inf", CVariant(std::numeric_limits<float>::infinity()));
    variant("U64 18446744073709551614", CVariant(18446744073709551614ULL));
    variant("I64 -9000000000", CVariant(-9000000000LL));
    variant("F64 0.1", CVariant(0.1));
    variant("F64 -1e300", CVariant(-1e300));
}

void addTexts(TCases& cases)
{
    const auto variant = [&cases](const char* name, const CVariant& value) {
        add(cases, "CVariant", name, value);
    };
    variant("STRING32 text", CVariant(CString32(umlauts())));
    variant("STRING64 text", CVariant(CString64(umlauts())));
    variant("STRING128 text", CVariant(CString128(umlauts())));
    variant("CHARSTR64 bytes", bytes<64>('A'));
    variant("CHARSTR128 bytes", bytes<128>('B'));
    variant("CHARSTR256 bytes", bytes<256>('C'));
    variant("CHARSTR64 parsed", CVariant::fromStr(QStringLiteral("abc"), NTypes::TYPE_CHARSTR64));
    variant("CHARSTR64 parsed empty", CVariant::fromStr(QString(), NTypes::TYPE_CHARSTR64));
    variant("CHAR c", CVariant('c'));
    variant("UTF16CHAR euro", CVariant(QChar(0x20AC)));
    variant("UTF16CHAR 0", CVariant(QChar(0)));
    variant("DATETIME record", CVariant(NTypes::tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}}));
}

void addDefaults(TCases& cases)
{
    const char* const names[] = {"UNKNOWN",    "U8",        "I8",        "U16",        "I16",      "U32",
                                 "I32",        "F32",       "U64",       "I64",        "F64",      "F80",
                                 "STRING32",   "CHARSTR64", "STRING128", "CHARSTR256", "DATETIME", "STRING64",
                                 "CHARSTR128", "UTF16CHAR", "CHAR"};
    quint32 number = 0;
    for (const char* name : names) {
        add(cases, "CVariant", QByteArray("default ").append(name).constData(),
            CVariant(static_cast<NTypes::ETypes>(number++)));
    }
}

// What only a stream brings: payloads of Qt's other plain types and null flags, as Qt_5_15 has them.
void addForeign(TCases& cases)
{
    const struct
    {
        const char* name;
        const char* hex;
    } rows[] = {
        {"bool under I32", "00000001 00 01 00000006"},
        {"long long under DATETIME", "00000004 00 07E204050D160A38 00000010"},
        {"QString under STRING32", "0000000A 00 00000004 00610062 0000000C"},
        {"null QString", "0000000A 01 FFFFFFFF 0000000C"},
        {"null QByteArray under CHAR", "0000000C 01 FFFFFFFF 00000014"},
        {"null int", "00000002 01 00000000 00000006"},
        {"QDate", "0000000E 00 0000000000258AD7 00000010"},
        {"QTime", "0000000F 00 02DECD00 00000010"},
        {"QDateTime UTC", "00000010 00 0000000000258AD7 02DECD00 01 00000010"},
        {"long", "00000020 00 FFFFFFFFFFFFFFFE 00000006"},
        {"ulong", "00000023 00 00000000FFFFFFFE 00000005"},
        {"char", "00000022 00 63 00000014"},
        {"tag 255 with an int", "00000002 00 00000007 000000FF"},
    };
    for (const auto& row : rows) {
        CVariant value;
        unstreamed(fromHexText(row.hex), value);
        add(cases, "CVariant", row.name, value);
    }
}

void addDateTimes(TCases& cases)
{
    const auto dateTime = [&cases](const char* name, const QDateTime& value) {
        add(cases, "CDateTime", name, CDateTime(value));
    };
    const QDate day(2024, 3, 5);
    const QTime time(13, 7, 9, 456);
    dateTime("null", QDateTime());
    dateTime("local", QDateTime(day, time));
    dateTime("local summer", QDateTime(QDate(2024, 7, 5), time));
    dateTime("UTC", QDateTime(day, time, Qt::UTC));
    dateTime("offset", QDateTime(day, time, Qt::OffsetFromUTC, 19800));
    dateTime("offset 0", QDateTime(day, time, Qt::OffsetFromUTC, 0));
    dateTime("zone", QDateTime(day, time, QTimeZone("Asia/Tokyo")));
    dateTime("date without time", QDateTime(day, QTime(), Qt::UTC));
    dateTime("time without date", QDateTime(QDate(), time, Qt::UTC));
    dateTime("before Christ", QDateTime(QDate(-44, 3, 15), QTime(12, 0), Qt::UTC));
    dateTime("far", QDateTime(QDate(32767, 12, 31), QTime(23, 59, 59, 999), Qt::UTC));
    add(cases, "CDateTime", "impossible record",
        CDateTime(NTypes::tsDateTime{{0, 0, 0, 25}, {1, 13, 2024}}, Qt::UTC));
}

void addDevices(TCases& cases)
{
    add(cases, "CSubDeviceItem", "default", CSubDeviceItem());
    CSubDeviceItem brake(umlauts());
    brake.number = 200;
    add(cases, "CSubDeviceItem", "named", brake);
    add(cases, "CSubDeviceItem", "without a name", CSubDeviceItem(QString()));

    const auto type = static_cast<CDeviceItem::EHostAddrType>(2);
    const QString lift = QStringLiteral("Lift");
    CDeviceItem item(lift, type, QHostAddress(QStringLiteral("192.168.0.7")), 65535, QStringLiteral("left"));
    item.setConfigurationName(QStringLiteral("lift.cfg"));
    item.flag2 = true;
    item.value1 = -2;
    item.value2 = 7;
    item.addSubDevice(3, brake);
    item.addSubDevice(200, CSubDeviceItem());
    add(cases, "CDeviceItem", "default", CDeviceItem());
    add(cases, "CDeviceItem", "IPv4", item);
    CDeviceItem scoped(lift, type, QHostAddress(QStringLiteral("fe80::1%7")), 1, QString());
    add(cases, "CDeviceItem", "IPv6 with a scope", scoped);
    scoped.hostAddress = QHostAddress(QHostAddress::Any);
    add(cases, "CDeviceItem", "any address", scoped);

    CDeviceList list(umlauts(), static_cast<CDeviceList::ESourceType>(-3));
    add(cases, "CDeviceList", "default", CDeviceList());
    add(cases, "CDeviceList", "empty", list);
    list.addDevice(5, item);
    list.addDevice(4000000000U, CDeviceItem());
    add(cases, "CDeviceList", "two devices", list);
    CDeviceList other;
    other.addDevice(5, scoped);
    other.addDevice(7, CDeviceItem());
    list.unite(other);
    add(cases, "CDeviceList", "united", list);
    add(cases, "CDeviceItem_EHostAddrType", "-2", static_cast<CDeviceItem::EHostAddrType>(-2));
    add(cases, "CDeviceList_ESourceType", "9", static_cast<CDeviceList::ESourceType>(9));
}

void addNames(TCases& cases)
{
    add(cases, "CDeviceHardwareId", "default", CDeviceHardwareId());
    add(cases, "CDeviceHardwareId", "minimum", CDeviceHardwareId(QStringLiteral("012")));
    add(cases, "CDeviceHardwareId", "full", CDeviceHardwareId(QStringLiteral("A012_003_999_") + umlauts()));
    add(cases, "CMotorBaseName", "default", CMotorBaseName());
    add(cases, "CMotorBaseName", "full", CMotorBaseName(QStringLiteral("ACME_M100_1"), false));
    add(cases, "CMotorBaseName", "unchecked",
        CMotorBaseName(QStringLiteral(""), QString(), umlauts(), false));
    add(cases, "CIPv6Address", "default", CIPv6Address());
    add(cases, "CIPv6Address", "link-local", CIPv6Address(QStringLiteral("fe80:0:0:0:1:2:abcd:ffff")));
}

void addRecords(TCases& cases)
{
    add(cases, "NTypes_tsDate", "year -2", NTypes::tsDate{31, 12, -2});
    add(cases, "NTypes_tsTime", "all fields", NTypes::tsTime{99, 59, -1, 23});
    add(cases, "NTypes_tsDateTime", "all fields", NTypes::tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}});
    add(cases, "CTime", "default", CTime());
    add(cases, "CTime", "1500 ms", CTime(1500, static_cast<CTime::ETimeUnit>(3)));
    add(cases, "CTime", "largest",
        CTime(std::numeric_limits<quint64>::max(), static_cast<CTime::ETimeUnit>(6)));
}

} // namespace

std::vector<SGoldenCase> goldenCases()
{
    TCases cases;
    addFixedStrings<CString32>(cases, "CString32", 32);
    addFixedStrings<CString64>(cases, "CString64", 64);
    addFixedStrings<CString128>(cases, "CString128", 128);
    addNumbers(cases);
    addTexts(cases);
    addDefaults(cases);
    addForeign(cases);
    addDateTimes(cases);
    addNames(cases);
    addDevices(cases);
    addRecords(cases);
    return cases;
}
