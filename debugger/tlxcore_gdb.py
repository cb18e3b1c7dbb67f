"""Readable values of tlxCore's types in gdb.

Load it with `source tlxcore_gdb.py`, or put that line into ~/.gdbinit. Values show as
    CString32("Axis 1")    CVariant("U16", 31)    CTime(1500 ms)    CDateTime(2024-03-05T13:07:09.450 UTC)
Qt's own printers are not needed. The layouts of QString, QByteArray, QVariant and QDateTime are those of Qt 5.15.
"""
import datetime
import struct

import gdb
import gdb.printing

TIME_UNITS = ("ps", "ns", "µs", "ms", "s", "min", "h")
EPOCH = datetime.datetime(1970, 1, 1)


def memory(address, size):
    return bytes(gdb.selected_inferior().read_memory(int(address), size))


def quoted(text):
    return '"' + "".join(c if c.isprintable() and c not in '"\\' else "\\u%04x" % ord(c) for c in text) + '"'


def utf16(data):
    text = data.decode("utf-16-le", "replace")
    return text.split("\0", 1)[0]


def array_data(pointer):
    """The bytes of a QString's or QByteArray's block, and how many elements it has."""
    _, size, _, offset = struct.unpack("<iiIxxxxq", memory(pointer, 24))
    return int(pointer) + offset, size


def qstring(value):
    address, size = array_data(value["d"])
    return memory(address, 2 * size).decode("utf-16-le", "replace")


def qbytearray(pointer):
    address, size = array_data(pointer)
    return memory(address, size)


def address_of(value):
    return int(value.address)


def record_text(data):
    """An NTypes::tsDateTime as yyyy-MM-ddTHH:mm:ss.zz."""
    hundredths, second, minute, hour, day, month, year = struct.unpack("<bbbbbbh", data)
    return "%04d-%02d-%02dT%02d:%02d:%02d.%02d" % (year, month, day, hour, minute, second, hundredths)


class Printer:
    def __init__(self, value):
        self.value = value


class FixedString(Printer):
    UNITS = {"CString32": 32, "CString64": 64, "CString128": 128}
    FIRST_UNIT = 16   # behind the reference count, aligned

    def to_string(self):
        name = self.value.type.strip_typedefs().unqualified().name
        return "%s(%s)" % (name, quoted(fixed_text(address_of(self.value), self.UNITS[name])))


def fixed_text(handle, units):
    """The text of the CStringN whose object lies at `handle`: virtual table, then the pointer to its block."""
    block = struct.unpack("<Q", memory(handle + 8, 8))[0]
    return utf16(memory(block + FixedString.FIRST_UNIT, 2 * units))


class Variant(Printer):
    NUMBERS = {2: "<i", 3: "<I", 4: "<q", 5: "<Q", 6: "<d", 32: "<q", 33: "<h", 35: "<Q", 36: "<H", 37: "<B",
               38: "<f", 40: "<b"}
    CHARACTER, BYTE_ARRAY, USER = 7, 12, 1024

    def to_string(self):
        tag = str(self.value["mType"]).rpartition("TYPE_")[2] or str(int(self.value["mType"]))
        return "CVariant(%s, %s)" % (quoted(tag), self.payload(tag))

    def payload(self, tag):
        private = self.value["mValue"]["d"]
        data = address_of(private["data"])
        kind = int(private["type"])
        if int(private["is_shared"]):
            data = struct.unpack("<Q", memory(struct.unpack("<Q", memory(data, 8))[0], 8))[0]
        if kind == 0:
            return "invalid"
        if kind in self.NUMBERS:
            form = self.NUMBERS[kind]
            return repr(struct.unpack(form, memory(data, struct.calcsize(form)))[0])
        if kind == self.CHARACTER:
            return quoted(memory(data, 2).decode("utf-16-le", "replace"))
        if kind == self.BYTE_ARRAY:
            return quoted(qbytearray(struct.unpack("<Q", memory(data, 8))[0]).split(b"\0", 1)[0].decode("latin-1"))
        if kind >= self.USER and tag.startswith("STRING"):
            return quoted(fixed_text(data, int(tag[len("STRING"):])))
        if kind >= self.USER and tag == "DATETIME":
            return record_text(memory(data, 8))
        return "Qt type %d" % kind


class Time(Printer):
    def to_string(self):
        data = self.value["d"]["d"].dereference()
        unit = int(data["unit"])
        name = TIME_UNITS[unit] if 0 <= unit < len(TIME_UNITS) else "unit %d" % unit
        return "CTime(%d %s)" % (int(data["value"]), name)


class DateTime(Printer):
    SHORT, VALID = 0x01, 0x08
    ZONES = ("local", "UTC", "offset", "zone")

    def to_string(self):
        word = memory(address_of(self.value["mDateTime"]), 8)
        if word[0] & self.SHORT:
            status, msecs = word[0], struct.unpack("<q", word)[0] >> 8
        else:
            status, msecs = struct.unpack("<iq", memory(struct.unpack("<Q", word)[0] + 4, 12))
        if not status & self.VALID:
            return "CDateTime(invalid)"
        try:
            text = (EPOCH + datetime.timedelta(milliseconds=msecs)).isoformat(timespec="milliseconds")
        except OverflowError:
            text = "%d ms" % msecs
        return "CDateTime(%s %s)" % (text, self.ZONES[(status >> 4) & 3])


class IPv6Address(Printer):
    def to_string(self):
        groups = struct.unpack("<8H", memory(address_of(self.value["mBytes"]), 16))
        return "CIPv6Address(%s)" % ":".join("%x" % group for group in groups)


class HardwareId(Printer):
    UNSET = 0xFFFF

    def to_string(self):
        numbers = [int(self.value[name]) for name in ("mPlatform", "mVersion", "mRevision")]
        parts = ["-" if number == self.UNSET else "%03d" % number for number in numbers]
        text = qstring(self.value["mPrefix"]) + "_".join(parts)
        name = qstring(self.value["mName"])
        return "CDeviceHardwareId(%s)" % quoted(text + ("_" + name if name else ""))


def build():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("tlxCore")
    for pattern, printer in ((r"^CString(32|64|128)$", FixedString), (r"^CVariant$", Variant), (r"^CTime$", Time),
                             (r"^CDateTime$", DateTime), (r"^CIPv6Address$", IPv6Address),
                             (r"^CDeviceHardwareId$", HardwareId)):
        printers.add_printer(pattern, pattern, printer)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), build(), replace=True)
