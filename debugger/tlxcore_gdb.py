"""Readable values of tlxCore's types in gdb.

Load it with `source tlxcore_gdb.py`, or put that line into ~/.gdbinit. Values show as
    CString32("Axis 1")    CVariant("U16", 31)    CTime(1500 ms)    CDateTime(2024-03-05T13:07:09.450 UTC)
Qt's own printers are not needed. The layouts of QString, QByteArray, QVariant, QDateTime, QMap and QHostAddress are those
of Qt 5.15 on 64 bits.

A class with a virtual destructor, and what a class hides from its header, is described in the library's debug symbols
alone. Without them such a value shows as
    CTime(needs libtlxcore1-dbgsym)
and a value that does not exist yet, or is damaged, as
    CTime(unreadable)
No printer throws.
"""
import datetime
import struct

import gdb
import gdb.printing

TIME_UNITS = ("ps", "ns", "µs", "ms", "s", "min", "h")
EPOCH = datetime.datetime(1970, 1, 1)


def memory(address, size):
    return bytes(gdb.selected_inferior().read_memory(int(address), size))


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


def map_nodes(value):
    """The addresses of a QMap's nodes, in order: three pointers, then key and value."""
    data = int(value["d"])
    pending, node = [], pointer_at(data + 16)  # reference count, size, then the node above the root
    while pending or node:
        while node:
            pending.append(node)
            node = pointer_at(node + 8)
        node = pending.pop()
        yield node
        node = pointer_at(node + 16)


def pointer_at(address):
    return struct.unpack("<Q", memory(address, 8))[0]


def map_items(value):
    """Key and value of each entry of a QMap."""
    key_type, item_type = (value.type.strip_typedefs().template_argument(number) for number in (0, 1))
    for node in map_nodes(value):
        item = node + 24 + max(key_type.sizeof, item_type.alignof)
        yield (int(gdb.Value(node + 24).cast(key_type.pointer()).dereference()),
               gdb.Value(item).cast(item_type.pointer()).dereference())


def host_address(value):
    """A QHostAddress: reference count, scope, 16 bytes of IPv6, IPv4 and the protocol, whose -1 is a null address."""
    ip6, ip4, protocol = struct.unpack("<16sIb", memory(pointer_at(address_of(value)) + 16, 21))
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
    SYMBOLS = "libtlxcore1-dbgsym"

    def __init__(self, value):
        self.value = value

    def to_string(self):
        kind = self.value.type.strip_typedefs().unqualified()
        try:
            text = "%s(%s)" % (kind.name, self.content())
        except Exception:  # whatever it was, gdb goes on showing values
            text = "%s(%s)" % (kind.name, self.fault(kind))
        return writable(text)

    def fault(self, kind):
        return "unreadable" if self.described(kind) else "needs " + self.SYMBOLS

    def described(self, kind):
        try:
            return bool(kind.fields())
        except (gdb.error, TypeError):
            return False


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
    block = struct.unpack("<Q", memory(handle + 8, 8))[0]
    return utf16(memory(block + FixedString.FIRST_UNIT, 2 * units))


class Variant(Printer):
    NUMBERS = {2: "<i", 3: "<I", 4: "<q", 5: "<Q", 6: "<d", 32: "<q", 33: "<h", 35: "<Q", 36: "<H", 37: "<B",
               38: "<f", 40: "<b"}
    CHARACTER, BYTE_ARRAY, USER = 7, 12, 1024

    def content(self):
        tag = str(self.value["mType"]).rpartition("TYPE_")[2] or str(int(self.value["mType"]))
        return "%s, %s" % (quoted(tag), self.payload(tag))

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
        text = qstring(self.value["mPrefix"]) + "_".join(parts)
        name = qstring(self.value["mName"])
        return quoted(text + ("_" + name if name else ""))


class MotorBaseName(Printer):
    def content(self):
        return fields((name[1:].lower(), quoted(qstring(self.value[name]))) for name in ("mManufacturer", "mName", "mNumber"))


class SubDeviceItem(Printer):
    def content(self):
        return "%d, %s" % (int(self.value["number"]), quoted(qstring(self.value["name"])))


class DeviceItem(Printer):
    NUMBERS = ("value1", "value2")
    TEXTS = ("extraText", "extraText2")

    def content(self):
        value = self.value
        return fields([("number", str(int(value["number"]))), ("name", quoted(qstring(value["name"]))),
                       ("hostAddrType", str(int(value["hostAddrType"]))), ("hostAddress", host_address(value["hostAddress"])),
                       ("port", str(int(value["port"])))]
                      + [(name, quoted(qstring(value[name]))) for name in self.TEXTS]
                      + [("configurationName", quoted(qstring(value["mConfigurationName"])))]
                      + [(name, "true" if int(value[name]) else "") for name in ("flag1", "flag2")]
                      + [(name, str(int(value[name]))) for name in self.NUMBERS]
                      + [("subDevices", entries(value["subDevices"], SubDeviceItem))])


class DeviceList(Printer):
    def content(self):
        value = self.value
        return fields([("name", quoted(qstring(value["name"]))), ("sourceType", str(int(value["sourceType"]))),
                       ("devices", entries(value["devices"], DeviceItem))])


def entries(value, printer):
    shown = ", ".join("%d: %s" % (key, printer(item).to_string()) for key, item in map_items(value))
    return "{%s}" % shown if shown else ""


class TarFileInfo(Printer):
    TYPES = ("TYPE_INVALID", "TYPE_FILE", "TYPE_SYMLINK", "TYPE_DIRECTORY")

    def content(self):
        value, kind = self.value, int(self.value["mType"])
        name = self.TYPES[kind] if 0 <= kind < len(self.TYPES) else "type %d" % kind
        rest = fields([("name", quoted(qstring(value["mName"]))), ("linkName", quoted(qstring(value["mLinkName"]))),
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
