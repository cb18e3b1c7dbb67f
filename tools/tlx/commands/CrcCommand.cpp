#include <core/text/CMath.h>
#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/input/InputFile.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Progress.h>

#include <QCommandLineParser>
#include <QRegularExpression>

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

// What a CRC is multiplied by when that many bytes follow.
quint32 shiftBy(qint64 bytes)
{
    quint32 shift = 0x80000000U;
    for (quint32 square = 0x00800000U; bytes > 0; bytes >>= 1, square = product(square, square)) {
        shift = (bytes & 1) ? product(shift, square) : shift;
    }
    return shift;
}

struct SSum
{
    quint32 crc = 0;
    qint64 size = 0;

    QString text() const { return QStringLiteral("%1").arg(crc, 8, 16, QLatin1Char('0')).toUpper(); }
};

// The CRC-32 of a file of any size, piece by piece; false, and said in the report, when it cannot be read to its end.
bool sumOf(const QString& name, SSum& sum, Report& report)
{
    InputFile input;
    if (!input.openSequential(name, report)) {
        return false;
    }
    QIODevice& device = input.device();
    Progress progress(QStringLiteral("reading"), device.isSequential() ? 0 : device.size());
    const quint32 pieceShift = shiftBy(PIECE);
    QByteArray piece(static_cast<int>(PIECE), Qt::Uninitialized);
    qint64 length = 0;
    while ((length = input.read(piece.data(), PIECE)) > 0) {
        const quint32 shift = length == PIECE ? pieceShift : shiftBy(length);
        sum.crc = product(sum.crc, shift) ^ CMath::crc32(piece.constData(), static_cast<int>(length));
        sum.size += length;
        progress.show(sum.size);
    }
    if (length < 0) {
        fileFault(report, name, device.errorString());
    }
    return length == 0;
}

int showSum(const QString& name, Report& report)
{
    SSum sum;
    if (sumOf(name, sum, report)) {
        report.add("file", "File", name);
        report.add("size", "Bytes", wideNumber(sum.size));
        report.add("crc32", "CRC-32", sum.text());
    }
    return EXIT_DONE;
}

int showSums(const QStringList& names, Report& report)
{
    QList<QJsonArray> rows;
    for (const QString& name : names) {
        SSum sum;
        if (sumOf(name, sum, report)) {
            rows << QJsonArray{name, wideNumber(sum.size), sum.text()};
        }
    }
    report.addTable("files", {"file", "size", "crc32"}, rows);
    return EXIT_DONE;
}

struct SExpected
{
    QString name;
    QString crc;
};

// A line "SUM NAME", as most programs of sums write it, or "NAME SUM", as in .sfv files.
bool readLine(const QString& line, SExpected& expected)
{
    static const QRegularExpression sumFirst(QStringLiteral("^([0-9A-Fa-f]{8})[ \\t]+\\*?(.+)$"));
    static const QRegularExpression sumLast(QStringLiteral("^(.+?)[ \\t]+([0-9A-Fa-f]{8})$"));
    const QRegularExpressionMatch first = sumFirst.match(line);
    if (first.hasMatch()) {
        expected = {first.captured(2), first.captured(1).toUpper()};
        return true;
    }
    const QRegularExpressionMatch last = sumLast.match(line);
    expected = {last.captured(1), last.captured(2).toUpper()};
    return last.hasMatch();
}

QJsonArray checkedRow(const SExpected& expected, Report& report)
{
    SSum sum;
    if (!sumOf(expected.name, sum, report)) {
        return {expected.name, expected.crc, QJsonValue(), false};
    }
    const bool isRight = sum.text() == expected.crc;
    if (!isRight) {
        report.setError(
            QStringLiteral("%1: the CRC-32 is %2, not %3").arg(expected.name, sum.text(), expected.crc));
    }
    return {expected.name, expected.crc, sum.text(), isRight};
}

// Checks the files that a list names, relative to the current directory. Lines that begin with ";" are comments.
int checkSums(const QString& listName, Report& report)
{
    InputFile list;
    if (!list.openSequential(listName, report)) {
        return EXIT_INVALID;
    }
    QList<QJsonArray> rows;
    int number = 0;
    for (QByteArray bytes = list.device().readLine(); !bytes.isEmpty(); bytes = list.device().readLine()) {
        ++number;
        const QString line = QString::fromLocal8Bit(bytes).trimmed();
        SExpected expected;
        if (line.isEmpty() || line.startsWith(QLatin1Char(';'))) {
            continue;
        }
        if (!readLine(line, expected)) {
            report.setError(QStringLiteral("line %1 is not a sum and a name: \"1A2B3C4D  NAME\" is expected")
                                .arg(number));
            continue;
        }
        rows << checkedRow(expected, report);
    }
    report.addTable("files", {"file", "expected", "crc32", "right"}, rows);
    if (rows.isEmpty()) {
        report.setError(
            QStringLiteral("%1 lists no files: one line for each file is expected, \"1A2B3C4D  NAME\"")
                .arg(listName));
    }
    return EXIT_DONE;
}

} // namespace

QList<SOption> crcOptions()
{
    return {
        {"check",
         QStringLiteral("Checks the files that this list of sums names, lines \"SUM NAME\" or \"NAME SUM\"."),
         "SUMFILE", "", 'c'}};
}

int runCrc(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    const bool isCheck = parser.isSet(QStringLiteral("check"));
    if (arguments.isEmpty() != isCheck) {
        return wrongUsage(report, QStringLiteral("at least one file, or --check and no file, is expected"));
    }
    if (isCheck) {
        return checkSums(parser.value(QStringLiteral("check")), report);
    }
    return arguments.size() == 1 ? showSum(arguments.first(), report) : showSums(arguments, report);
}
