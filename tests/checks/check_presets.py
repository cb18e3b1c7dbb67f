#!/usr/bin/env python3
"""Warnings are errors in the preset "ci" alone: a user's newer compiler may warn of more than ours does.

usage: check_presets.py ROOT
"""
import json
import pathlib
import sys


def setting(presets, name, variable):
    """The variable as the preset has it, by itself or inherited."""
    preset = presets[name]
    if variable in preset.get("cacheVariables", {}):
        return preset["cacheVariables"][variable]
    parents = preset.get("inherits", [])
    for parent in [parents] if isinstance(parents, str) else parents:
        value = setting(presets, parent, variable)
        if value is not None:
            return value
    return None


def main():
    root = pathlib.Path(sys.argv[1])
    presets = {preset["name"]: preset for preset in json.loads((root / "CMakePresets.json").read_text())["configurePresets"]}
    strict = [name for name in presets if setting(presets, name, "TLXCORE_WERROR") == "ON"]
    print("presets in which warnings are errors:", ", ".join(strict) or "none")
    return 0 if strict == ["ci"] else 1


if __name__ == "__main__":
    sys.exit(main())
