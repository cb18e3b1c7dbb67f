#!/usr/bin/env python3
"""Compares the golden files with bytes that this script packs itself, apart from the library and from Qt.

usage: check_golden.py [data folder]

Every line of every file is compared, but for date-times of versions and kinds that `date_time` leaves out.
"""
import pathlib
import socket
import struct
import sys
from datetime import date

UMLAUTS = "L\u00e4ufer \u65e5"
VERSIONS = range(7, 20)
QT_4_2, QT_4_6, QT_5_0, QT_5_1, QT_5_2 = 8, 12, 13, 14, 15
JULIAN_DAY_0 = 1721425  # the day before date.toordinal() 1


class Stream:
    """The parts of Qt's data stream format of one version, byte order and precision."""

    def __init__(self, version, order, single):
        self.version, self.order, self.single = version, ">" if order == "big" else "<", single

    def number(self, kind, value):
        return struct.pack(self.order + kind, value)

    def text(self, value):
        if value is None:
            return self.number("I", 0xFFFFFFFF)
        units = value.encode("utf-16-be" if self.order == ">" else "utf-16-le")
        return self.number("I", len(units)) + units

    def bytes(self, value):
        return self.number("I", 0xFFFFFFFF) if value is None else self.number("I", len(value)) + value

    def units(self, count, text, leftovers=""):
        values = [ord(unit) for unit in text] + ([0] + [ord(unit) for unit in leftovers] if len(text) < count else [])
        return b"".join(self.number("H", value) for value in values + [0] * (count - len(values)))

    def float(self, kind, value):
        """From Qt 4.6 on the precision decides over both types."""
        if self.version >= QT_4_6:
            kind = "f" if self.single else "d"
        if kind == "d" and not float("-inf") < value < float("inf"):
            return self.number("d", value)
        if kind == "f":
            try:
                return self.number("f", value)
            except OverflowError:
                return self.number("f", float("-inf") if value < 0 else float("inf"))
        return self.number("d", value)

    def date(self, julian_day):
        if self.version >= QT_5_0:
            return self.number("q", -2**63 if julian_day is None else julian_day)
        return self.number("I", julian_day or 0)

    def time(self, milliseconds):
        return self.number("I", 0xFFFFFFFF if milliseconds is None else milliseconds)

    def variant(self, type_number, value, tag, null=False, name=None):
        if self.version < QT_5_0:
            if type_number == 1024:
                type_number = 127
            elif type_number >= 31:
                type_number += 97
        head = self.number("I", type_number)
        if self.version >= QT_4_2:
            head += bytes([null])
        if name:
            head += self.bytes(name.encode() + b"\0")
        return head + value + self.number("I", tag)

    def own(self, name, value, tag):
        return self.variant(1024, value, tag, name=name)

    def invalid(self, tag):
        return self.variant(0, self.text(None) if self.version < QT_5_0 else b"", tag, null=True)


def day(year, month, day_of_month):
    return date(year, month, day_of_month).toordinal() + JULIAN_DAY_0


def of_day(hour, minute, second, ms):
    return ((hour * 60 + minute) * 60 + second) * 1000 + ms


def record(s):
    return struct.pack("bbbbbb", 56, 10, 22, 13, 4, 5) + s.number("h", 2018)


def numbers(s):
    float32 = struct.unpack("f", struct.pack("f", 0.1))[0]
    return {
        "U8 255": s.variant(37, b"\xff", 1), "I8 -128": s.variant(40, b"\x80", 2),
        "U16 65534": s.variant(36, s.number("H", 65534), 3), "I16 -32767": s.variant(33, s.number("h", -32767), 4),
        "U32 4000000000": s.variant(3, s.number("I", 4000000000), 5), "I32 -2": s.variant(2, s.number("i", -2), 6),
        "F32 0.1": s.variant(38, s.float("f", float32), 7), "F32 inf": s.variant(38, s.float("f", float("inf")), 7),
        "U64 18446744073709551614": s.variant(5, s.number("Q", 2**64 - 2), 8),
        "I64 -9000000000": s.variant(4, s.number("q", -9000000000), 9),
        "F64 0.1": s.variant(6, s.float("d", 0.1), 10), "F64 -1e300": s.variant(6, s.float("d", -1e300), 10),
    }


def texts(s):
    def counted(first, count):
        return s.bytes(bytes(first + i for i in range(count - 1)) + b"\0")

    values = {f"STRING{n} text": s.own(f"CString{n}", s.units(n, UMLAUTS), tag)
              for n, tag in ((32, 12), (64, 17), (128, 14))}
    return values | {
        "CHARSTR64 bytes": s.variant(12, counted(65, 64), 13),
        "CHARSTR128 bytes": s.variant(12, s.bytes(bytes((66 + i) % 256 for i in range(127)) + b"\0"), 18),
        "CHARSTR256 bytes": s.variant(12, s.bytes(bytes((67 + i) % 256 for i in range(255)) + b"\0"), 15),
        "CHARSTR64 parsed": s.variant(12, s.bytes(b"abc"), 13),
        "CHARSTR64 parsed empty": s.variant(12, s.bytes(b""), 13),
        "CHAR c": s.variant(12, s.bytes(b"c"), 20),
        "UTF16CHAR euro": s.variant(7, s.number("H", 0x20AC), 19),
        "UTF16CHAR 0": s.variant(7, s.number("H", 0), 19),
        "DATETIME record": s.own("NTypes::tsDateTime", record(s), 16),
    }


