// The fixed phrasings of CStr: revisions, serial numbers, titles, cut texts, menu accelerators and UTF-16 buffers.
#include <core/text/CStr.h>
#include <fuzz/support/Fuzzer.h>

#include <QRegExp>

#include <vector>

namespace {

constexpr int REGEXP_LENGTH = 64; // a QRegExp is slow

void checkRevision(quint32 number, const QString& text)
{
    quint32 wide = 0;
    quint16 narrow = 0;
    FUZZ_CHECK(CStr::stringToRevision(CStr::revisionToString(number), wide) && wide == number);
    const auto half = static_cast<quint16>(number);
    FUZZ_CHECK(CStr::stringToRevision(CStr::revisionToString(half), narrow) && narrow == half);
    wide = 77;
    const bool taken = CStr::stringToRevision(text, wide);
    FUZZ_CHECK(taken || wide == 77);
    quint32 again = 0;
    FUZZ_CHECK(!taken || (CStr::stringToRevision(CStr::revisionToString(wide), again) && again == wide));
    FUZZ_CHECK(!CStr::stringToRevision(text, narrow) || taken);
}

void checkSerial(quint32 number)
{
    const QString serial = CStr::serialToString(number);
    FUZZ_CHECK(QString(serial).remove(QLatin1Char(' ')) == QString::number(number));
    FUZZ_CHECK(serial.size() < 2 || serial.at(1) == QLatin1Char(' '));
}

void checkCut(const QString& text, quint32 length, bool atBlank)
{
    bool wasCut = false;
    const QString cut = CStr::cutString(text, length, wasCut, atBlank);
    FUZZ_CHECK(wasCut == (static_cast<quint32>(text.size()) > length));
    FUZZ_CHECK(wasCut ? cut.endsWith(QLatin1String(" ...")) : cut == text);
    FUZZ_CHECK(!wasCut || static_cast<quint32>(cut.size()) <= qMax(length, 4U));
    FUZZ_CHECK(!wasCut || text.startsWith(cut.left(cut.size() - 4)));
}

void checkAmpersand(const QString& text)
{
    const QRegExp expression(QStringLiteral("(^|[^&])&(?!(&|\\W|$))"));
    FUZZ_CHECK(CStr::indexOfAmpersand(text) == expression.indexIn(text));
}

void checkUtf16(const QString& text, int bytes)
{
    const auto units = static_cast<std::size_t>(bytes / 2);
    std::vector<unsigned short> buffer(units); // its ends are watched
    const int count = CStr::toUtf16(text, units > 0 ? buffer.data() : nullptr, bytes);
    FUZZ_CHECK(count == qMin(text.size(), bytes / 2));
    FUZZ_CHECK(static_cast<std::size_t>(count) == units || buffer[static_cast<std::size_t>(count)] == 0);
    const int zero = text.left(count).indexOf(QChar(0));
    const QString expected = text.left(zero < 0 ? count : zero);
    FUZZ_CHECK(CStr::fromUtf16(units > 0 ? buffer.data() : nullptr, bytes) == expected);
    const QByteArray image(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    const int end = text.indexOf(QChar(0));
    FUZZ_CHECK(CStr::fromUtf16(image) == text.left(end < 0 ? text.size() : end));
    FUZZ_CHECK(CStr::fromUtf16(image + 'x') == CStr::fromUtf16(image));
}

void checkDate(const QString& text)
{
    const QDate date = CStr::createQDateFrom__DATE__(text);
    if (date.isValid()) {
        const QString shown = QLocale::c().toString(date, QStringLiteral("MMM dd yyyy"));
        FUZZ_CHECK(CStr::createQDateFrom__DATE__(shown) == date);
    }
    CStr::createDate(QLocale(QLocale::German), text);
}

void checkSize(qint64 bytes)
{
    const QString size = CStr::memSizeToString(bytes);
    const int unit = QStringList{QStringLiteral("Byte"), QStringLiteral("KiB"), QStringLiteral("MiB"),
                                 QStringLiteral("GiB"),  QStringLiteral("TiB"), QStringLiteral("PiB")}
                         .indexOf(size.section(QLatin1Char(' '), 1));
    FUZZ_CHECK(unit >= 0);
    const double step = static_cast<double>(Q_INT64_C(1) << (10 * unit));
    const double shown = size.section(QLatin1Char(' '), 0, 0).toDouble() * step;
    FUZZ_CHECK(qAbs(shown - static_cast<double>(bytes)) <= (unit == 0   ? 4096.0
                                                            : unit == 5 ? step
                                                                        : step * 0.0501));
}

} // namespace

static void fuzz(Input& input)
{
    const auto number = input.take<quint32>();
    const auto length = input.take<quint8>();
    const QString text = input.text();
    checkRevision(number, text);
    checkSerial(number);
    checkCut(text, length, (number & 1U) != 0);
    checkAmpersand(text.left(REGEXP_LENGTH));
    checkUtf16(text, length);
    checkDate(text);
    checkSize(static_cast<qint64>(static_cast<quint64>(number) * number) >> (length % 32));
    CStr::getVersionString(text, text);
    CStr::createDeviceSelectionValue(text, number);
    CStr::createSubDeviceSelectionValue(text.left(5), text, number);
    CStr::doubleToString(static_cast<double>(number) / 7, static_cast<qint8>(length));
}
