#include <core/files/CPath.h>

#include <QDir>
#include <QtTest>

namespace {

// Static objects of a program may use the constants, whatever the order of initialisation.
const QString gEarlyImages = CPath::CPATH_COMPANY + CPath::CPATH_IMG;
const int gEarlySize = CPath::CPATH_PLUGINS.size();

const QString gHere = QDir::currentPath();

} // namespace

/// The constants and the helpers that work on texts alone.
class tst_CPath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constants_data();
    void constants();
    void constantsInStaticObjects();
    void constantsOutliveCopies();
    void doesFilenameContainPath_data();
    void doesFilenameContainPath();
    void prependPathIfNoPathIsGiven_data();
    void prependPathIfNoPathIsGiven();
    void trimPathIfPathIsEqual_data();
    void trimPathIfPathIsEqual();
    void trimUndoesPrepend();
    void filePath_data();
    void filePath();
    void separators_data();
    void separators();
    void nativeSeparator();
    void addPathToPath_data();
    void addPathToPath();
    void addFileNameToPath();
    void cleanFileName_data();
    void cleanFileName();
};

void tst_CPath::constants_data()
{
    QTest::addColumn<QString>("constant");
    QTest::addColumn<QString>("text");

    QTest::newRow("bin") << CPath::CPATH_BIN << QStringLiteral("bin/");
    QTest::newRow("lib") << CPath::CPATH_LIB << QStringLiteral("lib/");
    QTest::newRow("etc") << CPath::CPATH_ETC << QStringLiteral("etc/");
    QTest::newRow("txt") << CPath::CPATH_TXT << QStringLiteral("etc/txt/");
    QTest::newRow("img") << CPath::CPATH_IMG << QStringLiteral("etc/image/");
    QTest::newRow("doc") << CPath::CPATH_DOC << QStringLiteral("etc/doc/");
    QTest::newRow("cconf") << CPath::CPATH_CCONF << QStringLiteral("etc/conf/");
    QTest::newRow("cdata") << CPath::CPATH_CDATA << QStringLiteral("etc/data/");
    QTest::newRow("conf") << CPath::CPATH_CONF << QStringLiteral("conf/");
    QTest::newRow("log") << CPath::CPATH_LOG << QStringLiteral("log/");
    QTest::newRow("mot") << CPath::CPATH_MOT << QStringLiteral("motor/");
    QTest::newRow("par") << CPath::CPATH_PAR << QStringLiteral("param/");
    QTest::newRow("dat") << CPath::CPATH_DAT << QStringLiteral("data/");
    QTest::newRow("prj") << CPath::CPATH_PRJ << QStringLiteral("project/");
    QTest::newRow("plugins") << CPath::CPATH_PLUGINS << QStringLiteral("plugins/");
    QTest::newRow("company") << CPath::CPATH_COMPANY << QStringLiteral("TARVENIK/");
}

void tst_CPath::constants()
{
    QFETCH(QString, constant);
    QFETCH(QString, text);

    QCOMPARE(constant, text);
    QCOMPARE(constant.utf16()[constant.size()], ushort(0));
}

void tst_CPath::constantsInStaticObjects()
{
    QCOMPARE(gEarlyImages, QStringLiteral("TARVENIK/etc/image/"));
    QCOMPARE(gEarlySize, 8);
}

// They share static storage, which must never be written: a copy that changes takes memory of its own.
void tst_CPath::constantsOutliveCopies()
{
    QString copy = CPath::CPATH_LOG;
    copy[0] = QLatin1Char('f');
    copy += QLatin1Char('!');

    QCOMPARE(copy, QStringLiteral("fog/!"));
    QCOMPARE(CPath::CPATH_LOG, QStringLiteral("log/"));
}

void tst_CPath::doesFilenameContainPath_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("contains");

    QTest::newRow("empty") << QString() << false;
    QTest::newRow("bare name") << QStringLiteral("f.txt") << false;
    QTest::newRow("at the start") << QStringLiteral("/f.txt") << true;
    QTest::newRow("inside") << QStringLiteral("e/f.txt") << true;
    QTest::newRow("at the end") << QStringLiteral("e/") << true;
    QTest::newRow("native") << QStringLiteral("e%1f").arg(QDir::separator()) << true;
    QTest::newRow("backslash") << QStringLiteral("e\\f") << (QDir::separator() == QLatin1Char('\\'));
}

void tst_CPath::doesFilenameContainPath()
{
    QFETCH(QString, name);
    QFETCH(bool, contains);

    QCOMPARE(CPath::doesFilenameContainPath(name), contains);
}

void tst_CPath::prependPathIfNoPathIsGiven_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("result");

    const QString name = QStringLiteral("f.txt");