def defaults(s):
    zero = s.number("i", 0)
    values = {"UNKNOWN": s.invalid(0), "F80": s.invalid(11)}
    values |= {name: s.variant(2, zero, tag) for tag, name in enumerate(("U8", "I8", "U16", "I16"), 1)}
    values |= {"U32": s.variant(3, zero, 5), "I32": s.variant(2, zero, 6), "F32": s.variant(38, s.float("f", 0.0), 7),
               "U64": s.variant(5, bytes(8), 8), "I64": s.variant(4, bytes(8), 9),
               "F64": s.variant(6, s.float("d", 0.0), 10),
               "DATETIME": s.own("NTypes::tsDateTime", bytes(8), 16), "UTF16CHAR": s.variant(7, bytes(2), 19)}
    values |= {f"STRING{n}": s.own(f"CString{n}", bytes(2 * n), tag) for n, tag in ((32, 12), (64, 17), (128, 14))}
    values |= {name: s.variant(12, s.bytes(bytes(size)), tag)
               for name, size, tag in (("CHARSTR64", 64, 13), ("CHARSTR128", 128, 18), ("CHARSTR256", 256, 15),
                                       ("CHAR", 1, 20))}
    return {"default " + name: value for name, value in values.items()}


def foreign(s):
    utc = 1 if s.version == QT_5_0 or s.version >= QT_5_2 else 2
    march = day(2024, 3, 5)
    return {
        "bool under I32": s.variant(1, b"\x01", 6),
        "long long under DATETIME": s.variant(4, s.number("q", 0x07E204050D160A38), 16),
        "QString under STRING32": s.variant(10, s.text("ab"), 12),
        "null QString": s.variant(10, s.text(None), 12, null=True),
        "null QByteArray under CHAR": s.variant(12, s.bytes(None), 20, null=True),
        "null int": s.variant(2, bytes(4), 6, null=True),
        "QDate": s.variant(14, s.date(march), 16),
        "QTime": s.variant(15, s.time(0x02DECD00), 16),
        "QDateTime UTC": s.variant(16, s.date(march) + s.time(0x02DECD00) + bytes([utc]), 16),
        "long": s.variant(32, s.number("q", -2), 6), "ulong": s.variant(35, s.number("Q", 0xFFFFFFFE), 5),
        "char": s.variant(34, b"c", 20),
        "tag 255 with an int": s.variant(2, s.number("i", 7), 255),
    }


def fixed_string(n):
    return lambda s: {"empty": bytes(2 * n), "text": s.units(n, UMLAUTS), "full": s.units(n, "x" * n),
                      "leftovers": s.units(n, "xy", "def")}


def date_times(s):
    """The time spec's number: Qt 4's where it is not Qt 5's, which 5.0 and 5.2 and later have. 5.0 writes UTC."""
    new = s.version == QT_5_0 or s.version >= QT_5_2
    five = s.version == QT_5_0

    def at(julian_day, ms, spec, after=b"", shift_hours=0.0):
        if five and ms is not None:
            ms -= int(shift_hours * 3600000)
        return s.date(julian_day) + s.time(ms) + bytes([spec]) + (after if s.version >= QT_5_2 else b"")

    march, time = day(2024, 3, 5), of_day(13, 7, 9, 456)
    local, utc, offset, zone = (0, 1, 2, 3) if new else (255, 2, 3, 4)
    values = {
        "null": at(None, None, local),
        "local": at(march, time, local, shift_hours=1),
        "local summer": at(day(2024, 7, 5), time, local, shift_hours=2),
        "UTC": at(march, time, utc),
        "offset": at(march, time, offset, s.number("i", 19800), 5.5),
        "offset 0": at(march, time, utc),
        "zone": at(march, time, zone, s.text("Asia/Tokyo"), 9),
        "date without time": at(march, 0, utc),
    }
    # Qt's year -44 is the astronomical -43; the calendar repeats every 400 years of 146097 days.
    values["before Christ"] = at(day(-43 + 400, 3, 15) - 146097, of_day(12, 0, 0, 0), utc)
    values["time without date"] = at(None, time, utc)
    values["impossible record"] = at(None, None, utc)
    far = day(9999, 12, 31) + sum(366 if is_leap(year) else 365 for year in range(10000, 32768))
    values["far"] = at(far, of_day(23, 59, 59, 999), utc)
    return values


def is_leap(year):
    return year % 4 == 0 and (year % 100 != 0 or year % 400 == 0)


