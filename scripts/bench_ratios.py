#!/usr/bin/env python3
"""Prints the ratios of our benchmarks to their peers, from Google Benchmark's JSON files, as a Markdown table.

usage: bench_ratios.py FILE.json…

A benchmark is named BM_Operation/who[/arguments]; "tlx…" is ours, everything else a peer. Ours is paired with every
peer of the same operation and arguments. The figures are medians of the repetitions.
"""
import json
import sys


def medians(path):
    with open(path, encoding="utf-8") as file:
        runs = json.load(file)["benchmarks"]
    result = {}
    for run in runs:
        if run.get("aggregate_name") != "median":
            continue
        parts = [p for p in run["run_name"].split("/")
                 if not p.startswith(("repeats:", "min_time:", "real_time", "process_time", "threads:"))]
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


def main():
    print("| operation | tlxCore | peer | peer's time | ratio |\n|---|---|---|---|---|")
    for path in sys.argv[1:]:
        print("\n".join(rows(medians(path))))


if __name__ == "__main__":
    main()
