#include <core/types/CVariant.h>
#include <tests/threads/ThreadWork.h>

#include <QBitArray>

namespace {

QString numbered(const char* text, int seed)
{
    return QLatin1String(text) + QString::number(seed);
}

template <typename Text>
bool fixedString(int seed)
{
    const Text text(numbered("axis ", seed));
    Text other;
    other = numbered("axis ", seed);
    return survives(text) && text == other && text.str() == numbered("axis ", seed) && text.isValid();
}

bool dateTimeRecord(int seed)
{
    const NTypes::tsDateTime record{{1, 2, 3, 4}, {static_cast<qint8>(seed + 1), 6, 2020}};
    return survives(record) && survives(record.date) && survives(record.time);
}

bool defaults(int seed)
{
    bool right = true;
    for (quint32 number = 1; number <= NTypes::TYPE_CHAR; ++number) {
        const auto type = static_cast<NTypes::ETypes>((number + static_cast<quint32>(seed)) % 21);
        if (type != NTypes::TYPE_F80 && type != NTypes::TYPE_UNKNOWN) {
            const CVariant value(type);
            CVariant read;
            right = right && value.type() == type && value.isValid()
                    && unstreamed(streamed(value), read) == QDataStream::Ok && read == value;
        }
    }
    return right;
}

bool numbers(int seed)
{
    const CVariant value(40000 + seed);
    bool ok = false;
    const CVariant parsed = CVariant::fromStr(value.toStr(), NTypes::TYPE_I32);
    const CVariant bits = CVariant::fromBitArray(value.toBitArray(), NTypes::TYPE_I32);
    return survives(value) && value.toU16(&ok) == 40000 + seed && ok && parsed == value && bits == value
           && value.toHex(QString()) == QString::number(40000 + seed, 16).rightJustified(8, QLatin1Char('0'))
           && !value.toLocaleStr().isEmpty() && CVariant(QVariant(value)) == value;
}

bool texts(int seed)
{
    const CVariant value = CVariant::fromStr(numbered("name ", seed), NTypes::TYPE_STRING64);
    const CVariant bytes = CVariant::fromStr(numbered("name ", seed), NTypes::TYPE_CHARSTR64);
    bool ok = false;
    char raw[64];
    return survives(value) && survives(bytes) && value.toString32(&ok).str() == numbered("name ", seed) && ok
           && value.toStr() == numbered("name ", seed) && bytes.toCharStr64(raw)
           && bytes.toStr() == value.toStr();
}

bool dates(int seed)
{
    const NTypes::tsDateTime record{{0, 2, 3, 4}, {static_cast<qint8>(seed + 1), 6, 2020}};
    const CVariant value(record);
    const CVariant packed = CVariant::fromStr(QStringLiteral("2020-06-01T12:00:00"), NTypes::TYPE_DATETIME);
    bool ok = false;
    value.toU64(&ok);
    return survives(value) && ok && survives(packed)
           && packed.toU64(&ok) == (quint64(0x07E40601) << 32 | 0x0C000000) && ok;
}

// Reading may be the first that a process does with the library's own types.
bool readFirst(int seed)
{
    CVariant read;
    const QByteArray bytes = fromHexText("00000400 00 0000000a") + QByteArray("CString32", 10)
                             + QByteArray("\0a", 2) + QByteArray(62, '\0') + fromHexText("0000000c");
    return seed >= 0 && unstreamed(bytes, read) == QDataStream::Ok
           && read == CVariant(CString32(QStringLiteral("a")));
}

bool metaTypes(int seed)
{
    NTypes::registerMetaTypes();
    const int type = QMetaType::type(seed % 2 == 0 ? "CString64" : "NTypes::tsDateTime");
    return type >= QMetaType::User;
}

bool metaTypesByDefault(int seed)
{
    const auto type = seed % 2 == 0 ? NTypes::TYPE_STRING128 : NTypes::TYPE_DATETIME;
    return CVariant().defaultValue(type).userType() >= QMetaType::User;
}

} // namespace

QVector<SThreadWork> valueWork()
{
    return {{"CString32", fixedString<CString32>},
            {"CString64", fixedString<CString64>},
            {"CString128", fixedString<CString128>},
            {"NTypes date and time", dateTimeRecord},
            {"CVariant of every type", defaults},
            {"CVariant numbers", numbers},
            {"CVariant texts", texts},
            {"CVariant dates", dates},
            {"CVariant read first", readFirst},
            {"meta-types registered", metaTypes},
            {"meta-types by a default", metaTypesByDefault}};
}
