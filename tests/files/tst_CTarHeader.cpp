#include <core/base/QtTexts.h>
#include <tests/files/TarArchive.h>

#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>

#include <QRandomGenerator>
#include <QtTest>

/// The fields of a header block, and what becomes of damaged ones.
class tst_CTarHeader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void prefixIsIgnored();
    void types_data();
    void types();
    void magic_data();
    void magic();
    void magicFails_data();
    void magicFails();
    void sizes_data();
    void sizes();
    void sizesFail_data();
    void sizesFail();
    void sizesAsQtConverts();
    void advance_data();
    void advance();
    void checksumIsNotVerified();
    void textsEndWithTheBlock();
    void everyByteChanged();
};

namespace {

const char NO_ARCHIVE[] =
    "ERROR : This is not a tar archive. Header.magic = \"512\" but \"ustar\" was expected !";

/// Loads a header followed by the end of the archive.
struct SLoaded
{
    explicit SLoaded(const QByteArray& header)
        : ok(tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), header + tarEnd())))
    {}
    explicit SLoaded(const STarMember& member)
        : SLoaded(tarHeader(member))
    {}

    QTemporaryDir dir;
    CTar tar;
    bool ok;
};

/// What the header says, read the plain way: as zero-terminated texts in a copy that ends with a zero byte.
CTarFileInfo modelInfo(const QByteArray& block, bool* sizeOk)
{
    const QByteArray bytes = block + '\0';
    const QByteArray types = QByteArray("0\0"
                                        "25",
                                        4);
    const int kinds[] = {1, 1, 2, 3};
    const int kind = types.indexOf(bytes.at(156));
    CTarFileInfo info;
    info.mType = kind < 0 ? 0 : kinds[kind];
    info.mName = QString::fromLatin1(bytes.constData());
    info.mLinkName = QString::fromLatin1(bytes.constData() + 157);
    info.mSize = NQtCompat::integerText(QString::fromLatin1(bytes.constData() + 124)).toLongLong(sizeOk, 8);
    if (!*sizeOk && bytes.at(135) == ' ' && !bytes.mid(124, 12).contains('\0')) {
        info.mSize = NQtCompat::integerText(QString::fromLatin1(bytes.mid(124, 12))).toLongLong(sizeOk, 8);
    }
    *sizeOk = *sizeOk && info.mSize >= 0;
    return info;
}

} // namespace

void tst_CTarHeader::names_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("name");
    const QByteArray chars99(99, 'n');
    const QString text99(99, QLatin1Char('n'));

    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("plain") << QByteArray("firmware/image.bin") << "firmware/image.bin";
    QTest::newRow("zero byte within") << QByteArray("a\0b", 3) << "a";
    QTest::newRow("all Latin-1 edges")
        << QByteArray("\x01\x7f\x80\xff") << QStringLiteral("\x01\x7f\u0080\u00ff");
    QTest::newRow("UTF-8 bytes are Latin-1") << QByteArray("\xc3\xbc") << QStringLiteral("\u00c3\u00bc");
    QTest::newRow("99 characters") << chars99 << text99;
    QTest::newRow("100 characters run on into the mode")
        << chars99 + 'm' << text99 + QLatin1String("m0000644");
}

void tst_CTarHeader::names()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, name);

    STarMember member;
    member.name = field;
    const SLoaded loaded(member);
    QVERIFY(loaded.ok);
    QCOMPARE(loaded.tar.info(0).mName, name);
    QCOMPARE(loaded.tar.names(), QStringList{name});
    QCOMPARE(loaded.tar.index(name), 0);
}

void tst_CTarHeader::prefixIsIgnored()
{
    STarMember member;
    member.name = "image.bin";
    member.prefix = "firmware/drives";
    const SLoaded loaded(member);
    QVERIFY(loaded.ok);
    QCOMPARE(loaded.tar.info(0).mName, QStringLiteral("image.bin"));
}

void tst_CTarHeader::types_data()
{
    QTest::addColumn<char>("flag");
    QTest::addColumn<qint32>("type");

    for (int flag = 0; flag < 256; ++flag) {
        const qint32 type = flag == '0' || flag == 0 ? CTarFileInfo::TYPE_FILE
                            : flag == '2'            ? CTarFileInfo::TYPE_SYMLINK
                            : flag == '5'            ? CTarFileInfo::TYPE_DIRECTORY
                                                     : CTarFileInfo::TYPE_INVALID;
        QTest::newRow(QByteArray("typeflag 0x" + QByteArray::number(flag, 16)).constData())
            << static_cast<char>(flag) << type;
    }
}

