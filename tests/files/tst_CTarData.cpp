#include <tests/files/TarArchive.h>

#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>

#include <QtTest>

#if defined(Q_OS_LINUX) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#include <sys/resource.h>
#define CAN_LIMIT_MEMORY
#endif

/// Contents of members, whole and cut.
class tst_CTarData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void byIndex_data();
    void byIndex();
    void byName();
    void wrongIndex_data();
    void wrongIndex();
    void anyKindHasData();
    void manyMembers_data();
    void manyMembers();
    void truncatedAtEveryLength();
    void fileShrinksWhileOpen();
    void fileGrowsWhileOpen();
    void endlessSizeReservesNothing();
    void tooLargeForByteArray();
};

namespace {

QString shortRead(qint64 count, qint64 expected)
{
    return QStringLiteral("ERROR: ") + QString::number(count) + QStringLiteral(" bytes read but ")
           + QString::number(expected) + QStringLiteral(" are expected !");
}

QByteArray dataOf(int size)
{
    return tarFile("x", size).mid(512, size);
}

} // namespace

void tst_CTarData::byIndex_data()
{
    QTest::addColumn<int>("size");

    for (const int size : {0, 1, 511, 512, 513, 1024, 100000, 1000000}) {
        QTest::newRow(QByteArray::number(size).constData()) << size;
    }
}

void tst_CTarData::byIndex()
{
    QFETCH(int, size);
    const QTemporaryDir dir;
    CTar tar;
    const QByteArray bytes = tarFile("before", 700) + tarFile("it", size) + tarFile("after", 3) + tarEnd();
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), bytes)));
    QByteArray data("old");
    QVERIFY(tar.file(1, data));
    QCOMPARE(data.size(), size);
    QCOMPARE(data, dataOf(size));
    QVERIFY(tar.file(2, data));
    QCOMPARE(data, QByteArray("ABC"));
    QVERIFY(tar.file(0, data)); // backwards
    QCOMPARE(data, dataOf(700));
    QCOMPARE(tar.error(), QString());
}

void tst_CTarData::byName()
{
    const QTemporaryDir dir;
    CTar tar;
    const QByteArray bytes = tarFile("a", 1) + tarFile("twice", 2) + tarFile("twice", 3) + tarEnd();
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), bytes)));
    QByteArray data;
    QVERIFY(tar.file(QStringLiteral("twice"), data));
    QCOMPARE(data, QByteArray("AB")); // the first of the name
    QVERIFY(!tar.file(QStringLiteral("Twice"), data));
    QCOMPARE(data, QByteArray("AB"));
    QCOMPARE(tar.error(), QString());
}

void tst_CTarData::wrongIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("error");

    QTest::newRow("count") << 2 << "ERROR: Index 2 must be between the limits 0 and 2. !";
    QTest::newRow("-1") << -1 << "ERROR: Index -1 must be between the limits 0 and 2. !";
    QTest::newRow("INT_MAX") << std::numeric_limits<int>::max()
                             << "ERROR: Index 2147483647 must be between the limits 0 and 2. !";
    QTest::newRow("INT_MIN") << std::numeric_limits<int>::min()
                             << "ERROR: Index -2147483648 must be between the limits 0 and 2. !";
}

void tst_CTarData::wrongIndex()
{
    QFETCH(int, index);
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(
        tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 1) + tarFile("b", 1) + tarEnd())));
    MessageLog log;
    QByteArray data("kept");
    QVERIFY(!tar.file(index, data));
    QTEST(tar.error(), "error");
    QCOMPARE(data, QByteArray("kept"));
    QCOMPARE(log.messages(), QStringList());
}

void tst_CTarData::anyKindHasData()
{
    STarMember member;
    member.name = "././@LongLink";
    member.typeflag = 'L';
    member.data = "a very long name";
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), tarMember(member) + tarEnd())));
    QVERIFY(!tar.info(0).isValid());
    QByteArray data;
    QVERIFY(tar.file(0, data));
    QCOMPARE(data, member.data);
}

void tst_CTarData::manyMembers_data()
{
    QTest::addColumn<int>("size");

    QTest::newRow("small") << 100;
    QTest::newRow("between read together and alone") << 3 * 1024 + 400;
    QTest::newRow("large") << 20 * 1024;
    QTest::newRow("of growing size") << -1;
}

// Headers are read in large pieces or alone, as they lie; whatever the way, every member is found.
void tst_CTarData::manyMembers()
{
    QFETCH(int, size);
    const int count = 300;
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        bytes += tarFile("m" + QByteArray::number(i), size < 0 ? i * 37 : size + i % 3);
    }
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), bytes + tarEnd())));
    QCOMPARE(tar.count(), count);
    for (int i = 0; i < count; ++i) {
        const QString name = QLatin1Char('m') + QString::number(i);
        QByteArray data;
        QCOMPARE(tar.index(name), i);
        QVERIFY(tar.file(name, data));
        QCOMPARE(data, dataOf(size < 0 ? i * 37 : size + i % 3));
    }
}

