#!/usr/bin/env python3
"""Uses the library as another project does: installed, found, linked, run, also after its tree was moved.

usage: consumer.py --source ROOT --cmake CMAKE --generator NAME --compiler CXX --qt {5,6}
           {tool-start --build BUILD | examples --build BUILD | static | subproject}
"""
import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile


class Fault(Exception):
    pass


def run(*command, expect=0, **options):
    words = [str(word) for word in command]
    done = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    if (done.returncode == 0) != (expect == 0):
        raise Fault(f"{' '.join(words)}\nended with {done.returncode}:\n{done.stdout}")
    return done.stdout


def check(condition, text):
    if not condition:
        raise Fault(text)


class Consumer:
    def __init__(self, options, work):
        self.options, self.work = options, work
        self.package = {"5": "tlxCore", "6": "tlxCoreQt6"}[options.qt]
        self.environment = dict(os.environ, HOME=str(work / "home"), APPDATA=str(work / "appdata"), LC_ALL="C.UTF-8")
        for name in ("LD_LIBRARY_PATH", "CMAKE_PREFIX_PATH", "PKG_CONFIG_PATH"):
            self.environment.pop(name, None)
        # The compiler's cache stays where the caller has it.
        home = pathlib.Path(os.environ.get("HOME", work))
        self.build_environment = dict(os.environ, CCACHE_DIR=os.environ.get("CCACHE_DIR", str(home / ".cache/ccache")))
        (work / "home").mkdir()

    def of_qt(self, text):
        """CMake code for the Qt at hand: with Qt 6 it asks for the other package, and nothing else is changed."""
        text = text.replace("find_package(tlxCore ", f"find_package({self.package} ")
        text = text.replace("${tlxCore_", "${" + self.package + "_")
        return text.replace("tlxCore::tlxCore", f"{self.package}::tlxCore").replace("Qt5", f"Qt{self.options.qt}")

    def project(self, name):
        """A copy of projects of the tree, for the Qt at hand."""
        copy = self.work / "projects" / name
        if not copy.exists():
            shutil.copytree(self.options.source / name, copy)
            for file in copy.rglob("CMakeLists.txt"):
                file.write_text(self.of_qt(file.read_text()))
        return copy

    def configure(self, source, build, *definitions, expect=0):
        return run(self.options.cmake, "-S", source, "-B", build, "-G", self.options.generator,
                   f"-DCMAKE_CXX_COMPILER={self.options.compiler}", *definitions, expect=expect,
                   env=self.build_environment)

    def build(self, build):
        run(self.options.cmake, "--build", build, "-j", "2", env=self.build_environment)

    def install(self, build, prefix):
        run(self.options.cmake, "--install", build, "--prefix", prefix)


def check_start(consumer, output, tool):
    """The example's answers, started from the installation `tool`."""
    data = consumer.work / "appdata/TARVENIK/Tollan"
    for line in ("drive 3 at level 2, port 8000", f"product Tollan in {tool}/", f"  {tool}/etc/image/", f"  {data}/conf/",
                 f"log: {data}/log/tool-start.log", "UNIT_U16 = 31 (2 bytes, shown as 001f)"):
        check(line in output.splitlines(), f"not said: {line}\n{output}")
    check("Tollan Device Explorer - TARVENIK Antriebstechnik GmbH - [ V1.0.0 - " in output, output)
    for folder in (tool / "etc/conf", tool / "etc/image", data / "conf", data / "log"):
        check(folder.is_dir(), f"not made: {folder}")


def try_example(consumer, prefix, name):
    """Finds the package below `prefix`, builds the example, installs it as a tool and starts it."""
    build, tool = consumer.work / f"build-{name}", consumer.work / name / "Tollan"
    consumer.configure(consumer.project("examples/tool-start"), build, f"-DCMAKE_PREFIX_PATH={prefix}")
    cache = (build / "CMakeCache.txt").read_text()
    check(f"{consumer.package}_DIR:PATH={prefix}" in cache, f"another package was found than that below {prefix}:\n{cache}")
    consumer.build(build)
    run("ctest", "--output-on-failure", "--no-tests=error", cwd=build, env=consumer.environment)
    consumer.install(build, tool)
    output = run(tool / "bin/tool-start", "drvadr=3", "lang=de", "level=2", "port=0x1F40", "UNIT_U16=0x1F",
                 env=consumer.environment)
    check_start(consumer, output, tool)


