"""Readable values of tlxCore's types in gdb.

Load it with `source tlxcore_gdb.py`, or put that line into ~/.gdbinit. Values show as
    CString32("Axis 1")    CVariant("U16", 31)    CTime(1500 ms)    CDateTime(2024-03-05T13:07:09.450 UTC)
Qt's own printers are not needed. The classes Qt5 and Qt6 know how QString, QByteArray, QVariant, QMap and QHostAddress lie in
memory in Qt 5.15 and in Qt 6 on 64 bits, with the C++ library of GCC. QDateTime is the same in both.

A class whose virtual destructor is in the library, and what a class hides from its header, is described in the library's
debug symbols alone. Without them such a value shows as
    CTime(needs libtlxcore1-dbgsym)
or, with the library for Qt 6, as
    CTime(needs libtlxcoreqt6-1-dbgsym)
and a value that does not exist yet, or is damaged, as
    CTime(unreadable)
No printer throws.
"""
import datetime
import os
import struct

import gdb
import gdb.printing

TIME_UNITS = ("ps", "ns", "µs", "ms", "s", "min", "h")
EPOCH = datetime.datetime(1970, 1, 1)
PIECE = 1 << 20


def memory(address, size):
    """Bytes of the program. In pieces: gdb would reserve all the memory that a damaged size asks for, and end without it."""
    if size < 0:
        raise ValueError("negative size")
    read = gdb.selected_inferior().read_memory
    return b"".join(bytes(read(address + start, min(PIECE, size - start))) for start in range(0, size, PIECE))


def pointer_at(address):
    return struct.unpack("<Q", memory(address, 8))[0]


def address_of(value):
    return int(value.address)


def writable(text):
    """The text in characters that gdb can write: "\\u" and the code for the others."""
    try:
        charset = gdb.host_charset()
    except AttributeError:  # before gdb 12
        charset = "ascii"
    try:
        "".encode(charset)
    except LookupError:
        charset = "ascii"
    return text.encode(charset, "backslashreplace").decode(charset)


def quoted(text):
    return '"' + "".join(c if c.isprintable() and c not in '"\\' else "\\u%04x" % ord(c) for c in text) + '"'


def utf16(data):
    text = data.decode("utf-16-le", "replace")
    return text.split("\0", 1)[0]


class Qt5:
    """How the objects of Qt 5.15 lie in memory."""
    SYMBOLS = "libtlxcore1-dbgsym"
    FIRST_USER_TYPE = 1024
    HOST_ADDRESS = 16                # after the reference count and the scope, a QString
    LEFT, RIGHT, ENTRY = 8, 16, 24   # of a map's node

    @staticmethod
    def array(address):
        """The address and the number of a QString's or QByteArray's elements."""
        block = pointer_at(address)
        _, size, _, offset = struct.unpack("<iiIxxxxq", memory(block, 24))
        return block + offset, size

    @staticmethod
    def map_root(address):
        """The top node of a QMap, 0 for none. The map's data are reference count and size, then a node above the root."""
        return pointer_at(pointer_at(address) + 8 + Qt5.LEFT)

    @staticmethod
    def variant(private):
        """The number of the type and the address of the value in a QVariant."""
        data = address_of(private["data"])
        return int(private["type"]), pointer_at(pointer_at(data)) if int(private["is_shared"]) else data


class Qt6:
    """How the objects of Qt 6 lie in memory; the functions answer as those of Qt5."""
    SYMBOLS = "libtlxcoreqt6-1-dbgsym"
    FIRST_USER_TYPE = 65536
    HOST_ADDRESS = 32
    LEFT, RIGHT, ENTRY = 16, 24, 32

    @staticmethod
    def array(address):
        return struct.unpack("<8xQq", memory(address, 24))

    @staticmethod
    def map_root(address):
        """The map's data are reference count, comparison, then a node whose parent is the root; an empty map may lack them."""
        data = pointer_at(address)
        return pointer_at(data + 16 + 8) if data else 0

    @staticmethod
    def variant(private):
        """A type is a pointer to its description. One of a program has no number there until it is registered."""
        kind, data = int(private["packedType"]) << 2, address_of(private["data"])
        if int(private["is_shared"]):
            block = pointer_at(data)
            data = block + struct.unpack("<i", memory(block + 4, 4))[0]
        number = struct.unpack("<i", memory(kind + 12, 4))[0] if kind else 0
        return (number or Qt6.FIRST_USER_TYPE) if kind else 0, data


QT6_SIZES = {"QString": 24, "QVariant": 32}


def qt_of(kind):
    """The Qt of a class: by the size of the text or variant that it has, else by the library that is loaded."""
    for field in members(kind):
        size = QT6_SIZES.get(field.type.strip_typedefs().unqualified().name)
        if size:
            return Qt6 if field.type.sizeof == size else Qt5
    libraries = (os.path.basename(loaded.filename or "") for loaded in gdb.objfiles())
    return Qt6 if any("tlxCoreQt6" in library for library in libraries) else Qt5


