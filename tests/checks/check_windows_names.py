#!/usr/bin/env python3
"""No word of the public headers is a macro of Windows' own headers, as a compiler for Windows defines them.

usage: check_windows_names.py ROOT HEADER[,HEADER...] COMPILER     (headers relative to core/)
"""
import pathlib
import re
import subprocess
import sys

WINDOWS = ("winsock2.h ws2tcpip.h windows.h windowsx.h mmsystem.h shlobj.h shellapi.h commctrl.h setupapi.h dbt.h"
           " iphlpapi.h winioctl.h").split()
NOT_CODE = re.compile(r'/\*.*?\*/|//[^\n]*|"(?:[^"\\\n]|\\.)*"', flags=re.DOTALL)
WORD = re.compile(r"\b[A-Za-z_]\w*")


def macros(compiler, includes):
    source = "".join(f"#include <{name}>\n" for name in includes)
    command = [compiler, "-std=c++17", "-DUNICODE", "-dM", "-E", "-x", "c++", "-"]
    done = subprocess.run(command, input=source, stdout=subprocess.PIPE, text=True, check=True)
    return set(re.findall(r"^#define (\w+)", done.stdout, flags=re.MULTILINE))


def main():
    root, headers, compiler = pathlib.Path(sys.argv[1]), sys.argv[2].split(","), sys.argv[3]
    taken = macros(compiler, WINDOWS)
    words, faults = set(), 0
    for header in headers:
        found = set(WORD.findall(NOT_CODE.sub("", (root / "core" / header).read_text(encoding="utf-8"))))
        words |= found
        for name in sorted(found & taken):
            print(f"core/{header}: {name} is a macro of Windows' headers")
            faults += 1
    print(f"{len(words)} words of {len(headers)} headers, {len(taken)} macros")
    return 1 if faults or len(words) < 100 or "TIME_MS" not in taken else 0


if __name__ == "__main__":
    sys.exit(main())