def check_no_trace(prefix, *paths):
    """No file that a consumer's build reads names the place where it was built or first installed."""
    for file in list(prefix.rglob("*.cmake")) + list(prefix.rglob("*.pc")):
        for path in paths:
            check(str(path) not in file.read_text(), f"{file} names {path}")


def try_versions(consumer, prefix):
    """A tool that asks for another major version does not get this one."""
    project = consumer.work / "version"
    project.mkdir()
    for version, expect in (("1.0", 0), ("2", 1), ("0.9", 1)):
        (project / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.16)\nproject(version LANGUAGES CXX)\n"
            f"find_package({consumer.package} {version} REQUIRED)\n")
        consumer.configure(project, consumer.work / f"build-version-{version}", f"-DCMAKE_PREFIX_PATH={prefix}",
                           expect=expect)


def try_pkg_config(consumer, prefix):
    """The same example without CMake."""
    folder = next(prefix.rglob("*.pc")).parent
    environment = dict(consumer.environment, PKG_CONFIG_PATH=str(folder))
    flags = run("pkg-config", "--cflags", "--libs", consumer.package, env=environment).split()
    check(pathlib.Path(run("pkg-config", "--variable=libdir", consumer.package, env=environment).strip()).resolve()
          == folder.parent.resolve(), "the file names another library directory than its own")
    program = consumer.work / "pkg-config/Tollan/bin/tool-start"
    program.parent.mkdir(parents=True)
    run(consumer.options.compiler, "-std=c++17", "-fPIC", "-o", program,
        consumer.options.source / "examples/tool-start/main.cpp", *flags)
    output = run(program, "drvadr=3", "level=2", "port=8000", "UNIT_U16=31",
                 env=dict(environment, LD_LIBRARY_PATH=str(folder.parent)))
    check_start(consumer, output, program.parent.parent)


def tool_start(consumer):
    first, moved = consumer.work / "first", consumer.work / "else where"
    consumer.install(consumer.options.build, first)
    check_no_trace(first, first, consumer.options.source, consumer.options.build)
    try_example(consumer, first, "first-tool")
    shutil.move(first, moved)
    try_example(consumer, moved, "moved-tool")
    try_versions(consumer, moved)
    plain = consumer.work / "plain"  # pkg-config's answers are split at blanks
    shutil.move(moved, plain)
    try_pkg_config(consumer, plain)
    output = run(plain / "bin/tlx", "paths", env=consumer.environment)
    check(str(plain) in output, f"tlx does not run from the moved tree:\n{output}")


