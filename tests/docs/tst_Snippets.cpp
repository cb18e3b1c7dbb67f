#include <tests/support/InstalledProgram.h>

#include <QtTest>

/// Runs what headers and pages show, and compares the values that the comments name.
class tst_Snippets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void values_data();
    void values();

private:
    QMap<QString, QString> mAnswers;
};

void tst_Snippets::initTestCase()
{
    const InstalledProgram probe(QStringLiteral(SNIPPETS_PROBE));
    QVERIFY(probe.isValid());
    mAnswers = probe.run();
    mAnswers.remove(QString());
    QVERIFY(mAnswers.size() >= 30);
}

void tst_Snippets::values_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("comment");
    for (auto it = mAnswers.cbegin(); it != mAnswers.cend(); ++it) {
        QTest::newRow(qPrintable(it.key()))
            << it.value().section(QChar(0x1f), 0, 0) << it.value().section(QChar(0x1f), 1);
    }
}

void tst_Snippets::values()
{
    QFETCH(QString, value);
    QFETCH(QString, comment);
    QCOMPARE(value, comment);
}

QTEST_GUILESS_MAIN(tst_Snippets)
#include "tst_Snippets.moc"
