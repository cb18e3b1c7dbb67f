#include <tests/files/TarArchive.h>

#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>

#include <QDataStream>
#include <QResource>
#include <QScopeGuard>
#include <QtTest>

#ifdef Q_OS_LINUX
#include <csignal>
#include <spawn.h>
#include <sys/wait.h>
#endif
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
    void claimsTooMuch_data();
    void claimsTooMuch();
    void resource_data();
    void resource();
    void unknownFileSize();
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

/// What rcc makes (format version 1) of one file ":/x": the tree of the root and the file, its name, its data.
QByteArray resourceOf(const QByteArray& bytes, bool isPacked)
{
    constexpr quint32 HEAD = 20;
    constexpr quint16 PACKED = 1;
    constexpr quint16 DIRECTORY = 2;
    constexpr quint16 ANY = 0; // neither territory nor language
    const QByteArray content = isPacked ? qCompress(bytes) : bytes;
    const quint32 names = HEAD + 28;
    QByteArray pack;
    QDataStream stream(&pack, QIODevice::WriteOnly);
    stream.writeRawData("qres", 4);
    stream << quint32(1) << HEAD << names + 8 << names;
    stream << quint32(0) << DIRECTORY << quint32(1) << quint32(1);
    stream << quint32(0) << quint16(isPacked ? PACKED : ANY) << ANY << quint16(QLocale::C) << quint32(0);
    stream << quint16(1) << quint32('x') << quint16('x');
    stream << content;
    return pack;
}

#ifdef Q_OS_LINUX
/// Another program that sleeps, and whose environment is these bytes.
class ProcessWithEnvironment
{
public:
    explicit ProcessWithEnvironment(const QByteArray& bytes)
    {
        QList<QByteArray> texts = bytes.split('\0');
        std::vector<char*> variables;
        for (QByteArray& text : texts) {
            variables.push_back(text.data());
        }
        variables.push_back(nullptr);
        char name[] = "sleep";
        char seconds[] = "60";
        char* const arguments[] = {name, seconds, nullptr};
        if (posix_spawnp(&mId, name, nullptr, nullptr, arguments, variables.data()) != 0) {
            mId = -1;
        }
    }
    ~ProcessWithEnvironment()
    {
        if (mId > 0) {
            kill(mId, SIGKILL);
            waitpid(mId, nullptr, 0);
        }
    }
    ProcessWithEnvironment(const ProcessWithEnvironment&) = delete;
    ProcessWithEnvironment& operator=(const ProcessWithEnvironment&) = delete;

    QString environmentFile() const { return QStringLiteral("/proc/%1/environ").arg(mId); }

    bool hasStarted() const
    {
        QFile file(environmentFile());
        return file.open(QIODevice::ReadOnly) && !file.readAll().isEmpty();
    }

private:
    pid_t mId = -1;
};
#endif

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
    const auto used = static_cast<rlim_t>(pages.readAll().split(' ').constFirst().toULongLong() * 4096);
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
    QCOMPARE(tar.error(), shortRead(3221225472, 3221225472)); // all there, and more than fits
    QCOMPARE(data, QByteArray("kept"));
    QVERIFY(tar.file(1, data)); // beyond 4 GiB of nothing, the rest is still there
    QCOMPARE(data, QByteArray("ABCD"));
    QCOMPARE(tar.info(1).mPos, Q_INT64_C(3221225984));
}

void tst_CTarData::claimsTooMuch_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<qint64>("size");

    QTest::newRow("1 GiB") << QByteArray("10000000000") << Q_INT64_C(0x40000000);
    QTest::newRow("2 GiB - 33") << QByteArray("17777777737") << Q_INT64_C(0x7fffffdf);
    QTest::newRow("2 GiB - 32") << QByteArray("17777777740") << Q_INT64_C(0x7fffffe0);
    QTest::newRow("2 GiB - 1") << QByteArray("17777777777") << Q_INT64_C(0x7fffffff);
    QTest::newRow("2 GiB") << QByteArray("20000000000") << Q_INT64_C(0x80000000);
    QTest::newRow("8 GiB - 1") << QByteArray("77777777777") << Q_INT64_C(0x1ffffffff);
}

void tst_CTarData::claimsTooMuch()
{
    QFETCH(QByteArray, field);
    QFETCH(qint64, size);
    STarMember member;
    member.name = "huge";
    member.size = field;
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(
        !tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), tarHeader(member) + QByteArray(5000, 'x'))));
    QCOMPARE(tar.info(0).mSize, size);
    QByteArray data("kept");
    QVERIFY(!tar.file(0, data));
    QCOMPARE(tar.error(), shortRead(5000, size));
    QCOMPARE(data, QByteArray("kept"));
}

void tst_CTarData::resource_data()
{
    QTest::addColumn<bool>("isPacked");

    QTest::newRow("plain") << false;
    QTest::newRow("compressed") << true;
}

void tst_CTarData::resource()
{
    QFETCH(bool, isPacked);
    const QByteArray bytes = tarFile("a", 700) + tarFile("b", 300000) + tarFile("c", 5);
    const QByteArray pack = resourceOf(bytes, isPacked);
    const uchar* const data = reinterpret_cast<const uchar*>(pack.constData());
    QVERIFY(QResource::registerResource(data));
    const auto unregister = qScopeGuard([&] { QResource::unregisterResource(data); });
    CTar tar;
    QVERIFY(!tar.loadFile(QStringLiteral(":/x")));
    QCOMPARE(tar.error(),
             QStringLiteral("ERROR : The file ist too short. Only 0 bytes read but 512 expected !"));
    QCOMPARE(tar.names().join(QLatin1Char('|')), QStringLiteral("a|b|c"));
    QByteArray read;
    QVERIFY(tar.file(QStringLiteral("b"), read));
    QCOMPARE(read, dataOf(300000));
    QVERIFY(tar.file(0, read));
    QCOMPARE(read, dataOf(700));
    qint64 pos = 0;
    bool end = false;
    QVERIFY(tar.readFileHeader(pos, end));
    QCOMPARE(tar.info(3).mName, QStringLiteral("a"));
}

// The kernel gives such files a size of 0 and bytes that are made as they are read.
void tst_CTarData::unknownFileSize()
{
#ifdef Q_OS_LINUX
    STarMember huge;
    huge.name = "huge";
    huge.size = "20000000000";
    const QByteArray bytes = tarFile("a", 700) + tarFile("b", 9000) + tarHeader(huge) + QByteArray(99, 'x');
    const ProcessWithEnvironment process(bytes);
    const QString path = process.environmentFile();
    QTRY_VERIFY(process.hasStarted());
    QCOMPARE(QFileInfo(path).size(), qint64(0));
    CTar tar;
    QVERIFY(!tar.loadFile(path));
    QCOMPARE(tar.error(),
             QStringLiteral("ERROR : The file ist too short. Only 0 bytes read but 512 expected !"));
    QCOMPARE(tar.names().join(QLatin1Char('|')), QStringLiteral("a|b|huge"));
    QByteArray data;
    QVERIFY(tar.file(1, data));
    QCOMPARE(data, dataOf(9000));
    QVERIFY(tar.file(0, data));
    QCOMPARE(data, dataOf(700));
    QVERIFY(!tar.file(2, data));
    QCOMPARE(tar.error(), shortRead(100, 0x80000000)); // the zero byte that ends the last variable, too
#else
    QSKIP("only Linux shows a process's environment as a file");
#endif
}

QTEST_GUILESS_MAIN(tst_CTarData)
#include "tst_CTarData.moc"
