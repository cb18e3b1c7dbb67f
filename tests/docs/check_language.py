#!/usr/bin/env python3
"""Finds turns of phrase that native readers stumble over: in the comments of headers and examples, in the pages, and in what
tlx prints.

usage: check_language.py ROOT
"""
import pathlib
import re
import sys

# What is wrong, and what to write instead.
TURNS = (
    (r"\bbehind\b", "after"),
    (r"\bgives\b", "Returns"),
    (r"\bthat (is|are|was) none\b", "that is not one, or: unknown"),
    (r"\bthere is (not|none)\b", "does not exist, or: unknown"),
    (r"\bthere are none\b", "has none"),
    (r"\bsays? so\b", "name what is reported, and where"),
    (r"\bleft away\b", "omitted"),
    (r"\bso many\b", "name the number"),
    (r"\bstands?\b", "is"),
)

# Lines in which such a word is right: the file, and a part of the line.
EXCEPTIONS = ()


def comments(text):
    """The lines of a C++ text with everything but comments left out."""
    inside = False
    for number, line in enumerate(text.splitlines(), 1):
        found = []
        rest = line
        while rest:
            if inside:
                part, mark, rest = rest.partition("*/")
                found.append(part)
                inside = not mark
            else:
                match = re.search(r"//|/\*", rest)
                if not match:
                    break
                inside = match.group() == "/*"
                if not inside:
                    found.append(rest[match.end():])
                rest = rest[match.end():] if inside else ""
        yield number, " ".join(found)


def prose(text):
    """The lines of a page without its code blocks and inline code."""
    code = False
    for number, line in enumerate(text.splitlines(), 1):
        if line.lstrip().startswith("```"):
            code = not code
        elif not code:
            yield number, re.sub(r"`[^`]*`", "", line)


def messages(text):
    """The texts in double quotes of the lines of a C++ text."""
    for number, line in enumerate(text.splitlines(), 1):
        if not line.lstrip().startswith(("#include", "//")):
            yield number, " ".join(re.findall(r'"((?:[^"\\]|\\.)*)"', line))


def sources(root):
    for path in [*sorted((root / "core").rglob("*.h")), *sorted((root / "examples").rglob("*.cpp"))]:
        yield path, comments
    for path in [*sorted((root / "docs").glob("*.md")), *sorted(root.glob("*.md")), root / "bench/README.md"]:
        yield path, prose
    for path in sorted((root / "tools/tlx").rglob("*.cpp")):
        yield path, messages


def faults(root):
    for path, reader in sources(root):
        name = path.relative_to(root).as_posix()
        for number, line in reader(path.read_text(encoding="utf-8")):
            if any(name == file and part in line for file, part in EXCEPTIONS):
                continue
            for turn, better in TURNS:
                match = re.search(turn, line, re.IGNORECASE)
                if match:
                    yield f"{name}:{number}: \"{match.group()}\": {better}"


def main():
    root = pathlib.Path(sys.argv[1])
    for file, part in EXCEPTIONS:
        if part not in (root / file).read_text(encoding="utf-8"):
            print(f"{file}: the exception \"{part}\" is not needed any more")
            return 1
    found = list(faults(root))
    print("\n".join(found) or "no such turn of phrase")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