def members(kind):
    """What the debug symbols say of a class; nothing without them."""
    try:
        return kind.fields()
    except (gdb.error, TypeError):
        return []


def qstring(qt, value):
    address, size = qt.array(address_of(value))
    return memory(address, 2 * size).decode("utf-16-le", "replace")


def map_nodes(qt, value):
    """The addresses of a map's nodes, in order."""
    pending, node, seen = [], qt.map_root(address_of(value)), set()
    while pending or node:
        while node:
            if node in seen:
                raise ValueError("the nodes are a ring")
            seen.add(node)
            pending.append(node)
            node = pointer_at(node + qt.LEFT)
        node = pending.pop()
        yield node
        node = pointer_at(node + qt.RIGHT)


def map_items(qt, value):
    """Key and value of each entry of a map."""
    key_type, item_type = (value.type.strip_typedefs().template_argument(number) for number in (0, 1))
    for node in map_nodes(qt, value):
        key = node + qt.ENTRY
        item = key + max(key_type.sizeof, item_type.alignof)
        yield (int(gdb.Value(key).cast(key_type.pointer()).dereference()),
               gdb.Value(item).cast(item_type.pointer()).dereference())


def host_address(qt, value):
    """A QHostAddress: 16 bytes of IPv6, IPv4 and the protocol, whose -1 is a null address."""
    ip6, ip4, protocol = struct.unpack("<16sIb", memory(pointer_at(address_of(value)) + qt.HOST_ADDRESS, 21))
    if protocol == -1:
        return ""
    if protocol == 0:
        return ".".join(str(ip4 >> shift & 255) for shift in (24, 16, 8, 0))
    return "any" if protocol == 2 else ":".join("%x" % group for group in struct.unpack(">8H", ip6))


def record_text(data):
    """An NTypes::tsDateTime as yyyy-MM-ddTHH:mm:ss.zz."""
    hundredths, second, minute, hour, day, month, year = struct.unpack("<bbbbbbh", data)
    return "%04d-%02d-%02dT%02d:%02d:%02d.%02d" % (year, month, day, hour, minute, second, hundredths)


class Printer:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        kind = self.value.type.strip_typedefs().unqualified()
        try:
            self.qt = qt_of(kind)
            text = "%s(%s)" % (kind.name, self.content())
        except Exception:  # whatever it was, gdb goes on showing values
            text = "%s(%s)" % (kind.name, "unreadable" if members(kind) else "needs " + qt_of(kind).SYMBOLS)
        return writable(text)

    def text(self, name):
        """The member of this name, a QString, in quotes."""
        return quoted(qstring(self.qt, self.value[name]))

    def entries(self, name, printer):
        """The member of this name, a map whose values the printer shows; nothing for an empty one."""
        shown = ", ".join("%d: %s" % (key, printer(item).to_string()) for key, item in map_items(self.qt, self.value[name]))
        return "{%s}" % shown if shown else ""


def fields(pairs):
    """The fields that are not at their default."""
    return ", ".join("%s %s" % (name, text) for name, text in pairs if text not in ("", '""', "0", "false"))


class FixedString(Printer):
    UNITS = {"CString32": 32, "CString64": 64, "CString128": 128}
    FIRST_UNIT = 16   # after the reference count, aligned

    def content(self):
        name = self.value.type.strip_typedefs().unqualified().name
        return quoted(fixed_text(address_of(self.value), self.UNITS[name]))


def fixed_text(handle, units):
    """The text of the CStringN whose object lies at `handle`: virtual table, then the pointer to its block."""
    return utf16(memory(pointer_at(handle + 8) + FixedString.FIRST_UNIT, 2 * units))


class Variant(Printer):
    NUMBERS = {2: "<i", 3: "<I", 4: "<q", 5: "<Q", 6: "<d", 32: "<q", 33: "<h", 35: "<Q", 36: "<H", 37: "<B",
               38: "<f", 40: "<b"}
    CHARACTER, BYTE_ARRAY = 7, 12

    def content(self):
        tag = str(self.value["mType"]).rpartition("TYPE_")[2] or str(int(self.value["mType"]))
        return "%s, %s" % (quoted(tag), self.payload(tag))

    def payload(self, tag):
        kind, data = self.qt.variant(self.value["mValue"]["d"])
        if kind == 0:
            return "invalid"
        if kind in self.NUMBERS:
            form = self.NUMBERS[kind]
            return repr(struct.unpack(form, memory(data, struct.calcsize(form)))[0])
        if kind == self.CHARACTER:
            return quoted(memory(data, 2).decode("utf-16-le", "replace"))
        if kind == self.BYTE_ARRAY:
            return quoted(memory(*self.qt.array(data)).split(b"\0", 1)[0].decode("latin-1"))
        if kind >= self.qt.FIRST_USER_TYPE and tag.startswith("STRING"):
            return quoted(fixed_text(data, int(tag[len("STRING"):])))
        if kind >= self.qt.FIRST_USER_TYPE and tag == "DATETIME":
            return record_text(memory(data, 8))
        return "Qt type %d" % kind


