#!/usr/bin/env python3
"""Writes a C++ function that uses every enumerator and constant of the public headers, each by its full name.

usage: public_names.py ROOT HEADER[,HEADER...]     (headers relative to core/)
"""
import pathlib
import re
import sys

ACCESS = re.compile(r"(public|private|protected)\s*:\s*")
CONSTANT = re.compile(r"(?:static|inline|extern|constexpr) [^()]*?\S (m?c?[A-Z]\w*)\s*(?:\[\d*\]\s*)?(?:[={(].*)?$")


def without_comments(text):
    text = re.sub(r"/\*.*?\*/|//[^\n]*", "", text, flags=re.DOTALL)
    return re.sub(r"^\s*#[^\n]*(\\\n[^\n]*)*", "", text, flags=re.MULTILINE)


def statements(text):
    """The pieces between ";", "{" and "}", each with what ends it."""
    piece = ""
    for part in re.split(r"([;{}])", text):
        if part in (";", "{", "}"):
            yield " ".join(piece.split()), part
            piece = ""
        else:
            piece += part


def scope_of(head):
    """What a "{" opens: ("namespace" | "class" | "enum" | "other", name)."""
    found = re.match(r"(?:inline )?(namespace|enum(?: class)?|class|struct)\s+(?:TLXCORE_EXPORT\s+)?(\w+)", head)
    if not found or "template" in head:
        return "other", ""
    kind = found.group(1)
    return ("enum class" if kind == "enum class" else "class" if kind == "struct" else kind), found.group(2)


def enumerators(body):
    return re.findall(r"(?:^|,)\s*(\w+)", re.sub(r"=[^,]*", "", body))


def constant(head):
    """The name of the static or constexpr constant that the statement declares."""
    found = CONSTANT.match(head)
    return [found.group(1)] if found and "const" in head else []


def names(text):
    scopes = []  # (kind, name, whether what stands there is public)
    for head, end in statements(without_comments(text)):
        while found := ACCESS.match(head):
            scopes[-1] = (*scopes[-1][:2], found.group(1) == "public")
            head = head[found.end():]
        prefix = "".join(f"{name}::" for kind, name, _ in scopes if kind != "enum")
        kinds = [kind for kind, _, _ in scopes]
        if all(is_public for _, _, is_public in scopes):
            if kinds and kinds[-1].startswith("enum"):
                yield from (prefix + name for name in enumerators(head))
            elif all(kind in ("namespace", "class") for kind in kinds):
                yield from (prefix + name for name in constant(head))
        if end == "{":
            scopes.append((*scope_of(head), not head.startswith("class ")))
        elif end == "}":
            scopes.pop()


def main():
    root, headers = pathlib.Path(sys.argv[1]), sys.argv[2].split(",")
    found = [name for header in headers for name in names((root / "core" / header).read_text(encoding="utf-8"))]
    print("void usePublicNames();\nvoid usePublicNames()\n{")
    print("\n".join(f"    static_cast<void>({name});" for name in dict.fromkeys(found)))
    print("}")
    return 0 if found else 1


if __name__ == "__main__":
    sys.exit(main())
