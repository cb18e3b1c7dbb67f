#include <QtTest>

#include <windows.h>

/// The version resources of tlxCore.dll and tlx.exe, read the way the file manager and an installer read them.
class tst_versionResource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void texts_data();
    void texts();

private:
    static QByteArray resourceOf(const QString& fileName);
};

namespace {

void addFiles()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("name");
    QTest::addColumn<quint32>("kind");

    QTest::newRow("the library") << QStringLiteral("tlxCore.dll") << QStringLiteral("tlxCore")
                                 << quint32(VFT_DLL);
    QTest::newRow("the program") << QStringLiteral("tlx.exe") << QStringLiteral("tlx") << quint32(VFT_APP);
}

} // namespace

QByteArray tst_versionResource::resourceOf(const QString& fileName)
{
    const QString path =
        QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + QLatin1Char('/') + fileName);
    const auto* widePath = reinterpret_cast<const wchar_t*>(path.utf16());
    DWORD ignored = 0;
    QByteArray bytes(int(GetFileVersionInfoSizeW(widePath, &ignored)), '\0');
    if (!GetFileVersionInfoW(widePath, 0, DWORD(bytes.size()), bytes.data())) {
        return QByteArray();
    }
    return bytes;
}

void tst_versionResource::numbers_data()
{
    addFiles();
}

void tst_versionResource::numbers()
{
    QFETCH(QString, fileName);
    QFETCH(quint32, kind);
    const QVersionNumber expected = QVersionNumber::fromString(QStringLiteral(TLX_VERSION));
    QByteArray resource = resourceOf(fileName);
    QVERIFY(!resource.isEmpty());

    void* block = nullptr;
    UINT size = 0;
    QVERIFY(VerQueryValueW(resource.data(), L"\\", &block, &size));
    QCOMPARE(std::size_t(size), sizeof(VS_FIXEDFILEINFO));
    const auto* info = static_cast<const VS_FIXEDFILEINFO*>(block);

    QCOMPARE(int(HIWORD(info->dwFileVersionMS)), expected.majorVersion());
    QCOMPARE(int(LOWORD(info->dwFileVersionMS)), expected.minorVersion());
    QCOMPARE(int(HIWORD(info->dwFileVersionLS)), expected.microVersion());
    QCOMPARE(info->dwProductVersionMS, info->dwFileVersionMS);
    QCOMPARE(info->dwProductVersionLS, info->dwFileVersionLS);
    QCOMPARE(quint32(info->dwFileType), kind);
}

void tst_versionResource::texts_data()
{
    addFiles();
}

void tst_versionResource::texts()
{
    QFETCH(QString, fileName);
    QFETCH(QString, name);
    QByteArray resource = resourceOf(fileName);
    QVERIFY(!resource.isEmpty());

    const auto text = [&resource](const wchar_t* key) {
        void* value = nullptr;
        UINT units = 0;
        const std::wstring path = std::wstring(L"\\StringFileInfo\\040904B0\\") + key;
        if (!VerQueryValueW(resource.data(), path.c_str(), &value, &units)) {
            return QString();
        }
        return QString::fromWCharArray(static_cast<const wchar_t*>(value));
    };

    QCOMPARE(text(L"ProductName"), QStringLiteral("tlxCore"));
    QCOMPARE(text(L"ProductVersion"), QStringLiteral(TLX_VERSION));
    QCOMPARE(text(L"FileVersion"), QStringLiteral(TLX_VERSION));
    QCOMPARE(text(L"InternalName"), name);
    QCOMPARE(text(L"OriginalFilename"), fileName);
    QVERIFY(!text(L"FileDescription").isEmpty());
}

QTEST_GUILESS_MAIN(tst_versionResource)
#include "tst_versionResource.moc"
