#include <core/device/CDeviceList.h>
#include <core/tlxCoreQTest.h>

#include <tests/support/StreamBytes.h>

#include <QHash>
#include <QtTest>

#include <limits>

namespace {

constexpr CDeviceList::ESourceType sourceType(qint32 value)
{
    return static_cast<CDeviceList::ESourceType>(value);
}

CDeviceItem named(const char* name, unsigned int number = 0)
{
    CDeviceItem item;
    item.name = QString::fromUtf8(name);
    item.number = number;
    return item;
}

CDeviceList makeList(std::initializer_list<std::pair<unsigned int, const char*>> entries)
{
    CDeviceList list(QStringLiteral("H"), sourceType(7));
    for (const auto& entry : entries) {
        list.addDevice(entry.first, named(entry.second));
    }
    return list;
}

/// The names in the order of the map, each behind its key.
QStringList contents(const CDeviceList& list)
{
    QStringList texts;
    for (auto entry = list.devices.constBegin(); entry != list.devices.constEnd(); ++entry) {
        texts << QString::number(entry.key()) + entry.value().name;
    }
    return texts;
}

QStringList texts(std::initializer_list<const char*> list)
{
    QStringList result;
    for (const char* item : list) {
        result << QString::fromUtf8(item);
    }
    return result;
}

/// A default item of a one-letter name in a stream, behind its key.
QByteArray entryBytes(unsigned int key, unsigned int number, char name)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << key << number << QString(QLatin1Char(name));
    return bytes
           + fromHexText("00000000 ff 0000 ffffffff ffffffff ffffffff 00 00 00000000 00000000 00000000");
}

const QByteArray LIST_HEAD = fromHexText("00000002 0048 00000007");

} // namespace

class tst_CDeviceList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void addAndRemove();
    void addDeviceOfOwn();
    void clearKeepsNameAndSource();
    void uniteKeepsBoth();
    void uniteWithItself();
    void uniteKeepsOrderOfDuplicates();
    void uniteKeepsNumbers();
    void uniteLeavesTheOtherAlone();
    void devicesIsAnOrdinaryMap();
    void comparison();
    void streamBytes();
    void streamKeepsDuplicates();
    void sourceTypeHoldsEveryNumber();
    void shortStreams();
    void lyingCount();
    void damagedEntry();
    void corruptName();
    void badStatusBeforehand();
    void metaTypeAndDebug();
};

void tst_CDeviceList::defaults()
{
    const CDeviceList list;
    QCOMPARE(list.name, QString());
    QCOMPARE(qint32(list.sourceType), 0);
    QCOMPARE(list.size(), 0);
    QCOMPARE(list.count(), 0);
    QVERIFY(!list.contains(7));
    QVERIFY(!list.device(7).isValid());
    QCOMPARE(list.device(7), CDeviceItem());
    const CDeviceList other(QStringLiteral("H"), sourceType(7));
    QCOMPARE(other.name, QStringLiteral("H"));
    QCOMPARE(qint32(other.sourceType), 7);
    QCOMPARE(other.size(), 0);
}

void tst_CDeviceList::addAndRemove()
{
    CDeviceList list;
    const CDeviceItem item = named("a", 9);
    list.addDevice(5, item);
    QCOMPARE(item.number, 9U);
    QCOMPARE(list.device(5), named("a", 5));
    QVERIFY(list.contains(5));
    QVERIFY(!list.contains(9));
    list.addDevice(5, named("b"));
    QCOMPARE(contents(list), texts({"5b"}));
    list.addDevice(4294967295U, named("c"));
    list.addDevice(0, named("d"));
    QCOMPARE(contents(list), texts({"0d", "5b", "4294967295c"}));
    QCOMPARE(list.size(), 3);
    QCOMPARE(list.count(), 3);
    list.removeDevice(6);
    QCOMPARE(list.size(), 3);
    list.removeDevice(5);
    QCOMPARE(contents(list), texts({"0d", "4294967295c"}));
}

