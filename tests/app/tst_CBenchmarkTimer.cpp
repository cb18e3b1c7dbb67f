#include <core/app/CBenchmarkTimer.h>
#include <core/app/CPublicWait.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

#include <cstdio>
#include <cstring>

namespace {

const char CALIBRATE[] = "--calibrate";

/// Prints what a process finds that calibrates for the first time.
int printCalibration()
{
    const double before = CBenchmarkTimer::mTicksPerUs;
    QElapsedTimer clock;
    CBenchmarkTimer timer;
    clock.start();
    timer.start();
    const double ticksPerUs = CBenchmarkTimer::ticksPerUs();
    const double ticks = timer.elapsed();
    const qint64 nsecs = clock.nsecsElapsed();
    timer.start();
    const double second = CBenchmarkTimer::ticksPerUs();
    const double ticksOfSecond = timer.elapsed();
    std::printf("%.17g %.17g %.17g %lld %.17g %.17g %.17g\n", before, ticksPerUs, ticks,
                static_cast<long long>(nsecs), second, ticksOfSecond, CBenchmarkTimer::mTicksPerUs);
    return 0;
}

} // namespace

class tst_CBenchmarkTimer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void neverStarted();
    void elapsedGrows();
    void copies();
    void unit();
    void firstCalibration();
    void storedCalibration_data();
    void storedCalibration();
    void negativeCalibratesAgain();
    void waits_data();
    void waits();
};

void tst_CBenchmarkTimer::neverStarted()
{
    const CBenchmarkTimer timer;
    CBenchmarkTimer started;
    started.start();
    const double raw = timer.elapsed();
    QVERIFY(raw > 0.0);
    QVERIFY(raw >= started.elapsed()); // the whole count, not a difference
    QVERIFY(timer.elapsed() >= raw);
}

void tst_CBenchmarkTimer::elapsedGrows()
{
    CBenchmarkTimer timer;
    timer.start();
    const double first = timer.elapsed();
    CPublicWait::msleep(2);
    const double second = timer.elapsed();
    QVERIFY(first >= 0.0);
    QVERIFY(second > first);
    timer.start();
    CBenchmarkTimer whole;
    QVERIFY(timer.elapsed() < whole.elapsed()); // started anew
}

void tst_CBenchmarkTimer::copies()
{
    CBenchmarkTimer early;
    early.start();
    CPublicWait::msleep(20);
    const CBenchmarkTimer copy(early);
    CBenchmarkTimer assigned;
    assigned = early;
    CBenchmarkTimer late;
    late.start();
    const double ofLate = late.elapsed();
    QVERIFY(copy.elapsed() > ofLate);
    const double beforeCopies = early.elapsed();
    const double ofCopy = copy.elapsed();
    const double ofAssigned = assigned.elapsed();
    const double afterCopies = early.elapsed();
    QVERIFY(beforeCopies <= ofCopy && ofCopy <= ofAssigned && ofAssigned <= afterCopies);
}

void tst_CBenchmarkTimer::unit()
{
    QCOMPARE(CBenchmarkTimer().unit(), QStringLiteral("CPU Ticks"));
}

// The calibration happens once in a process: a fresh one makes it.
void tst_CBenchmarkTimer::firstCalibration()
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String(CALIBRATE)});
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 0);
    const QList<QByteArray> values = process.readAllStandardOutput().trimmed().split(' ');
    QCOMPARE(values.size(), 7);
    const double before = values.at(0).toDouble();
    const double ticksPerUs = values.at(1).toDouble();
    const double ticks = values.at(2).toDouble();
    const double usecs = values.at(3).toDouble() / 1000.0;
    QCOMPARE(before, -1.0);
    QVERIFY(usecs >= 100000.0);                     // it slept
    QVERIFY(ticksPerUs * 100000.0 <= ticks);        // it counted within what was counted around it
    QVERIFY(ticksPerUs >= 0.99 * (ticks / usecs));  // and over 100 ms at least
    QCOMPARE(values.at(4).toDouble(), ticksPerUs);  // the second call
    QVERIFY(values.at(5).toDouble() < 0.5 * ticks); // returns at once
    QCOMPARE(values.at(6).toDouble(), ticksPerUs);  // what was stored
}

void tst_CBenchmarkTimer::storedCalibration_data()
{
    QTest::addColumn<double>("stored");

    QTest::newRow("a number") << 1234.5;
    QTest::newRow("0 is not negative") << 0.0;
}

void tst_CBenchmarkTimer::storedCalibration()
{
    QFETCH(double, stored);
    CBenchmarkTimer::mTicksPerUs = stored;
    QCOMPARE(CBenchmarkTimer::ticksPerUs(), stored);
    QCOMPARE(CBenchmarkTimer::mTicksPerUs, stored);
}

void tst_CBenchmarkTimer::negativeCalibratesAgain()
{
    CBenchmarkTimer::mTicksPerUs = -0.001; // any negative number: no calibration yet
    const double ticksPerUs = CBenchmarkTimer::ticksPerUs();
    QVERIFY(ticksPerUs > 0.0);
    QCOMPARE(CBenchmarkTimer::mTicksPerUs, ticksPerUs);
}

void tst_CBenchmarkTimer::waits_data()
{
    QTest::addColumn<int>("function");
    QTest::addColumn<qint64>("nsecs");

    QTest::newRow("sleep 1 s") << 0 << Q_INT64_C(1000000000);
    QTest::newRow("msleep 30 ms") << 1 << Q_INT64_C(30000000);
    QTest::newRow("usleep 30000 us") << 2 << Q_INT64_C(30000000);
    QTest::newRow("msleep 0") << 3 << Q_INT64_C(0);
}

// The only thing that can be said of a sleep: it is not shorter than asked for (Windows rounds to its timer's tick).
void tst_CBenchmarkTimer::waits()
{
    QFETCH(int, function);
    QFETCH(qint64, nsecs);
    QElapsedTimer clock;
    clock.start();
    switch (function) {
    case 0:
        CPublicWait::sleep(1);
        break;
    case 1:
        CPublicWait::msleep(30);
        break;
    case 2:
        CPublicWait::usleep(30000);
        break;
    default:
        CPublicWait::msleep(0);
    }
    const qint64 timerTick = 16000000;
    QVERIFY(clock.nsecsElapsed() >= nsecs - timerTick);
    QVERIFY(clock.nsecsElapsed() < nsecs * 20 + Q_INT64_C(5000000000)); // the unit is right
}

int main(int argc, char* argv[])
{
    if (argc == 2 && std::strcmp(argv[1], CALIBRATE) == 0) {
        return printCalibration();
    }
    QCoreApplication application(argc, argv);
    tst_CBenchmarkTimer test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_CBenchmarkTimer.moc"
