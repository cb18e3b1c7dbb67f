#include <core/app/SharedNames.h>

#include <QRegExp>
#include <QSet>
#include <QtTest>

class tst_SharedNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mimeTypes();
    void severities();
};

void tst_SharedNames::mimeTypes()
{
    using namespace NtlxGlobal;
    QCOMPARE(QString(mcMIME_APP_OBJECT), QStringLiteral("application/x-tlappobject"));
    QCOMPARE(QString(mcMIME_PROJECT_OBJECT), QStringLiteral("application/x-tlprojectobject"));
    QCOMPARE(QString(mcMIME_FILE_TRANSFER_TARGET_FILE),
             QStringLiteral("application/tlFileTransferTargetFile"));
    const QSet<QString> names{
        mcMIME_APP_OBJECT,   mcMIME_PROJECT_OBJECT,           mcMIME_DEVICE_OBJECT,  mcMIME_SUB_DEVICE_OBJECT,
        mcMIME_MOTOR_OBJECT, mcMIME_PARAMETER_FILE,           mcMIME_FIRMWARE_IMAGE, mcMIME_FPGA_IMAGE,
        mcMIME_LOG_FILE,     mcMIME_FILE_TRANSFER_TARGET_FILE};
    QCOMPARE(names.size(), 10);
    for (const QString& name : names) {
        QVERIFY2(QRegExp(QStringLiteral("application/(x-tl[a-z]+|tl[A-Za-z]+)")).exactMatch(name),
                 qPrintable(name));
    }
}

void tst_SharedNames::severities()
{
    const QStringList expected{QStringLiteral("emerg"), QStringLiteral("alert"), QStringLiteral("crit"),
                               QStringLiteral("error"), QStringLiteral("warn"),  QStringLiteral("notice"),
                               QStringLiteral("info"),  QStringLiteral("debug")};
    QCOMPARE(NtlxGlobal::mcSEVERITY_NAMES.size(), std::size_t(8));
    for (int severity = 0; severity < 8; ++severity) {
        QCOMPARE(QString(NtlxGlobal::mcSEVERITY_NAMES[std::size_t(severity)]), expected.at(severity));
    }
    static_assert(NtlxGlobal::mcSEVERITY_NAMES[3].size() == 5,
                  "the names cost nothing when the library is loaded");
}

QTEST_APPLESS_MAIN(tst_SharedNames)
#include "tst_SharedNames.moc"