void tst_CTarHeader::types()
{
    QFETCH(char, flag);

    STarMember member;
    member.name = "member";
    member.typeflag = flag;
    member.linkName = "target";
    member.data = "1234567890";
    const SLoaded loaded(tarMember(member) + tarFile("next", 0));
    QVERIFY(loaded.ok);
    QTEST(loaded.tar.info(0).mType, "type");
    QCOMPARE(loaded.tar.info(0).mLinkName, QStringLiteral("target"));
    QCOMPARE(loaded.tar.info(1).mName, QStringLiteral("next")); // its data is skipped whatever the kind
}

void tst_CTarHeader::magic_data()
{
    QTest::addColumn<QByteArray>("magic");

    QTest::newRow("POSIX") << QByteArray("ustar\0"
                                         "00",
                                         8);
    QTest::newRow("GNU") << QByteArray("ustar  \0", 8);
    QTest::newRow("no version") << QByteArray("ustar");
    QTest::newRow("anything behind") << QByteArray("ustarXYZ");
}

void tst_CTarHeader::magic()
{
    QFETCH(QByteArray, magic);

    STarMember member;
    member.name = "a";
    member.magic = magic;
    const SLoaded loaded(member);
    QVERIFY(loaded.ok);
    QCOMPARE(loaded.tar.count(), 1);
}

void tst_CTarHeader::magicFails_data()
{
    QTest::addColumn<QByteArray>("magic");

    QTest::newRow("none (before POSIX)") << QByteArray();
    QTest::newRow("upper case") << QByteArray("USTAR");
    QTest::newRow("four characters") << QByteArray("usta\0r", 6);
    QTest::newRow("not at the beginning") << QByteArray(" ustar");
    QTest::newRow("a placeholder") << QByteArray("%1");
}

void tst_CTarHeader::magicFails()
{
    QFETCH(QByteArray, magic);

    MessageLog log; // filling the text a second time would be logged
    STarMember member;
    member.name = "a";
    member.magic = magic;
    const SLoaded loaded(member);
    QVERIFY(!loaded.ok);
    QCOMPARE(loaded.tar.error(), QLatin1String(NO_ARCHIVE));
    QCOMPARE(loaded.tar.count(), 0);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CTarHeader::sizes_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<qint64>("size");

    QTest::newRow("11 digits") << QByteArray("00000000012") << Q_INT64_C(10);
    QTest::newRow("short") << QByteArray("7") << Q_INT64_C(7);
    QTest::newRow("blanks in front") << QByteArray("         12") << Q_INT64_C(10);
    QTest::newRow("blank behind") << QByteArray("0000000012 ") << Q_INT64_C(10);
    QTest::newRow("tab and no-break space") << QByteArray("\t\xa0"
                                                          "12")
                                            << Q_INT64_C(10);
    QTest::newRow("plus") << QByteArray("+12") << Q_INT64_C(10);
    QTest::newRow("minus zero") << QByteArray("-0") << Q_INT64_C(0);
    QTest::newRow("blank instead of the zero byte") << QByteArray("00000000012 ") << Q_INT64_C(10);
    QTest::newRow("blanks on both sides") << QByteArray("       0012 ") << Q_INT64_C(10);
    QTest::newRow("digits behind the zero byte") << QByteArray("12\0"
                                                               "3456",
                                                               7)
                                                 << Q_INT64_C(10);
}

void tst_CTarHeader::sizes()
{
    QFETCH(QByteArray, field);
    QFETCH(qint64, size);

    STarMember member;
    member.name = "a";
    member.size = field;
    const SLoaded loaded(tarHeader(member) + QByteArray(size > 0 ? 512 : 0, 'x'));
    QVERIFY(loaded.ok);
    QCOMPARE(loaded.tar.info(0).mSize, size);
}

