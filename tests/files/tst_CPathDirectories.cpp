#include <core/files/CPath.h>

#include <tests/support/InstalledProgram.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <array>

namespace {

constexpr auto NEW_DIRECTORY = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup
                               | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
constexpr auto ALL_BUT_USER = ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);

QFile::Permissions permissions(const QString& path)
{
    return QFile::permissions(path) & ALL_BUT_USER;
}

} // namespace

/// The directory trees, asked for by a program in an installation of its own, and directories made on request.
class tst_CPathDirectories : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trees_data();
    void trees();
    void treesAreThoseOfThisProgram();
    void appdataUnset();
    void nothingIsMadeUnasked();
    void installationIsMade();
#ifndef Q_OS_WIN
    void userTreesAreMade();
    void foundBeforeFirstCall();
#endif
    void create_data();
    void create();
    void createLeavesExistingDirectory();
    void createLeavesFileInTheWay();
    void createBelowFile();
    void createByFourAtOnce();
};

void tst_CPathDirectories::trees_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("path");

    const QString install = QStringLiteral("install");
    const QString appdata = QStringLiteral("appdata");
    const QString userdata = QStringLiteral("userdata");
    QTest::newRow("install") << install << QString();
    QTest::newRow("bin") << install << QStringLiteral("bin/");
    QTest::newRow("lib") << install << QStringLiteral("bin/"); // beside the programs
    QTest::newRow("etc") << install << QStringLiteral("etc/");
    QTest::newRow("txt") << install << QStringLiteral("etc/txt/");
    QTest::newRow("image") << install << QStringLiteral("etc/image/");
    QTest::newRow("doc") << install << QStringLiteral("etc/doc/");
    QTest::newRow("constConfig") << install << QStringLiteral("etc/conf/");
    QTest::newRow("constData") << install << QStringLiteral("etc/data/");
    QTest::newRow("appdata") << appdata << QString();
    QTest::newRow("config") << appdata << QStringLiteral("conf/");
    QTest::newRow("log") << appdata << QStringLiteral("log/");
    QTest::newRow("userdata") << userdata << QString();
    QTest::newRow("motor") << userdata << QStringLiteral("motor/");
    QTest::newRow("param") << userdata << QStringLiteral("param/");
    QTest::newRow("data") << userdata << QStringLiteral("data/");
    QTest::newRow("project") << userdata << QStringLiteral("project/");
}

void tst_CPathDirectories::trees()
{
    QFETCH(QString, base);
    QFETCH(QString, path);
    const InstalledProgram probe(QStringLiteral(PATH_PROBE));
    QVERIFY(probe.isValid());

    const QMap<QString, QString> answers = probe.run();

    const QMap<QString, QString> bases{
        {QStringLiteral("install"), probe.install()},
        {QStringLiteral("appdata"), probe.appdata() + QStringLiteral("/TARVENIK/Tool/")},
#ifdef Q_OS_WIN
        {QStringLiteral("userdata"), answers.value(base)}, // the shell's answer; its end is checked below
#else
        {QStringLiteral("userdata"), probe.home() + QStringLiteral("/TARVENIK/Tool/")},
#endif
    };
    QCOMPARE(answers.value(QStringLiteral("product")), QStringLiteral("Tool"));
    QVERIFY(answers.value(QStringLiteral("userdata")).endsWith(QLatin1String("/TARVENIK/Tool/")));
    QCOMPARE(answers.value(QString::fromLatin1(QTest::currentDataTag())), bases.value(base) + path);
}

void tst_CPathDirectories::treesAreThoseOfThisProgram()
{
    const QFileInfo program(QCoreApplication::applicationFilePath());
    const QString parent = QFileInfo(program.absolutePath()).absolutePath();

    QCOMPARE(CPath::installPath(), parent + QLatin1Char('/'));
    QCOMPARE(CPath::productName(), QFileInfo(parent).fileName());
    QCOMPARE(CPath::libPath(false), CPath::binPath(false));
}

// Unset counts as empty; there is no other fallback.
void tst_CPathDirectories::appdataUnset()
{
    const InstalledProgram probe(QStringLiteral(PATH_PROBE));

    const QMap<QString, QString> answers = probe.run({}, {QStringLiteral("APPDATA")});

    QCOMPARE(answers.value(QStringLiteral("appdata")), QStringLiteral("/TARVENIK/Tool/"));
    QCOMPARE(answers.value(QStringLiteral("log")), QStringLiteral("/TARVENIK/Tool/log/"));
}

void tst_CPathDirectories::nothingIsMadeUnasked()
{
    const InstalledProgram probe(QStringLiteral(PATH_PROBE));
    const QStringList before = probe.entries();

    QVERIFY(!probe.run().isEmpty());

    QCOMPARE(probe.entries(), before);
}