#ifdef Q_OS_WIN
    const QString drive = QStringLiteral("C:");
#else
    const QString drive;
#endif
    QTest::newRow("directory") << name << drive + QStringLiteral("/d/") << drive + QStringLiteral("/d/f.txt");
    QTest::newRow("file in it") << name << drive + QStringLiteral("/a/b/x.txt")
                                << drive + QStringLiteral("/a/b/f.txt");
    QTest::newRow("directory without separator counts as a file")
        << name << drive + QStringLiteral("/a/b") << drive + QStringLiteral("/a/f.txt");
    QTest::newRow("root") << name << drive + QStringLiteral("/") << drive + QStringLiteral("/f.txt");
    QTest::newRow("relative") << name << QStringLiteral("sub/x.txt") << gHere + QStringLiteral("/sub/f.txt");
    QTest::newRow("relative directory")
        << name << QStringLiteral("sub/") << gHere + QStringLiteral("/sub/f.txt");
    QTest::newRow("two relative directories")
        << name << QStringLiteral("a/b/") << gHere + QStringLiteral("/a/b/f.txt");
    QTest::newRow("colon first") << QStringLiteral(":f.txt") << drive + QStringLiteral("/d/")
                                 << drive + QStringLiteral("/d/:f.txt");
    QTest::newRow("colon alone") << QStringLiteral(":") << drive + QStringLiteral("/d/")
                                 << drive + QStringLiteral("/d/:");
    QTest::newRow("colon first in the path")
        << name << QStringLiteral(":x.txt") << gHere + QStringLiteral("/f.txt");
    QTest::newRow("colon first in both")
        << QStringLiteral(":f.txt") << QStringLiteral(":sub/x") << gHere + QStringLiteral("/:sub/:f.txt");
    const QString halfPair = QString(QChar(0xD942)) + QLatin1Char('x');
    QTest::newRow("half a surrogate pair")
        << halfPair << drive + QStringLiteral("/d/") << drive + QStringLiteral("/d/") + halfPair;
    QTest::newRow("half a surrogate pair, no path")
        << halfPair << QString() << gHere + QLatin1Char('/') + halfPair;
    QTest::newRow("no path") << name << QString() << gHere + QStringLiteral("/f.txt");
    QTest::newRow("into a resource") << name << QStringLiteral(":/d/x.txt") << QStringLiteral(":/d/f.txt");
    QTest::newRow("is a resource") << QStringLiteral(":/f.txt") << drive + QStringLiteral("/d/")
                                   << QStringLiteral(":/f.txt");
    QTest::newRow("empty name") << QString() << QStringLiteral("/d/") << QString();
    QTest::newRow("has a path") << QStringLiteral("e/f.txt") << QStringLiteral("C:/d/")
                                << QStringLiteral("e/f.txt");
    QTest::newRow("is absolute") << QStringLiteral("/f.txt") << QStringLiteral("/d/")
                                 << QStringLiteral("/f.txt");
}

void tst_CPath::prependPathIfNoPathIsGiven()
{
    QFETCH(QString, fileName);
    QFETCH(QString, path);
    QFETCH(QString, result);

    QCOMPARE(CPath::prependPathIfNoPathIsGiven(fileName, path), result);
}

void tst_CPath::trimPathIfPathIsEqual_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("result");

    const QString file = QStringLiteral("C:/d/f.txt");
    const QString bare = QStringLiteral("f.txt");
    QTest::newRow("equal") << file << QStringLiteral("C:/d") << bare;
    QTest::newRow("equal with separator") << file << QStringLiteral("C:/d/") << bare;
    QTest::newRow("equal when cleaned") << file << QStringLiteral("C:/e/../d/.") << bare;
    QTest::newRow("other directory") << file << QStringLiteral("C:/e") << file;
    QTest::newRow("parent directory") << file << QStringLiteral("C:/") << file;
    QTest::newRow("existing directory") << gHere + QStringLiteral("/f.txt") << gHere << bare;
    QTest::newRow("current directory") << gHere + QStringLiteral("/f.txt") << QStringLiteral(".") << bare;
    QTest::newRow("bare name in the current directory") << bare << gHere << bare;
    QTest::newRow("bare name elsewhere") << bare << QStringLiteral("/e") << bare;
    QTest::newRow("colon first") << QStringLiteral(":f.txt") << gHere << QStringLiteral(":f.txt");
    QTest::newRow("colon first, with the path")
        << gHere + QStringLiteral("/:f.txt") << gHere << QStringLiteral(":f.txt");
    QTest::newRow("colon first, elsewhere")
        << QStringLiteral(":f.txt") << QStringLiteral(":/") << QStringLiteral(":f.txt");
    QTest::newRow("empty name") << QString() << gHere << QString();
}

