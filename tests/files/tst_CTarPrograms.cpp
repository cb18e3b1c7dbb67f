#include <tests/files/TarArchive.h>

#include <core/tlxCoreQTest.h>

#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

/// Archives of other programs, made while the test runs: GNU tar and bsdtar, in every form that they write.
class tst_CTarPrograms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void contents_data();
    void contents();
    void hardLink_data() { forms(); }
    void hardLink();
    void nameOf100Characters_data() { forms(); }
    void nameOf100Characters();
    void longName_data();
    void longName();
    void beforePosix_data();
    void beforePosix();

private:
    void forms();
    QString pack(const QString& form, const QStringList& names);

    QTemporaryDir mDir;
};

namespace {

const char GNU_TAR[] = "tar";
const char BSD_TAR[] = "bsdtar";
const int NO_MEMBER = -1;

QString longFolder()
{
    return QString(60, QLatin1Char('d'));
}

QString longPath()
{
    return longFolder() + QLatin1Char('/') + QString(60, QLatin1Char('f'));
}

QString path100()
{
    return QString(100, QLatin1Char('n'));
}

QByteArray contentsOf(const QString& name, int size)
{
    QByteArray bytes;
    while (bytes.size() < size) {
        bytes += name.toLatin1() + QByteArray::number(bytes.size()) + '\n';
    }
    return bytes.left(size);
}

QByteArray output(const QString& program, const QStringList& arguments, const QString& folder, int* code)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    *code = process.waitForFinished(60000) ? process.exitCode() : -1;
    return process.readAll();
}

bool isThere(const QString& program)
{
    int code = -1;
    const QByteArray version = output(program, {QStringLiteral("--version")}, QDir::tempPath(), &code);
    return version.contains(program == QLatin1String(GNU_TAR) ? "GNU tar" : "bsdtar");
}

int indexOfContents(CTar& tar, const QByteArray& contents)
{
    for (int i = 0; i < tar.count(); ++i) {
        QByteArray data;
        if (tar.info(i).mType == CTarFileInfo::TYPE_FILE && tar.file(i, data) && data == contents) {
            return i;
        }
    }
    return NO_MEMBER;
}

} // namespace

void tst_CTarPrograms::initTestCase()
{
    const QList<QPair<QString, int>> files{{QStringLiteral("empty"), 0},
                                           {QStringLiteral("one"), 1},
                                           {QStringLiteral("block"), 512},
                                           {QStringLiteral("more"), 513},
                                           {QStringLiteral("image.bin"), 100000},
                                           {QStringLiteral("sub/nested"), 20},
                                           {path100(), 30},
                                           {longPath(), 40}};
    QVERIFY(QDir(mDir.path()).mkpath(QStringLiteral("sub")));
    QVERIFY(QDir(mDir.path()).mkpath(longFolder()));
    for (const auto& file : files) {
        const QString path = writeFile(mDir, file.first, contentsOf(file.first, file.second));
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
                                                | QFile::ReadOther));
    }
    QVERIFY(QFile::link(QStringLiteral("one"), mDir.filePath(QStringLiteral("link"))));
#ifdef Q_OS_UNIX
    QCOMPARE(::link(QFile::encodeName(mDir.filePath(QStringLiteral("more"))).constData(),
                    QFile::encodeName(mDir.filePath(QStringLiteral("hard"))).constData()),
             0);
#endif
}

void tst_CTarPrograms::forms()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("form");

    for (const char* form : {"ustar", "gnu", "oldgnu", "pax"}) {
        QTest::newRow(QByteArray(QByteArray("GNU tar, ") + form).constData()) << GNU_TAR << form;
    }
    for (const char* form : {"ustar", "gnutar", "pax"}) {
        QTest::newRow(QByteArray(QByteArray("bsdtar, ") + form).constData()) << BSD_TAR << form;
    }
}

/// Packs the named files with the program of the row and gives the archive's path; empty when the program is missing.
QString tst_CTarPrograms::pack(const QString& form, const QStringList& names)
{
    const QString program = *static_cast<QString*>(QTest::qData("program", qMetaTypeId<QString>()));
    if (!isThere(program)) {
        qWarning("%s is missing: nothing is known about its archives", qPrintable(program));
        return QString();
    }
    const QString archive = mDir.filePath(QStringLiteral("archive.tar"));
    QFile::remove(archive);
    int code = -1;
    const QByteArray said = output(
        program, QStringList{QStringLiteral("--format=") + form, QStringLiteral("-cf"), archive} + names,
        mDir.path(), &code);
    if (code != 0) {
        qWarning("%s", said.constData());
        return QStringLiteral("not packed");
    }
    return archive;
}

void tst_CTarPrograms::contents_data()
{
    forms();
}

