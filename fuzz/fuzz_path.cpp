// The helpers that join and tidy paths: any text beside Qt's own view of it. Nothing here touches the disk.
#include <core/files/CDir.h>
#include <core/files/CPath.h>
#include <fuzz/support/Fuzzer.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>

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

// The absolute name by its text alone, whatever its characters are: empty parts and "." go, and ".." takes the part before
// it along. At the root it stays, as Qt has it.
QString absolute(const QString& name)
{
    const QString whole = name.startsWith(SLASH) ? name : QDir::currentPath() + SLASH + name;
    QStringList parts;
    const QStringList given = whole.split(SLASH, Qt::SkipEmptyParts);
    for (const QString& part : given) {
        const bool isUp = part == QStringLiteral("..");
        if (isUp && !parts.isEmpty() && parts.last() != part) {
            parts.removeLast();
        } else if (part != QStringLiteral(".")) {
            parts.append(part);
        }
    }
    const bool endsWithSlash = whole.endsWith(SLASH) && !parts.isEmpty();
    return SLASH + parts.join(SLASH) + (endsWithSlash ? QString(SLASH) : QString());
}

// The directory that contains the name, which is no part of it unless it ends with a slash. Resources are Qt's own.
QString directoryOf(const QString& name)
{
    if (name.startsWith(QStringLiteral(":/"))) {
        return QFileInfo(name).absolutePath();
    }
    const QString whole = absolute(name);
    return whole.left(std::max(1, int(whole.lastIndexOf(SLASH))));
}

QString fileNameOf(const QString& name)
{
    return name.mid(name.lastIndexOf(SLASH) + 1);
}

void checkNames(const QString& name, const QString& path)
{
    FUZZ_CHECK(CPath::filePath(name) == (name.isEmpty() ? QString() : directoryOf(name)));
    const QString placed = CPath::prependPathIfNoPathIsGiven(name, path);
    const bool bare = !name.isEmpty() && !name.contains(SLASH);
    FUZZ_CHECK(bare ? QFileInfo(placed).isAbsolute() : placed == name);
    const bool isDirectory = name == QStringLiteral(".") || name == QStringLiteral("..");
    if (bare && !isDirectory) {
        FUZZ_CHECK(fileNameOf(placed) == name);
        FUZZ_CHECK(CPath::trimPathIfPathIsEqual(placed, directoryOf(path)) == name);
    }
    const QString trimmed = CPath::trimPathIfPathIsEqual(name, path);
    FUZZ_CHECK(trimmed == name || trimmed == fileNameOf(name));
}

void checkClean(const QString& name)
{
    const QString clean = CPath::cleanFileName(name);
    QString expected = fileNameOf(name).simplified();
    for (const QChar forbidden : QStringLiteral("<>:!?|\"")) {
        expected.remove(forbidden);
    }
    const QString directory = name.isEmpty() ? QString() : directoryOf(name);
    FUZZ_CHECK(clean == directory + SLASH + expected);
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
