#include <tests/exchange/RandomValues.h>

#include <QCoreApplication>
#include <QIODevice>

#include <cstdio>
#include <iostream>
#include <string>

// Writes random values of every class, or copies values that another program wrote; see exchange.py. A line a value:
//
//     class|version|order|precision|bytes
//
// Version, order and precision are numbers of QDataStream, the bytes are hexadecimal.

namespace {

constexpr int FIELDS = 5;

void print(const QByteArray& name, const NGolden::SSetting& setting, const QByteArray& bytes)
{
    std::printf("%s|%d|%d|%d|%s\n", name.constData(), setting.version, int(setting.order),
                int(setting.precision), bytes.toHex().constData());
}

// With newest, in the format that this Qt writes where nobody sets a version.
int write(int count, quint64 seed, bool newest)
{
    for (const SRandomClass& type : randomClasses()) {
        Random random(seed);
        const QList<NGolden::SSetting> settings = NGolden::allSettings();
        for (int i = 0; i < count; ++i) {
            const SGoldenCase value = type.make(random);
            NGolden::SSetting setting = settings.at(i % int(settings.size()));
            if (newest) {
                setting.version = QDataStream().version();
            }
            print(type.name, setting, NGolden::bytesOf(value, setting));
        }
    }
    return 0;
}

// Reads with the version of the line, or, with newest, with this Qt's own, and writes with that of Qt 5.15 then.
bool copyLine(const std::string& line, const std::vector<SRandomClass>& types, bool newest)
{
    const QList<QByteArray> fields = QByteArray::fromStdString(line).split('|');
    for (const SRandomClass& type : types) {
        if (fields.size() != FIELDS || type.name != fields.at(0)) {
            continue;
        }
        NGolden::SSetting setting = {fields.at(1).toInt(), QDataStream::ByteOrder(fields.at(2).toInt()),
                                     QDataStream::FloatingPointPrecision(fields.at(3).toInt())};
        QDataStream in(QByteArray::fromHex(fields.at(4)));
        QByteArray copy;
        QDataStream out(&copy, QIODevice::WriteOnly);
        if (newest) {
            setting.version = QDataStream().version();
            NGolden::apply(setting, in);
            setting.version = QDataStream::Qt_5_15;
        } else {
            NGolden::apply(setting, in);
        }
        NGolden::apply(setting, out);
        type.copy(in, out);
        print(type.name, setting, copy);
        return in.status() == QDataStream::Ok && in.atEnd();
    }
    return false;
}

int copy(bool newest)
{
    const std::vector<SRandomClass> types = randomClasses();
    std::string line;
    while (std::getline(std::cin, line)) {
        if (!copyLine(line, types, newest)) {
            std::fprintf(stderr, "not read: %s\n", line.c_str());
            return 1;
        }
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    NGolden::prepareProcess();
    const QCoreApplication application(argc, argv);
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) {}); // many texts are no names
    const QByteArray what(argc > 1 ? argv[1] : "");
    if (argc == 4 && (what == "write" || what == "write-newest")) {
        return write(QByteArray(argv[2]).toInt(), QByteArray(argv[3]).toULongLong(), what == "write-newest");
    }
    if (argc == 2 && (what == "copy" || what == "copy-newest")) {
        return copy(what == "copy-newest");
    }
    std::fprintf(stderr, "usage: exchange {write | write-newest} COUNT SEED\n"
                         "       exchange {copy | copy-newest} < LINES\n");
    return 1;
}
