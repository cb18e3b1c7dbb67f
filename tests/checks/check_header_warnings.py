#!/usr/bin/env python3
"""The public headers compile without a warning in programs that are stricter than this tree: as C++17 and as C++20, with
every compiler given.

usage: check_header_warnings.py ROOT INCLUDES COMPILER...     (INCLUDES: Qt's folders, separated by commas)
"""
import pathlib
import subprocess
import sys

WARNINGS = ("-Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual"
            " -Wold-style-cast -Wcast-align -Wunused -Werror").split()


def main():
    root, includes, compilers = pathlib.Path(sys.argv[1]), sys.argv[2].split(","), sys.argv[3:]
    source = root / "tests/checks/header_use.cpp"
    faults = 0
    for compiler in compilers:
        for standard in ("c++17", "c++20"):
            command = [compiler, f"-std={standard}", "-fsyntax-only", "-fPIC", *WARNINGS, f"-I{root}"]
            command += [word for folder in includes if folder for word in ("-isystem", folder)]
            done = subprocess.run([*command, str(source)], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            print(f"{compiler} {standard}: {'clean' if done.returncode == 0 else done.stdout}")
            faults += done.returncode != 0
    return 1 if faults or not compilers else 0


if __name__ == "__main__":
    sys.exit(main())
