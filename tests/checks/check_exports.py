#!/usr/bin/env python3
"""The shared library exports the public interface and nothing else.

Every exported function, vtable, typeinfo and variable belongs to a class, namespace or free function that a public header
declares, and none is weak but what every compiler emits for a class: instances of templates and inline functions, Qt's and
the standard library's among them, stay inside.

usage: check_exports.py LIBRARY ROOT HEADER[,HEADER...]     (headers relative to core/)
"""
import pathlib
import re
import subprocess
import sys

OF_CLASS = re.compile(r"(?:vtable|VTT|typeinfo|typeinfo name) for (.*)")


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", "--demangle", library], check=True, capture_output=True,
                           text=True).stdout.splitlines()
    return [line.split(maxsplit=2)[1:] for line in lines]


def declared(root, headers):
    text = "".join((root / "core" / header).read_text(encoding="utf-8") for header in headers)
    text = re.sub(r"/\*.*?\*/|//[^\n]*", "", text, flags=re.DOTALL)
    scopes = set(re.findall(r"\b(?:class|struct|namespace)\s+(?:TLXCORE_EXPORT\s+)?(\w+)[^;{]*\{", text))
    functions = set(re.findall(r"\bTLXCORE_EXPORT\b[^;{]*?(operator\S+?|\w+)\(", text))
    return scopes, functions


def is_declared(name, scopes, functions):
    """Of a free function the scopes of its arguments count, too: every class has an operator<<."""
    of_class = OF_CLASS.match(name)
    if of_class:
        return of_class[1].split("::")[0] in scopes
    found = re.match(r"(?:(\w+)::)?(operator(?:\(\)|[^(\w]+)|operator [^(]+|~?\w+)", name)
    if not found:
        return False
    if found[1]:
        return found[1] in scopes
    arguments = {word for word in re.findall(r"\w+", name[name.find("("):])}
    own = arguments & scopes or not {word for word in arguments if word[0] in "CNQ"}
    return found[2] in functions and bool(own)


def main():
    names = exported(sys.argv[1])
    scopes, functions = declared(pathlib.Path(sys.argv[2]), sys.argv[3].split(","))
    faults = [f"weak: {name}" for kind, name in names if kind in "WuwV" and not OF_CLASS.match(name)]
    faults += [f"in no public header: {name}" for _, name in names if not is_declared(name, scopes, functions)]
    faults += [] if len(names) > 400 else [f"only {len(names)} names are exported"]
    print("\n".join(faults) or f"{len(names)} names")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
