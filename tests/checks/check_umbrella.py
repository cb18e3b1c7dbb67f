#!/usr/bin/env python3
"""The umbrella header includes every public header of the library, and nothing else.

usage: check_umbrella.py ROOT HEADER[,HEADER...]     (headers relative to core/)
"""
import pathlib
import re
import sys

# Asked for by name: the umbrella itself, and the texts for failing tests, which need Qt Test.
NOT_IN_UMBRELLA = {"tlxCore.h", "tlxCoreQTest.h"}


def main():
    root, listed = pathlib.Path(sys.argv[1]), set(sys.argv[2].split(","))
    text = (root / "core/tlxCore.h").read_text(encoding="utf-8")
    included = re.findall(r"^#include <core/(.+)>$", text, re.MULTILINE)
    faults = [f"included twice: {h}" for h in sorted(set(included)) if included.count(h) > 1]
    faults += [f"not included: {h}" for h in sorted(listed - NOT_IN_UMBRELLA - set(included))]
    faults += [f"included but not public: {h}" for h in sorted(set(included) - listed)]
    others = [l for l in re.findall(r"^#include .+$", text, re.MULTILINE) if not l.startswith("#include <core/")]
    faults += [f"includes something else: {l}" for l in others]
    print("\n".join(faults) or f"{len(included)} public headers")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
