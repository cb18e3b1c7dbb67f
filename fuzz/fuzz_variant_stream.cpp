// A variant out of any stream: what is read equals what Qt reads, can be asked everything, and travels on unchanged.
#include <core/types/CVariant.h>
#include <fuzz/support/Fuzzer.h>
#include <fuzz/support/Streams.h>

#include <QBitArray>

namespace {

/// Asks for everything that a variant can be asked; the answers of a payload under a foreign tag are only defined.
void askEverything(const CVariant& value)
{
    char bytes[256];
    unsigned short units[128];
    QChar unit;
    value.toI8();
    value.toU16();
    value.toF32();
    value.toF64();
    value.toI64();
    value.toCharStr256(bytes);
    value.toString128(units);
    value.toUtf16Char(unit);
    value.toString32();
    value.toLocaleStr();
    value.toHex(QStringLiteral("0x"));
    value.toBitArray();
    value.canConvertTo(value.type());
}

/// Payloads are compared as bytes: NaN equals NaN, and a null payload another of its type.
bool samePayload(const SStreamSetup& setup, const CVariant& left, const QVariant& right)
{
    return setup.written(QVariant(left)) == setup.written(right);
}

void checkOrder(const CVariant& left, const CVariant& right)
{
    FUZZ_CHECK((left == right) == !(left != right));
    FUZZ_CHECK((left < right) == !(left >= right));
    FUZZ_CHECK((left > right) == !(left <= right));
}

void checkAsQt(const SStreamSetup& setup, const QByteArray& bytes, const CVariant& value, qint64 taken)
{
    QDataStream stream(bytes);
    setup.apply(stream);
    QVariant payload;
    qint32 tag = 0;
    stream >> payload >> tag;
    FUZZ_CHECK(stream.status() == QDataStream::Ok);
    FUZZ_CHECK(stream.device()->pos() == taken);
    FUZZ_CHECK(static_cast<quint32>(tag) == value.type());
    FUZZ_CHECK(samePayload(setup, value, payload));
}

} // namespace

static void fuzz(Input& input)
{
    const SStreamSetup setup(input);
    const QByteArray bytes = input.bytes();
    CVariant value(7);
    qint64 taken = 0;
    const QDataStream::Status status = setup.read(bytes, value, taken);
    askEverything(value);
    if (status == QDataStream::ReadCorruptData) {
        FUZZ_CHECK(value.type() == NTypes::TYPE_UNKNOWN && !QVariant(value).isValid());
    }
    if (status != QDataStream::Ok) {
        return;
    }
    checkAsQt(setup, bytes, value, taken);
    const QByteArray written = setup.written(value);
    CVariant again;
    FUZZ_CHECK(setup.read(written, again, taken) == QDataStream::Ok);
    FUZZ_CHECK(taken == written.size());
    FUZZ_CHECK(again.type() == value.type() && samePayload(setup, again, value));
    FUZZ_CHECK(again.toStr() == value.toStr());
    FUZZ_CHECK(!(again == value) || qHash(again) == qHash(value));
    checkOrder(value, again);
    checkOrder(value, CVariant(value.toI32()));
    CVariant copy = value;
    copy.fromStr(value.toStr());
}
