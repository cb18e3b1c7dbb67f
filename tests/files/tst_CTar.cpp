#include <tests/files/TarArchive.h>

#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>

#include <QTranslator>
#include <QtTest>

#include <type_traits>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

/// Loading, error texts and the life of the object; headers, names and contents have tests of their own.
class tst_CTar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void neverLoaded();
    void load();
    void names();
    void info_data();
    void info();
    void loadAgain();
    void doesNotOpen_data();
    void doesNotOpen();
    void doesNotOpenPipe();
    void doesNotOpenNameWithZero();
    void keepsMembersBeforeFailure();
    void errorSurvivesSuccess();
    void readFileHeaderAlone();
    void readFileHeaderAtZeroBlock();
    void readFileHeaderFails_data();
    void readFileHeaderFails();
    void translated();
};

static_assert(!std::is_copy_constructible<CTar>::value && !std::is_copy_assignable<CTar>::value,
              "an archive owns its file");

namespace {

const char TOO_SHORT[] = "ERROR : The file ist too short. Only %1 bytes read but %2 expected !";

QString tooShort(int count)
{
    return QString(QLatin1String(TOO_SHORT))
        .replace(QLatin1String("%1"), QString::number(count))
        .replace(QLatin1String("%2"), QLatin1String("512"));
}

/// a (0 bytes), b (1), c (512), d (513) at 0, 512, 1536, 2560; then a directory and a link.
QByteArray exampleArchive()
{
    STarMember folder;
    folder.name = "sub/";
    folder.typeflag = '5';
    STarMember link;
    link.name = "sub/link";
    link.typeflag = '2';
    link.linkName = "../b";
    return tarFile("a", 0) + tarFile("b", 1) + tarFile("c", 512) + tarFile("d", 513) + tarMember(folder)
           + tarMember(link) + tarEnd();
}

CTarFileInfo made(qint32 type, const char* name, const char* link, qint64 size, qint64 pos)
{
    CTarFileInfo info;
    info.mType = type;
    info.mName = QLatin1String(name);
    info.mLinkName = QLatin1String(link);
    info.mSize = size;
    info.mPos = pos;
    return info;
}

/// Gives every text of the context "CTar" in another language.
class CTarTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        if (qstrcmp(context, "CTar") != 0) {
            return QString();
        }
        return qstrcmp(text, TOO_SHORT) == 0 ? QStringLiteral("%2 wanted, %1 there") : QStringLiteral("<%1>");
    }
    bool isEmpty() const override { return false; }
};

} // namespace

void tst_CTar::neverLoaded()
{
    MessageLog log;
    CTar tar;
    QByteArray data("kept");
    QCOMPARE(tar.count(), 0);
    QCOMPARE(tar.names(), QStringList());
    QVERIFY(tar.infos().isEmpty());
    QCOMPARE(tar.info(0), CTarFileInfo());
    QCOMPARE(tar.index(QStringLiteral("a")), -1);
    QCOMPARE(tar.error(), QString());

    QVERIFY(!tar.file(QStringLiteral("a"), data)); // an unknown name is silent
    QCOMPARE(tar.error(), QString());
    QVERIFY(!tar.file(0, data));
    QCOMPARE(tar.error(), QStringLiteral("ERROR: You must open an archive first !"));
    QCOMPARE(data, QByteArray("kept"));
    QCOMPARE(log.messages(), QStringList());
}

void tst_CTar::load()
{
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), exampleArchive())));
    QCOMPARE(tar.error(), QString());
    QCOMPARE(tar.count(), 6);
    const QList<CTarFileInfo> expected{made(1, "a", "", 0, 0),       made(1, "b", "", 1, 512),
                                       made(1, "c", "", 512, 1536),  made(1, "d", "", 513, 2560),
                                       made(3, "sub/", "", 0, 4096), made(2, "sub/link", "../b", 0, 4608)};
    QCOMPARE(tar.infos(), expected);
    QCOMPARE(tar.names().size(), 6);
    QCOMPARE(tar.infos(), expected); // now with the texts that names() made
}

void tst_CTar::names()
{
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), exampleArchive())));
    QCOMPARE(tar.names().join(QLatin1Char('|')), QStringLiteral("a|b|c|d|sub/|sub/link"));
}