def devices(s):
    def sub(number, name):
        return bytes([number]) + s.text(name)

    default_sub = "Tollan Sub-Device"

    def device(number=0, name=None, kind=0, address=b"\xff", port=0, extra=None, configuration=None, flags=b"\0\0",
               values=(0, 0), subs=()):
        return (s.number("I", number) + s.text(name) + s.number("i", kind) + address + s.number("H", port)
                + s.text(extra) + s.text(None) + s.text(configuration) + flags + s.number("i", values[0])
                + s.number("i", values[1]) + s.number("I", len(subs))
                + b"".join(bytes([key]) + sub(key, text) for key, text in subs))

    v4 = b"\0" + s.number("I", struct.unpack(">I", socket.inet_aton("192.168.0.7"))[0])
    v6 = b"\x01" + socket.inet_pton(socket.AF_INET6, "fe80::1") + s.text("7")
    full = dict(name="Lift", kind=2, address=v4, port=65535, extra="left", configuration="lift.cfg", flags=b"\0\1",
                values=(-2, 7), subs=((200, default_sub), (3, UMLAUTS)))
    scoped = dict(name="Lift", kind=2, address=v6, port=1)
    anywhere = dict(scoped, address=b"\x02")

    def entry(number, fields):
        return s.number("I", number) + device(number=number, **fields)

    def many(name, kind, entries):
        return (s.text(name) + s.number("i", kind) + s.number("I", len(entries))
                + b"".join(entry(number, fields) for number, fields in entries))

    # The later of two under one number comes first in the list, so last in the stream.
    united = [(4000000000, {}), (7, {}), (5, full), (5, anywhere)]
    return {
        "CSubDeviceItem": {"default": sub(0, default_sub), "named": sub(200, UMLAUTS), "without a name": sub(0, None)},
        "CDeviceItem": {"default": device(), "IPv4": device(**full), "IPv6 with a scope": device(**scoped),
                        "any address": device(**anywhere)},
        "CDeviceList": {"default": many(None, 0, []), "empty": many(UMLAUTS, -3, []),
                        "two devices": many(UMLAUTS, -3, [(4000000000, {}), (5, full)]),
                        "united": many(UMLAUTS, -3, united)},
        "CDeviceItem_EHostAddrType": {"-2": s.number("i", -2)},
        "CDeviceList_ESourceType": {"9": s.number("i", 9)},
    }


def names(s):
    def hardware(prefix, numbers_, name):
        return s.text(prefix) + b"".join(s.number("h", number) for number in numbers_) + s.text(name)

    def motor(*parts):
        return b"".join(s.text(part) for part in parts)

    return {
        "CDeviceHardwareId": {"default": hardware(None, (-1, -1, -1), None), "minimum": hardware(None, (12, -1, -1), None),
                              "full": hardware("A", (12, 3, 999), UMLAUTS)},
        "CMotorBaseName": {"default": motor(None, None, None), "full": motor("ACME", "M100", "1"),
                           "unchecked": motor("", None, UMLAUTS)},
        "CIPv6Address": {"default": bytes(16), "link-local": bytes.fromhex("80fe0000000000000100 0200 cdab ffff")},
    }


def records(s):
    return {
        "NTypes_tsDate": {"year -2": bytes([31, 12]) + s.number("h", -2)},
        "NTypes_tsTime": {"all fields": bytes([99, 59, 255, 23])},
        "NTypes_tsDateTime": {"all fields": record(s)},
        "CTime": {"default": s.number("Q", 0) + s.number("i", 7), "1500 ms": s.number("Q", 1500) + s.number("i", 3),
                  "largest": s.number("Q", 2**64 - 1) + s.number("i", 6)},
    }


def expected(s):
    files = {f"CString{n}": fixed_string(n)(s) for n in (32, 64, 128)}
    files["CVariant"] = numbers(s) | texts(s) | defaults(s) | foreign(s)
    files["CDateTime"] = date_times(s)
    return files | devices(s) | names(s) | records(s)


def check(path, faults, left_out):
    compared = 0
    for line in path.read_text().splitlines():
        name, versions, order, precision, packed = (field.strip() for field in line.split("|"))
        first, last = map(int, versions.split("-"))
        for version in range(first, last + 1):
            for single in (True, False):
                if precision not in ("any", "single" if single else "double"):
                    continue
                value = expected(Stream(version, order, single))[path.stem].get(name)
                if value is None:
                    left_out.add(f"{path.stem} {name}")
                elif value.hex() != packed:
                    faults.append(f"{path.stem} {name}, version {version}, {order}: {packed}, not {value.hex()}")
                compared += value is not None
    return compared


def main():
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent / "data")
    faults, left_out = [], set()
    compared = sum(check(path, faults, left_out) for path in sorted(folder.glob("*.golden")))
    print("\n".join(faults[:20]) or f"{compared} values agree; not packed here: {', '.join(sorted(left_out))}")
    return 1 if faults or compared == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
