"""The places of core/ that scripts/mutate changes, and to what."""

import hashlib
import json
import pathlib
import re
import shlex
import subprocess

# clang-format sets blanks around every binary operator, and around no bracket of a template.
REPLACEMENTS = {
    " == ": [" != "], " != ": [" == "],
    " < ": [" <= "], " <= ": [" < "], " > ": [" >= "], " >= ": [" > "],
    " && ": [" || "], " || ": [" && "],
    " + ": [" - "], " - ": [" + "], " * ": [" / "], " / ": [" * "], " % ": [" * "],
    " << ": [" >> "], " >> ": [" << "], " & ": [" | "], " | ": [" & "], " ^ ": [" | "],
    " += ": [" -= "], " -= ": [" += "], " |= ": [" &= "], " &= ": [" |= "], " *= ": [" /= "], " /= ": [" *= "],
}
WORDS = {"true": "false", "false": "true", "++": "--", "--": "++"}
OPERATOR = re.compile("|".join(re.escape(key) for key in sorted(REPLACEMENTS, key=len, reverse=True)))
WORD = re.compile(r"\btrue\b|\bfalse\b|\+\+|--")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9a-fA-F']+|\d[\d']*)(?=[uUlL]*(?![\w.']))")
NOT = re.compile(r"(?<![\w)])!(?=[\w(:])")
CALL = re.compile(r"^\s+(?!return\b|throw\b|using\b|delete\b|else\b|if\b|for\b|while\b|switch\b|case\b|do\b)"
                  r"[\w:.>-]+\(.*\);$")
SKIPPED_LINE = re.compile(r"^\s*(#|static_assert|using |template|Q_|///?|\*)|\bcase TYPE_|TLXCORE_EXPORT|operator<<|"
                          r"operator>>|static_cast<.*\bstream\b")


def blank_texts(source):
    """The source with comments and texts blanked out, every other character in its place."""
    pattern = r'//[^\n]*|/\*.*?\*/|R"\((?:.*?)\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\''
    return re.sub(pattern, lambda match: re.sub(r"[^\n]", "~", match.group()), source, flags=re.S)


def line_mutants(line):
    """(start, end, replacement) of every change to one line whose comments and texts are blanked."""
    for match in OPERATOR.finditer(line):
        for replacement in REPLACEMENTS[match.group()]:
            yield match.start(), match.end(), replacement
    for match in WORD.finditer(line):
        yield match.start(), match.end(), WORDS[match.group()]
    for match in NUMBER.finditer(line):
        digits = match.group().replace("'", "")
        value = int(digits, 16) if digits[:2] in ("0x", "0X") else int(digits, 8 if digits[0] == "0" and len(digits) > 1 else 10)
        yield match.start(), match.end(), str(value + 1)
    for match in NOT.finditer(line):
        yield match.start(), match.end(), ""
    if CALL.match(line):
        yield len(line) - len(line.lstrip()), len(line), ";"


def library_commands(build):
    """The compiler's arguments for every source of core/ in a build folder, without input and output."""
    root = build.parent.parent / "core"
    commands = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        file = pathlib.Path(entry["file"])
        if file.is_relative_to(root):
            words = shlex.split(entry["command"])
            commands[file] = words[:words.index("-o")]
    return commands


def compiled_files(build):
    """What this processor and platform build and can run, and all headers."""
    flags = pathlib.Path("/proc/cpuinfo").read_text()
    files = set(library_commands(build)) | set((build.parent.parent / "core").glob("**/*.h"))
    for word in ("vpclmul512", "vpclmul256"):
        if "vpclmulqdq" not in flags or ("512" in word and "avx512f" not in flags):
            files = {file for file in files if word not in file.name.lower()}
    return sorted(files)


def compiled_lines(file, commands):
    """The numbers of the lines that the preprocessor leaves: what another platform or another Qt compiles is not tested."""
    source = file.read_text()
    if not re.search(r"^\s*#\s*(if |ifdef |ifndef (?!TLXCORE_\w+_H$))", source, re.M):
        return range(1, source.count("\n") + 2)
    command = commands.get(file) or next(iter(commands.values()))
    output = subprocess.run(command + ["-E", "-fdirectives-only", "-w", "-x", "c++", str(file)], stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, text=True, check=True, errors="replace").stdout
    lines, current, number = set(), "", 0
    for text in output.split("\n"):
        marker = re.match(r'# (\d+) "(.*)"', text)
        if marker:
            number, current = int(marker.group(1)), marker.group(2)
            continue
        if current == str(file) and text.strip():
            lines.add(number)
        number += 1
    return lines


def dependencies(build):
    """The files of core/ that each source of the library includes, itself among them."""
    said = subprocess.run(["ninja", "-t", "deps"], cwd=build, stdout=subprocess.PIPE, text=True, check=True).stdout
    found, source = {}, ""
    for line in said.splitlines():
        if line.startswith(" "):
            if source and "/core/" in line and not line.endswith(".moc"):
                found[source].append(line[line.rindex("/core/") + 1:])
        else:
            target = re.match(r"core/(?:(.*)/)?CMakeFiles/\w+\.dir/(.*)\.o:", line)
            source = "/".join(filter(None, ("core", target.group(1), target.group(2)))) if target else ""
            if source:
                found[source] = []
    return found


def including(build, name):
    """The sources of the library that include the file, or are it."""
    return sorted(source for source, files in dependencies(build).items() if name in files)


def foreign_includes(build, sources):
    """What these sources and the headers of core/ that they include take from elsewhere."""
    files = {file for source, files in dependencies(build).items() if source in sources for file in files}
    lines = set()
    for file in files:
        lines.update(re.findall(r"^#include <(?:Q\w+|[a-z_]+)>$", (build.parent.parent / file).read_text(), re.M))
    return "".join(f"{line}\n" for line in sorted(lines))


def file_mutants(file, lines):
    source = file.read_text()
    offset = 0
    for number, (line, seen) in enumerate(zip(source.split("\n"), blank_texts(source).split("\n")), 1):
        if number in lines and not SKIPPED_LINE.search(seen):
            for start, end, replacement in line_mutants(seen):
                yield {"file": file, "line": number, "from": offset + start, "to": offset + end,
                       "text": replacement, "before": line.strip(),
                       "after": (line[:start] + replacement + line[end:]).strip()}
        offset += len(line) + 1


def all_mutants(source):
    """Every mutant of the tree `source`, which is configured; the "key" stays the same when other lines change."""
    build = source / "build" / "debug"
    commands = library_commands(build)
    mutants, seen = [], {}
    for file in compiled_files(build):
        for mutant in file_mutants(file, compiled_lines(file, commands)):
            mutant["name"] = str(file.relative_to(source))
            key = f"{mutant['name']}: {mutant['before']}   ==>   {mutant['after']}"
            seen[key] = seen.get(key, 0) + 1
            mutant["key"] = key if seen[key] == 1 else f"{key}   #{seen[key]}"
            mutants.append(mutant)
    return mutants


def in_seeded_order(mutants, seed):
    """A mutant's place depends on itself and the seed only: a test or a line more elsewhere leaves the sample as it is."""
    return sorted(mutants, key=lambda mutant: hashlib.sha256(f"{seed} {mutant['key']}".encode()).digest())


SWITCH = """#pragma once
#include <cstdlib>
namespace NMutant {
inline int number()
{
    static const int chosen = [] {
        const char* text = std::getenv("TLX_MUTANT");
        return text ? std::atoi(text) : 0;
    }();
    return chosen;
}
}
"""
SCOPE = re.compile(r"\b(namespace|class|struct|union|enum)\b[^()]*$")
FUNCTION = re.compile(r"\)\s*(const|noexcept|override|final|\s)*(->[\w\s:<>*&]+)?$")


def function_bodies(source):
    """(from, to) of every outermost function body between its braces, but of none that may be constant."""
    text = re.sub(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", lambda match: re.sub(r"[^\n]", " ", match.group()),
                  blank_texts(source), flags=re.M)
    bodies, open_braces, head = [], [], 0
    for match in re.finditer(r"[{};]", text):
        at = match.start()
        inside = next((kind for kind, _ in open_braces if kind != "scope"), "")
        if match.group() == "{":
            before = text[head:at].strip()
            kind = "body" if FUNCTION.search(before) and "constexpr" not in before else "other"
            open_braces.append((inside or ("scope" if SCOPE.search(before) else kind), at))
        elif match.group() == "}" and open_braces:
            kind, start = open_braces.pop()
            if kind == "body" and not any(outer == "body" for outer, _ in open_braces):
                bodies.append((start + 1, at))
        if not inside or not open_braces:
            head = at + 1
    return bodies


def switchable(source, mutants):
    """Those mutants whose function can choose between them when it runs."""
    bodies = function_bodies(source)
    return [mutant for mutant in mutants if any(start <= mutant["from"] and mutant["to"] <= end for start, end in bodies)]


def switched(source, numbered, header):
    """The source with all these mutants, of which TLX_MUTANT chooses one, and the lines of each: {number: (first, last)}."""
    parts, lines, at = [f'#include "{header}"\n'], {}, 0
    for start, end in sorted(function_bodies(source)):
        chosen = [(number, m) for number, m in numbered.items() if start <= m["from"] and m["to"] <= end]
        if not chosen:
            continue
        parts.append(source[at:start] + "switch (NMutant::number()) {")
        for number, m in chosen:
            first = "".join(parts).count("\n") + 2
            parts.append(f"\ncase {number}: {{" + source[start:m["from"]] + m["text"] + source[m["to"]:end] + "\n} break;")
            lines[number] = (first, "".join(parts).count("\n") + 1)
        parts.append("\ndefault: {" + source[start:end] + "\n}\n}\n")
        at = end
    return "".join(parts) + source[at:], lines


def refused(output, name, lines):
    """The numbers of the mutants in whose lines the compiler found an error."""
    errors = {int(number) for number in re.findall(rf"{re.escape(name)}:(\d+):\d+: (?:fatal )?error", output)}
    return [number for number, (first, last) in lines.items() if any(first <= line <= last for line in errors)]
