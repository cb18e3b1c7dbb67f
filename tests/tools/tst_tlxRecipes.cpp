#include <core/device/CDeviceList.h>
#include <tests/files/TarArchive.h>
#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <QDataStream>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

/// The recipes of docs/tlx.md, run by a shell as they are printed.
class tst_tlxRecipes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void enoughRecipes();
    void recipe_data();
    void recipe();

private:
    QTemporaryDir mDirectory;
};

namespace {

// The blocks of lines that begin with a command, in order.
QStringList recipes()
{
    QFile file(QStringLiteral(TLX_DOCS "/tlx.md"));
    if (!file.open(QIODevice::ReadOnly)) {
        return QStringList();
    }
    const QString page =
        QString::fromUtf8(file.readAll()).section("## Recipes"_text, 1).section("\n## "_text, 0, 0);
    QStringList blocks;
    const QStringList parts = page.split("\n```\n"_text);
    for (int i = 1; i < parts.size(); i += 2) {
        blocks << parts.at(i);
    }
    return blocks;
}

QByteArray streamedList(unsigned short port)
{
    CDeviceList list("Hall"_text, CDeviceList::SOURCE_NONE);
    CDeviceItem item("Lift"_text, static_cast<CDeviceItem::EHostAddrType>(1),
                     QHostAddress("192.168.0.7"_text), port, QString());
    list.addDevice(5, item);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << list;
    return bytes;
}

QProcessEnvironment withTlx()
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    const QString folder = QFileInfo(tlxProgram()).absolutePath();
    variables.insert("PATH"_text, folder + ":"_text + variables.value("PATH"_text));
    return variables;
}

} // namespace

void tst_tlxRecipes::initTestCase()
{
    writeFile(mDirectory, "firmware.tar"_text,
              tarFile("image.bin", 700) + tarFile("etc/drive.ini", 20) + tarEnd());
    writeFile(mDirectory, "hall.devices"_text, streamedList(1700));
    writeFile(mDirectory, "other.devices"_text, streamedList(1701));
    writeFile(mDirectory, "values.csv"_text, "speed,31\nlimit,70000\n");
    writeFile(mDirectory, "values.bin"_text, QByteArray::fromHex("00000002000000012f00000006"));
    writeFile(mDirectory, "key"_text, "12345678901234567890");
    QProcess gzip;
    gzip.setWorkingDirectory(mDirectory.path());
    gzip.start("gzip"_text, {"-k"_text, "firmware.tar"_text});
    QVERIFY(gzip.waitForFinished(60000) && gzip.exitCode() == 0);
}

void tst_tlxRecipes::enoughRecipes()
{
    QVERIFY2(recipes().size() >= 10, QByteArray::number(recipes().size()).constData());
}

void tst_tlxRecipes::recipe_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QByteArray>("shows");

    // What each shows, in the page's order.
    const QList<QByteArray> answers{
        "refused",       "does not fit U16", "whole\nindex,kind,size",        "image.bin", "etc/drive.ini",
        "device 5/port", "changed.devices",  "\"byteOrder\": \"big-endian\"", "Right\n",   "\nlog,",
        "Valid"};
    const QStringList blocks = recipes();
    for (int i = 0; i < blocks.size(); ++i) {
        const QString tag = blocks.at(i).section("\n"_text, 0, 0);
        QTest::newRow(qPrintable(tag))
            << blocks.at(i) << answers.value(i, "no answer is known to this recipe");
    }
}

void tst_tlxRecipes::recipe()
{
    QFETCH(QString, lines);
    QFETCH(QByteArray, shows);
    QProcess shell;
    shell.setProcessEnvironment(withTlx());
    shell.setWorkingDirectory(mDirectory.path());
    shell.start("bash"_text, {"-e"_text, "-o"_text, "pipefail"_text, "-c"_text, lines});
    QVERIFY(shell.waitForFinished(60000));
    const QByteArray shown = shell.readAllStandardOutput();
    const QByteArray said = shell.readAllStandardError();
    QVERIFY2(shell.exitCode() == 0, QByteArray(shown + said).constData());
    QVERIFY2(QByteArray('\n' + shown).contains(shows), shown.constData());
}

QTEST_GUILESS_MAIN(tst_tlxRecipes)
#include "tst_tlxRecipes.moc"
