#!/usr/bin/env python3
"""gdb shows the values of tests/debugger/values.cpp as written here, and no printer throws, under LC_ALL=C neither.

usage: check_gdb.py [--without-symbols PACKAGE] [--debug-files FOLDER] GDB PROGRAM PRINTERS
Without the library's debug symbols, some values say that they need PACKAGE, which has them.
"""
import argparse
import os
import subprocess
import sys

DAMAGED = "*(CTime*)damaged"
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
    "micro": "CTime(7 \u00b5s)",
    "odd": "CTime(5 unit 7)",
    DAMAGED: "CTime(unreadable)",
    "*(CVariant*)damaged": "CVariant(unreadable)",
    "*(CSubDeviceItem*)damaged": "CSubDeviceItem(unreadable)",
    "*(CDeviceItem*)damaged": "CDeviceItem(unreadable)",
    "*(CTarFileInfo*)damaged": "CTarFileInfo(unreadable)",
    "*(CDeviceList*)ring": "CDeviceList(unreadable)",
    "made": "CDateTime(2024-03-05T13:07:09.450 UTC)",
    "shifted": "CDateTime(2024-03-05T13:07:09.450 offset)",
    "never": "CDateTime(invalid)",
    "address": "CIPv6Address(fe80:0:0:0:0:0:0:1)",
    "board": 'CDeviceHardwareId("A012_003_-_Board")',
    "motor": 'CMotorBaseName(manufacturer "ACME", name "M100", number "1")',
    "brake": 'CSubDeviceItem(0, "Brake")',
    "noItem": "CDeviceItem()",
    "lift": 'CDeviceItem(name "Lift", hostAddrType 2, hostAddress 192.168.0.7, port 1700, extraText "left", '
            'configurationName "std", flag2 true, value2 -1, subDevices {3: CSubDeviceItem(3, "Brake"), '
            '5: CSubDeviceItem(5, "Gate"), 9: CSubDeviceItem(9, "Fan")})',
    "hall": 'CDeviceList(name "Hall", sourceType 4, devices {70000: CDeviceItem(number 70000, '
            'hostAddress fe80:0:0:0:0:0:0:1)})',
    "twins": 'CDeviceList(devices {7: CDeviceItem(number 7, name "Second"), 7: CDeviceItem(number 7, name "First")})',
    "link": 'CTarFileInfo(TYPE_SYMLINK, name "now", linkName "v2", pos 512)',
}


def expected(options, language):
    for name, text in EXPECTED.items():
        kind = text.partition("(")[0]
        if options.without_symbols and kind in ("CTime", "CDateTime", "CIPv6Address", "CDeviceHardwareId", "CMotorBaseName"):
            if name == DAMAGED:  # gdb cannot even name the class
                continue
            text = f"{kind}(needs {options.without_symbols})"
        yield name, text.replace("\u00b5", "\\xb5") if language == "C" else text


def faults_of(options, language):
    command = [options.gdb, "-nx", "-batch", "-iex", "set auto-load off"]
    if options.debug_files:
        command += ["-iex", f"set debug-file-directory {options.debug_files}"]
    command += ["-ex", f"source {options.printers}", "-ex", "break done", "-ex", "run", "-ex", "up"]
    for name in EXPECTED:
        command += ["-ex", f"printf \"= {name} \"", "-ex", f"output {name}", "-ex", "printf \"\\n\""]
    run = subprocess.run(command + [options.program], capture_output=True, text=True, encoding="utf-8", timeout=120,
                         env=dict(os.environ, LC_ALL=language))
    shown = dict(line[2:].split(" ", 1) for line in run.stdout.splitlines() if line.startswith("= "))
    faults = [f"{language}: {name}: {shown.get(name)!r} instead of {text!r}"
              for name, text in expected(options, language) if shown.get(name) != text]
    faults += [f"{language}: {line}" for line in run.stderr.splitlines() if "Python" in line or "Traceback" in line]
    return faults + ([run.stdout, run.stderr] if faults else [])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--without-symbols", metavar="PACKAGE")
    parser.add_argument("--debug-files")
    parser.add_argument("gdb")
    parser.add_argument("program")
    parser.add_argument("printers")
    options = parser.parse_args()
    faults = faults_of(options, "C.UTF-8") + faults_of(options, "C")
    symbols = "without" if options.without_symbols else "with"
    print("\n".join(faults) or f"{len(dict(expected(options, 'C')))} values, {symbols} symbols")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