void tst_CTarHeader::sizesFail_data()
{
    QTest::addColumn<QByteArray>("field");

    QTest::newRow("no text") << QByteArray("\0", 1);
    QTest::newRow("blanks") << QByteArray("           ");
    QTest::newRow("decimal digit") << QByteArray("00000000018");
    QTest::newRow("text behind") << QByteArray("12x");
    QTest::newRow("blank within") << QByteArray("1 2");
    QTest::newRow("hexadecimal") << QByteArray("0x12");
    QTest::newRow("negative") << QByteArray("-1");
    QTest::newRow("sign alone") << QByteArray("-");
    QTest::newRow("base 256 of GNU") << QByteArray("\x80\0\0\0\0\0\0\0\0\0\0\x0a", 12);
    QTest::newRow("base 256, negative") << QByteArray(12, '\xff');
    QTest::newRow("two numbers, blank at the field's end") << QByteArray("0000 000012 ");
    QTest::newRow("negative, blank at the field's end") << QByteArray("-0000000012 ");
    QTest::newRow("zero byte first, blank at the field's end") << QByteArray("\0"
                                                                             "0000000012 ",
                                                                             12);
    QTest::newRow("no number, zero byte, blank at the field's end") << QByteArray("x\0"
                                                                                  "000000012 ",
                                                                                  12);
    QTest::newRow("tab at the field's end") << QByteArray("00000000012\t");
    QTest::newRow("12 digits run on into the time") << QByteArray("000000000012");
}

void tst_CTarHeader::sizesFail()
{
    QFETCH(QByteArray, field);

    STarMember member;
    member.name = "a";
    member.size = field;
    QByteArray header = tarHeader(member);
    header[136] = 't'; // a time that makes no number together with a size that fills its field
    const SLoaded loaded(tarFile("before", 1) + header);
    QVERIFY(!loaded.ok);
    QCOMPARE(loaded.tar.error(), QString()); // silent
    QCOMPARE(loaded.tar.names(), QStringList{QStringLiteral("before")});

    CTar& tar = const_cast<CTar&>(loaded.tar);
    qint64 pos = 1024;
    bool end = false;
    QVERIFY(!tar.readFileHeader(pos, end));
    QCOMPARE(pos, Q_INT64_C(1024));
    QVERIFY(!end);
}

// The size is what QString::toLongLong gives in base 8; plain digits are converted on a shorter road.
void tst_CTarHeader::sizesAsQtConverts()
{
    const QByteArray alphabet("0123456701234567 8+-\t\n\x0b\x80\x85\xa0xX9.,");
    QRandomGenerator random(20240611);
    const QTemporaryDir dir;
    CTar tar;
    for (int round = 0; round < 4000; ++round) {
        QByteArray text;
        const int length = random.bounded(1, 30);
        const int letters = round % 4 == 0 ? alphabet.size() : 8; // mostly digits
        for (int i = 0; i < length; ++i) {
            text += alphabet.at(random.bounded(letters));
        }
        if (round % 5 == 0 && length > 11) {
            text[11] = ' '; // the field's last byte
        }
        STarMember member;
        member.name = "a";
        QByteArray header = tarHeader(member);
        header.replace(124, text.size() + 1,
                       QByteArray(text + '\0')); // may run into the time and checksum fields
        bool ok = false;
        const CTarFileInfo expected = modelInfo(header, &ok);
        ok = ok && expected.mSize <= Q_INT64_C(0x7fffffffffffffff) - 1023;

        tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), header));
        QVERIFY2(tar.count() == (ok ? 1 : 0), text.toHex().constData());
        QVERIFY2(!ok || tar.info(0) == expected, text.toHex().constData());
    }
}

void tst_CTarHeader::advance_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<qint64>("next");
    const qint64 none = -1;

    QTest::newRow("0") << QByteArray("0") << Q_INT64_C(512);
    QTest::newRow("1") << QByteArray("1") << Q_INT64_C(1024);
    QTest::newRow("511") << QByteArray("777") << Q_INT64_C(1024);
    QTest::newRow("512") << QByteArray("1000") << Q_INT64_C(1024);
    QTest::newRow("513") << QByteArray("1001") << Q_INT64_C(1536);
    QTest::newRow("8 GiB - 1, eleven digits") << QByteArray("77777777777") << Q_INT64_C(0x200000200);
    QTest::newRow("2^63 - 1024, the last that can be passed")
        << QByteArray("777777777777777776000") << Q_INT64_C(0x7ffffffffffffe00);
    QTest::newRow("2^63 - 1023") << QByteArray("777777777777777776001") << none;
    QTest::newRow("2^63 - 1") << QByteArray("777777777777777777777") << none;
    QTest::newRow("2^63") << QByteArray("1000000000000000000000") << none;
    QTest::newRow("2^64") << QByteArray("2000000000000000000000") << none;
}

