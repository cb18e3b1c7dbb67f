#!/usr/bin/env python3
"""Pipes random values of every class between two builds of `exchange`, one of each Qt.

usage: exchange.py PROGRAM OTHER [COUNT [SEED]]

Both write the same bytes for the same values, at every stream version up to Qt 5.15's. What one writes the other reads,
and writes again as its writer does. In the formats that each Qt writes when nobody sets a version the bytes may differ;
the values that are read may not.
"""
import subprocess
import sys


class Fault(Exception):
    pass


def pipe(*commands):
    """The lines that come out of programs of which each reads what the one before it writes."""
    first, *others = commands
    processes = [subprocess.Popen(first, stdout=subprocess.PIPE, stdin=subprocess.DEVNULL)]
    for command in others:
        processes.append(subprocess.Popen(command, stdin=processes[-1].stdout, stdout=subprocess.PIPE))
        processes[-2].stdout.close()
    output = processes[-1].communicate()[0].decode()
    for process in processes:
        if process.wait() != 0:
            raise Fault(f"{process.args} ended with {process.returncode}")
    return output.splitlines()


def same(what, left, right):
    if len(left) != len(right):
        raise Fault(f"{what}: {len(left)} and {len(right)} values")
    for one, other in zip(left, right):
        if one != other:
            raise Fault(f"{what}:\n{one}\n{other}")
    print(f"{what}: {len(left)} values")


def main():
    programs = sys.argv[1:3]
    count, seed = (sys.argv[3:] + ["10000", "1"][len(sys.argv) - 3:])[:2]
    a, b = programs
    try:
        written = pipe([a, "write", count, seed])
        if len(written) != 17 * int(count):
            raise Fault(f"{len(written)} values instead of 17 classes of {count}")
        same("written by both", written, pipe([b, "write", count, seed]))
        copied = pipe([a, "write", count, seed], [a, "copy"])
        same("from the first to the second", copied, pipe([a, "write", count, seed], [b, "copy"]))
        same("and back", copied, pipe([a, "write", count, seed], [b, "copy"], [a, "copy"]))
        same("from the second to the first and back", copied, pipe([b, "write", count, seed], [a, "copy"], [b, "copy"]))
        newest = pipe([a, "write-newest", count, seed], [a, "copy-newest"])
        same("from the first to the second, newest format", newest,
             pipe([a, "write-newest", count, seed], [b, "copy-newest"]))
        same("from the second to the first, newest format", newest,
             pipe([b, "write-newest", count, seed], [a, "copy-newest"]))
    except Fault as fault:
        print(fault)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
