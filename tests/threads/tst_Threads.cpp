#include <core/tlxCore.h>
#include <core/tlxCoreQTest.h>
#include <tests/support/InstalledProgram.h>
#include <tests/threads/ThreadWork.h>

#include <QProcess>
#include <QtTest>

namespace {

constexpr int ROUNDS = 25;

QVector<SThreadWork> allWork()
{
    return valueWork() + textWork() + deviceWork() + systemWork();
}

// One kind of work, or behind the last of them all kinds, each thread beginning with another.
bool workOften(int index, int seed)
{
    const QVector<SThreadWork> all = allWork();
    bool right = true;
    for (int round = 0; round < ROUNDS; ++round) {
        for (int i = 0; i < all.size(); ++i) {
            const SThreadWork& mixed = all.at((i + seed * 7) % all.size());
            right = index < all.size() ? right : mixed.work(seed) && right;
        }
        right = index < all.size() ? all.at(index).work(seed) && right : right;
    }
    return right;
}

// One copy a thread; each thread copies, compares, shows, streams and changes its own.
template <typename T>
bool sharedByAll(const T& value, void (*change)(T&, int))
{
    const QByteArray before = streamed(value);
    std::vector<T> copies(THREAD_COUNT, value);
    const bool right = onAllThreads([&](int seed) {
        T& own = copies[static_cast<std::size_t>(seed)];
        bool same = true;
        for (int round = 0; round < ROUNDS; ++round) {
            T copy = own;
            same = same && copy == own && shown(copy) == shown(own) && streamed(copy) == before
                   && qHash(copy) == qHash(own);
            change(copy, seed);
            same = same && copy != own;
        }
        change(own, seed);
        return same;
    });
    return right && streamed(value) == before;
}

} // namespace

/// Objects of every class on four threads at once. Run under ThreadSanitizer it is silent.
class tst_Threads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void seesFailure();
    void distinctObjects_data();
    void distinctObjects();
    void sharedVariant();
    void sharedText();
    void sharedTime();
    void sharedHardwareId();
    void sharedDeviceList();
};

void tst_Threads::seesFailure()
{
    QVERIFY(onAllThreads([](int) { return true; }));
    QVERIFY(!onAllThreads([](int seed) { return seed != 2; }));
}

void tst_Threads::distinctObjects_data()
{
    QTest::addColumn<int>("index");

    const QVector<SThreadWork> all = allWork();
    for (int i = 0; i < all.size(); ++i) {
        QTest::newRow(all.at(i).name) << i;
    }
    QTest::newRow("different classes") << all.size();
}

// In a process of its own each, so that the first use of everything is one of four at once. A sanitizer's report is an
// exit code of its own.
void tst_Threads::distinctObjects()
{
    QFETCH(int, index);
    const InstalledProgram program(QCoreApplication::applicationFilePath());
    QVERIFY(program.isValid());
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setProcessEnvironment(program.variables());
    process.start(program.program(), {QStringLiteral("--work"), QString::number(index)});

    QVERIFY(process.waitForFinished(120000));
    QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
             process.readAll().constData());
}

void tst_Threads::sharedVariant()
{
    const auto change = [](CVariant& value, int seed) { value = seed; };
    for (const auto type : {NTypes::TYPE_I64, NTypes::TYPE_STRING128, NTypes::TYPE_CHARSTR256}) {
        QVERIFY(sharedByAll<CVariant>(CVariant(QStringLiteral("4711"), type), change));
    }
    QVERIFY(sharedByAll<CVariant>(CVariant(NTypes::tsDateTime{{1, 2, 3, 4}, {5, 6, 2020}}), change));
}

void tst_Threads::sharedText()
{
    QVERIFY(sharedByAll<CString32>(CString32(QStringLiteral("axis")),
                                   [](CString32& text, int seed) { text = QString::number(seed); }));
    QVERIFY(sharedByAll<CString64>(CString64(QStringLiteral("axis")),
                                   [](CString64& text, int seed) { text = QString::number(seed); }));
    QVERIFY(sharedByAll<CString128>(CString128(QStringLiteral("axis")),
                                    [](CString128& text, int seed) { text = QString::number(seed); }));
}

void tst_Threads::sharedTime()
{
    QVERIFY(sharedByAll<CTime>(CTime(7, CTime::UNIT_S), [](CTime& time, int seed) {
        time.setValue(static_cast<unsigned long long>(seed));
    }));
    const QDateTime noon(QDate(2020, 6, 1), QTime(12, 0), Qt::UTC);
    QVERIFY(sharedByAll<CDateTime>(CDateTime(noon), [](CDateTime& time, int seed) {
        time.setDate({static_cast<qint8>(seed + 2), 6, 2020});
    }));
}

void tst_Threads::sharedHardwareId()
{
    QVERIFY(sharedByAll<CDeviceHardwareId>(
        CDeviceHardwareId(QStringLiteral("A012_003_007_Name")),
        [](CDeviceHardwareId& id, int seed) { id.setName(QString::number(seed)); }));
    QVERIFY(sharedByAll<CMotorBaseName>(
        CMotorBaseName(QStringLiteral("Maker"), QStringLiteral("Motor"), QStringLiteral("9"), true),
        [](CMotorBaseName& motor, int seed) { motor.setNumber(QString::number(seed)); }));
}

void tst_Threads::sharedDeviceList()
{
    CDeviceList list(QStringLiteral("hall"), static_cast<CDeviceList::ESourceType>(1));
    CDeviceItem item(QStringLiteral("drive"), static_cast<CDeviceItem::EHostAddrType>(1),
                     QHostAddress(QStringLiteral("192.0.2.1")), 1000, QStringLiteral("text"));
    item.addSubDevice(2, CSubDeviceItem(QStringLiteral("sub")));
    list.addDevice(7, item);

    QVERIFY(sharedByAll<CDeviceList>(list, [](CDeviceList& own, int seed) {
        own.devices[7].addSubDevice(3, CSubDeviceItem(QString::number(seed)));
    }));
    QVERIFY(sharedByAll<CDeviceItem>(
        item, [](CDeviceItem& own, int seed) { own.subDevices[2].name = QString::number(seed); }));
}

// Not QTEST_GUILESS_MAIN: with "--work" nothing else of a test may come before the threads.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--work") == 0) {
        const int index = QByteArray(argv[2]).toInt();
        return onAllThreads([index](int seed) { return workOften(index, seed); }) ? 0 : 1;
    }
    tst_Threads test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Threads.moc"
