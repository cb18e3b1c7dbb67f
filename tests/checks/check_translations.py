#!/usr/bin/env python3
"""Both catalogues hold every text of the library that goes through translation, finished, with the same placeholders,
and nothing else. Which texts there are says Qt's own lupdate.

usage: check_translations.py ROOT LUPDATE
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree


def messages(path):
    return {(context.findtext("name"), message.findtext("source")): message.find("translation")
            for context in ElementTree.parse(path).getroot().findall("context")
            for message in context.findall("message")}


def texts_in_code(root, lupdate):
    with tempfile.TemporaryDirectory() as folder:
        catalogue = pathlib.Path(folder) / "code.ts"
        subprocess.run([lupdate, "-silent", root / "core", "-ts", catalogue], check=True)
        return set(messages(catalogue))


def faults_of(catalogue, in_code):
    found = messages(catalogue)
    for key in sorted(in_code - set(found)):
        yield f"{catalogue.name}: missing: {key}"
    for key in sorted(set(found) - in_code):
        yield f"{catalogue.name}: no such text in the code: {key}"
    for key, translation in found.items():
        if translation is None or not translation.text or translation.get("type"):
            yield f"{catalogue.name}: not finished: {key}"
        elif sorted(re.findall(r"%\d", key[1])) != sorted(re.findall(r"%\d", translation.text)):
            yield f"{catalogue.name}: other placeholders: {key}"


def main():
    root = pathlib.Path(sys.argv[1])
    in_code = texts_in_code(root, sys.argv[2])
    catalogues = sorted((root / "translations").glob("*.ts"))
    faults = [fault for catalogue in catalogues for fault in faults_of(catalogue, in_code)]
    if not in_code or len(catalogues) < 2:
        faults.append("no texts or no catalogues found")
    print("\n".join(faults) or f"{len(in_code)} texts in {len(catalogues)} catalogues")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