void tst_CDeviceList::addDeviceOfOwn()
{
    CDeviceList list = makeList({{1, "a"}});
    const CDeviceList shared = list;
    list.addDevice(2, *list.devices.constBegin());
    list.addDevice(1, *list.devices.constBegin());
    QCOMPARE(list.device(1), named("a", 1));
    QCOMPARE(list.device(2), named("a", 2));
    QCOMPARE(contents(shared), texts({"1a"}));
}

void tst_CDeviceList::clearKeepsNameAndSource()
{
    CDeviceList list = makeList({{1, "a"}, {2, "b"}});
    list.clear();
    QCOMPARE(list.size(), 0);
    QCOMPARE(list, CDeviceList(QStringLiteral("H"), sourceType(7)));
    QVERIFY(list != CDeviceList());
}

void tst_CDeviceList::uniteKeepsBoth()
{
    CDeviceList list = makeList({{1, "a"}, {3, "mine"}});
    CDeviceList other = makeList({{3, "other"}, {4, "d"}});
    other.name = QStringLiteral("ignored");
    other.sourceType = sourceType(99);
    list.unite(other);

    QCOMPARE(contents(list), texts({"1a", "3other", "3mine", "4d"}));
    QCOMPARE(list.name, QStringLiteral("H"));
    QCOMPARE(qint32(list.sourceType), 7);
    QCOMPARE(list.size(), 4);
    QCOMPARE(list.count(), 4);
    QCOMPARE(list.device(3).name, QStringLiteral("other"));

    list.addDevice(3, named("new"));
    QCOMPARE(contents(list), texts({"1a", "3new", "3mine", "4d"}));
    list.removeDevice(3);
    QCOMPARE(contents(list), texts({"1a", "4d"}));
    QVERIFY(!list.contains(3));
}

void tst_CDeviceList::uniteWithItself()
{
    CDeviceList list = makeList({{1, "a"}, {2, "b"}});
    list.unite(list);
    QCOMPARE(contents(list), texts({"1a", "1a", "2b", "2b"}));
    list.unite(list);
    QCOMPARE(list.size(), 8);
    CDeviceList empty;
    empty.unite(empty);
    QCOMPARE(empty, CDeviceList());
    empty.unite(list);
    QCOMPARE(empty.devices, list.devices);
}

void tst_CDeviceList::uniteKeepsOrderOfDuplicates()
{
    CDeviceList other = makeList({{3, "x"}});
    other.unite(makeList({{3, "y"}}));
    QCOMPARE(contents(other), texts({"3y", "3x"}));
    CDeviceList list = makeList({{3, "a"}});
    list.unite(other);
    QCOMPARE(contents(list), texts({"3y", "3x", "3a"}));
}

void tst_CDeviceList::uniteKeepsNumbers()
{
    CDeviceList other;
    other.devices.insert(3, named("x", 77));
    CDeviceList list;
    list.unite(other);
    QCOMPARE(list.device(3).number, 77U);
}

void tst_CDeviceList::uniteLeavesTheOtherAlone()
{
    CDeviceList list = makeList({{1, "a"}});
    const CDeviceList before = list;
    const CDeviceList other = makeList({{1, "b"}});
    list.unite(other);
    QCOMPARE(contents(before), texts({"1a"}));
    QCOMPARE(contents(other), texts({"1b"}));
}

void tst_CDeviceList::devicesIsAnOrdinaryMap()
{
    CDeviceList list;
    list.devices = QMap<unsigned int, CDeviceItem>{{3, named("a", 3)}};
    list.devices.insert(3, named("b", 3));
    QCOMPARE(contents(list), texts({"3b"}));
    list.devices[4].name = QStringLiteral("c");
    QCOMPARE(contents(list), texts({"3b", "4c"}));
}

