#!/usr/bin/env python3
"""Includes point one way: folders depend downward only, and no two files include each other.

usage: check_includes.py ROOT
"""
import pathlib
import re
import sys

# Folder of core/ -> folders of core/ that it may include from, besides itself.
ALLOWED = {
    "": {"base", "types", "text", "device", "files", "app"},
    "base": set(),
    "types": {"base"},
    "text": {"base", "types", "app", "files"},
    "app": {"base", "files"},
    "files": {"base"},
    "device": {"base"},
}
# At the root for every folder.
SHARED = {"core/tlxCoreExport.h", "core/tlxCoreVersion.h"}
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)


def core_folder(path):
    parts = path.split("/")
    return "" if len(parts) == 2 else parts[1]


def includes(root, path):
    return INCLUDE.findall((root / path).read_text(encoding="utf-8"))


def check_core(root, public):
    faults, graph = [], {}
    for file in sorted((root / "core").rglob("*.[hc]*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        path = file.relative_to(root).as_posix()
        graph[path] = [i for i in includes(root, path) if i.startswith("core/")]
        for target in graph[path]:
            if target in SHARED and (path not in public or target in public):
                continue
            if not (root / target).exists() and not (root / f"{target}.in").exists():
                faults.append(f"{path}: no such file: {target}")
            elif core_folder(target) not in ALLOWED[core_folder(path)] | {core_folder(path)}:
                faults.append(f"{path}: includes upward: {target}")
            elif path in public and target not in public:
                faults.append(f"{path}: public header includes the private {target}")
        faults += [f"{path}: include from the root, not {i}" for i in includes(root, path)
                   if (file.parent / i).exists() and not i.startswith("core/")]
    return faults + [f"{a} and {b} include each other" for a in graph for b in graph[a]
                     if a < b and a in graph.get(b, [])]


def public_headers(root):
    public = {"core/tlxCoreVersion.h"}  # made by the build
    for listing in (root / "core").rglob("CMakeLists.txt"):
        folder = listing.parent.relative_to(root).as_posix()
        match = re.search(r"PUBLIC\b(.*?)(?:\bPRIVATE\b|\))", listing.read_text(encoding="utf-8").split(
            "tlx_core_folder(", 1)[-1], re.DOTALL)
        public |= {f"{folder}/{name}" for name in (match.group(1).split() if match else [])}
    return public


def main():
    root = pathlib.Path(sys.argv[1])
    faults = check_core(root, public_headers(root))
    print("\n".join(faults) or "includes point one way")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
