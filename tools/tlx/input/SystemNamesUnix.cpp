#include <tools/tlx/input/SystemNames.h>

#include <QFile>

#include <algorithm>
#include <iterator>

namespace NSystemNames {

static bool isText(const QByteArray& bytes)
{
    return QFile::encodeName(QFile::decodeName(bytes)) == bytes;
}

bool isDecodable(const std::filesystem::path& path)
{
    return isText(QByteArray::fromStdString(path.filename().string()));
}

std::filesystem::path pathOf(const QString& text)
{
    return QFile::encodeName(text).toStdString();
}

QByteArray bytesOf(const std::filesystem::path& path)
{
    return QByteArray::fromStdString(path.string());
}

QList<QByteArray> undecodable(const QList<QByteArray>& arguments)
{
    QList<QByteArray> lost;
    std::remove_copy_if(arguments.begin(), arguments.end(), std::back_inserter(lost), isText);
    return lost;
}

} // namespace NSystemNames
