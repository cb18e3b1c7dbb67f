#include <core/text/CStr.h>

#include <core/base/TextScanner.h>
#include <core/types/TypeTable.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QDataStream>

#include <algorithm>
#include <cstring>

namespace {

const char* streamMessage(QDataStream::Status status)
{
    switch (status) {
    case QDataStream::ReadPastEnd:
        return QT_TRANSLATE_NOOP("CStr",
                                 "Stream ERROR while reading value \"%1\" : The data stream has read past "
                                 "the end of the data.");
    case QDataStream::ReadCorruptData:
        return QT_TRANSLATE_NOOP(
            "CStr", "Stream ERROR while reading value \"%1\" : The data stream has read corrupt data.");
    default:
        return QT_TRANSLATE_NOOP("CStr", "Stream ERROR while reading value \"%1\" : Unknown stream status.");
    }
}

bool isAccelerator(const QString& text, int ampersand)
{
    return text.at(ampersand) == QLatin1Char('&') && ampersand + 1 < text.size()
           && NCharacters::isWord(text.at(ampersand + 1));
}

} // namespace

QString CStr::nTypeToStr(NTypes::ETypes type)
{
    return static_cast<quint32>(type) < NTypeTable::TYPE_COUNT
               ? QLatin1String(NTypeTable::typeInfo(type).name)
               : QString();
}

QString CStr::cutString(const QString& text, unsigned int maxLength, bool& wasCut, bool atBlank)
{
    wasCut = maxLength < static_cast<unsigned int>(text.size());
    if (!wasCut) {
        return text;
    }
    const int limit = maxLength > 4 ? static_cast<int>(maxLength) - 4 : 0;
    const auto blank = atBlank && limit > 0 ? text.lastIndexOf(QLatin1Char(' '), limit - 1) : -1;
    return text.left(blank < 0 ? limit : blank) + QLatin1String(" ...");
}

bool CStr::inStreamStatus(const QDataStream& stream, const QString& valueName, QString& message)
{
    if (stream.status() == QDataStream::Ok) {
        return true;
    }
    message = QCoreApplication::translate("CStr", streamMessage(stream.status())).arg(valueName);
    return false;
}

int CStr::indexOfAmpersand(const QString& text)
{
    if (!text.isEmpty() && isAccelerator(text, 0)) {
        return 0;
    }
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('&') && isAccelerator(text, i + 1)) {
            return i;
        }
    }
    return -1;
}

int CStr::toUtf16(const QString& text, unsigned short* buffer, int bufferBytes)
{
    const int room = buffer ? std::max(bufferBytes, 0) / 2 : 0;
    const int codeUnits = static_cast<int>(std::min<qsizetype>(text.size(), room));
    if (codeUnits > 0) {
        std::memcpy(buffer, text.constData(), static_cast<std::size_t>(codeUnits) * sizeof(*buffer));
    }
    if (codeUnits < room) {
        buffer[codeUnits] = 0;
    }
    return codeUnits;
}

QString CStr::fromUtf16(const QByteArray& bytes)
{
    QString text(static_cast<int>(bytes.size() / 2), Qt::Uninitialized);
    std::memcpy(text.data(), bytes.constData(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
    const auto end = text.indexOf(QChar(0));
    return end < 0 ? text : text.left(end);
}

QString CStr::fromUtf16(const unsigned short* buffer, int bytes)
{
    if (!buffer || bytes < 2) {
        return QString();
    }
    // Nothing after the zero unit is read: the buffer may end there.
    const auto codeUnits = std::find(buffer, buffer + bytes / 2, 0) - buffer;
    return QString(reinterpret_cast<const QChar*>(buffer), static_cast<int>(codeUnits));
}
