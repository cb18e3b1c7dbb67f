#!/usr/bin/env python3
"""One-time codes computed apart from the library, with exact fractions and Python's own HMAC.

usage: one_time_codes.py              prints OneTimeCodeRows.inc
       one_time_codes.py --check FILE  fails when FILE is not what would be printed
"""
import base64
import hashlib
import hmac
import struct
import sys
from fractions import Fraction
from math import floor

# key, epoch in s, step in s, digits, time in ms
CASES = [
    (b"12345678901234567890", 0, 30, 6, 59000),
    (b"12345678901234567890", 0, 30, 8, 1111111109000),
    (b"12345678901234567890", 0, 30, 8, 20000000000000),
    (b"secret", 1000000000, 60, 6, 1700000000000),
    (b"secret", 1000000000, 60, 9, 1700000000000),
    (b"secret", 1000000000, 60, 10, 1700000000000),
    (b"secret", 1000000000, 60, 18, 1700000000000),
    (b"secret", 1000000000, 60, 1, 1700000000000),
    (b"", 0, 1, 6, 0),
    (b"\x00\xff\x80binary", 12345, 7, 6, 1234567890123),
    (b"k" * 64, 0, 86400, 6, 1718000000000),
    (b"k" * 65, 0, 86400, 6, 1718000000000),
    (b"secret", 1700000100, 30, 6, 1700000000000),
    (b"secret", 1700000000, 30, 6, 1699999999999),
    (b"secret", 0, 4294967295, 6, 1700000000000),
    (b"secret", 5000000000, 30, 6, 1700000000000),
]


def code(key, t0, step, digits, msecs):
    counter = floor((Fraction(msecs, 1000) - t0) / step)
    mac = hmac.new(key, struct.pack("<q", counter), hashlib.sha1).digest()
    (number,) = struct.unpack("<i", base64.b64encode(mac)[:4])
    value = ((number >> 1) & 0xFFFFFFFF) % 10**digits
    return counter, value, str(value).zfill(digits)[-digits:]


def header():
    lines = ["// Made by one_time_codes.py; do not edit.",
             "// key in hexadecimal, epoch (s), step (s), digits, time (ms), counter, value, text"]
    for key, t0, step, digits, msecs in CASES:
        counter, value, text = code(key, t0, step, digits, msecs)
        lines.append(f'{{"{key.hex()}", {t0}u, {step}u, {digits}, {msecs}, {counter}, {value}u, "{text}"}},')
    return "\n".join(lines) + "\n"


def main():
    if sys.argv[1:2] != ["--check"]:
        print(header(), end="")
        return 0
    with open(sys.argv[2], encoding="utf-8") as file:
        same = file.read() == header()
    print("the rows are those of the script" if same else "the rows differ from the script's: make them again")
    return 0 if same else 1


if __name__ == "__main__":
    sys.exit(main())
