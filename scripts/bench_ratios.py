#!/usr/bin/env python3
"""Prints the ratios of our benchmarks to their peers, from Google Benchmark's JSON files, as a Markdown table.

usage: bench_ratios.py FILE.json…

Fails where a ratio is above its limit: what was promised to users who copy trees.

A benchmark is named BM_Operation/who[/arguments]; "tlx…" is ours, everything else a peer. Ours is paired with every
peer of the same operation and arguments. The figures are medians of the repetitions.
"""
import json
import sys


LIMITS = {"CopyTree": 2.0}


def medians(path):
    with open(path, encoding="utf-8") as file:
        runs = json.load(file)["benchmarks"]
    result = {}
    for run in runs:
        if run.get("aggregate_name") != "median":
            continue
        parts = [p for p in run["run_name"].split("/")
                 if not p.startswith(("repeats:", "iterations:", "min_time:", "real_time", "process_time", "threads:"))]
        operation, who, arguments = parts[0].removeprefix("BM_"), parts[1], "/".join(parts[2:])
        result[(operation, arguments, who)] = (run["real_time"], run["time_unit"])
    return result


def rows(times):
    for (operation, arguments, who), (ours, unit) in times.items():
        if not who.startswith("tlx"):
            continue
        peers = [(peer, time) for (op, args, peer), (time, _) in times.items()
                 if op == operation and args == arguments and not peer.startswith("tlx")]
        label = f"{operation} {arguments}".strip() + ("" if who == "tlx" else f" ({who[3:].strip('_')})")
        for peer, time in peers:
            yield f"| {label} | {ours:.1f} {unit} | {peer} | {time:.1f} {unit} | {ours / time:.3f} |"
        if not peers:
            yield f"| {label} | {ours:.1f} {unit} | none | | |"


def faults(times):
    for (operation, place, who), (ours, _) in times.items():
        for (other, there, peer), (time, _) in times.items():
            limit = LIMITS.get(operation)
            if limit and (other, there) == (operation, place) and who == "tlx" != peer and ours > limit * time:
                yield f"{operation} {place}: {ours / time:.2f} times {peer}, more than {limit}"


def main():
    print("| operation | tlxCore | peer | peer's time | ratio |\n|---|---|---|---|---|")
    found = []
    for path in sys.argv[1:]:
        print("\n".join(rows(medians(path))))
        found += faults(medians(path))
    print("\n".join(found), file=sys.stderr, end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