class Time(Printer):
    def content(self):
        data = self.value["d"]["d"].dereference()
        unit = int(data["unit"])
        name = TIME_UNITS[unit] if 0 <= unit < len(TIME_UNITS) else "unit %d" % unit
        return "%d %s" % (int(data["value"]), name)


class DateTime(Printer):
    SHORT, VALID = 0x01, 0x08
    ZONES = ("local", "UTC", "offset", "zone")

    def content(self):
        word = memory(address_of(self.value["mDateTime"]), 8)
        if word[0] & self.SHORT:
            status, msecs = word[0], struct.unpack("<q", word)[0] >> 8
        else:
            status, msecs = struct.unpack("<iq", memory(struct.unpack("<Q", word)[0] + 4, 12))
        if not status & self.VALID:
            return "invalid"
        try:
            text = (EPOCH + datetime.timedelta(milliseconds=msecs)).isoformat(timespec="milliseconds")
        except OverflowError:
            text = "%d ms" % msecs
        return "%s %s" % (text, self.ZONES[(status >> 4) & 3])


class IPv6Address(Printer):
    def content(self):
        groups = struct.unpack("<8H", memory(address_of(self.value["mBytes"]), 16))
        return ":".join("%x" % group for group in groups)


class HardwareId(Printer):
    UNSET = 0xFFFF

    def content(self):
        numbers = [int(self.value[name]) for name in ("mPlatform", "mVersion", "mRevision")]
        parts = ["-" if number == self.UNSET else "%03d" % number for number in numbers]
        text = qstring(self.qt, self.value["mPrefix"]) + "_".join(parts)
        name = qstring(self.qt, self.value["mName"])
        return quoted(text + ("_" + name if name else ""))


class MotorBaseName(Printer):
    def content(self):
        return fields((name[1:].lower(), self.text(name)) for name in ("mManufacturer", "mName", "mNumber"))


class SubDeviceItem(Printer):
    def content(self):
        return "%d, %s" % (int(self.value["number"]), self.text("name"))


class DeviceItem(Printer):
    NUMBERS = ("value1", "value2")
    TEXTS = ("extraText", "extraText2")

    def content(self):
        value = self.value
        return fields([("number", str(int(value["number"]))), ("name", self.text("name")),
                       ("hostAddrType", str(int(value["hostAddrType"]))),
                       ("hostAddress", host_address(self.qt, value["hostAddress"])), ("port", str(int(value["port"])))]
                      + [(name, self.text(name)) for name in self.TEXTS]
                      + [("configurationName", self.text("mConfigurationName"))]
                      + [(name, "true" if int(value[name]) else "") for name in ("flag1", "flag2")]
                      + [(name, str(int(value[name]))) for name in self.NUMBERS]
                      + [("subDevices", self.entries("subDevices", SubDeviceItem))])


class DeviceList(Printer):
    def content(self):
        value = self.value
        return fields([("name", self.text("name")), ("sourceType", str(int(value["sourceType"]))),
                       ("devices", self.entries("devices", DeviceItem))])


class TarFileInfo(Printer):
    TYPES = ("TYPE_INVALID", "TYPE_FILE", "TYPE_SYMLINK", "TYPE_DIRECTORY")

    def content(self):
        value, kind = self.value, int(self.value["mType"])
        name = self.TYPES[kind] if 0 <= kind < len(self.TYPES) else "type %d" % kind
        rest = fields([("name", self.text("mName")), ("linkName", self.text("mLinkName")),
                       ("size", str(int(value["mSize"]))), ("pos", str(int(value["mPos"])))])
        return ", ".join(part for part in (name, rest) if part)


def build():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("tlxCore")
    for pattern, printer in ((r"^CString(32|64|128)$", FixedString), (r"^CVariant$", Variant), (r"^CTime$", Time),
                             (r"^CDateTime$", DateTime), (r"^CIPv6Address$", IPv6Address),
                             (r"^CDeviceHardwareId$", HardwareId), (r"^CMotorBaseName$", MotorBaseName),
                             (r"^CSubDeviceItem$", SubDeviceItem), (r"^CDeviceItem$", DeviceItem),
                             (r"^CDeviceList$", DeviceList), (r"^CTarFileInfo$", TarFileInfo)):
        printers.add_printer(pattern, pattern, printer)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), build(), replace=True)