void tst_CTarData::truncatedAtEveryLength()
{
    const QByteArray whole = tarFile("a", 513) + tarFile("b", 0) + tarFile("c", 5) + tarEnd();
    const QList<int> headers{0, 1536, 2048, 3072};
    const QTemporaryDir dir;
    for (int length = 0; length < whole.size(); ++length) {
        CTar tar;
        const bool ok = tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), whole.left(length)));
        int count = 0;
        while (count < 3 && headers.at(count) + 512 <= length) {
            ++count;
        }
        const QByteArray where = "length " + QByteArray::number(length);
        QVERIFY2(tar.count() == count, where.constData());
        QVERIFY2(ok == (length >= 3072 + 512), where.constData());
        const QString missing = QStringLiteral("ERROR : The file ist too short. Only ")
                                + QString::number(qMax(length - headers.at(count), 0))
                                + QStringLiteral(" bytes read but 512 expected !");
        QVERIFY2(ok || tar.error() == missing, where.constData());

        QByteArray data("kept");
        const bool read = tar.file(QStringLiteral("a"), data);
        QVERIFY2(read == (length >= 512 + 513), where.constData());
        QCOMPARE(data, read ? dataOf(513) : QByteArray("kept"));
        if (count > 0 && !read) {
            QCOMPARE(tar.error(), shortRead(length - 512, 513));
        }
    }
}

void tst_CTarData::fileShrinksWhileOpen()
{
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 600) + tarEnd());
    CTar tar;
    QVERIFY(tar.loadFile(path));
    QFile file(path);
    QVERIFY(file.resize(612));
    QByteArray data("kept");
    QVERIFY(!tar.file(0, data));
    QCOMPARE(tar.error(), shortRead(100, 600));
    QVERIFY(file.resize(0));
    QVERIFY(!tar.file(0, data));
    QCOMPARE(tar.error(), shortRead(0, 600));
    QCOMPARE(data, QByteArray("kept"));
}

void tst_CTarData::fileGrowsWhileOpen()
{
    const QTemporaryDir dir;
    const QByteArray whole = tarFile("a", 600) + tarEnd();
    const QString path = writeFile(dir, QStringLiteral("x.tar"), whole.left(700));
    CTar tar;
    QVERIFY(!tar.loadFile(path));
    QByteArray data;
    QVERIFY(!tar.file(0, data));
    QCOMPARE(tar.error(), shortRead(188, 600));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Append));
    QCOMPARE(file.write(whole.mid(700)), static_cast<qint64>(whole.size() - 700));
    file.close();
    QVERIFY(tar.file(0, data));
    QCOMPARE(data, dataOf(600));
}

void tst_CTarData::endlessSizeReservesNothing()
{
#ifdef CAN_LIMIT_MEMORY
    STarMember member;
    member.name = "a";
    member.size = "07777777777"; // 1 GiB - 1
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(!tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), tarHeader(member) + tarEnd())));
    QCOMPARE(tar.count(), 1);
    QFile pages(QStringLiteral("/proc/self/statm"));
    QVERIFY(pages.open(QIODevice::ReadOnly));
    const rlim_t used = pages.readAll().split(' ').constFirst().toULongLong() * 4096;
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_AS, &before), 0);
    rlimit tight = before;
    tight.rlim_cur = used + 256 * 1024 * 1024;
    QCOMPARE(setrlimit(RLIMIT_AS, &tight), 0);
    QByteArray data("kept");
    const bool read = tar.file(0, data); // would throw if it asked for what the header promises
    QCOMPARE(setrlimit(RLIMIT_AS, &before), 0);
    QVERIFY(!read);
    QCOMPARE(tar.error(), shortRead(1024, 1073741823));
    QCOMPARE(data, QByteArray("kept"));
#else
    QSKIP("the memory of a process can be limited on Linux only, and not under a sanitizer");
#endif
}

void tst_CTarData::tooLargeForByteArray()
{
#ifdef Q_OS_WIN
    QSKIP("the file of 3 GiB takes its full space on Windows");
#endif
    STarMember member;
    member.name = "huge";
    member.size = "30000000000"; // 3 GiB
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("x.tar"), tarHeader(member));
    QFile file(path);
    QVERIFY(file.resize(512 + Q_INT64_C(3221225472))); // a hole: takes no space
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Append));
    const QByteArray behind = tarFile("behind", 4) + tarEnd();
    QCOMPARE(file.write(behind), static_cast<qint64>(behind.size()));
    file.close();
    CTar tar;
    QVERIFY(tar.loadFile(path));
    QByteArray data("kept");
    QVERIFY(!tar.file(0, data));
    QCOMPARE(tar.error(), shortRead(0, 3221225472));
    QCOMPARE(data, QByteArray("kept"));
    QVERIFY(tar.file(1, data)); // beyond 4 GiB of nothing, the rest is still there
    QCOMPARE(data, QByteArray("ABCD"));
    QCOMPARE(tar.info(1).mPos, Q_INT64_C(3221225984));
}

QTEST_GUILESS_MAIN(tst_CTarData)
#include "tst_CTarData.moc"