void tst_CPath::trimPathIfPathIsEqual()
{
    QFETCH(QString, fileName);
    QFETCH(QString, path);
    QFETCH(QString, result);

    QCOMPARE(CPath::trimPathIfPathIsEqual(fileName, path), result);
}

void tst_CPath::trimUndoesPrepend()
{
    const QString name = QStringLiteral("motor.par");
    const QString whole = CPath::prependPathIfNoPathIsGiven(name, gHere + QLatin1Char('/'));

    QCOMPARE(whole, gHere + QStringLiteral("/motor.par"));
    QCOMPARE(CPath::trimPathIfPathIsEqual(whole, gHere), name);
}

void tst_CPath::filePath_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("result");

    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("bare name") << QStringLiteral("f.txt") << gHere;
    QTest::newRow("relative") << QStringLiteral("e/f.txt") << gHere + QStringLiteral("/e");
    QTest::newRow("relative directory") << QStringLiteral("e/") << gHere + QStringLiteral("/e");
    QTest::newRow("colon first") << QStringLiteral(":f.txt") << gHere;
    QTest::newRow("colon alone") << QStringLiteral(":") << gHere;
    QTest::newRow("colon first and a control character") << QStringLiteral(":a  <\001`!") << gHere;
    QTest::newRow("half a surrogate pair in the directory")
        << QString(QChar(0xD942)) + QStringLiteral("x/f")
        << gHere + QLatin1Char('/') + QChar(0xD942) + QLatin1Char('x');
    QTest::newRow("zero character in the directory")
        << QStringLiteral("a") + QChar(0) + QStringLiteral("b/f")
        << gHere + QStringLiteral("/a") + QChar(0) + QLatin1Char('b');
    QTest::newRow("colon first in a directory")
        << QStringLiteral(":e/f.txt") << gHere + QStringLiteral("/:e");
    QTest::newRow("resource") << QStringLiteral(":/e/f.txt") << QStringLiteral(":/e");
#ifdef Q_OS_WIN
    QTest::newRow("absolute") << QStringLiteral("C:/a/b.txt") << QStringLiteral("C:/a");
    QTest::newRow("in the root") << QStringLiteral("C:/b.txt") << QStringLiteral("C:/");
#else
    QTest::newRow("absolute") << QStringLiteral("/a/b.txt") << QStringLiteral("/a");
    QTest::newRow("in the root") << QStringLiteral("/b.txt") << QStringLiteral("/");
#endif
}

void tst_CPath::filePath()
{
    QFETCH(QString, name);
    QFETCH(QString, result);

    QCOMPARE(CPath::filePath(name), result);
}

void tst_CPath::separators_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("ensuredAtEnd");
    QTest::addColumn<QString>("ensuredAtStart");
    QTest::addColumn<QString>("removedAtEnd");
    QTest::addColumn<QString>("removedAtStart");

    QTest::newRow("empty") << QString() << QStringLiteral("/") << QStringLiteral("/") << QString()
                           << QString();
    QTest::newRow("only a separator")
        << QStringLiteral("/") << QStringLiteral("/") << QStringLiteral("/") << QString() << QString();
    QTest::newRow("none") << QStringLiteral("a") << QStringLiteral("a/") << QStringLiteral("/a")
                          << QStringLiteral("a") << QStringLiteral("a");
    QTest::newRow("both") << QStringLiteral("/a/") << QStringLiteral("/a/") << QStringLiteral("/a/")
                          << QStringLiteral("/a") << QStringLiteral("a/");
    QTest::newRow("two each: one goes")
        << QStringLiteral("//a//") << QStringLiteral("//a//") << QStringLiteral("//a//")
        << QStringLiteral("//a/") << QStringLiteral("/a//");
}

void tst_CPath::separators()
{
    QFETCH(QString, text);
    QFETCH(QString, ensuredAtEnd);
    QFETCH(QString, ensuredAtStart);
    QFETCH(QString, removedAtEnd);
    QFETCH(QString, removedAtStart);

    QCOMPARE(CPath::ensurePathSeparatorAtEnd(text), ensuredAtEnd);
    QCOMPARE(CPath::ensurePathSeparatorAtStart(text), ensuredAtStart);
    QCOMPARE(CPath::removePathSeparatorAtEnd(text), removedAtEnd);
    QCOMPARE(CPath::removePathSeparatorAtStart(text), removedAtStart);
}

