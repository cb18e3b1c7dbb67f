#!/usr/bin/env python3
"""Compares the names that the Windows DLL exports with those of the Linux shared library.

Compared are the definitions that are compiled once, out of line: functions and static data. They must be the same on
both sides. Left out, because each compiler emits them where it needs them:
  - vtables, typeinfo, guard variables and thunks;
  - inline functions and template instances: weak symbols of the Linux library, and on Windows what its object files
    hold in a section of its own (COMDAT);
  - the project's resource initialisers, which are not part of an interface.
Names are compared demangled, so the variants of a constructor are one name, and with size_t's two spellings made one.
"""
import argparse
import pathlib
import re
import subprocess
import sys

LEFT_OUT = re.compile(r"^(vtable|VTT|typeinfo|typeinfo name|guard variable|construction vtable|"
                      r"(non-)?virtual thunk|covariant return thunk)\b")
RESOURCE = re.compile(r"^q(Init|Cleanup)Resources_")


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def demangled(names):
    ordered = sorted(names)
    text = subprocess.run(["c++filt"], input="\n".join(ordered), check=True, capture_output=True, text=True).stdout
    return dict(zip(ordered, text.splitlines()))


def normalised(name):
    """size_t and the like: "unsigned long" on Linux is "unsigned long long" on Windows."""
    return re.sub(r"\blong long\b", "long", name)


def interface(names):
    found = {normalised(name) for name in demangled(names).values()}
    return {name for name in found if not LEFT_OUT.match(name) and not RESOURCE.match(name)}


def linux_names(library):
    strong, weak = set(), set()
    for line in output_of("nm", "-D", "--defined-only", "--no-demangle", library).splitlines():
        kind, name = line.split()[-2:]
        name = name.split("@")[0]
        (weak if kind in "VWuvw" else strong).add(name)
    return strong, weak


def exports_of(dll, objdump):
    names, in_table = set(), False
    for line in output_of(objdump, "-p", dll).splitlines():
        if "[Ordinal/Name Pointer] Table" in line:
            in_table = True
        elif in_table:
            match = re.match(r"\s*\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+\w+\s+)?(\S+)$", line)
            if not match:
                break
            names.add(match.group(1))
    return names


def comdat_names(objects, objdump):
    """Functions and data in a section of their own: .text$name, .rdata$name, .data$name, .bss$name."""
    names = set()
    for file in objects:
        for section in re.findall(r"\s\.(?:text|rdata|data|bss)\$(\S+)", output_of(objdump, "-h", "-w", str(file))):
            names.add(section)
    return names


def foreign(names):
    return sorted(name for name in names if re.match(r"(std::|Q[A-Z]\w*(::|<)|__gnu_cxx::|operator (new|delete))", name))


def report(title, names):
    for name in sorted(names):
        print(f"{title}: {name}")
    return len(names)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--linux", required=True, help="libtlxCore.so")
    parser.add_argument("--windows", required=True, help="tlxCore.dll")
    parser.add_argument("--objects", required=True, help="folder with the object files that the DLL was linked from")
    parser.add_argument("--objdump", default="x86_64-w64-mingw32-objdump")
    options = parser.parse_args()

    strong, weak = linux_names(options.linux)
    exported = exports_of(options.windows, options.objdump)
    objects = sorted(pathlib.Path(options.objects).rglob("*.obj"))
    if not strong or not exported or not objects:
        sys.exit(f"nothing to compare: {len(strong)} Linux names, {len(exported)} exports, {len(objects)} object files")

    inline = comdat_names(objects, options.objdump)
    linux, windows = interface(strong), interface(exported - inline)
    linux_inline = interface(weak)
    windows_inline = interface(exported & inline)
    wrong = report("only in the Linux library", linux - windows)
    wrong += report("only in the Windows DLL", windows - linux)
    wrong += report("exported but not ours", foreign(windows | windows_inline))
    print(f"{len(linux & windows)} names are exported by both, {wrong} differ"
          f" (inline, not compared: {len(windows_inline)} on Windows, {len(linux_inline)} on Linux)")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
