#!/usr/bin/env python3
"""The tree says under which terms it is, once and everywhere alike: LICENSE, REUSE.toml and Debian's copyright file.

usage: check_licence.py ROOT
"""
import pathlib
import sys
import tomllib

TERMS = "Copyright 2026 the tlxCore developers, all rights reserved; the owner has not chosen a licence yet."


def faults_of(root):
    if " ".join((root / "LICENSE").read_text().split()) != TERMS:
        yield "LICENSE says something else"
    annotations = tomllib.loads((root / "REUSE.toml").read_text())["annotations"]
    if [annotation["path"] for annotation in annotations] != ["**"]:
        yield "REUSE.toml does not cover the whole tree with one annotation"
    for annotation in annotations:
        text = root / "LICENSES" / f"{annotation['SPDX-License-Identifier']}.txt"
        if not text.exists() or text.read_text() != (root / "LICENSE").read_text():
            yield f"{text.relative_to(root)} is not the text of LICENSE"
    debian = " ".join((root / "packaging/debian/copyright").read_text().split())
    if TERMS not in debian or f"License: {annotations[0]['SPDX-License-Identifier']}" not in debian:
        yield "packaging/debian/copyright says something else"
    if not (root / "SECURITY.md").exists():
        yield "SECURITY.md is missing"


def main():
    faults = list(faults_of(pathlib.Path(sys.argv[1])))
    print("\n".join(faults) or "one licence for the whole tree")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
