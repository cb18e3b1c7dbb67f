#!/usr/bin/env python3
"""Makes C++ functions of all C++ that the documentation shows: @code blocks of public headers, ```cpp blocks of pages.

A line `expression; // value` or `type name = expression; // value` becomes a comparison with that value. A fence of a
language that no test compiles or runs is an error, and so is C++ in a fence without a language.

usage: snippets.py ROOT OUTPUT HEADER...      (headers relative to ROOT; the pages are README.md and docs/*.md)
"""
import pathlib
import re
import sys

# The language of a fence, and what tries it: here; tests/consumer; scripts/test-packages; "" is output, trees and shells.
LANGUAGES = ("cpp", "cmake", "sh", "sh root", "")
VALUE = re.compile(r'(?P<value>"[^"]*"|0x[0-9A-Fa-f]+|-?\d+(\.\d+)?|true|false|[A-Z]\w*::[A-Z]\w+)(?=$|[,:;])')
STATEMENT = re.compile(r"(?P<code>\S.*;)\s*// (?P<comment>.*)$")
DECLARATION = re.compile(r"(?:const )?(?:auto|[\w:]+(?: \w+)?)[&*]? (?P<name>\w+)(?: = |\().*;$")


def header_blocks(text):
    """Yields the line before each @code block and the block's lines, without the comment's stars and slashes."""
    lines = text.splitlines()
    start = None
    for number, line in enumerate(lines):
        if "@code" in line:
            start = number + 1
        elif "@endcode" in line:
            yield start, [re.sub(r"^\s*(\*|///) ?", "", inner) for inner in lines[start:number]]


def page_blocks(name, text):
    """Yields the same of the ```cpp blocks of a page."""
    lines = text.splitlines()
    language, start = None, 0
    for number, line in enumerate(lines):
        fence = re.match(r"\s*```(.*)$", line)
        if fence and language is None:
            language, start = fence.group(1).strip(), number + 1
            if language not in LANGUAGES:
                raise SystemExit(f"{name}:{start}: no test compiles or runs \"{language}\"")
        elif fence:
            inner = lines[start:number]
            if language == "cpp":
                yield start, inner
            elif language == "" and any(part.startswith("#include") or part.endswith(";") for part in inner):
                raise SystemExit(f"{name}:{start}: C++ in a fence without a language")
            language = None


def checked(place, line):
    """The line, and an answer that compares with the value in its comment if there is one."""
    statement = STATEMENT.fullmatch(line)
    value = statement and VALUE.match(statement["comment"])
    if not value:
        return line
    code, expected = statement["code"], value["value"].strip('"')
    if expected.startswith("0x"):
        expected = str(int(expected, 16))
    declaration = DECLARATION.fullmatch(code)
    if declaration:
        return f"{code} answer(\"{place}\", inWords({declaration['name']}), \"{expected}\");"
    return f"answer(\"{place}\", inWords({code[:-1]}), \"{expected}\");"


def function(number, name, start, lines):
    includes = [line for line in lines if line.startswith("#include")]
    body = ["" if line in includes else checked(f"{name}:{start + index}", line)
            for index, line in enumerate(lines, 1)]
    return "\n".join([*includes, f"static void snippet{number}()", "{", f'#line {start + 1} "{name}"', *body, "}"])


def main():
    root, output = map(pathlib.Path, sys.argv[1:3])
    pages = [root / "README.md", *sorted((root / "docs").glob("*.md"))]
    found = []
    for header in sys.argv[3:]:
        found += [(header, *block) for block in header_blocks((root / header).read_text(encoding="utf-8"))]
    for page in pages:
        name = page.relative_to(root).as_posix()
        found += [(name, *block) for block in page_blocks(name, page.read_text(encoding="utf-8"))]
    functions = [function(number, *block) for number, block in enumerate(found)]
    names = ", ".join(f"&snippet{number}" for number in range(len(found)))
    output.write_text("\n".join([*functions, f"void (*const SNIPPETS[])() = {{{names}}};"]) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
