// The C++ that headers and pages show, as it is printed. Prints each value that a comment names: its place, the value, and
// what the comment says.
#include <core/tlxCore.h>

#include <QBitArray>
#include <QCoreApplication>
#include <QDebug>
#include <QFile>

#include <cstdio>

namespace {

// Numbers, texts and enumerators as a reader writes them.
template <typename T>
QString inWords(const T& value)
{
    if constexpr (std::is_same<T, bool>::value) {
        return value ? QStringLiteral("true") : QStringLiteral("false");
    } else if constexpr (std::is_arithmetic<T>::value) {
        return QStringLiteral("%1").arg(value);
    } else if constexpr (std::is_same<T, CVariant>::value) {
        return value.toStr();
    } else if constexpr (std::is_same<T, QByteArray>::value) {
        return QString::fromLatin1(value);
    } else if constexpr (std::is_convertible<T, QString>::value) {
        return value;
    } else {
        QString shown;
        QDebug(&shown).nospace() << value;
        return shown.trimmed();
    }
}

void answer(const char* place, const QString& value, const char* comment)
{
    std::printf("%s\t%s\x1f%s\n", place, value.toUtf8().constData(), comment);
}

// What the shorter examples take as given.
const QByteArray key("a key");
const QString path = QStringLiteral("images.tar");
const QString download = QStringLiteral("view.ini");
const CDeviceItem::EHostAddrType type = CDeviceItem::EHostAddrType(1);
CDeviceItem item;
CTar tar;
void work() {}
void setWindowTitle(const QString&) {}

} // namespace

#include "Snippets.inc"

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    for (const auto snippet : SNIPPETS) {
        snippet();
    }
    return 0;
}
