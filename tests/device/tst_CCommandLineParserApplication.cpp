#include <core/device/CCommandLineParser.h>

#include <tests/support/MessageLog.h>

#include <QCoreApplication>
#include <QtTest>

namespace {

using Map = QMap<QString, QString>;

/// An application that was started with these arguments, while it lives.
class StartedWith
{
public:
    explicit StartedWith(const QStringList& arguments)
    {
        for (const QString& argument : arguments) {
            mTexts << argument.toLocal8Bit();
        }
        for (QByteArray& text : mTexts) {
            mPointers << text.data();
        }
        mCount = mPointers.size();
        mPointers << nullptr;
        mApplication.reset(new QCoreApplication(mCount, mPointers.data()));
    }

private:
    QList<QByteArray> mTexts;
    QVector<char*> mPointers;
    int mCount = 0;
    QScopedPointer<QCoreApplication> mApplication;
};

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '));
}

} // namespace

/// What depends on the arguments that the application was started with.
class tst_CCommandLineParserApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownArguments();
    void withoutApplication();
    void optionForm_data();
    void optionForm();
};

void tst_CCommandLineParserApplication::ownArguments()
{
    const StartedWith application(words("path=to/tool level=3 x port=0x10"));
    const Map expected{{QStringLiteral("path"), QStringLiteral("to/tool")},
                       {QStringLiteral("level"), QStringLiteral("3")},
                       {QStringLiteral("port"), QStringLiteral("0x10")}};

    QCOMPARE(CCommandLineParser::argumentsMap(), expected);
    const CCommandLineParser parser;
    QCOMPARE(parser.count(), 3);
    QCOMPARE(parser.userLevel(), 3);
    QCOMPARE(parser.port(), 16);
}

// Qt says what is missing; the map is empty.
void tst_CCommandLineParserApplication::withoutApplication()
{
    const MessageLog log;

    QCOMPARE(CCommandLineParser::argumentsMap(), Map());
    QCOMPARE(CCommandLineParser::argumentsMap(QStringLiteral("-f")), Map());

    const QStringList messages = log.messages();
    QCOMPARE(messages.size(), 2);
    QVERIFY(messages.at(0).contains(QLatin1String("QCoreApplication::arguments")));
}

void tst_CCommandLineParserApplication::optionForm_data()
{
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<QString>("option");
    QTest::addColumn<Map>("map");

    const auto one = [](const char* key, const char* value) {
        return Map{{QString::fromUtf8(key), QString::fromUtf8(value)}};
    };
    const QString files = QStringLiteral("-files");
    QTest::newRow("words up to the next dash")
        << words("prog -files a.txt b.txt -v") << files << one("-files", "a.txt b.txt");
    QTest::newRow("words up to the end") << words("prog -files a b") << files << one("-files", "a b");
    QTest::newRow("the key is the whole argument")
        << words("prog -files a") << QStringLiteral("-f") << one("-files", "a");
    QTest::newRow("no word") << words("prog -files -v x") << files << one("-files", "");
    QTest::newRow("no word at the end") << words("prog -files") << files << one("-files", "");
    QTest::newRow("the stopping argument is looked at again")
        << words("prog -f1 a -f2 b -f3") << QStringLiteral("-f")
        << Map{{QStringLiteral("-f1"), QStringLiteral("a")},
               {QStringLiteral("-f2"), QStringLiteral("b")},
               {QStringLiteral("-f3"), QString()}};
    QTest::newRow("last wins") << words("prog -f a -v -f b c") << QStringLiteral("-f") << one("-f", "b c");
    QTest::newRow("last wins with nothing") << words("prog -f a -f") << QStringLiteral("-f") << one("-f", "");
    QTest::newRow("case-sensitive") << words("prog -Files a") << files << Map();
    QTest::newRow("the program is no key") << words("-files a b") << files << Map();
    QTest::newRow("no such option") << words("prog a b -v c") << files << Map();
    QTest::newRow("empty option") << words("prog -files a") << QString() << Map();
    QTest::newRow("program alone") << words("prog") << files << Map();
    QTest::newRow("only the ends are trimmed") << QStringList{QStringLiteral("prog"), QStringLiteral("-f"),
                                                              QStringLiteral("  a  b"), QStringLiteral(" c ")}
                                               << QStringLiteral("-f") << one("-f", "a  b  c");
    QTest::newRow("empty words between") << QStringList{QStringLiteral("prog"),
                                                        QStringLiteral("-f"),
                                                        QString(),
                                                        QStringLiteral("a"),
                                                        QString(),
                                                        QStringLiteral("b"),
                                                        QString()}
                                         << QStringLiteral("-f") << one("-f", "a  b");
    QTest::newRow("a word with a placeholder stays as it is")
        << words("prog -f %1 x%1y %2") << QStringLiteral("-f") << one("-f", "%1 x%1y %2");
    QTest::newRow("option without a dash takes words of its own kind")
        << words("prog file1 file2 -v file3") << QStringLiteral("file")
        << Map{{QStringLiteral("file1"), QStringLiteral("file2")}, {QStringLiteral("file3"), QString()}};
}

void tst_CCommandLineParserApplication::optionForm()
{
    QFETCH(QStringList, list);
    QFETCH(QString, option);
    QFETCH(Map, map);
    const StartedWith application(list);

    QCOMPARE(CCommandLineParser::argumentsMap(option), map);
}

QTEST_APPLESS_MAIN(tst_CCommandLineParserApplication)
#include "tst_CCommandLineParserApplication.moc"