def cmake_blocks(source):
    """The ```cmake blocks of the pages, each with a name of its own."""
    for page in [source / "README.md", *sorted((source / "docs").glob("*.md"))]:
        text = page.read_text(encoding="utf-8")
        for number, block in enumerate(re.findall(r"^```cmake\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)):
            yield f"{page.stem}-{number}", block


def try_block(consumer, prefix, name, block):
    """A block is a project, or the part of one with the target `tool`; what it fetches is the library at hand."""
    project, source = consumer.work / name, consumer.options.source
    (project / "third_party").mkdir(parents=True)
    (project / "third_party/tlxCore").symlink_to(source)
    shutil.copy(source / "examples/first-tool/main.cpp", project)
    if "project(" not in block:
        block = ("cmake_minimum_required(VERSION 3.16)\nproject(tool LANGUAGES CXX)\nadd_executable(tool main.cpp)\n"
                 + block)
    (project / "CMakeLists.txt").write_text(consumer.of_qt(block))
    build = consumer.work / f"build-{name}"
    consumer.configure(project, build, f"-DCMAKE_PREFIX_PATH={prefix}", f"-DFETCHCONTENT_SOURCE_DIR_TLXCORE={source}",
                       f"-DTLXCORE_QT_MAJOR={consumer.options.qt}")
    if "find_package(tlxCore" in block:
        consumer.build(build)


def examples(consumer):
    """Every example, and every ```cmake block of the pages; those that build the library are configured only."""
    prefix, build = consumer.work / "installed", consumer.work / "examples"
    consumer.install(consumer.options.build, prefix)
    consumer.configure(consumer.project("tests/consumer/examples"), build, f"-DCMAKE_PREFIX_PATH={prefix}",
                       f"-DTLX_EXAMPLES={consumer.project('examples')}")
    consumer.build(build)
    run("ctest", "--output-on-failure", "--no-tests=error", cwd=build, env=consumer.environment)
    blocks = list(cmake_blocks(consumer.options.source))
    check(blocks, "the pages show no CMake code")
    for name, block in blocks:
        try_block(consumer, prefix, name, block)
    print(f"{len(blocks)} blocks of CMake code")


def static(consumer):
    build, prefix = consumer.work / "library", consumer.work / "installed"
    consumer.configure(consumer.options.source, build, "-DBUILD_SHARED_LIBS=OFF", "-DCMAKE_BUILD_TYPE=Debug",
                       f"-DTLXCORE_QT_MAJOR={consumer.options.qt}", "-DTLXCORE_BUILD_TESTS=OFF", "-DTLXCORE_BUILD_TOOLS=OFF")
    consumer.build(build)
    consumer.install(build, prefix)
    check(not list(prefix.rglob("*.so*")), "a shared library was installed")
    program = consumer.work / "program"
    consumer.configure(consumer.project("tests/consumer/static"), program, f"-DCMAKE_PREFIX_PATH={prefix}")
    consumer.build(program)
    shutil.move(prefix, consumer.work / "away")
    tool = consumer.work / "Prog/Tollan"
    (tool / "bin").mkdir(parents=True)
    shutil.copy(program / "static-tool", tool / "bin")
    output = run(tool / "bin/static-tool", env=consumer.environment)
    expected = ["early TARVENIK/UNIT_U16 <invalid>", "settings TARVENIK Antriebstechnik GmbH", "product Tollan Setup"]
    check(output.splitlines() == expected, f"the program says:\n{output}")
    # A linker leaves out what nobody refers to; what makes Qt ready must not be among it.
    check("QtReady::QtReady()" in run("nm", "--demangle", program / "static-tool"), "Qt is not made ready")


def project_version(source):
    return re.search(r"^project\(tlxCore VERSION (\S+)", (source / "CMakeLists.txt").read_text(), re.MULTILINE).group(1)


def subproject(consumer):
    """By add_subdirectory and by FetchContent. Both build in one folder: a compiler cache then spares the second one."""
    project, build = consumer.project("tests/consumer/subproject"), consumer.work / "whole"
    version = project_version(consumer.options.source)
    for fetches in ("OFF", "ON"):
        shutil.rmtree(build, ignore_errors=True)
        consumer.configure(project, build, f"-DWHOLE_FETCHES={fetches}", f"-DWHOLE_TLXCORE={consumer.options.source}",
                           f"-DTLXCORE_QT_MAJOR={consumer.options.qt}", "-DCMAKE_BUILD_TYPE=Debug")
        consumer.build(build)
        prefix = consumer.work / f"installed-{fetches}"
        consumer.install(build, prefix)
        files = [str(file.relative_to(prefix)) for file in prefix.rglob("*") if file.is_file()]
        check(files == ["bin/whole"], f"installed with the tool: {files}")
        output = run(prefix / "bin/whole", env=consumer.environment)
        check(output == f"31 with tlxCore {version}, library {version}\n", f"the program says:\n{output}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--source", type=pathlib.Path, required=True)
    parser.add_argument("--cmake", required=True)
    parser.add_argument("--generator", required=True)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--qt", choices=["5", "6"], required=True)
    parser.add_argument("what", choices=["tool-start", "examples", "static", "subproject"])
    parser.add_argument("--build", type=pathlib.Path)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as work:
        consumer = Consumer(options, pathlib.Path(work).resolve())
        try:
            {"tool-start": tool_start, "examples": examples, "static": static, "subproject": subproject}[options.what](consumer)
        except Fault as fault:
            print(fault)
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
