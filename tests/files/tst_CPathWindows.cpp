#include <core/files/CPath.h>

#include <QDir>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

namespace {

const wchar_t* wide(const QString& text)
{
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

/// While it lives, this process finds the given documents folder in its user's registry; no other process does.
class DocumentsFolder
{
public:
    explicit DocumentsFolder(const QString& folder)
        : mKeyName(QStringLiteral("Software\\tlxCore test %1").arg(QCoreApplication::applicationPid()))
    {
        RegCreateKeyW(HKEY_CURRENT_USER, wide(mKeyName), &mKey);
        for (const char* name : {"User Shell Folders", "Shell Folders"}) {
            HKEY folders = nullptr;
            RegCreateKeyW(mKey, wide(QLatin1String(EXPLORER) + QLatin1String(name)), &folders);
            RegSetValueExW(folders, L"Personal", 0, REG_SZ, reinterpret_cast<const BYTE*>(folder.utf16()),
                           static_cast<DWORD>((folder.size() + 1) * 2));
            RegCloseKey(folders);
        }
        mIsSet = RegOverridePredefKey(HKEY_CURRENT_USER, mKey) == ERROR_SUCCESS;
    }

    ~DocumentsFolder()
    {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(mKey);
        RegDeleteTreeW(HKEY_CURRENT_USER, wide(mKeyName));
    }

    DocumentsFolder(const DocumentsFolder&) = delete;
    DocumentsFolder& operator=(const DocumentsFolder&) = delete;

    bool isSet() const { return mIsSet; }

private:
    static constexpr char EXPLORER[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";

    QString mKeyName;
    HKEY mKey = nullptr;
    bool mIsSet = false;
};

bool isInCodePage(const QString& text)
{
    return QString::fromLocal8Bit(text.toLocal8Bit()) == text;
}

} // namespace

/// What holds on Windows alone: drives, backslashes, the shell's documents folder.
class tst_CPathWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpers_data();
    void helpers();
    void separators_data();
    void separators();
    void trimPathIfPathIsEqual_data();
    void trimPathIfPathIsEqual();
    void appdata_data();
    void appdata();
    void documentsFolder_data();
    void documentsFolder();
    void documentsFolderThatIsMissing();
    void userTreesAreMade();
};

void tst_CPathWindows::helpers_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("prepended"); // before "f.txt"
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("cleaned");

    QTest::newRow("slashes") << QStringLiteral("C:/a/b.txt") << QStringLiteral("C:/a/f.txt")
                             << QStringLiteral("C:/a") << QStringLiteral("C:/a/b.txt");
    QTest::newRow("backslashes") << QStringLiteral("C:\\a\\b.txt") << QStringLiteral("C:/a/f.txt")
                                 << QStringLiteral("C:/a") << QStringLiteral("C:/a/b.txt");
    QTest::newRow("mixed") << QStringLiteral("D:\\a/c\\b.txt") << QStringLiteral("D:/a/c/f.txt")
                           << QStringLiteral("D:/a/c") << QStringLiteral("D:/a/c/b.txt");
    QTest::newRow("directory") << QStringLiteral("C:\\a\\") << QStringLiteral("C:/a/f.txt")
                               << QStringLiteral("C:/a") << QStringLiteral("C:/a/");
    QTest::newRow("root") << QStringLiteral("C:\\b.txt") << QStringLiteral("C:/f.txt")
                          << QStringLiteral("C:/") << QStringLiteral("C://b.txt");
    QTest::newRow("network share") << QStringLiteral("\\\\server\\share\\b.txt")
                                   << QStringLiteral("//server/share/f.txt")
                                   << QStringLiteral("//server/share")
                                   << QStringLiteral("//server/share/b.txt");
    QTest::newRow("forbidden characters")
        << QStringLiteral("C:\\x\\  a:b?  .txt") << QStringLiteral("C:/x/f.txt") << QStringLiteral("C:/x")
        << QStringLiteral("C:/x/ab .txt");
}

void tst_CPathWindows::helpers()
{
    QFETCH(QString, given);
    QFETCH(QString, prepended);
    QFETCH(QString, directory);
    QFETCH(QString, cleaned);

    QCOMPARE(CPath::prependPathIfNoPathIsGiven(QStringLiteral("f.txt"), given), prepended);
    QCOMPARE(CPath::prependPathIfNoPathIsGiven(given, QStringLiteral("C:/d/")), given);
    QCOMPARE(CPath::filePath(given), directory);
    QCOMPARE(CPath::cleanFileName(given), cleaned);
    QVERIFY(CPath::doesFilenameContainPath(given));
}

void tst_CPathWindows::separators_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("ensuredAtEnd");
    QTest::addColumn<QString>("removedAtEnd");
    QTest::addColumn<QString>("withSubPath"); // "b" added
    QTest::addColumn<QString>("withFile");    // "f.txt" added

    QTest::newRow("drive") << QStringLiteral("C:") << QStringLiteral("C:/") << QStringLiteral("C:")
                           << QStringLiteral("C:/b/") << QStringLiteral("C:/f.txt");
    QTest::newRow("no separator at the end")
        << QStringLiteral("C:\\a") << QStringLiteral("C:\\a/") << QStringLiteral("C:\\a")
        << QStringLiteral("C:\\a/b/") << QStringLiteral("C:\\a/f.txt");
    QTest::newRow("backslash at the end")
        << QStringLiteral("C:\\a\\") << QStringLiteral("C:\\a\\") << QStringLiteral("C:\\a")
        << QStringLiteral("C:\\a\\b/") << QStringLiteral("C:\\a\\f.txt");
    QTest::newRow("one of two goes: backslash behind slash")
        << QStringLiteral("C:\\a/\\") << QStringLiteral("C:\\a/\\") << QStringLiteral("C:\\a/")
        << QStringLiteral("C:\\a/\\b/") << QStringLiteral("C:\\a/\\f.txt");
    QTest::newRow("one of two goes: slash behind backslash")
        << QStringLiteral("C:\\a\\/") << QStringLiteral("C:\\a\\/") << QStringLiteral("C:\\a\\")
        << QStringLiteral("C:\\a\\/b/") << QStringLiteral("C:\\a\\/f.txt");
}

