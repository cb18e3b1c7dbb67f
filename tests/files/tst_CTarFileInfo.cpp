#include <core/tlxCoreQTest.h>

#include <QtTest>

#include <type_traits>

class tst_CTarFileInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isClearedAtFirst();
    void clear();
    void isValid_data();
    void isValid();
    void comparison_data();
    void comparison();
    void debugText();
    void inVariant();
};

static_assert(CTarFileInfo::TYPE_INVALID == 0 && CTarFileInfo::TYPE_FILE == 1
                  && CTarFileInfo::TYPE_SYMLINK == 2 && CTarFileInfo::TYPE_DIRECTORY == 3,
              "callers store the numbers");
static_assert(std::is_same<decltype(CTarFileInfo::mType), qint32>::value, "32 bits, signed");
static_assert(std::is_same<decltype(CTarFileInfo::mSize), qint64>::value, "64 bits, signed");
static_assert(std::is_same<decltype(CTarFileInfo::mPos), qint64>::value, "64 bits, signed");

namespace {

CTarFileInfo example()
{
    CTarFileInfo info;
    info.mType = CTarFileInfo::TYPE_SYMLINK;
    info.mName = QStringLiteral("link");
    info.mLinkName = QStringLiteral("target");
    info.mSize = 513;
    info.mPos = 1024;
    return info;
}

} // namespace

void tst_CTarFileInfo::isClearedAtFirst()
{
    const CTarFileInfo info;
    QCOMPARE(info.mType, 0);
    QCOMPARE(info.mName, QString());
    QCOMPARE(info.mLinkName, QString());
    QCOMPARE(info.mSize, Q_INT64_C(0));
    QCOMPARE(info.mPos, Q_INT64_C(0));
    QVERIFY(!info.isValid());
}

void tst_CTarFileInfo::clear()
{
    CTarFileInfo info = example();
    info.clear();
    QCOMPARE(info, CTarFileInfo());
}

void tst_CTarFileInfo::isValid_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("valid");

    QTest::newRow("invalid") << 0 << false;
    QTest::newRow("file") << 1 << true;
    QTest::newRow("symbolic link") << 2 << true;
    QTest::newRow("directory") << 3 << true;
    QTest::newRow("another number") << -1 << true;
}

void tst_CTarFileInfo::isValid()
{
    QFETCH(int, type);
    QFETCH(bool, valid);

    CTarFileInfo info;
    info.mType = type;
    QCOMPARE(info.isValid(), valid);
}

void tst_CTarFileInfo::comparison_data()
{
    QTest::addColumn<CTarFileInfo>("other");

    CTarFileInfo other = example();
    other.mType = CTarFileInfo::TYPE_FILE;
    QTest::newRow("kind") << other;
    other = example();
    other.mName = QStringLiteral("Link");
    QTest::newRow("name") << other;
    other = example();
    other.mLinkName.clear();
    QTest::newRow("link target") << other;
    other = example();
    other.mSize = 514;
    QTest::newRow("size") << other;
    other = example();
    other.mPos = 1536;
    QTest::newRow("position") << other;
}

void tst_CTarFileInfo::comparison()
{
    QFETCH(CTarFileInfo, other);

    const CTarFileInfo info = example();
    const CTarFileInfo copy = info;
    QVERIFY(info == copy);
    QVERIFY(!(info != copy));
    QCOMPARE(qHash(info, 7u), qHash(copy, 7u));
    QVERIFY(info != other);
    QVERIFY(!(info == other));
    QVERIFY(qHash(info, 7u) != qHash(other, 7u));
}

void tst_CTarFileInfo::debugText()
{
    QString text;
    QDebug(&text) << example() << 1;
    QCOMPARE(text, QStringLiteral("CTarFileInfo(type CTarFileInfo::TYPE_SYMLINK, name \"link\", linkName "
                                  "\"target\", size 513, pos 1024) 1 "));
}

void tst_CTarFileInfo::inVariant()
{
    QCOMPARE(QVariant::fromValue(example()).value<CTarFileInfo>(), example());
}

QTEST_APPLESS_MAIN(tst_CTarFileInfo)
#include "tst_CTarFileInfo.moc"
