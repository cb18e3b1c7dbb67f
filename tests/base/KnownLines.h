#ifndef TLXTEST_KNOWNLINES_H
#define TLXTEST_KNOWNLINES_H

#include <QDir>
#include <QFile>
#include <QList>

/// Compares lines with those of a file that the same program wrote with Qt 5.15; returns how many differ, and shows them.
/// A null line is not compared. Built with Qt 5, a program writes its file into the folder that the variable
/// TLX_WRITE_LINES names.
inline int differences(const QList<QByteArray>& lines, const char* name)
{
    const QString folder = qEnvironmentVariable("TLX_WRITE_LINES");
    QFile written(QDir(folder).filePath(QLatin1String(name)));
    if (QT_VERSION < QT_VERSION_CHECK(6, 0, 0) && !folder.isEmpty() && written.open(QIODevice::WriteOnly)) {
        written.write(lines.join('\n') + '\n');
    }
    QFile file(QDir(QStringLiteral(KNOWN_LINES)).filePath(QLatin1String(name)));
    if (!file.open(QIODevice::ReadOnly)) {
        return -1;
    }
    const QList<QByteArray> known = file.readAll().split('\n'); // an empty one after the last
    int different = lines.size() + 1 == known.size() ? 0 : 1;
    for (int i = 0; i < lines.size() && i < known.size(); ++i) {
        if (!lines.at(i).isNull() && lines.at(i) != known.at(i)) {
            ++different;
            qWarning("%s\ninstead of\n%s", lines.at(i).constData(), known.at(i).constData());
        }
    }
    return different;
}

#endif // TLXTEST_KNOWNLINES_H