void tst_CDeviceList::comparison()
{
    const CDeviceList list = makeList({{1, "a"}, {2, "b"}});
    CDeviceList other = makeList({{2, "b"}, {1, "a"}});
    QVERIFY(list == other);
    QVERIFY(!(list != other));
    QCOMPARE(qHash(list, 3U), qHash(other, 3U));
    other.name = QStringLiteral("I");
    QVERIFY(list != other);
    other = list;
    other.sourceType = sourceType(8);
    QVERIFY(list != other);
    QVERIFY(list != makeList({{1, "a"}}));
    QVERIFY(list != makeList({{1, "a"}, {3, "b"}}));
    QVERIFY(!(list == makeList({{1, "a"}, {2, "c"}})));
    // The same items under another key are another list.
    other = list;
    other.devices.clear();
    other.devices.insert(1, list.device(1));
    other.devices.insert(3, list.device(2));
    QVERIFY(list != other);
    // So are duplicates in another order.
    CDeviceList ab = makeList({{1, "a"}});
    ab.unite(makeList({{1, "b"}}));
    CDeviceList ba = makeList({{1, "b"}});
    ba.unite(makeList({{1, "a"}}));
    QVERIFY(ab != ba);
}

void tst_CDeviceList::streamBytes()
{
    const CDeviceList list = makeList({{1, "a"}, {0x80000000U, "b"}, {300, "c"}});
    const QByteArray bytes = LIST_HEAD + fromHexText("00000003") + entryBytes(0x80000000U, 0x80000000U, 'b')
                             + entryBytes(300, 300, 'c') + entryBytes(1, 1, 'a');
    QCOMPARE(streamed(list).toHex(), bytes.toHex());
    CDeviceList back = makeList({{77, "before"}});
    QCOMPARE(unstreamed(bytes, back), QDataStream::Ok);
    QCOMPARE(back, list);

    const CDeviceList empty(QStringLiteral("H"), sourceType(-2));
    const QByteArray little = fromHexText("02000000 4800 feffffff 00000000");
    QCOMPARE(streamed(empty, QDataStream::LittleEndian).toHex(), little.toHex());
    QCOMPARE(unstreamed(little, back, QDataStream::LittleEndian), QDataStream::Ok);
    QCOMPARE(back, empty);
    QCOMPARE(unstreamed(streamed(list, QDataStream::LittleEndian), back, QDataStream::LittleEndian),
             QDataStream::Ok);
    QCOMPARE(back, list);
}

void tst_CDeviceList::streamKeepsDuplicates()
{
    CDeviceList list = makeList({{3, "x"}, {1, "a"}});
    list.unite(makeList({{3, "y"}}));
    list.devices.first().number = 77; // not its key, and read as it is
    const QByteArray bytes = LIST_HEAD + fromHexText("00000003") + entryBytes(3, 3, 'x')
                             + entryBytes(3, 3, 'y') + entryBytes(1, 77, 'a');
    QCOMPARE(streamed(list).toHex(), bytes.toHex());
    CDeviceList back;
    QCOMPARE(unstreamed(bytes, back), QDataStream::Ok);
    QCOMPARE(back, list);
    QCOMPARE(contents(back), texts({"1a", "3y", "3x"}));
    QCOMPARE(back.device(1).number, 77U);
}

void tst_CDeviceList::sourceTypeHoldsEveryNumber()
{
    for (const qint32 value :
         {0, 1, -1, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()}) {
        QByteArray bytes;
        QDataStream(&bytes, QIODevice::WriteOnly) << value;
        QCOMPARE(streamed(sourceType(value)).toHex(), bytes.toHex());
        CDeviceList::ESourceType back = sourceType(12345);
        QCOMPARE(unstreamed(bytes, back), QDataStream::Ok);
        QCOMPARE(qint32(back), value);
    }
    CDeviceList::ESourceType type = sourceType(12345);
    QCOMPARE(unstreamed(QByteArray(3, '\1'), type), QDataStream::ReadPastEnd);
    QCOMPARE(qint32(type), 0);
}

