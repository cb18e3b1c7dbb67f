#ifndef TLXTEST_HARDWAREIDRULES_H
#define TLXTEST_HARDWAREIDRULES_H

#include <QRegExp>
#include <QString>
#include <QStringList>

/// The rules by which an identifier is parsed, written with Qt's expressions and lists: what the parser is compared with.
struct SHardwareIdRules
{
    QString prefix;
    quint16 numbers[3] = {65535, 65535, 65535};
    QString name;
    bool result = true;

    bool takeNumber(int index, const QString& part)
    {
        if (!QRegExp(QStringLiteral("^\\d{1,3}$")).exactMatch(part)) {
            return false;
        }
        int value = 0;
        for (const QChar digit : part) {
            value = value * 10 + digit.digitValue();
        }
        numbers[index] = static_cast<quint16>(value);
        return true;
    }

    explicit SHardwareIdRules(const QString& text)
    {
        if (text.isEmpty()) {
            return;
        }
        QStringList parts = text.split(QLatin1Char('_'));
        if (QRegExp(QStringLiteral("^\\D{1,1}")).indexIn(parts.first()) == 0) {
            prefix = parts.first().left(1);
            parts.first().remove(0, 1);
        }
        int index = 0;
        while (index < 3 && index < parts.size() && takeNumber(index, parts.at(index))) {
            ++index;
        }
        result = index > 0;
        if (result) {
            name = QStringList(parts.mid(index)).join(QLatin1Char('_'));
        }
    }
};

#endif // TLXTEST_HARDWAREIDRULES_H
