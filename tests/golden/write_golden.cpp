#include <tests/golden/GoldenFile.h>

#include <QDir>
#include <QFile>

#include <cstdio>

// Writes the golden files of every value class: write_golden <directory>. The files in the tree are Qt 5.15's.

int main(int argc, char* argv[])
{
    NGolden::prepareProcess();
    if (argc != 2) {
        std::fprintf(stderr, "usage: write_golden <directory>\n");
        return 1;
    }
    QMap<QByteArray, QByteArray> files;
    for (const SGoldenCase& value : goldenCases()) {
        files[value.className] += NGolden::linesOf(value);
    }
    const QDir directory(QFile::decodeName(argv[1]));
    for (auto content = files.cbegin(); content != files.cend(); ++content) {
        QFile file(directory.filePath(QString::fromLatin1(content.key()) + QLatin1String(".golden")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content.value()) != content.value().size()) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file.fileName()));
            return 1;
        }
    }
    std::printf("%d files\n", int(files.size()));
    return 0;
}