void tst_CDeviceList::shortStreams()
{
    const QByteArray whole =
        LIST_HEAD + fromHexText("00000002") + entryBytes(3, 3, 'x') + entryBytes(1, 1, 'a');
    for (int length = 0; length < whole.size(); ++length) {
        CDeviceList list = makeList({{77, "before"}});
        QCOMPARE(unstreamed(whole.left(length), list), QDataStream::ReadPastEnd);
        QCOMPARE(list.size(), 0);
        QCOMPARE(list.name, length >= 6 ? QStringLiteral("H") : QString());
        QCOMPARE(qint32(list.sourceType), length >= 10 ? 7 : 0);
    }
}

void tst_CDeviceList::lyingCount()
{
    const QByteArray bytes = LIST_HEAD + fromHexText("ffffffff") + entryBytes(3, 3, 'x');
    CDeviceList list = makeList({{77, "before"}});
    QCOMPARE(unstreamed(bytes, list), QDataStream::ReadPastEnd);
    QCOMPARE(list, CDeviceList(QStringLiteral("H"), sourceType(7)));
    // A count below the truth ends the list; what follows belongs to the next reader.
    const QByteArray fewer =
        LIST_HEAD + fromHexText("00000001") + entryBytes(3, 3, 'x') + entryBytes(1, 1, 'a');
    QCOMPARE(unstreamed(fewer, list), QDataStream::Ok);
    QCOMPARE(contents(list), texts({"3x"}));
}

void tst_CDeviceList::damagedEntry()
{
    QByteArray entry = entryBytes(3, 3, 'x');
    entry[4 + 4 + 6 + 4] = 0x2a; // the kind of the host address
    const QByteArray bytes = LIST_HEAD + fromHexText("00000002") + entryBytes(4, 4, 'y') + entry;
    CDeviceList list;
    QCOMPARE(unstreamed(bytes, list), QDataStream::ReadCorruptData);
    QCOMPARE(list, CDeviceList(QStringLiteral("H"), sourceType(7)));
}

// The fields are read one after the other all the same, and the status stays what the name made it.
void tst_CDeviceList::corruptName()
{
    const QByteArray head = fromHexText("00000003 00000007 00000001"); // a text of an odd number of bytes
    CDeviceList list;
    QCOMPARE(unstreamed(head + entryBytes(3, 3, 'x'), list), QDataStream::ReadCorruptData);
    QCOMPARE(list.name, QString());
    QCOMPARE(list.sourceType, sourceType(7));
    QCOMPARE(contents(list), texts({"3x"}));
}

void tst_CDeviceList::badStatusBeforehand()
{
    const CDeviceList expected = makeList({{1, "a"}, {3, "x"}});
    const QByteArray bytes = streamed(expected);
    for (const QDataStream::Status status : {QDataStream::ReadCorruptData, QDataStream::ReadPastEnd}) {
        QDataStream stream(bytes);
        stream.setVersion(QDataStream::Qt_5_15);
        stream.setStatus(status);
        CDeviceList list;
        stream >> list;
        QCOMPARE(list, expected);
        QCOMPARE(stream.status(), status);

        QDataStream shortStream(bytes.left(bytes.size() - 1));
        shortStream.setStatus(status);
        shortStream >> list;
        QCOMPARE(list.size(), 0);
        QCOMPARE(shortStream.status(), status);
    }
}

void tst_CDeviceList::metaTypeAndDebug()
{
    const CDeviceList list = makeList({{1, "a"}, {3, "x"}});
    QCOMPARE(QVariant::fromValue(list).value<CDeviceList>(), list);
    const QScopedArrayPointer<char> shown(QTest::toString(list));
    QCOMPARE(
        QByteArray(shown.data()),
        QByteArray("CDeviceList(name \"H\", sourceType 7, devices QMap((1, CDeviceItem(number 1, name \"a\"))"
                   "(3, CDeviceItem(number 3, name \"x\"))))"));
}

QTEST_APPLESS_MAIN(tst_CDeviceList)
#include "tst_CDeviceList.moc"
