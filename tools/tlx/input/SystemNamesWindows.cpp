#include <tools/tlx/input/SystemNames.h>

namespace NSystemNames {

// A name of Windows is UTF-16, as a text is.
bool isDecodable(const std::filesystem::path&)
{
    return true;
}

std::filesystem::path pathOf(const QString& text)
{
    return text.toStdWString();
}

QByteArray bytesOf(const std::filesystem::path& path)
{
    return QString::fromStdWString(path.wstring()).toUtf8();
}

QList<QByteArray> undecodable(const QList<QByteArray>&)
{
    return {};
}

} // namespace NSystemNames
