#!/usr/bin/env python3
"""Writes the device-list files of this folder, byte by byte and apart from the library.

usage: make_device_lists.py            writes the files into devices/ beside this script
       make_device_lists.py --check    fails when they are not what would be written
"""
import pathlib
import socket
import struct
import sys

FOLDER = pathlib.Path(__file__).resolve().parent / "devices"


class Writer:
    """The parts of a device list in Qt's data stream format."""

    def __init__(self, order=">"):
        self.order = order

    def number(self, value, kind="I"):
        return struct.pack(self.order + kind, value)

    def text(self, value):
        if value is None:
            return self.number(0xFFFFFFFF)
        units = value.encode("utf-16-be" if self.order == ">" else "utf-16-le")
        return self.number(len(units)) + units

    def address(self, value):
        if value is None:
            return b"\xff"
        if ":" in value:
            return b"\x01" + socket.inet_pton(socket.AF_INET6, value) + self.text(None)
        return b"\x00" + self.number(struct.unpack(">I", socket.inet_aton(value))[0])

    def entries(self, map_entries, key_kind, write):
        """A map: from the highest key down; entries of one key in the order given."""
        ordered = sorted(map_entries, key=lambda entry: -entry[0])
        return self.number(len(ordered)) + b"".join(
            self.number(key, key_kind) + write(value) for key, value in ordered)

    def sub_device(self, value):
        number, name = value
        return self.number(number, "B") + self.text(name)

    def device(self, value):
        d = {"number": 0, "name": None, "type": 0, "address": None, "port": 0, "extra": None, "extra2": None,
             "configuration": None, "flag1": 0, "flag2": 0, "value1": 0, "value2": 0, "subs": []} | value
        return (self.number(d["number"]) + self.text(d["name"]) + self.number(d["type"], "i")
                + self.address(d["address"]) + self.number(d["port"], "H") + self.text(d["extra"])
                + self.text(d["extra2"]) + self.text(d["configuration"]) + bytes([d["flag1"], d["flag2"]])
                + self.number(d["value1"], "i") + self.number(d["value2"], "i")
                + self.entries(d["subs"], "B", self.sub_device))

    def head(self, name, source):
        return self.text(name) + self.number(source, "i")

    def list(self, name, source, devices):
        return self.head(name, source) + self.entries(devices, "I", self.device)


LIFT = {"number": 5, "name": "Lift", "type": 1, "address": "192.168.0.7", "port": 1700, "extra": "left",
        "configuration": "lift.cfg", "flag1": 1, "value1": -2, "value2": 1,
        "subs": [(3, (3, "Brake")), (200, (200, "Fan"))]}
GATE = {"number": 300, "name": "T\u00fcr \u65e5", "type": 2, "address": "fe80::1", "port": 65535, "value2": 7}
BARE = {"number": 4294967295}


def corrupt(data):
    """The kind of the second device's address becomes one that Qt does not know."""
    at = data.index(b"\x00\xc0\xa8\x00\x07")
    return data[:at] + b"\x2a" + data[at + 1:]


def files():
    big, little = Writer(">"), Writer("<")
    hall = ("Hall 3", 1, [(5, LIFT), (300, GATE), (4294967295, BARE)])
    two = big.list("Two", 0, [(5, LIFT), (300, GATE)])
    return {
        "empty.devices": big.list(None, 0, []),
        "hall.devices": big.list(*hall),
        "hall-little-endian.devices": little.list(*hall),
        # Two devices of one number, as uniting leaves them: the one that comes later in the file is first in the list.
        "duplicates.devices": big.list("Both", 0, [(3, {"number": 3, "name": "mine"}),
                                                   (3, {"number": 9, "name": "other"})]),
        "corrupt.devices": corrupt(two),
        "truncated.devices": two[:-10],
        "short-head.devices": big.head("Hall 3", 1)[:-1],
        "lying-count.devices": big.head("Liar", 0) + b"\xff\xff\xff\xff" + two[len(big.head("Two", 0)) + 4:],
        "trailing.devices": big.list("Tail", 0, []) + b"tail",
        "escape.devices": big.list("\x1b[2J", 0, []),
    }


def main():
    check = "--check" in sys.argv[1:]
    faults = []
    for name, data in files().items():
        path = FOLDER / name
        if not check:
            path.parent.mkdir(exist_ok=True)
            path.write_bytes(data)
        elif not path.exists() or path.read_bytes() != data:
            faults.append(f"{name} is not what this script writes")
    print("\n".join(faults) or f"{len(files())} files")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
