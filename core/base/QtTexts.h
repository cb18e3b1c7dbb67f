#ifndef TLXCORE_QTTEXTS_H
#define TLXCORE_QTTEXTS_H

#include <QString>

/// Texts that Qt 5 and Qt 6 read differently, as this Qt must get them to read what Qt 5 reads.
namespace NQtCompat {

/// A text for toInt() and the like. Qt 5 skips every white space around a number, takes U+2212 for a minus sign, and no
/// zero at the end.
inline QString integerText(const QString& text)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    const bool isCut = text.contains(QChar(0));
    return isCut ? QString() : text.trimmed().replace(QChar(0x2212), QLatin1Char('-'));
#else
    return text;
#endif
}

/// The bytes of a settings file for QSettings. Qt 5 reads Latin-1 where no byte order mark says UTF-8; Qt 6 reads UTF-8
/// only.
inline QByteArray settingsContent(const QByteArray& content)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    if (!content.startsWith("\xEF\xBB\xBF")) {
        return QString::fromLatin1(content).toUtf8();
    }
#endif
    return content;
}

} // namespace NQtCompat

#endif // TLXCORE_QTTEXTS_H
