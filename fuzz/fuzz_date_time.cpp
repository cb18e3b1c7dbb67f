// Date-times out of any packed number, record or bytes, beside QDateTime in the same time zone.
#include <core/text/CDateTime.h>
#include <fuzz/support/Fuzzer.h>

#include <QtEndian>

namespace {

qint8 fieldAt(quint64 packed, int place)
{
    return static_cast<qint8>((packed >> (8 * place)) & 0xFF);
}

struct SFields
{
    explicit SFields(quint64 packed)
        : date(static_cast<qint16>(packed >> 48), fieldAt(packed, 5), fieldAt(packed, 4))
        , time(fieldAt(packed, 3), fieldAt(packed, 2), fieldAt(packed, 1), fieldAt(packed, 0) * 10)
    {}

    bool areValid() const { return date.isValid() && time.isValid() && date.year() > 0; }

    QDate date;
    QTime time;
};

NTypes::tsDateTime recordOf(quint64 packed)
{
    return {{fieldAt(packed, 0), fieldAt(packed, 1), fieldAt(packed, 2), fieldAt(packed, 3)},
            {fieldAt(packed, 4), fieldAt(packed, 5), static_cast<qint16>(packed >> 48)}};
}

constexpr int HOUR = 3600;

// Berlin has standard time before 1970, and after 2037 the rule of the same day in 2037.
QDateTime utcOf(const QDateTime& dateTime)
{
    const QDate date = dateTime.date();
    if (dateTime.timeSpec() == Qt::UTC || (date.year() >= 1970 && date.year() <= 2037)) {
        return dateTime.toUTC();
    }
    int offset = HOUR;
    if (date.year() > 2037) {
        const bool isLeapDay = date.month() == 2 && date.day() == 29;
        const QDate known(2037, date.month(), isLeapDay ? 28 : date.day());
        offset = QDateTime(known, dateTime.time(), Qt::LocalTime).offsetFromUtc();
    }
    return QDateTime(date, dateTime.time(), Qt::UTC).addSecs(-offset);
}

// With Qt 6 a local date-time does not tell which pass through a repeated hour it is: there the C library takes that of the
// last call.
bool isSame(const QDateTime& left, const QDateTime& right)
{
    const bool isQt5 = QT_VERSION < QT_VERSION_CHECK(6, 0, 0);
    return left == right
           || (!isQt5 && left.timeSpec() == Qt::LocalTime && left.date() == right.date()
               && left.time() == right.time() && qAbs(left.secsTo(right)) == HOUR);
}

// Nor after 2037 which pass it is by the rule of that year, and an hour that the year itself omits is none.
bool isSameInstant(const CDateTime& left, const CDateTime& right)
{
    const QDateTime utc = right.toQDateTime(Qt::UTC);
    if (left == right || QT_VERSION < QT_VERSION_CHECK(6, 0, 0) || utc.date().year() <= 2037) {
        return left == right;
    }
    return !left.isValid() || qAbs(utc.secsTo(left.toQDateTime(Qt::UTC))) == HOUR;
}

void checkMade(quint64 packed, Qt::TimeSpec spec)
{
    const CDateTime made(static_cast<qint64>(packed), spec);
    const SFields fields(packed);
    FUZZ_CHECK(made.timeSpec() == spec);
    FUZZ_CHECK(CDateTime(recordOf(packed), spec) == made);
    FUZZ_CHECK(made.isValid() ? fields.date.isValid() && fields.time.isValid()
                              : made.toIsoDateTime(spec).isEmpty());
    if (!fields.areValid()) {
        return;
    }
    const QDateTime expected(fields.date, fields.time, spec);
    FUZZ_CHECK(isSame(made.toQDateTime(spec), expected) && made.isValid() == expected.isValid());
    FUZZ_CHECK(!made.isValid() || made.toIsoDateTime(Qt::UTC) == utcOf(expected).toString(Qt::ISODate));
    if (spec == Qt::UTC) {
        FUZZ_CHECK(made.toI64(spec) == packed);
    }
}

void checkBytes(const QByteArray& bytes, quint64 packed)
{
    uchar image[8];
    qToLittleEndian(packed, image);
    const QByteArray expected(reinterpret_cast<const char*>(image), sizeof(image));
    const CDateTime made(static_cast<qint64>(packed), Qt::UTC);
    FUZZ_CHECK(CDateTime::fromI64ByteArray(expected, Qt::UTC) == made);
    FUZZ_CHECK(SFields(packed).areValid() ? made.toI64ByteArray(Qt::UTC) == expected : true);
    const QByteArray padded = bytes.leftJustified(8, '\0', true);
    const CDateTime any = CDateTime::fromI64ByteArray(bytes, Qt::LocalTime);
    FUZZ_CHECK(any == CDateTime::fromI64ByteArray(padded, Qt::LocalTime));
    FUZZ_CHECK(any.toI64ByteArray(Qt::UTC).size() == 8);
}

void checkOrder(const CDateTime& left, const CDateTime& right)
{
    FUZZ_CHECK((left == right) == !(left != right) && (left < right) == !(left >= right));
    FUZZ_CHECK((left > right) == (right < left) && (left <= right) == !(left > right));
    FUZZ_CHECK(!(left == right) || qHash(left) == qHash(right));
}

void checkChanged(CDateTime value, quint64 packed)
{
    const NTypes::tsDateTime record = recordOf(packed);
    const Qt::TimeSpec spec = value.timeSpec();
    value.setDate(record.date);
    value.setTime(record.time);
    FUZZ_CHECK(value.timeSpec() == spec);
    FUZZ_CHECK(!value.isValid() || SFields(packed).areValid() || SFields(packed).date.isValid());
    const CDateTime before = value;
    value.setTimeSpec(spec == Qt::UTC ? Qt::LocalTime : Qt::UTC);
    FUZZ_CHECK(!before.isValid() || isSameInstant(value, before));
    value = static_cast<qint64>(packed);
    value = record;
}

} // namespace

static void fuzz(Input& input)
{
    const auto packed = input.take<quint64>();
    const auto other = input.take<quint64>();
    const Qt::TimeSpec spec = input.choose(2) != 0 ? Qt::UTC : Qt::LocalTime;
    checkMade(packed, spec);
    checkMade(other, Qt::UTC);
    checkBytes(input.bytes(), packed);
    checkOrder(CDateTime(static_cast<qint64>(packed), spec), CDateTime(static_cast<qint64>(other), Qt::UTC));
    checkChanged(CDateTime(static_cast<qint64>(packed), spec), other);
}