void tst_CPathWindows::separators()
{
    QFETCH(QString, path);
    QFETCH(QString, ensuredAtEnd);
    QFETCH(QString, removedAtEnd);
    QFETCH(QString, withSubPath);
    QFETCH(QString, withFile);

    QCOMPARE(CPath::ensurePathSeparatorAtEnd(path), ensuredAtEnd);
    QCOMPARE(CPath::removePathSeparatorAtEnd(path), removedAtEnd);
    QCOMPARE(CPath::addPathToPath(path, QStringLiteral("b")), withSubPath);
    QCOMPARE(CPath::addFileNameToPath(path, QStringLiteral("f.txt")), withFile);
}

void tst_CPathWindows::trimPathIfPathIsEqual_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("equal");

    QTest::newRow("backslashes in the file")
        << QStringLiteral("C:\\d\\f.txt") << QStringLiteral("C:/d") << true;
    QTest::newRow("backslashes in the path")
        << QStringLiteral("C:/d/f.txt") << QStringLiteral("C:\\d\\") << true;
    QTest::newRow("other case") << QStringLiteral("c:/D/f.txt") << QStringLiteral("C:/d") << true;
    QTest::newRow("other drive") << QStringLiteral("D:\\d\\f.txt") << QStringLiteral("C:/d") << false;
    QTest::newRow("other directory") << QStringLiteral("C:\\d\\f.txt") << QStringLiteral("C:\\e") << false;
}

void tst_CPathWindows::trimPathIfPathIsEqual()
{
    QFETCH(QString, fileName);
    QFETCH(QString, path);
    QFETCH(bool, equal);

    QCOMPARE(CPath::trimPathIfPathIsEqual(fileName, path), equal ? QStringLiteral("f.txt") : fileName);
}

void tst_CPathWindows::appdata_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("plain") << QStringLiteral("Roaming");
    QTest::newRow("blanks") << QStringLiteral("App Data");
}

// Its backslashes stay as they are; the directories are made all the same.
void tst_CPathWindows::appdata()
{
    QFETCH(QString, name);
    const QTemporaryDir directory;
    const QString roaming = QDir::toNativeSeparators(directory.filePath(name));
    const QByteArray before = qgetenv("APPDATA");
    qputenv("APPDATA", roaming.toLocal8Bit());
    const auto restore = qScopeGuard([&before] { qputenv("APPDATA", before); });

    const QString tree = roaming + QStringLiteral("/TARVENIK/") + CPath::productName() + QLatin1Char('/');
    QCOMPARE(CPath::appdataPath(), tree);
    QCOMPARE(CPath::logPath(true), tree + QStringLiteral("log/"));
    QVERIFY(QDir(directory.filePath(name) + QStringLiteral("/TARVENIK/") + CPath::productName()
                 + QStringLiteral("/log"))
                .exists());
}

void tst_CPathWindows::documentsFolder_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("plain") << QStringLiteral("Documents");
    QTest::newRow("blanks") << QStringLiteral("My Documents");
    QTest::newRow("umlauts") << QStringLiteral("Eigene Dokumente f\u00fcr \u00c4nderungen");
    QTest::newRow("letters that have a best fit") << QStringLiteral("\u0141\u014d\u0142");
    QTest::newRow("other script") << QStringLiteral("\u6587\u6863");
    QTest::newRow("beyond the basic plane") << QStringLiteral("\U0001f4c1");
}

// The shell is asked in the code page. A folder that it cannot name there is not used; the home directory is.
void tst_CPathWindows::documentsFolder()
{
    QFETCH(QString, name);
    const QTemporaryDir directory;
    QVERIFY(QDir(directory.path()).mkdir(name));
    const QString folder = QDir::toNativeSeparators(directory.filePath(name));
    const DocumentsFolder documents(folder);
    QVERIFY(documents.isSet());

    const QString base = isInCodePage(folder) ? folder : QDir::homePath();
    QCOMPARE(CPath::userdataPath(),
             base + QStringLiteral("/TARVENIK/") + CPath::productName() + QLatin1Char('/'));
}

void tst_CPathWindows::documentsFolderThatIsMissing()
{
    const QTemporaryDir directory;
    const DocumentsFolder documents(QDir::toNativeSeparators(directory.filePath(QStringLiteral("missing"))));
    QVERIFY(documents.isSet());

    QCOMPARE(CPath::userdataPath(),
             QDir::homePath() + QStringLiteral("/TARVENIK/") + CPath::productName() + QLatin1Char('/'));
}

void tst_CPathWindows::userTreesAreMade()
{
    const QTemporaryDir directory;
    const DocumentsFolder documents(QDir::toNativeSeparators(directory.path()));
    QVERIFY(documents.isSet());

    for (const auto make : {CPath::motorPath, CPath::paramPath, CPath::dataPath, CPath::projectPath}) {
        const QString path = make(true);
        QVERIFY(QDir::fromNativeSeparators(path).startsWith(directory.path()));
        QVERIFY2(QDir(path).exists(), qPrintable(path));
        QCOMPARE(path, make(false));
    }
}

QTEST_GUILESS_MAIN(tst_CPathWindows)
#include "tst_CPathWindows.moc"
