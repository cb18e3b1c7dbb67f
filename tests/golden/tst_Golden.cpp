#include <tests/golden/GoldenFile.h>

#include <QDir>
#include <QSet>
#include <QtTest>

namespace {

// Before Qt 5.2 a stream has no place for the offset and the zone: one comes back as UTC, the other as local time.
QByteArray expectedCopy(const SGoldenCase& value, const NGolden::SSetting& setting, QByteArray bytes)
{
    const bool isOffset = value.name == "offset";
    if (value.className == "CDateTime" && setting.version < QDataStream::Qt_5_2
        && (isOffset || value.name == "zone")) {
        const bool hasQt5Numbers = setting.version == QDataStream::Qt_5_0;
        const char utc = hasQt5Numbers ? 1 : 2;
        const char local = hasQt5Numbers ? 0 : -1;
        bytes.chop(1);
        bytes.append(isOffset ? utc : local);
    }
    return bytes;
}

} // namespace

/// The bytes of every value class are those of the files in the tree, which a build with Qt 5.15 wrote.
class tst_Golden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void written_data();
    void written();
    void readBack_data() { written_data(); }
    void readBack();
    void everyFileIsUsed();

private:
    QMap<QByteArray, NGolden::TBytes> mFiles;
    std::vector<SGoldenCase> mCases;
};

void tst_Golden::initTestCase()
{
    mCases = goldenCases();
    for (const SGoldenCase& value : mCases) {
        if (!mFiles.contains(value.className)) {
            const QString name = QString::fromLatin1(value.className) + QLatin1String(".golden");
            mFiles.insert(value.className, NGolden::read(QDir(QStringLiteral(GOLDEN_DATA)).filePath(name)));
        }
    }
}

void tst_Golden::written_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const SGoldenCase& value : mCases) {
        QTest::newRow(QByteArray(value.className + ' ' + value.name).constData()) << index++;
    }
}

void tst_Golden::written()
{
    QFETCH(int, index);
    const SGoldenCase& value = mCases.at(static_cast<std::size_t>(index));
    const NGolden::TBytes& bytes = mFiles[value.className];
    for (const NGolden::SSetting& setting : NGolden::allSettings()) {
        const QByteArray key = NGolden::keyOf(value.name, setting);
        QVERIFY2(bytes.contains(key), key.constData());
        const QByteArray written = NGolden::bytesOf(value, setting);
        const QByteArray& expected = bytes[key];
        QVERIFY2(written == expected,
                 QByteArray(key + ": " + written.toHex() + " instead of " + expected.toHex()).constData());
    }
}

void tst_Golden::readBack()
{
    QFETCH(int, index);
    const SGoldenCase& value = mCases.at(static_cast<std::size_t>(index));
    const NGolden::TBytes& bytes = mFiles[value.className];
    for (const NGolden::SSetting& setting : NGolden::allSettings()) {
        const QByteArray key = NGolden::keyOf(value.name, setting);
        QDataStream::Status status = QDataStream::Ok;
        qint64 rest = 0;
        const QByteArray copy = NGolden::copyOf(value, setting, bytes[key], &status, &rest);
        QVERIFY2(status == QDataStream::Ok && rest == 0, key.constData());
        const QByteArray expected = expectedCopy(value, setting, bytes[key]);
        QVERIFY2(copy == expected,
                 QByteArray(key + ": " + copy.toHex() + " instead of " + expected.toHex()).constData());
    }
}

void tst_Golden::everyFileIsUsed()
{
    const QStringList files = QDir(QStringLiteral(GOLDEN_DATA)).entryList({QStringLiteral("*.golden")});
    QCOMPARE(files.size(), mFiles.size());
    for (auto file = mFiles.cbegin(); file != mFiles.cend(); ++file) {
        int cases = 0;
        for (const SGoldenCase& value : mCases) {
            cases += value.className == file.key() ? 1 : 0;
        }
        // No line that no value stands behind.
        QCOMPARE(file->size(), cases * NGolden::allSettings().size());
    }
}

int main(int argc, char* argv[])
{
    NGolden::prepareProcess();
    QCoreApplication application(argc, argv);
    tst_Golden test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Golden.moc"
