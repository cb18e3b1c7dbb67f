#include <tools/tlx/program/Version.h>

#include <TlxCommit.h>

#include <QtGlobal>

namespace {

QString compiler()
{
#if defined(__clang__)
    return QStringLiteral("Clang " __clang_version__);
#elif defined(__GNUC__)
    return QStringLiteral("GCC " __VERSION__);
#elif defined(_MSC_VER)
    return QStringLiteral("MSVC %1").arg(_MSC_FULL_VER);
#else
    return QStringLiteral("unknown");
#endif
}

} // namespace

QString versionText()
{
    QString text = QStringLiteral("tlx " TLX_VERSION "\n");
    text += QStringLiteral("Qt %1, built with %2\n")
                .arg(QLatin1String(qVersion()), QLatin1String(QT_VERSION_STR));
    text += QStringLiteral("Compiler %1\n").arg(compiler());
    return text + QStringLiteral("Commit %1\n").arg(QLatin1String(TLX_COMMIT));
}
