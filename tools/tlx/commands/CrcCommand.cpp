#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Progress.h>

#include <core/text/CMath.h>

#include <QCommandLineParser>
#include <QFile>

namespace {

constexpr qint64 PIECE = 1 << 20;

// The product of two polynomials modulo that of the CRC; bit 31 is the power 0.
quint32 product(quint32 a, quint32 b)
{
    quint32 sum = 0;
    for (quint32 power = 0x80000000U; power != 0; power >>= 1) {
        sum ^= (a & power) ? b : 0U;
        b = (b >> 1) ^ ((b & 1U) ? 0xEDB88320U : 0U);
    }
    return sum;
}

// What a CRC is multiplied by when so many bytes follow.
quint32 shiftBy(qint64 bytes)
{
    quint32 shift = 0x80000000U;
    for (quint32 square = 0x00800000U; bytes > 0; bytes >>= 1, square = product(square, square)) {
        shift = (bytes & 1) ? product(shift, square) : shift;
    }
    return shift;
}

// The CRC-32 of a file of any size, piece by piece; false when it cannot be read to its end.
bool crcOf(QFile& file, quint32& crc, qint64& size)
{
    Progress progress(QStringLiteral("reading"), file.size());
    const quint32 pieceShift = shiftBy(PIECE);
    QByteArray piece(static_cast<int>(PIECE), Qt::Uninitialized);
    qint64 length = 0;
    while ((length = file.read(piece.data(), PIECE)) > 0) {
        const quint32 shift = length == PIECE ? pieceShift : shiftBy(length);
        crc = product(crc, shift) ^ CMath::crc32(piece.constData(), static_cast<int>(length));
        size += length;
        if (length == PIECE) {
            progress.show(size);
        }
    }
    return length == 0 && file.error() == QFileDevice::NoError;
}

} // namespace

int runCrc(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one file is expected"));
    }
    QFile file(arguments.first());
    quint32 crc = 0;
    qint64 size = 0;
    if (!file.open(QIODevice::ReadOnly) || !crcOf(file, crc, size)) {
        report.setError(QStringLiteral("%1: %2").arg(arguments.first(), file.errorString()));
        return EXIT_INVALID;
    }
    report.add(QStringLiteral("file"), QStringLiteral("File"), arguments.first());
    report.add(QStringLiteral("size"), QStringLiteral("Bytes"), QString::number(size));
    report.add(QStringLiteral("crc32"), QStringLiteral("CRC-32"),
               QStringLiteral("%1").arg(crc, 8, 16, QLatin1Char('0')).toUpper());
    return EXIT_DONE;
}
