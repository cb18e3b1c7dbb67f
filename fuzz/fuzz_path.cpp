// The helpers that join and tidy paths: any text beside Qt's own view of it. Nothing here touches the disk.
#include <core/files/CDir.h>
#include <core/files/CPath.h>
#include <fuzz/support/Fuzzer.h>

#include <QDir>
#include <QFileInfo>

namespace {

constexpr QLatin1Char SLASH('/');

void checkSeparators(const QString& text)
{
    const QString ended = CPath::ensurePathSeparatorAtEnd(text);
    FUZZ_CHECK(ended == (text.endsWith(SLASH) ? text : text + SLASH));
    FUZZ_CHECK(CPath::ensurePathSeparatorAtEnd(ended) == ended);
    FUZZ_CHECK(CPath::removePathSeparatorAtEnd(text + SLASH) == text);
    const QString begun = CPath::ensurePathSeparatorAtStart(text);
    FUZZ_CHECK(begun == (text.startsWith(SLASH) ? text : SLASH + text));
    FUZZ_CHECK(CPath::ensurePathSeparatorAtStart(begun) == begun);
    FUZZ_CHECK(CPath::removePathSeparatorAtStart(SLASH + text) == text);
    FUZZ_CHECK(CPath::doesFilenameContainPath(text) == text.contains(SLASH));
}

void checkJoined(const QString& path, const QString& name)
{
    const QString file = CPath::addFileNameToPath(path, name);
    FUZZ_CHECK(file == CPath::ensurePathSeparatorAtEnd(path) + name);
    FUZZ_CHECK(CDir::addFileNameToPath(path, name) == file);
    FUZZ_CHECK(CPath::addPathToPath(path, name) == CPath::ensurePathSeparatorAtEnd(file));
    FUZZ_CHECK(CDir::addPathToPath(path, name) == CPath::addPathToPath(path, name));
}

// Qt loses half a surrogate pair, or a zero character, of a relative name before it finds the directory.
bool isName(const QString& text)
{
    return QString::fromUtf8(text.toUtf8()) == text && !text.contains(QChar(0));
}

// A name that begins with ":" is a file name here; for Qt it is a resource.
QString directoryOf(const QString& name)
{
    const bool isColonName = name.startsWith(QLatin1Char(':')) && !name.startsWith(QLatin1String(":/"));
    return QFileInfo(isColonName ? QStringLiteral("./") + name : name).absolutePath();
}

void checkNames(const QString& name, const QString& path)
{
    if (isName(name)) {
        FUZZ_CHECK(CPath::filePath(name) == (name.isEmpty() ? QString() : directoryOf(name)));
    }
    const QString placed = CPath::prependPathIfNoPathIsGiven(name, path);
    const bool bare = !name.isEmpty() && !name.contains(SLASH);
    FUZZ_CHECK(bare ? QFileInfo(placed).isAbsolute() : placed == name);
    // A name that begins with ":" is one of Qt's resources, which lie in no directory; half a surrogate pair is no name.
    const bool special = name.startsWith(QLatin1Char(':')) || name == QStringLiteral(".")
                         || name == QStringLiteral("..") || QString::fromUtf8(name.toUtf8()) != name;
    if (bare && !special && isName(path)) {
        FUZZ_CHECK(CPath::trimPathIfPathIsEqual(placed, directoryOf(path)) == name);
    }
    const QString trimmed = CPath::trimPathIfPathIsEqual(name, path);
    FUZZ_CHECK(trimmed == name || trimmed == QFileInfo(name).fileName());
}

void checkClean(const QString& name)
{
    const QString clean = CPath::cleanFileName(name);
    const QString bare = QFileInfo(clean).fileName();
    for (const QChar forbidden : QStringLiteral("<>:!?|\"\t\n\r")) {
        FUZZ_CHECK(!bare.contains(forbidden));
    }
    FUZZ_CHECK(!isName(name) || clean.startsWith(directoryOf(name)));
}

// Qt keeps ".." at the root; for the system the root is its own parent.
QString cleaned(const QString& path)
{
    const QString parent = QStringLiteral("/..");
    QString clean = QDir::cleanPath(path);
    while (clean.startsWith(parent + SLASH) || clean == parent) {
        clean.remove(0, parent.size());
    }
    return clean.isEmpty() ? QString(SLASH) : clean;
}

void checkRelative(const QString& base, const QString& path)
{
    const QString relative = CDir::getRelativeSubPath(base, path);
    if (base.startsWith(SLASH) && path.startsWith(SLASH) && !relative.isEmpty()) {
        FUZZ_CHECK(cleaned(base + SLASH + relative) == cleaned(path));
    }
}

} // namespace

static void fuzz(Input& input)
{
    const QStringList texts = input.texts();
    const QString first = texts.at(0);
    const QString second = texts.value(1);
    checkSeparators(first);
    checkJoined(first, second);
    checkNames(first, second);
    checkClean(first);
    checkRelative(first, second);
    FUZZ_CHECK(CDir::getRelativeSubPath(SLASH + first, SLASH + first).isEmpty());
}
