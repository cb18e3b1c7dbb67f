#include <core/files/CTar.h>

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

// Says what CTar reads from each archive that the arguments name, one line of JSON an archive. Texts are Latin-1, in
// hexadecimal digits. Contents are told by their SHA-256, up to 1 MiB.

namespace {

constexpr qint64 LARGEST = 1 << 20;

QString hex(const QString& text)
{
    return QString::fromLatin1(text.toLatin1().toHex());
}

QJsonObject member(CTar& tar, int index)
{
    const CTarFileInfo info = tar.info(index);
    QJsonObject object{{QStringLiteral("kind"), info.mType},
                       {QStringLiteral("name"), hex(info.mName)},
                       {QStringLiteral("link"), hex(info.mLinkName)},
                       {QStringLiteral("size"), QString::number(info.mSize)},
                       {QStringLiteral("pos"), QString::number(info.mPos)}};
    QByteArray data;
    if (info.mSize <= LARGEST) {
        const bool ok = tar.file(index, data);
        object[QStringLiteral("data")] =
            ok ? QString::fromLatin1(QCryptographicHash::hash(data, QCryptographicHash::Sha256).toHex())
               : hex(tar.error());
    }
    return object;
}

} // namespace

int main(int argc, char* argv[])
{
    for (int i = 1; i < argc; ++i) {
        CTar tar;
        QJsonObject archive;
        archive[QStringLiteral("ok")] = tar.loadFile(QString::fromLocal8Bit(argv[i]));
        archive[QStringLiteral("error")] = hex(tar.error());
        QJsonArray members;
        for (int index = 0; index < tar.count(); ++index) {
            members.append(member(tar, index));
        }
        archive[QStringLiteral("members")] = members;
        std::printf("%s\n", QJsonDocument(archive).toJson(QJsonDocument::Compact).constData());
    }
    return 0;
}
