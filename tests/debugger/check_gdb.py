#!/usr/bin/env python3
"""gdb shows the values of tests/debugger/values.cpp as written here.

usage: check_gdb.py GDB PROGRAM PRINTERS
"""
import subprocess
import sys

EXPECTED = {
    "axis": 'CString32("Axis \\u00221\\u0022")',
    "empty": 'CString128("")',
    "nothing": 'CVariant("UNKNOWN", invalid)',
    "u16": 'CVariant("U16", 31)',
    "i64": 'CVariant("I64", -5)',
    "f64": 'CVariant("F64", 2.5)',
    "narrowDefault": 'CVariant("U8", 0)',
    "text": 'CVariant("STRING64", "Feed")',
    "character": 'CVariant("UTF16CHAR", "A")',
    "bytes": 'CVariant("CHARSTR64", "abc")',
    "record": 'CVariant("DATETIME", 2018-05-04T13:22:10.56)',
    "period": "CTime(1500 ms)",
    "odd": "CTime(5 unit 7)",
    "made": "CDateTime(2024-03-05T13:07:09.450 UTC)",
    "never": "CDateTime(invalid)",
    "address": "CIPv6Address(fe80:0:0:0:0:0:0:1)",
    "board": 'CDeviceHardwareId("A012_003_-_Board")',
}


def main():
    gdb, program, printers = sys.argv[1:4]
    command = [gdb, "-nx", "-batch", "-iex", "set auto-load off", "-ex", f"source {printers}", "-ex", "break done",
               "-ex", "run", "-ex", "up"]
    for name in EXPECTED:
        command += ["-ex", f"printf \"= {name} \"", "-ex", f"output {name}", "-ex", "printf \"\\n\""]
    run = subprocess.run(command + [program], capture_output=True, text=True, encoding="utf-8", timeout=120)
    shown = dict(line[2:].split(" ", 1) for line in run.stdout.splitlines() if line.startswith("= "))
    faults = [f"{name}: {shown.get(name)!r} instead of {text!r}" for name, text in EXPECTED.items()
              if shown.get(name) != text]
    print("\n".join(faults) or f"{len(EXPECTED)} values")
    if faults:
        print(run.stdout, run.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