void tst_CTar::info_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<CTarFileInfo>("info");

    QTest::newRow("first") << 0 << made(1, "a", "", 0, 0);
    QTest::newRow("last") << 5 << made(2, "sub/link", "../b", 0, 4608);
    QTest::newRow("count") << 6 << CTarFileInfo();
    QTest::newRow("-1") << -1 << CTarFileInfo();
    QTest::newRow("INT_MAX") << std::numeric_limits<int>::max() << CTarFileInfo();
    QTest::newRow("INT_MIN") << std::numeric_limits<int>::min() << CTarFileInfo();
}

void tst_CTar::info()
{
    QFETCH(int, index);
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), exampleArchive())));
    QTEST(tar.info(index), "info");
    QCOMPARE(tar.error(), QString());
}

void tst_CTar::loadAgain()
{
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), exampleArchive())));
    QCOMPARE(tar.index(QStringLiteral("a")), 0);
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("y.tar"), tarFile("z", 3) + tarEnd())));
    QCOMPARE(tar.names(), QStringList{QStringLiteral("z")});
    QCOMPARE(tar.count(), 1);
    QCOMPARE(tar.index(QStringLiteral("a")), -1);
    QCOMPARE(tar.index(QStringLiteral("z")), 0);

    QVERIFY(!tar.loadFile(dir.filePath(QStringLiteral("missing.tar"))));
    QCOMPARE(tar.count(), 0);
    QCOMPARE(tar.names(), QStringList());
    QCOMPARE(tar.index(QStringLiteral("z")), -1);
    QByteArray data;
    QVERIFY(!tar.file(0, data));
    QCOMPARE(tar.error(), QStringLiteral("ERROR: You must open an archive first !"));
}

void tst_CTar::doesNotOpen_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("logged");
    const QString notBroken;

    QTest::newRow("missing") << "/nowhere/x.tar" << notBroken;
    QTest::newRow("directory") << QDir::tempPath() << notBroken;
    QTest::newRow("empty name") << ""
                                << "warning: QFSFileEngine::open: No file name specified";
}

void tst_CTar::doesNotOpen()
{
    QFETCH(QString, fileName);
    QFETCH(QString, logged);

    MessageLog log;
    QFile device(fileName);
    QVERIFY(!device.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    const QStringList ofQt = log.take();
    CTar tar;
    QVERIFY(!tar.loadFile(fileName));
    QVERIFY(!tar.error().isEmpty());
    QCOMPARE(tar.error(), device.errorString()); // the file device's own text
    QCOMPARE(log.messages(), ofQt);
    QCOMPARE(ofQt.join(QLatin1Char('|')), logged);
}

void tst_CTar::doesNotOpenPipe()
{
#ifdef Q_OS_UNIX
    const QTemporaryDir dir;
    const QString pipe = dir.filePath(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString link = dir.filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(pipe, link));
    for (const QString& path : {pipe, link, QStringLiteral("/dev/zero"), QStringLiteral("/dev/null")}) {
        CTar tar;
        QVERIFY2(!tar.loadFile(path), qPrintable(path));
        QCOMPARE(tar.error(), QStringLiteral("ERROR : This is not a regular file !"));
        QByteArray data;
        QVERIFY(!tar.file(0, data));
        QCOMPARE(tar.error(), QStringLiteral("ERROR: You must open an archive first !"));
    }
#else
    QSKIP("only Unix has pipes and devices among its files");
#endif
}

void tst_CTar::doesNotOpenNameWithZero()
{
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("x.tar"), exampleArchive());
    MessageLog log;
    CTar tar;
    QVERIFY(!tar.loadFile(path + QChar(0) + QStringLiteral(".txt")));
    QCOMPARE(tar.error(), QStringLiteral("ERROR : This is not a regular file !"));
    QCOMPARE(log.messages(), QStringList());
}

void tst_CTar::keepsMembersBeforeFailure()
{
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(!tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 3) + tarFile("b", 4))));
    QCOMPARE(tar.error(), tooShort(0));
    QCOMPARE(tar.count(), 2);
    QCOMPARE(tar.index(QStringLiteral("b")), 1);
    QByteArray data;
    QVERIFY(tar.file(1, data)); // the archive is still open
    QCOMPARE(data, QByteArray("ABCD"));
    QVERIFY(!tar.file(2, data));
    QCOMPARE(tar.error(), QStringLiteral("ERROR: Index 2 must be between the limits 0 and 2. !"));
}

