#include <core/base/QtLocale.h>
#include <tests/base/KnownLines.h>

#include <QtTest>

#include <limits>

namespace {

QByteArray lineOf(const QString& name)
{
    const QLocale locale(name);
    QLocale ungrouped = locale;
    ungrouped.setNumberOptions(QLocale::OmitGroupSeparator);
    return QStringList{name,
                       NQtLocale::shortDate(locale, QDate(2024, 3, 5)),
                       NQtLocale::number(locale, -1234567.25, 'f', 1),
                       NQtLocale::number(ungrouped, -1234567.25, 'f', 2),
                       NQtLocale::number(locale, 1234.5, 'g', -1),
                       NQtLocale::number(locale, 123, 'g', -1),
                       NQtLocale::number(locale, -1e-30, 'g', -1),
                       NQtLocale::number(locale, 1e30, 'g', -1),
                       NQtLocale::number(locale, -std::numeric_limits<double>::infinity(), 'g', -1),
                       NQtLocale::number(locale, std::numeric_limits<double>::quiet_NaN(), 'f', 3)}
        .join(QLatin1Char('\t'))
        .toUtf8();
}

} // namespace

/// Numbers and dates are those of Qt 5.15's QLocale, which wrote the lines of data/locales.txt: one for each locale.
class tst_QtLocale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLocale();
    void invalidDate();
};

void tst_QtLocale::everyLocale()
{
    QFile file(QDir(QStringLiteral(KNOWN_LINES)).filePath(QStringLiteral("locales.txt")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QList<QByteArray> lines;
    const QList<QByteArray> known = file.readAll().trimmed().split('\n');
    for (const QByteArray& line : known) {
        lines << lineOf(QString::fromLatin1(line.split('\t').first()));
    }
    QCOMPARE(differences(lines, "locales.txt"), 0);
}

void tst_QtLocale::invalidDate()
{
    QCOMPARE(NQtLocale::shortDate(QLocale(QStringLiteral("pl_PL")), QDate()), QString());
    QCOMPARE(NQtLocale::shortDate(QLocale(QStringLiteral("de_DE")), QDate()), QString());
}

QTEST_APPLESS_MAIN(tst_QtLocale)

#include "tst_QtLocale.moc"
