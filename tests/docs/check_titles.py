#!/usr/bin/env python3
"""Every page of docs/ is a page of the built documentation, under its title: in HTML, and in the Qt help file, where it is
a file and an entry of the contents.

A page whose label is a name of Doxygen's own ("files", "annotated") disappears without a warning.

usage: check_titles.py DOCS HTML [HELP]       (the folder of the pages, of the HTML, and the .qch file)
"""
import html
import pathlib
import re
import sqlite3
import struct
import sys

MAIN_PAGE = "mainpage"


def pages_of(folder):
    """File name of the HTML page and title."""
    for path in sorted(folder.glob("*.md")):
        heading = re.match(r"# (.+?) \{#(\w+)\}\n", path.read_text(encoding="utf-8"))
        if not heading:
            sys.exit(f"{path} has no title with a label")
        yield "index.html" if heading[2] == MAIN_PAGE else f"{heading[2]}.html", heading[1]


def html_faults(folder, pages):
    for name, title in pages:
        path = folder / name
        text = path.read_text(encoding="utf-8") if path.exists() else ""
        shown = re.search(r"<title>tlxCore: (.*?)</title>", text)
        if not shown or html.unescape(shown[1]) != title:
            yield f"{path}: {shown[1] if shown else 'no page'} instead of \"{title}\""


def contents_of(data):
    """The contents of a help file: depth, link and title of each entry, as QDataStream writes them."""
    position, texts = 0, []
    while position < len(data):
        position += 4
        for _ in range(2):
            size, = struct.unpack_from(">i", data, position)
            texts.append(data[position + 4:position + 4 + size].decode("utf-16-be"))
            position += 4 + size
    return set(zip(texts[::2], texts[1::2]))


def help_faults(path, pages):
    connection = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
    files = dict(connection.execute("SELECT Name, Title FROM FileNameTable"))
    contents = set().union(*(contents_of(data) for data, in connection.execute("SELECT Data FROM ContentsTable")))
    for name, title in pages:
        if files.get(name) != f"tlxCore: {title}":
            yield f"{path}: {name} is {files.get(name)} instead of \"{title}\""
        if name != "index.html" and (name, title) not in contents:
            yield f"{path}: the contents lack \"{title}\""


def main():
    pages = list(pages_of(pathlib.Path(sys.argv[1])))
    faults = list(html_faults(pathlib.Path(sys.argv[2]), pages))
    if len(sys.argv) > 3:
        faults += help_faults(sys.argv[3], pages)
    print("\n".join(faults) or f"{len(pages)} pages")
    return 1 if faults or len(pages) < 10 else 0


if __name__ == "__main__":
    sys.exit(main())
