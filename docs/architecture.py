#!/usr/bin/env python3
"""Draws which folder of core/ includes from which, out of the code's own includes, as a Graphviz graph.

usage: architecture.py ROOT > architecture.dot
"""
import collections
import pathlib
import re
import sys

INCLUDE = re.compile(r"^#include <core/(\w+)/[\w/]+\.h>", re.MULTILINE)


def main():
    root = pathlib.Path(sys.argv[1])
    edges = collections.Counter()
    files = collections.defaultdict(set)
    for file in sorted((root / "core").rglob("*.[hc]*")):
        path = file.relative_to(root / "core")
        folder = path.parts[0]
        if len(path.parts) == 1 or file.suffix not in (".h", ".cpp"):
            continue
        files[folder].add(file.stem)
        for target in INCLUDE.findall(file.read_text(encoding="utf-8")):
            if target != folder:
                edges[(folder, target)] += 1
    print('digraph core {\n  rankdir=TB;\n  node [shape=box, fontname="sans-serif"];\n'
          '  edge [fontname="sans-serif", fontsize=10];')
    for folder in sorted(files):
        classes = sorted(name for name in files[folder] if re.match(r"[CN][A-Z]", name))
        public = [name for name in classes if (root / "core" / folder / f"{name}.h").exists()]
        print(f'  {folder} [label="{folder}\\n' + "\\n".join(public) + '"];')
    for (source, target), count in sorted(edges.items()):
        print(f'  {source} -> {target} [label="{count}"];')
    print("}")


if __name__ == "__main__":
    main()
