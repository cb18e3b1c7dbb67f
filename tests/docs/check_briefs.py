#!/usr/bin/env python3
"""Every public function of the reference has a brief of its own.

A comment before a group (@{ … @}) serves all of its members. It must not reach further than its words do: none on a
destructor, none of another function on a constructor, an assignment or operator!=, and none on three unlike functions.
Functions that differ in the width of a number (toI8(), toU16()) are alike, and so are conversions, and the operators of
order.

usage: check_briefs.py XML       (the folder with Doxygen's XML)
"""
import collections
import pathlib
import re
import sys
import xml.etree.ElementTree

SPECIAL = {"constructor", "operator=", "operator!="}
# A copy may say of its constructor and of its assignment the same.
COPY = {"constructor", "operator="}


def kind_of(member, scope):
    name = member.findtext("name")
    if name.startswith("~"):
        return "destructor"
    if name == scope.split("::")[-1]:
        return "constructor"
    if re.fullmatch(r"operator(<|>|<=|>=)", name):
        return "order"
    if re.match(r"operator [\w:]", name):
        return "conversion"
    return re.sub(r"[IUF]?\d+$", "", name)


def brief_of(member):
    return " ".join("".join(member.find("briefdescription").itertext()).split())


def needs_none(member, kind):
    arguments = member.findtext("argsstring") or ""
    return kind == "destructor" or "=delete" in arguments or (kind == "constructor" and arguments.startswith("()"))


def faults_of(scope, members):
    kinds_of = collections.defaultdict(set)
    for member in members:
        kind, brief = kind_of(member, scope), brief_of(member)
        where = f"{scope}: {member.findtext('name')}{member.findtext('argsstring')}"
        if not brief and not needs_none(member, kind):
            yield f"{where} has no brief"
        if brief and kind == "destructor":
            yield f"{where} has the brief \"{brief}\""
        if brief:
            kinds_of[brief].add(kind)
    for brief, kinds in kinds_of.items():
        if len(kinds) > 2 or len(kinds) == 2 and kinds & SPECIAL and kinds != COPY:
            yield f"{scope}: one brief for {', '.join(sorted(kinds))}: \"{brief}\""


def main():
    faults, count = [], 0
    for path in sorted(pathlib.Path(sys.argv[1]).glob("*.xml")):
        for compound in xml.etree.ElementTree.parse(path).getroot().iter("compounddef"):
            members = [m for m in compound.iter("memberdef") if m.get("kind") == "function" and m.get("prot") == "public"]
            count += len(members)
            faults += faults_of(compound.findtext("compoundname"), members)
    faults += [] if count > 400 else [f"only {count} functions in the reference"]
    print("\n".join(faults) or f"{count} functions")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
