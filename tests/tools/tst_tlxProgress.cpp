#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <QProcess>
#include <QtTest>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

// A terminal that nobody sits at.
class Terminal
{
public:
    Terminal()
        : mMaster(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
        if (mMaster >= 0 && grantpt(mMaster) == 0 && unlockpt(mMaster) == 0) {
            mDevice = QString::fromLocal8Bit(ptsname(mMaster));
            mSlave =
                open(ptsname(mMaster), O_RDWR | O_NOCTTY); // keeps what was written when the writer is gone
        }
    }
    ~Terminal()
    {
        close(mSlave);
        close(mMaster);
    }

    QString device() const { return mDevice; }

    QByteArray shown() const
    {
        QByteArray bytes(65536, '\0');
        const auto size = read(mMaster, bytes.data(), 65536);
        return bytes.left(static_cast<int>(size < 0 ? 0 : size));
    }

private:
    int mMaster;
    int mSlave = -1;
    QString mDevice;
};

} // namespace

// The progress line of long work.
class tst_tlxProgress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shownOnTerminal();
    void silentElsewhere();
};

void tst_tlxProgress::shownOnTerminal()
{
    const FileTree tree({"from/a=1"_text, "from/b=2"_text});
    const Terminal terminal;
    if (terminal.device().isEmpty()) {
        QSKIP("this system gives the test no terminal: not tested");
    }

    QProcess process;
    process.setStandardErrorFile(terminal.device());
    process.start(tlxProgram(),
                  {"copy"_text, "--recursive"_text, tree.path("from"_text), tree.path("to"_text)});
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 0);
    const QByteArray shown = terminal.shown();
    const QByteArray line = "\rcopying: 1 of 2 (50 %)";
    QVERIFY2(shown.startsWith(line), shown.constData());
    // In the end the line is blank and the cursor at its start.
    QVERIFY2(shown.endsWith('\r' + QByteArray(line.size() - 1, ' ') + '\r'), shown.toHex().constData());
    QVERIFY(!process.readAllStandardOutput().contains('\r'));
}

void tst_tlxProgress::silentElsewhere()
{
    const FileTree tree({"from/a=1"_text, "from/b=2"_text});

    const STlxRun run =
        runTlx({"copy"_text, "--recursive"_text, tree.path("from"_text), tree.path("to"_text)});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errorOutput, QByteArray());
    QVERIFY(!run.output.contains('\r'));
}

QTEST_GUILESS_MAIN(tst_tlxProgress)
#include "tst_tlxProgress.moc"
