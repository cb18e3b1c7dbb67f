#!/usr/bin/env python3
"""Every class that gdb's printers show has a view in Visual Studio, and a view names members that the class has.

A stand-in for the debugger, which this machine lacks: it finds a class that is missing and a member that was renamed.

usage: check_natvis.py ROOT
"""
import pathlib
import re
import sys
import xml.etree.ElementTree

SPACE = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"
# What a private data class behind a pointer holds, which no public header declares.
BEHIND_POINTERS = {"CTime": {"value", "unit"}, "CFixedString": {"units"}}


def printed_classes(root):
    text = (root / "debugger/tlxcore_gdb.py").read_text(encoding="utf-8")
    patterns = re.findall(r'r"\^(\w+)(?:\(.*?\))?\$"', text)
    return {"CFixedString" if name == "CString" else name for name in patterns}


def members_of(root, name):
    header = next(root.glob(f"core/*/{name}.h")).read_text(encoding="utf-8")
    code = re.sub(r"/\*.*?\*/|//[^\n]*", "", header, flags=re.DOTALL)
    return set(re.findall(r"\b(\w+)(?:\s*=[^;()]*|\s*\{[^;()]*\})?;", code)) | BEHIND_POINTERS.get(name, set()) | {"d"}


def expressions_of(view):
    for part in view.iter(SPACE + "DisplayString"):
        yield from re.findall(r"\{(.*?)\}", part.text)
    for tag in ("Item", "ExpandedItem"):
        yield from (part.text for part in view.iter(SPACE + tag))


def names_in(expression):
    """The members that an expression names: without a cast, the format after the comma and the numbers."""
    expression = re.sub(r"\((?:\w+::)?\w+(?: \w+)*\s*\**\)", "", expression.split(",")[0])
    return re.findall(r"[A-Za-z_]\w*", expression)


def main():
    root = pathlib.Path(sys.argv[1])
    views = {view.get("Name").split("<")[0]: view
             for view in xml.etree.ElementTree.parse(root / "debugger/tlxCore.natvis").getroot().iter(SPACE + "Type")}
    printed = printed_classes(root)
    faults = [f"no view of {name}" for name in sorted(printed - set(views))]
    for name, view in views.items():
        members, count = members_of(root, name), 0
        for expression in expressions_of(view):
            unknown = [member for member in names_in(expression) if member not in members]
            faults += [f"{name} has no member {member}: {expression}" for member in unknown]
            count += 1
        faults += [] if count else [f"{name} shows nothing"]
    faults += [] if len(printed) > 8 else [f"only {len(printed)} printers"]
    print("\n".join(faults) or f"{len(views)} views")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
