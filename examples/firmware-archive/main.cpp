// A firmware archive: indexed once, then read member by member.
#include <core/tlxCore.h>

#include <QDebug>
#include <QFile>
#include <QTemporaryDir>

namespace {

// A ustar archive with one member, so that the example needs no file of its own.
QByteArray archive(const QByteArray& name, const QByteArray& contents)
{
    QByteArray header(512, '\0');
    header.replace(0, name.size(), name);
    header.replace(124, 11, QByteArray::number(contents.size(), 8).rightJustified(11, '0'));
    header[156] = '0';
    header.replace(257, 5, "ustar");
    return header + contents.leftJustified((contents.size() + 511) / 512 * 512, '\0')
           + QByteArray(1024, '\0');
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("firmware.tar"));
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(archive("image.bin", "firmware")) < 0) {
        return 1;
    }
    file.close();

    //! [read]
    CTar tar;
    if (!tar.loadFile(fileName)) {
        qWarning().noquote() << tar.error();
        return 1;
    }
    QByteArray image;
    if (!tar.file(QStringLiteral("image.bin"), image)) {
        return 1;
    }
    const quint32 checksum = CMath::crc32(image.constData(), image.size());
    //! [read]

    qInfo() << tar.names() << image << QString::number(checksum, 16);
    return image == "firmware" ? 0 : 1;
}
