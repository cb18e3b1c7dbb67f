#!/usr/bin/env python3
"""The re-entrancy test calls every public static function of the library, each overload.

usage: check_static_calls.py ROOT
"""
import collections
import pathlib
import re
import sys

COMMENT = re.compile(r"/\*.*?\*/|//[^\n]*", re.DOTALL)
ACCESS = re.compile(r"\b(public|private|protected):")
STATIC = re.compile(r"\bstatic\s+[^;{}=()]*?\b(\w+)\s*\(")
# Called through a template, once for all overloads.
TEMPLATES = {"CTlString::toStr"}


def public_statics(header):
    text = COMMENT.sub("", header.read_text(encoding="utf-8"))
    for match in STATIC.finditer(text):
        access = ACCESS.findall(text[:match.start()])
        if access and access[-1] == "public":
            yield f"{header.stem}::{match[1]}"


def main():
    root = pathlib.Path(sys.argv[1])
    calls = (root / "tests/reentrancy/EveryStatic.cpp").read_text(encoding="utf-8")
    wanted = collections.Counter(name for header in sorted((root / "core").rglob("C*.h"))
                                 for name in public_statics(header))
    faults = [f"tests/reentrancy/EveryStatic.cpp calls {name}() {found} times, of {count} overloads"
              for name, count in sorted(wanted.items())
              for found in [len(re.findall(rf"\b{name}\(", calls))]
              if found < (1 if name in TEMPLATES else count)]
    if len(wanted) < 100:
        faults.append(f"only {len(wanted)} static functions found: the headers are read wrongly")
    print("\n".join(faults) or f"all {len(wanted)} names are called")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