// "\" is a separator on Windows only.
void tst_CPath::nativeSeparator()
{
    const bool native = QDir::separator() == QLatin1Char('\\');
    const QString text = QStringLiteral("\\a\\");

    QCOMPARE(CPath::ensurePathSeparatorAtEnd(text), native ? text : QStringLiteral("\\a\\/"));
    QCOMPARE(CPath::ensurePathSeparatorAtStart(text), native ? text : QStringLiteral("/\\a\\"));
    QCOMPARE(CPath::removePathSeparatorAtEnd(text), native ? QStringLiteral("\\a") : text);
    QCOMPARE(CPath::removePathSeparatorAtStart(text), native ? QStringLiteral("a\\") : text);
}

void tst_CPath::addPathToPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("subPath");
    QTest::addColumn<QString>("result");

    QTest::newRow("plain") << QStringLiteral("a") << QStringLiteral("b") << QStringLiteral("a/b/");
    QTest::newRow("separators given")
        << QStringLiteral("a/") << QStringLiteral("b/") << QStringLiteral("a/b/");
    QTest::newRow("nothing added") << QStringLiteral("a/") << QString() << QStringLiteral("a/");
    QTest::newRow("to nothing") << QString() << QStringLiteral("b") << QStringLiteral("/b/");
    QTest::newRow("nothing at all") << QString() << QString() << QStringLiteral("/");
    QTest::newRow("separator on both sides stays")
        << QStringLiteral("a/") << QStringLiteral("/b") << QStringLiteral("a//b/");
}

void tst_CPath::addPathToPath()
{
    QFETCH(QString, path);
    QFETCH(QString, subPath);
    QFETCH(QString, result);

    QCOMPARE(CPath::addPathToPath(path, subPath), result);
}

void tst_CPath::addFileNameToPath()
{
    QCOMPARE(CPath::addFileNameToPath(QStringLiteral("a"), QStringLiteral("f.txt")),
             QStringLiteral("a/f.txt"));
    QCOMPARE(CPath::addFileNameToPath(QStringLiteral("a/"), QStringLiteral("f.txt")),
             QStringLiteral("a/f.txt"));
    QCOMPARE(CPath::addFileNameToPath(QString(), QStringLiteral("f.txt")), QStringLiteral("/f.txt"));
    QCOMPARE(CPath::addFileNameToPath(QStringLiteral("a"), QString()), QStringLiteral("a/"));
}

void tst_CPath::cleanFileName_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("result");

#ifdef Q_OS_WIN
    const QString drive = QStringLiteral("C:");
    const QString root = QStringLiteral("C:/");
#else
    const QString drive;
    const QString root = QStringLiteral("/");
    QTest::newRow("colon kept in the directory") << QStringLiteral("/a:b/c:d") << QStringLiteral("/a:b/cd");
#endif
    QTest::newRow("simplified, then removed")
        << drive + QStringLiteral("/x/  a:b?  .txt") << drive + QStringLiteral("/x/ab .txt");
    QTest::newRow("removal leaves blanks")
        << drive + QStringLiteral("/x/a ? b") << drive + QStringLiteral("/x/a  b");
    QTest::newRow("removal leaves a blank at the start")
        << drive + QStringLiteral("/x/! a") << drive + QStringLiteral("/x/ a");
    QTest::newRow("the whole set") << drive + QStringLiteral("/x/1<2>3:4!5?6|7\"8")
                                   << drive + QStringLiteral("/x/12345678");
    QTest::newRow("star stays") << drive + QStringLiteral("/x/a*b") << drive + QStringLiteral("/x/a*b");
    QTest::newRow("nothing left") << drive + QStringLiteral("/x/???") << drive + QStringLiteral("/x/");
    QTest::newRow("tabs and line breaks")
        << drive + QStringLiteral("/x/\ta\n\tb ") << drive + QStringLiteral("/x/a b");
    QTest::newRow("bare name becomes absolute")
        << QStringLiteral("f?.txt") << gHere + QStringLiteral("/f.txt");
    QTest::newRow("colon first") << QStringLiteral(":f.txt") << gHere + QStringLiteral("/f.txt");
    QTest::newRow("colon alone") << QStringLiteral(":") << gHere + QLatin1Char('/');
    QTest::newRow("colon and blanks") << QStringLiteral(": f  g") << gHere + QStringLiteral("/ f g");
    QTest::newRow("resource") << QStringLiteral(":/e/f?.txt") << QStringLiteral(":/e/f.txt");
    QTest::newRow("in the root: one separator more")
        << root + QStringLiteral("f?") << root + QStringLiteral("/f");
    QTest::newRow("directory alone") << drive + QStringLiteral("/x/") << drive + QStringLiteral("/x/");
}

void tst_CPath::cleanFileName()
{
    QFETCH(QString, fileName);
    QFETCH(QString, result);

    QCOMPARE(CPath::cleanFileName(fileName), result);
}

QTEST_GUILESS_MAIN(tst_CPath)
#include "tst_CPath.moc"