void tst_CPathDirectories::installationIsMade()
{
    const InstalledProgram probe(QStringLiteral(PATH_PROBE));

    const QMap<QString, QString> made = probe.run({QStringLiteral("create"), QStringLiteral("installed")});

    QCOMPARE(made, probe.run());
    const QStringList expected{QStringLiteral("Prog"),
                               QStringLiteral("Prog/Tool"),
                               QStringLiteral("Prog/Tool/bin"),
                               QStringLiteral("Prog/Tool/etc"),
                               QStringLiteral("Prog/Tool/etc/conf"),
                               QStringLiteral("Prog/Tool/etc/data"),
                               QStringLiteral("Prog/Tool/etc/doc"),
                               QStringLiteral("Prog/Tool/etc/image"),
                               QStringLiteral("Prog/Tool/etc/txt"),
                               QStringLiteral("home")};
    QCOMPARE(probe.entries(), expected);
}

#ifndef Q_OS_WIN
// Not on Windows, where the documents folder is the shell's: tst_CPathWindows gives it one of its own.
void tst_CPathDirectories::userTreesAreMade()
{
    const InstalledProgram probe(QStringLiteral(PATH_PROBE));

    const QMap<QString, QString> made = probe.run({QStringLiteral("create"), QStringLiteral("mask")});

    QCOMPARE(made, probe.run());
    for (const char* name : {"config", "log", "motor", "param", "data", "project", "etc", "image"}) {
        const QString path = made.value(QString::fromLatin1(name));
        QVERIFY2(path.startsWith(probe.root()), name);
        QVERIFY2(QFileInfo(path).isDir(), name);
        QVERIFY2(permissions(path) == NEW_DIRECTORY, name);
    }
    // The permissions are those of the directory asked for; what was made above it follows the process's mask.
    const QFile::Permissions parent = permissions(probe.appdata() + QStringLiteral("/TARVENIK/Tool"));
    QCOMPARE(parent, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// The program's path is found when the application object comes into being, whatever becomes of the directory until the
// first call.
void tst_CPathDirectories::foundBeforeFirstCall()
{
    const InstalledProgram probe(QStringLiteral(PATH_PROBE));
    QVERIFY(probe.isValid());
    const QString moved = probe.root() + QStringLiteral("Prog/Moved");

    const QMap<QString, QString> answers =
        probe.run({QStringLiteral("move"), probe.install().chopped(1), moved});

    QVERIFY(QFileInfo(moved).isDir());
    QCOMPARE(answers.value(QStringLiteral("install")), probe.install());
}
#endif

void tst_CPathDirectories::create_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("create");

    QTest::newRow("not wanted") << QStringLiteral("a/") << false;
    QTest::newRow("wanted") << QStringLiteral("a") << true;
    QTest::newRow("separator at the end") << QStringLiteral("a/") << true;
    QTest::newRow("with parents") << QStringLiteral("a/b/c/") << true;
}

void tst_CPathDirectories::create()
{
    QFETCH(QString, name);
    QFETCH(bool, create);
    const QTemporaryDir directory;
    const QString path = directory.filePath(name);

    QCOMPARE(CPath::createDirIfWanted(path, create), path);

    QCOMPARE(QFileInfo(path).isDir(), create);
#ifndef Q_OS_WIN
    if (create) {
        QCOMPARE(permissions(path), NEW_DIRECTORY);
    }
#endif
}

void tst_CPathDirectories::createLeavesExistingDirectory()
{
    const QTemporaryDir directory;
    const QFile::Permissions before = permissions(directory.path());
    QVERIFY(before != NEW_DIRECTORY);

    QCOMPARE(CPath::createDirIfWanted(directory.path(), true), directory.path());

    QCOMPARE(permissions(directory.path()), before);
}

void tst_CPathDirectories::createLeavesFileInTheWay()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("in the way"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
    file.close();
    const QFile::Permissions before = permissions(path);

    QCOMPARE(CPath::createDirIfWanted(path, true), path);

    QVERIFY(QFileInfo(path).isFile());
    QCOMPARE(permissions(path), before);
    QCOMPARE(QFileInfo(path).size(), qint64(1));
}

void tst_CPathDirectories::createBelowFile()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QString path = file.fileName() + QStringLiteral("/sub/");

    QCOMPARE(CPath::createDirIfWanted(path, true), path);

    QVERIFY(!QFileInfo::exists(path));
    QVERIFY(QFileInfo(file.fileName()).isFile());
}

// Tools that start together make the same tree: each one finds its directories, whoever made them.
void tst_CPathDirectories::createByFourAtOnce()
{
    const QTemporaryDir directory;
    std::array<QProcess, 4> probes;
    for (QProcess& probe : probes) {
        probe.start(QStringLiteral(PATH_PROBE), {QStringLiteral("race"), directory.path()});
        QVERIFY(probe.waitForStarted());
    }
    for (QProcess& probe : probes) {
        probe.write("go\n");
    }
    for (QProcess& probe : probes) {
        QVERIFY(probe.waitForFinished(60000));
        QCOMPARE(probe.readAllStandardOutput().simplified(), QByteArray("missing 0"));
        QCOMPARE(probe.exitCode(), 0);
    }
    QCOMPARE(QDir(directory.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 100);
}

QTEST_GUILESS_MAIN(tst_CPathDirectories)
#include "tst_CPathDirectories.moc"