void tst_CTar::errorSurvivesSuccess()
{
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 3) + tarEnd());
    CTar tar;
    QByteArray data;
    QVERIFY(!tar.file(0, data));
    QVERIFY(tar.loadFile(path));
    QVERIFY(tar.file(0, data));
    QCOMPARE(tar.error(), QStringLiteral("ERROR: You must open an archive first !"));
    QVERIFY(!tar.file(QStringLiteral("unknown"), data)); // silent, and the contents read before are untouched
    QCOMPARE(tar.error(), QStringLiteral("ERROR: You must open an archive first !"));
    QCOMPARE(data, QByteArray("ABC"));
    QVERIFY(!tar.file(1, data));
    QCOMPARE(tar.error(), QStringLiteral("ERROR: Index 1 must be between the limits 0 and 1. !"));
}

void tst_CTar::readFileHeaderAlone()
{
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), exampleArchive())));
    QCOMPARE(tar.index(QStringLiteral("d")), 3);
    qint64 pos = 2560;
    bool end = true;
    QVERIFY(tar.readFileHeader(pos, end));
    QCOMPARE(pos, Q_INT64_C(4096));
    QVERIFY(end); // only ever set
    QCOMPARE(tar.count(), 7);
    QCOMPARE(tar.info(6), made(1, "d", "", 513, 2560));
    QCOMPARE(tar.names().constLast(), QStringLiteral("d"));
    QCOMPARE(tar.index(QStringLiteral("d")), 3); // still the first
    pos = 2;
    QVERIFY(!tar.readFileHeader(pos, end)); // a position between two headers
    QCOMPARE(pos, Q_INT64_C(2));
    QCOMPARE(tar.count(), 7);
}

void tst_CTar::readFileHeaderAtZeroBlock()
{
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 0) + QByteArray(512, '\0'))));
    QCOMPARE(tar.count(), 1); // one zero block is enough
    qint64 pos = 512;
    bool end = false;
    QVERIFY(tar.readFileHeader(pos, end));
    QVERIFY(end);
    QCOMPARE(pos, Q_INT64_C(512));
    QCOMPARE(tar.count(), 1);
}

void tst_CTar::readFileHeaderFails_data()
{
    QTest::addColumn<qint64>("position");
    QTest::addColumn<QString>("error");

    QTest::newRow("last whole block + 1") << Q_INT64_C(1025) << tooShort(511);
    QTest::newRow("at the end") << Q_INT64_C(1536) << tooShort(0);
    QTest::newRow("behind the end") << Q_INT64_C(4000000000) << tooShort(0);
}

void tst_CTar::readFileHeaderFails()
{
    QFETCH(qint64, position);
    const QTemporaryDir dir;
    CTar tar;
    QVERIFY(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 0) + tarEnd())));
    MessageLog log;
    qint64 pos = position;
    bool end = false;
    QVERIFY(!tar.readFileHeader(pos, end));
    QTEST(tar.error(), "error");
    QCOMPARE(pos, position);
    QVERIFY(!end);

    pos = -1; // cannot be sought: the file device's own text
    QVERIFY(!tar.readFileHeader(pos, end));
    QVERIFY(tar.error() != tooShort(0) && !tar.error().isEmpty());
    QCOMPARE(pos, Q_INT64_C(-1));

    CTar closed;
    pos = 0;
    QVERIFY(!closed.readFileHeader(pos, end));
    QCOMPARE(closed.error(), QFile().errorString());
    QCOMPARE(log.messages(), QStringList());
}

void tst_CTar::translated()
{
    const QTemporaryDir dir;
    CTarTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    CTar tar;
    QByteArray data;
    QVERIFY(!tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), QByteArray(7, 'x'))));
    QCOMPARE(tar.error(), QStringLiteral("512 wanted, 7 there"));
    QVERIFY(!tar.loadFile(writeFile(dir, QStringLiteral("y.tar"), QByteArray(512, 'x'))));
    QCOMPARE(tar.error(), QStringLiteral("<512>"));
    CTar closed;
    QVERIFY(!closed.file(0, data));
    QCOMPARE(closed.error(), QStringLiteral("<%1>"));
    QVERIFY(QCoreApplication::removeTranslator(&translator));
}

QTEST_GUILESS_MAIN(tst_CTar)
#include "tst_CTar.moc"
