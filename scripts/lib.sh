# Helpers shared by the scripts; source it from bash.

say() { printf '\n== %s\n' "$*"; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs those of the named Debian packages that are missing, and says which.
need_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    say "installing missing packages: ${missing[*]}"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq -o DPkg::Lock::Timeout=600 --no-install-recommends "${missing[@]}" >/dev/null
}

BUILD_PACKAGES=(g++ cmake ninja-build qtbase5-dev qttools5-dev)
QT6_PACKAGES=(qt6-base-dev qt6-5compat-dev qt6-tools-dev qt6-l10n-tools)
TEST_PACKAGES=("${BUILD_PACKAGES[@]}" "${QT6_PACKAGES[@]}" python3 zsh fish pkg-config doxygen graphviz doxygen-awesome-css chromium-driver python3-selenium
    locales tzdata clang clang-format clang-tidy libarchive-tools gdb)
BENCH_PACKAGES=(libbenchmark-dev zlib1g-dev libdeflate-dev python3 libarchive-dev libkf5archive-dev)
FUZZ_PACKAGES=(clang libclang-rt-14-dev llvm libarchive-dev)
PACKAGE_PACKAGES=("${QT6_PACKAGES[@]}" build-essential debhelper dpkg-dev file gdb lintian doxygen graphviz doxygen-awesome-css)

# Uses ccache when it is there; it is never needed.
if command -v ccache >/dev/null 2>&1; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi

# Configures and builds a preset, with further definitions; only errors and warnings are shown.
build_preset() {
    local preset=$1
    shift
    say "building preset $preset"
    cmake --preset "$preset" "$@" --log-level=WARNING >/dev/null
    cmake --build --preset "$preset" -- --quiet
}

# copy_tree FOLDER: a fresh copy of the tree's files, with their times, so that what was built of them stays current.
copy_tree() {
    mkdir -p "$1"
    find "$1" -mindepth 1 -maxdepth 1 ! -name 'build*' -exec rm -rf {} +
    git ls-files -z --cached --others --exclude-standard | xargs -0 cp -p --parents -t "$1"
}

# debian_packages SOURCES: builds the Debian packages of a copy of the tree; they come to lie beside its folder.
debian_packages() {
    (
        cd "$1"
        rm -rf debian
        cp -r packaging/debian debian
        version=$(sed -nE 's/^project\(tlxCore VERSION ([0-9.]+) .*/\1/p' CMakeLists.txt)
        sed -i "s/@PROJECT_VERSION@/$version/" debian/changelog
        # Its own home folder hides the compiler's cache.
        if command -v ccache >/dev/null 2>&1; then export CCACHE_DIR="${CCACHE_DIR:-$(ccache -k cache_dir)}"; fi
        dpkg-buildpackage -b -nc -uc -us >../debian.log 2>&1 || { tail -40 ../debian.log >&2; exit 1; }
    )
}

# The folder for what later runs reuse, outside the tree.
cache_dir() { printf '%s\n' "${TLXCORE_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tlxcore}"; }

# The Debian sources of this machine as lines of a list, for an apt with an index of its own: debian_sources deb|deb-src
debian_sources() {
    local targets=(apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian')
    [ -n "$("${targets[@]}")" ] || as_root apt-get update -qq >&2
    "${targets[@]}" | sort -u | sed "s|^|$1 [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] |" | grep . ||
        die "apt knows no Debian package source"
}

# Qt Test's own sums over all programs of a build folder's last run: passed, failed or skipped functions with their rows.
sum_of() {
    sed -nE "s/^Totals: .*\b([0-9]+) $1,.*/\1/p" "$2/Testing/Temporary/LastTest.log" | awk '{ sum += $1 } END { print sum + 0 }'
}

# What that run did, what it skipped and why; a run without a test is an error.
print_totals() {
    local log="$1/Testing/Temporary/LastTest.log"
    grep -A1 '^SKIP ' "$log" || true
    echo "$(grep -cE '^[0-9]+/[0-9]+ Test: ' "$log") test programs and checks: $(sum_of passed "$1") functions and" \
        "rows passed, $(sum_of skipped "$1") skipped, $SECONDS seconds"
    [ "$(sum_of passed "$1")" -gt 0 ] || die "no test ran"
}

# readme_block SECTION NUMBER: the commands of the section's NUMBERth block that begins with "```sh", or "```sh root" for root.
readme_block() {
    awk -v section="## $1" -v wanted="$2" '/^## / { within = $0 == section }
        within && /^```sh/ { count++; inside = count == wanted; next }
        /^```$/ { inside = 0 }
        inside { print; found = 1 }
        END { exit !found }' README.md
}

die() { printf 'error: %s\n' "$*" >&2; exit 1; }
