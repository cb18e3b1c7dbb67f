#ifndef TLXFUZZ_INPUT_H
#define TLXFUZZ_INPUT_H

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstring>

/// The bytes of one input, taken from the front. What is missing is zero.
class Input
{
public:
    Input(const unsigned char* data, std::size_t size)
        : mData(reinterpret_cast<const char*>(data))
        , mSize(static_cast<int>(size))
    {}

    template <typename Number>
    Number take()
    {
        Number number{};
        const int count = std::min(mSize, static_cast<int>(sizeof(number)));
        std::memcpy(&number, mData, static_cast<std::size_t>(count));
        skip(count);
        return number;
    }

    /// A number from 0 to `count` - 1.
    int choose(int count) { return take<unsigned char>() % count; }

    /// The rest, as bytes.
    QByteArray bytes()
    {
        const QByteArray rest(mData, mSize);
        skip(mSize);
        return rest;
    }

    /// The rest as a text: UTF-16 units behind a byte 0xFF, which UTF-8 does not have; else UTF-8.
    QString text() { return decoded(bytes()); }

    /// The rest as texts, parted by zero bytes.
    QStringList texts()
    {
        QStringList list;
        const QList<QByteArray> parts = bytes().split('\0');
        for (const QByteArray& part : parts) {
            list.append(decoded(part));
        }
        return list;
    }

private:
    static QString decoded(const QByteArray& bytes)
    {
        if (!bytes.startsWith('\xFF')) {
            return QString::fromUtf8(bytes);
        }
        QString text((bytes.size() - 1) / 2, QChar(0));
        std::memcpy(text.data(), bytes.constData() + 1, static_cast<std::size_t>(text.size()) * 2);
        return text;
    }

    void skip(int count)
    {
        mData += count;
        mSize -= count;
    }

    const char* mData;
    int mSize;
};

#endif // TLXFUZZ_INPUT_H
