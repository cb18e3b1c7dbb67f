#include <tests/files/TarArchive.h>

#include <core/files/CTar.h>
#include <core/files/TarIndex.h>
#include <core/tlxCoreQTest.h>

#include <QtTest>

#include <algorithm>

namespace {

// 400 names chosen so that Qt's text hash puts them all into the same of 4096 places.
QList<QByteArray> crowdingNames()
{
    QList<QByteArray> names;
    for (int i = 0; names.size() < 400; ++i) {
        const QByteArray name = QByteArray::number(i).rightJustified(9, '0');
        if ((qHash(QString::fromLatin1(name), 1u) & 0xfff) == 0) {
            names << name;
        }
    }
    return names;
}

} // namespace

/// Finding members by name: the first of equal ones, in a time that no archive can make long.
class tst_CTarNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void index_data();
    void index();
    void nameWithinAText();
    void namesBetweenHeaders();
    void manyMembersOfOneName();
    void namesThatCrowd();
    void hashesSpread();
};

void tst_CTarNames::index_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("index");

    QTest::newRow("first") << "a" << 0;
    QTest::newRow("first of two") << "twice" << 1;
    QTest::newRow("behind the two") << "b" << 3;
    QTest::newRow("empty name") << "" << 4;
    QTest::newRow("Latin-1") << QStringLiteral("\u00fc") << 5;
    QTest::newRow("other case") << "A" << -1;
    QTest::newRow("beginning of a name") << "twic" << -1;
    QTest::newRow("blank behind") << "a " << -1;
    QTest::newRow("not Latin-1") << QStringLiteral("\u0101") << -1;
    QTest::newRow("zero character behind") << QString(QStringLiteral("a") + QChar(0)) << -1;
    QTest::newRow("longer than a header") << QString(513, QLatin1Char('a')) << -1;
}

void tst_CTarNames::index()
{
    QFETCH(QString, name);
    const QTemporaryDir dir;
    CTar tar;
    const QByteArray bytes = tarFile("a", 5) + tarFile("twice", 1) + tarFile("twice", 2) + tarFile("b", 0)
                             + tarFile("", 0) + tarFile("\xfc", 0) + tarEnd();
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), bytes)));
    QTEST(tar.index(name), "index");
    QTEST(tar.index(name), "index"); // the second search takes another road than the first
}

// A name of an odd number of characters, behind which memory goes on without a zero character.
void tst_CTarNames::nameWithinAText()
{
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(
        writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 0) + tarFile("one", 0) + tarEnd())));
    const QString text = QStringLiteral("onely");
    QCOMPARE(tar.index(QString::fromRawData(text.constData(), 3)), 1);
    QCOMPARE(tar.index(text), -1);
}

// Names are made when somebody asks; what is indexed afterwards is found as well.
void tst_CTarNames::namesBetweenHeaders()
{
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(!tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 0) + tarFile("b", 0))));
    QCOMPARE(tar.names().join(QLatin1Char('|')), QStringLiteral("a|b"));
    QCOMPARE(tar.index(QStringLiteral("b")), 1);
    qint64 pos = 512;
    bool end = false;
    QVERIFY(tar.readFileHeader(pos, end));
    QCOMPARE(tar.info(2).mName, QStringLiteral("b")); // not among the names made before
    QCOMPARE(tar.index(QStringLiteral("b")), 1);
    QCOMPARE(tar.names().join(QLatin1Char('|')), QStringLiteral("a|b|b"));
    QCOMPARE(tar.infos().size(), 3);
    QCOMPARE(tar.infos().constLast().mPos, Q_INT64_C(512));
}

void tst_CTarNames::manyMembersOfOneName()
{
#ifdef Q_OS_WIN
    const int members = 10000; // a header read alone is several system calls, slow under Wine
#else
    const int members = 1000000;
#endif
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), tarFile("same", 0) + tarEnd())));
    bool end = false;
    for (int i = 1; i < members; ++i) {
        qint64 pos = 0;
        QVERIFY(tar.readFileHeader(pos, end));
    }
    QCOMPARE(tar.count(), members);
    QCOMPARE(tar.index(QStringLiteral("same")), 0);
    QCOMPARE(tar.index(QStringLiteral("other")), -1);
}

void tst_CTarNames::namesThatCrowd()
{
    const QList<QByteArray> names = crowdingNames();
    QByteArray bytes;
    for (const QByteArray& name : names) {
        bytes += tarFile(name, 0);
    }
    bytes += tarFile(names.at(7), 0) + tarFile("plain", 0) + tarEnd();
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), bytes)));
    for (int i = 0; i < names.size(); ++i) {
        QCOMPARE(tar.index(QString::fromLatin1(names.at(i))), i);
    }
    QCOMPARE(tar.index(QStringLiteral("plain")), names.size() + 1);
    QCOMPARE(tar.index(QStringLiteral("none")), -1);
    QCOMPARE(tar.index(QString(513, QLatin1Char('a'))), -1);
}

// Names that Qt's text hash puts all into one of 4096 places, whatever its seed: there are hardly two in one here.
void tst_CTarNames::hashesSpread()
{
    const TarNameHash hash;
    const TarNameHash other;
    QHash<uint, int> places;
    int same = 0;
    for (const QByteArray& latin1 : crowdingNames()) {
        const QString name = QString::fromLatin1(latin1);
        ++places[hash(name) % 4096];
        same += hash(name) == other(name) ? 1 : 0;
    }
    // 400 names thrown into 4096 places: ten in one are less likely than one in 10^15 archives.
    QVERIFY(*std::max_element(places.cbegin(), places.cend()) < 10);
    QVERIFY(same < 2); // each archive has keys of its own
}

QTEST_GUILESS_MAIN(tst_CTarNames)
#include "tst_CTarNames.moc"
