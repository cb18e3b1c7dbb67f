#ifndef TLX_SYSTEMNAMES_H
#define TLX_SYSTEMNAMES_H

#include <QByteArray>
#include <QList>
#include <QString>

#include <filesystem>

/// Names of files and arguments as the system has them: bytes in an encoding, or UTF-16.
namespace NSystemNames {

/// True when the path's last name can be told as text and told back.
bool isDecodable(const std::filesystem::path& path);

std::filesystem::path pathOf(const QString& text);
QByteArray bytesOf(const std::filesystem::path& path);

/// Those of the arguments that no text can hold.
QList<QByteArray> undecodable(const QList<QByteArray>& arguments);

} // namespace NSystemNames

#endif // TLX_SYSTEMNAMES_H
