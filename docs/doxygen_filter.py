#!/usr/bin/env python3
"""Doxygen's input filter for the headers: one comment serves the run of declarations under it.

A declaration that follows another one directly, without a blank line or a comment of its own between, takes the comment
over. Defaulted special members say nothing that needs one, so they are left out. Line numbers stay.

usage: doxygen_filter.py HEADER
"""
import sys


def is_declaration(text):
    return bool(text) and not text.startswith(("//", "/*", "*", "#", "}", "{", "Q_", "friend ")) \
        and not text.endswith(":")


def filtered(lines):
    comment, within, run = [], False, False
    for line in lines:
        text = line.strip()
        if within:                                   # the rest of a declaration of several lines
            within = not text.endswith((";", "}"))
            yield line
        elif text.startswith(("///", "/**", "*")) and not text.startswith("///<"):
            if text.startswith("/**") or not comment or run:
                comment = []
            comment.append(text.strip("/* "))
            run = False
            yield line
        elif not is_declaration(text):
            if not text:
                comment, run = [], False
            yield line
        elif text.endswith("= default;"):
            yield "\n"
        else:
            takes_over = run and comment and "///<" not in text and not any("@{" in part for part in comment)
            yield f"/** {' '.join(comment)} */ {line}" if takes_over else line
            run = bool(comment)
            within = text.count("(") > text.count(")") or not text.endswith((";", "}", ",")) and "///<" not in text


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        sys.stdout.writelines(filtered(file.readlines()))


if __name__ == "__main__":
    sys.exit(main())