void tst_CTarHeader::advance()
{
    QFETCH(QByteArray, size);
    QFETCH(qint64, next);

    MessageLog log; // no file system reaches all of these positions
    QByteArray header = tarFile("a", 0);
    header.replace(124, size.size() + 1, QByteArray(size + '\0'));
    const QTemporaryDir dir;
    CTar tar;
    tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), header));
    const int count = tar.count();
    const QString error = tar.error();
    qint64 pos = 0;
    bool end = false;
    QCOMPARE(tar.readFileHeader(pos, end), next >= 0);
    QCOMPARE(pos, next >= 0 ? next : 0);
    QVERIFY(!end);
    QCOMPARE(count, next >= 0 ? 1 : 0);
    QCOMPARE(tar.error(), error);
    QCOMPARE(error, next < 0 ? QString() // a size that goes too far is silent
                             : QStringLiteral(
                                 "ERROR : The file ist too short. Only 0 bytes read but 512 expected !"));
    QCOMPARE(log.messages(), QStringList());
}

void tst_CTarHeader::checksumIsNotVerified()
{
    QByteArray header = tarFile("a", 0);
    header.replace(148, 8, "gone    ");
    const SLoaded loaded(header);
    QVERIFY(loaded.ok);
    QCOMPARE(loaded.tar.count(), 1);
}

void tst_CTarHeader::textsEndWithTheBlock()
{
    STarMember member;
    member.name = "a";
    QByteArray header = tarHeader(member);
    header.replace(157, 355, QByteArray(355, 'L'));
    header.replace(257, 5, "ustar");
    const SLoaded loaded(header + QByteArray());
    QVERIFY(loaded.ok);
    QCOMPARE(loaded.tar.info(0).mLinkName,
             QString(100, QLatin1Char('L')) + QLatin1String("ustar") + QString(250, QLatin1Char('L')));

    // A block without a zero byte has no size either: nothing is read beyond it to find one.
    header = QByteArray(512, '1');
    header.replace(257, 5, "ustar");
    const SLoaded endless(header);
    QVERIFY(!endless.ok);
    QCOMPARE(endless.tar.count(), 0);
    QCOMPARE(endless.tar.error(), QString());
}

void tst_CTarHeader::everyByteChanged()
{
    STarMember member;
    member.name = "firmware/image.bin";
    member.linkName = "target";
    member.data = QByteArray(10, 'd');
    const QByteArray original = tarMember(member);
    const QTemporaryDir dir;
    int failures = 0;
    for (int offset = 0; offset < 512; ++offset) {
        for (const int mask :
             {0x01, 0x02, 0x20, 0x80, 0xff, static_cast<int>(static_cast<uchar>(original.at(offset)))}) {
            QByteArray bytes = original;
            bytes[offset] = static_cast<char>(bytes.at(offset) ^ mask); // the last mask makes it 0
            bool sizeOk = false;
            const CTarFileInfo expected = modelInfo(bytes.left(512), &sizeOk);
            const bool magicOk = bytes.mid(257, 5) == "ustar";
            const QByteArray where =
                "byte " + QByteArray::number(offset) + " xor " + QByteArray::number(mask, 16);

            CTar tar;
            tar.loadFile(writeFile(dir, QStringLiteral("x.tar"), bytes));
            QVERIFY2(tar.count() == (magicOk && sizeOk ? 1 : 0), where.constData());
            QVERIFY2(tar.count() == 0 || tar.info(0) == expected, where.constData());
            QVERIFY2(magicOk || tar.error() == QLatin1String(NO_ARCHIVE), where.constData());
            QVERIFY2(!magicOk || sizeOk || tar.error().isEmpty(), where.constData());
            failures += tar.count() == 0 ? 1 : 0;
        }
    }
    QVERIFY(failures >= 5 * 6); // the magic at least
}

QTEST_GUILESS_MAIN(tst_CTarHeader)
#include "tst_CTarHeader.moc"