void tst_CTarPrograms::contents()
{
    QFETCH(QString, form);
    const QStringList names{QStringLiteral("empty"), QStringLiteral("one"),       QStringLiteral("block"),
                            QStringLiteral("more"),  QStringLiteral("image.bin"), QStringLiteral("link"),
                            QStringLiteral("sub")};
    const QString archive = pack(form, names);
    if (archive.isEmpty()) {
        QSKIP("the program is missing: install tar and libarchive-tools");
    }
    CTar tar;
    QVERIFY2(tar.loadFile(archive), qPrintable(tar.error()));
    QCOMPARE(tar.error(), QString());

    QStringList found; // pax forms put a member of another kind before some
    for (const CTarFileInfo& info : tar.infos()) {
        if (info.isValid()) {
            found << info.mName;
        }
    }
    QCOMPARE(found.join(QLatin1Char(' ')),
             QStringLiteral("empty one block more image.bin link sub/ sub/nested"));
    for (const QString& name :
         {QStringLiteral("empty"), QStringLiteral("one"), QStringLiteral("block"), QStringLiteral("more"),
          QStringLiteral("image.bin"), QStringLiteral("sub/nested")}) {
        const CTarFileInfo info = tar.info(tar.index(name));
        QFile original(mDir.filePath(name));
        QVERIFY(original.open(QIODevice::ReadOnly));
        QByteArray data;
        QVERIFY2(tar.file(name, data), qPrintable(tar.error()));
        QCOMPARE(data, original.readAll());
        QCOMPARE(info.mType, 1);
        QCOMPARE(info.mSize, original.size());
        QCOMPARE(info.mLinkName, QString());
    }
    const CTarFileInfo link = tar.info(tar.index(QStringLiteral("link")));
    QCOMPARE(link.mType, 2);
    QCOMPARE(link.mLinkName, QStringLiteral("one"));
    QCOMPARE(link.mSize, Q_INT64_C(0));
    const CTarFileInfo folder = tar.info(tar.index(QStringLiteral("sub/")));
    QCOMPARE(folder.mType, 3);
    QCOMPARE(folder.mSize, Q_INT64_C(0));
}

void tst_CTarPrograms::hardLink()
{
    QFETCH(QString, form);
    const QString archive =
        pack(form, {QStringLiteral("more"), QStringLiteral("hard"), QStringLiteral("one")});
    if (archive.isEmpty()) {
        QSKIP("the program is missing: install tar and libarchive-tools");
    }
    CTar tar;
    QVERIFY2(tar.loadFile(archive), qPrintable(tar.error()));
    const CTarFileInfo hard = tar.info(tar.index(QStringLiteral("hard")));
    QCOMPARE(hard.mName, QStringLiteral("hard"));
    QVERIFY(!hard.isValid());
    QCOMPARE(hard.mLinkName, QStringLiteral("more"));
    QByteArray data;
    QVERIFY(tar.file(QStringLiteral("one"), data)); // what stands behind it is found
    QCOMPARE(data, contentsOf(QStringLiteral("one"), 1));
}

void tst_CTarPrograms::nameOf100Characters()
{
    QFETCH(QString, form);
    const QString archive = pack(form, {path100(), QStringLiteral("one")});
    if (archive.isEmpty()) {
        QSKIP("the program is missing: install tar and libarchive-tools");
    }
    CTar tar;
    QVERIFY2(tar.loadFile(archive), qPrintable(tar.error()));
    const int index = indexOfContents(tar, contentsOf(path100(), 30));
    QVERIFY(index != NO_MEMBER);
    const QString name = tar.info(index).mName;
    bool ok = true;
    if (name.startsWith(path100())) {
        QCOMPARE(name.mid(100).trimmed().toInt(&ok, 8),
                 0644); // the mode that stands behind a full name field
    } else {
        QCOMPARE(name,
                 path100().left(99)); // the form of old GNU tar keeps a zero byte: the name stands before it
        QVERIFY(!tar.info(index - 1).isValid());
    }
    QVERIFY(ok);
    QVERIFY(tar.index(QStringLiteral("one")) > index);
}

void tst_CTarPrograms::longName_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("form");
    QTest::addColumn<bool>("isSplit");

    QTest::newRow("GNU tar, ustar") << GNU_TAR << "ustar" << true;
    QTest::newRow("bsdtar, ustar") << BSD_TAR << "ustar" << true;
    QTest::newRow("GNU tar, gnu") << GNU_TAR << "gnu" << false;
    QTest::newRow("GNU tar, pax") << GNU_TAR << "pax" << false;
    QTest::newRow("bsdtar, gnutar") << BSD_TAR << "gnutar" << false;
}

void tst_CTarPrograms::longName()
{
    QFETCH(QString, form);
    QFETCH(bool, isSplit);
    const QString archive = pack(form, {longPath(), QStringLiteral("one")});
    if (archive.isEmpty()) {
        QSKIP("the program is missing: install tar and libarchive-tools");
    }
    CTar tar;
    QVERIFY2(tar.loadFile(archive), qPrintable(tar.error()));
    const int index = indexOfContents(tar, contentsOf(longPath(), 40));
    QVERIFY(index != NO_MEMBER);
    const QString name = tar.info(index).mName;
    if (isSplit) {
        QCOMPARE(name, QString(60, QLatin1Char('f'))); // the prefix is not read
    } else {
        QCOMPARE(name.left(99), longPath().left(99));
        QVERIFY(index > 0 && !tar.info(index - 1).isValid()); // the record that holds the whole name
        QByteArray record;
        QVERIFY(tar.file(index - 1, record));
        QVERIFY(record.contains(longPath().toLatin1()));
    }
    QByteArray data;
    QVERIFY(tar.file(QStringLiteral("one"), data));
    QCOMPARE(data, contentsOf(QStringLiteral("one"), 1));
}

void tst_CTarPrograms::beforePosix_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("form");

    QTest::newRow("GNU tar, v7") << GNU_TAR << "v7";
    QTest::newRow("bsdtar, v7") << BSD_TAR << "v7";
}

void tst_CTarPrograms::beforePosix()
{
    QFETCH(QString, form);
    const QString archive = pack(form, {QStringLiteral("one")});
    if (archive.isEmpty()) {
        QSKIP("the program is missing: install tar and libarchive-tools");
    }
    CTar tar;
    QVERIFY(!tar.loadFile(archive)); // has no magic
    QCOMPARE(tar.error(),
             QStringLiteral(
                 "ERROR : This is not a tar archive. Header.magic = \"512\" but \"ustar\" was expected !"));
    QCOMPARE(tar.count(), 0);
}

QTEST_GUILESS_MAIN(tst_CTarPrograms)
#include "tst_CTarPrograms.moc"
