// `tlx tar extract`: whatever the archive, nothing outside of the folder changes, and no link leads out of it.
#include <fuzz/support/Fuzzer.h>
#include <fuzz/support/TarReference.h>
#include <tools/tlx/archive/OpenArchive.h>
#include <tools/tlx/commands/TarExtract.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <QCommandLineParser>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/// A folder of this process; the archive is extracted into "in" inside of it, the rest must stay as it is.
class Sandbox
{
public:
    Sandbox()
        : mRoot(fs::temp_directory_path() / ("tlx-fuzz-extract-" + std::to_string(getpid())))
    {
        fs::create_directories(mRoot / "beside");
        write(mRoot / "beside" / "kept", "kept");
    }
    ~Sandbox() { fs::remove_all(mRoot); }
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    fs::path archive() const { return mRoot / "archive.tar"; }
    fs::path folder() const { return mRoot / "in"; }

    void start(const QByteArray& bytes, bool isFilled) const
    {
        fs::remove_all(folder());
        fs::create_directory(folder());
        if (isFilled) {
            write(folder() / "a", "old");
            fs::create_directory(folder() / "b");
            fs::create_directory_symlink("../beside", folder() / "c");
        }
        write(archive(), std::string(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    }

    void checkOutside() const
    {
        FUZZ_CHECK(std::distance(fs::directory_iterator(mRoot), fs::directory_iterator()) == 3);
        const fs::path kept = mRoot / "beside" / "kept";
        FUZZ_CHECK(std::distance(fs::directory_iterator(mRoot / "beside"), fs::directory_iterator()) == 1);
        std::string text;
        std::ifstream(kept) >> text;
        FUZZ_CHECK(text == "kept" && fs::is_regular_file(fs::symlink_status(kept)));
    }

    // Links are followed by the system itself; "c" of the filled folder leads out, and was there before.
    void checkInside() const
    {
        const std::string inside = fs::canonical(folder()).string() + '/';
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder())) {
            FUZZ_CHECK(entry.path().extension() != ".tlx-part" || entry.is_symlink() || entry.is_directory());
            if (!entry.is_symlink() || fs::read_symlink(entry.path()) == "../beside") {
                continue;
            }
            std::error_code error;
            const fs::path end = fs::weakly_canonical(entry.path(), error);
            FUZZ_CHECK(error || (end.string() + '/').rfind(inside, 0) == 0);
        }
    }

private:
    static void write(const fs::path& path, const std::string& bytes)
    {
        std::ofstream file(path, std::ios::binary);
        file << bytes;
        FUZZ_CHECK(file.good());
    }

    fs::path mRoot;
};

void extract(const Sandbox& sandbox, bool isForced)
{
    QCommandLineParser parser;
    parser.addOption({{QStringLiteral("C"), QStringLiteral("directory")}, QString(), QStringLiteral("DIR")});
    parser.addOption({QStringLiteral("force"), QString()});
    const QString archive = QString::fromStdString(sandbox.archive().string());
    QStringList line{QStringLiteral("tar"), QStringLiteral("extract"), archive, QStringLiteral("-C"),
                     QString::fromStdString(sandbox.folder().string())};
    if (isForced) {
        line << QStringLiteral("--force");
    }
    FUZZ_CHECK(parser.parse(line));
    Report report(QStringLiteral("tar"));
    OpenArchive open;
    if (open.open(archive, report)) {
        extractMembers(open, parser, report);
    }
}

} // namespace

static void fuzz(Input& input)
{
    static const Sandbox sandbox;
    const int mode = input.choose(8);
    QByteArray bytes = input.bytes();
    if ((mode & 1) == 0) {
        mendHeaders(bytes);
    }
    sandbox.start(bytes, (mode & 2) != 0);
    extract(sandbox, (mode & 4) != 0);
    sandbox.checkOutside();
    sandbox.checkInside();
}
