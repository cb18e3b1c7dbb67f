#!/usr/bin/env python3
"""Writes the seeds of the fuzzers: small inputs from which mutations soon reach every branch of a reader.

Run it after a change here: python3 fuzz/make_seeds.py. The files it writes are kept in the tree.
"""

import pathlib
import struct

FOLDER = pathlib.Path(__file__).resolve().parent / "seeds"
QT_5_15 = 12  # counted from Qt 4.0 on, as support/Streams.h chooses a version
NULL_TEXT = b"\xff\xff\xff\xff"


def text(value):
    data = value.encode("utf-16-be")
    return struct.pack(">I", len(data)) + data


def variant(kind, payload, tag, name=None):
    head = struct.pack(">IB", kind, 0)
    if name:
        head += struct.pack(">I", len(name) + 1) + name.encode() + b"\0"
    return head + payload + struct.pack(">i", tag)


def tar_header(name, size, kind, link=b""):
    block = bytearray(512)
    for offset, data in ((0, name), (100, b"0000644"), (108, b"0000000"), (116, b"0000000"), (124, b"%011o" % size),
                         (136, b"14721312345"), (148, b" " * 8), (156, kind), (157, link), (257, b"ustar\x0000")):
        block[offset:offset + len(data)] = data
    block[148:156] = b"%06o\0 " % sum(block)
    return bytes(block)


def tar_seeds():
    end = bytes(1024)
    file = tar_header(b"bin/image", 5, b"0") + b"hello".ljust(512, b"\0")
    link = tar_header(b"link", 0, b"2", b"bin/image")
    folder = tar_header(b"bin/", 0, b"5")
    filled = tar_header(b"n" * 100, 0, b"0")
    return [b"\1\0\0" + data for data in (end, file + end, folder + file + link + end, filled + end, file[:600],
                                          tar_header(b"lying", 8 ** 11 - 1, b"0") + end)]


def extract_seeds():
    end = bytes(1024)
    data = b"hello".ljust(512, b"\0")
    names = (b"a", b"../up", b"/absolute", b"b/../../up", b"c/through", b"b/in")
    links = ((b"l", b"a"), (b"l", b"../beside"), (b"b/l", b"../a"), (b"l", b"/etc"), (b"l", b"b/../../up"))
    whole = (tar_header(b"d/", 0, b"5") + tar_header(b"d/f", 5, b"0") + data + tar_header(b"d/l", 0, b"2", b"f")
             + tar_header(b"h", 0, b"1", b"d/f"))
    long_name = tar_header(b"././@LongLink", 300, b"L") + (b"../" * 100).ljust(512, b"\0")
    archives = [tar_header(name, 5, b"0") + data for name in names]
    archives += [tar_header(name, 0, b"2", target) + tar_header(b"l/f", 5, b"0") + data for name, target in links]
    archives += [whole, long_name + archives[0], archives[0] + archives[0]]
    return [bytes((mode,)) + archive + end for archive in archives for mode in (0, 6)]


def device_json_seeds():
    def listed(name, count):
        return name + struct.pack(">iI", 2, count)
    item = ('{"key":5,"number":5,"name":"Lift","addressType":1,"address":"192.168.0.7","port":1700,'
            '"configuration":"","extraText":"","extraText2":"conf","flag1":true,"flag2":false,"value1":7,"value2":1,'
            '"subDevices":[{"key":3,"number":3,"name":"Brake"}]}')
    half = b"\0\0\0\2\xd8\x00"
    return [b"\0\0" + listed(text("Hall"), 1) + struct.pack(">I", 5) + device(5), b"\0\0" + listed(half, 0),
            b"\0\1" + listed(NULL_TEXT, 0),
            b"\1\0" + ('{"name":"Hall","sourceType":2,"devices":[%s,%s]}' % (item, item)).encode(),
            b"\1\1" + b'{"name":"","sourceType":-1,"devices":[]}']


def device(number):
    sub_devices = struct.pack(">I", 1) + b"\x03" + b"\x03" + text("Brake")
    address = b"\x00" + struct.pack(">I", 0xC0A80007)
    return (struct.pack(">I", number) + text("Lift") + struct.pack(">i", 1) + address + struct.pack(">H", 1700)
            + text("") + NULL_TEXT + text("conf") + b"\x01\x00" + struct.pack(">ii", 7, 1) + sub_devices)


def stream_seeds():
    zone = text("Europe/Berlin")
    date_time = struct.pack(">qi", 2460375, 47229456)
    bodies = [bytes((5, 3)) + struct.pack(">h", 2024), bytes((45, 9, 7, 13)),
              bytes((45, 9, 7, 13, 5, 3)) + struct.pack(">h", 2024), "Axis 1".encode("utf-16-be").ljust(64, b"\0"),
              "Axis 1".encode("utf-16-be").ljust(128, b"\0"), "Axis 1".encode("utf-16-be").ljust(256, b"\0"),
              struct.pack(">Qi", 1500, 3), text("A") + struct.pack(">hhh", 12, 3, -1) + text("Board"),
              text("ACME") + text("M100") + text("1"), bytes(range(16)), b"\x03" + text("Brake"), device(5),
              text("Hall") + struct.pack(">iI", 2, 1) + struct.pack(">I", 5) + device(5), date_time + b"\x01"]
    extra = [b"\x0c" + bytes((QT_5_15, 0)) + text("") + struct.pack(">iI", 0, 0xFFFFFFFF),
             b"\x0d" + bytes((QT_5_15, 0)) + date_time + b"\x02" + struct.pack(">i", 3600),
             b"\x0d" + bytes((QT_5_15, 0)) + date_time + b"\x03" + zone]
    return [bytes((index, QT_5_15, 0)) + body for index, body in enumerate(bodies)] + extra


def variant_stream_seeds():
    units = "Axis 1".encode("utf-16-be")
    bodies = [variant(0, b"", 0), variant(37, b"\x07", 1), variant(36, b"\x00\x07", 3), variant(2, b"\0\0\0\x07", 6),
              variant(4, bytes(7) + b"\x07", 9), variant(38, struct.pack(">d", 1.5), 7),
              variant(6, struct.pack(">d", 2.5), 10), variant(7, b"\0\x41", 19), variant(10, text("text"), 12),
              variant(12, struct.pack(">I", 64) + b"bytes".ljust(64, b"\0"), 13),
              variant(1024, units.ljust(64, b"\0"), 12, "CString32"),
              variant(1024, bytes((45, 9, 7, 13, 5, 3)) + struct.pack(">h", 2024), 16, "NTypes::tsDateTime"),
              variant(16, struct.pack(">qi", 2460375, 47229456) + b"\x01", 16),
              variant(9, struct.pack(">I", 0x7FFFFFFF), 1), variant(12, struct.pack(">I", 0x3FFFFFFF), 13)]
    return [bytes((QT_5_15, 0)) + body for body in bodies]


def variant_text_seeds():
    pairs = [(1, "255"), (2, "-0x7f"), (5, "0777"), (7, "1.5e3"), (8, "18446744073709551615"), (9, "-0x1F"),
             (10, "-2.5e-300"), (12, "Axis 1"), (13, "Pr\u00fcfstand"), (16, "2024-03-05T13:07:09.450Z"),
             (16, "123456"), (19, "\u03a9"), (20, "c"), (11, "1"), (10, "nan"), (7, "inf")]
    return [bytes((kind,)) + value.encode() for kind, value in pairs]


SETTINGS = (b"[COMPANY]\r\nNameLong=\"Drives, motors; more\"\r\nNameShort=TVK\r\nLogo_16x16=logo.png\r\n"
            b"WebUrl=http://example.com/\\x20AC\r\n[PRODUCT12]\r\nName=Tool\r\nExeFile=tool.exe\r\n")

SEEDS = {
    "fuzz_command_line": [b"\1tool\0drvadr=3\0port=0x1F40\0lang=de_DE", b"\0-files\0a\0b\0-v", b"\1df=-1\0cu=\0=x\0level"],
    "fuzz_crc": [struct.pack("<BdB", 3, 2.5, 0) + b"123456789", struct.pack("<BdB", 0, -1e300, 200) + bytes(300)],
    "fuzz_date_time": [struct.pack("<QQB", 0x07E803050D07092D, 0x07E8031F021E0000, 0) + b"\x2d\x09\x07\x0d\x05",
                       struct.pack("<QQB", 0xFFFFFFFFFFFFFFFF, 0x07E80A1B021E0000, 1)],
    "fuzz_device_json": device_json_seeds(),
    "fuzz_duration": [struct.pack("<QBQBd", 1500, 3, 2, 4, 1.5) + b"ms", struct.pack("<QBQBd", 2 ** 64 - 1, 6, 3, 0, -2.5)],
    "fuzz_entry_point": [struct.pack("<I", 8) + path for path in (b"/tmp/trace/a.bin", b"OPT/x", b"CONSTCONFIG/file.ini",
                                                                  b"xTARVENIK", b"UNIT_DATE_TIME", b"TMP")],
    "fuzz_extract": extract_seeds(),
    "fuzz_hardware_id": [b"A012", b"A012_003", b"A012_003_001_Board_2", b"1_2_3_4", "A\u0660\u0661\u0662_b".encode()],
    "fuzz_ipv6": [b"\1fe80:0:0:0:0:0:0:1", b"\1::1", b"\1FE80:0000:12aF::0:0:0:0001", b"\0" + bytes(range(16))],
    "fuzz_motor_name": [b"\0C:/motors/ACME_M100_1", b"\1A_B_12", b"\0a-b&c+d", b"\1\x37\t\r", "\0\u017f_\u0131_1".encode()],
    "fuzz_number": [struct.pack("<BIB", base + 1, 5, 2) + digits
                    for base, digits in ((10, b"255"), (0, b"0xff"), (0, b"-0777"), (16, b"-80"), (10, b"1.5e400"),
                                         (36, b"zz"), (10, b".5"))],
    "fuzz_number_format": [struct.pack("<Iq", packed, number) + entry
                           for packed, number, entry in ((0x01000602, 1234, b" 12.34"), (0x02001004, -1, b"ff:8.1"),
                                                         (0x03030802, 77, b"1010.1:11"), (0x000000FF, 5, b"1e3"),
                                                         (0x02400000, 2 ** 62, b"0x12.34"))],
    "fuzz_path": [b"C:/a/b/\0x.txt", b"/a/../b\0c", b"name\0/tmp/dir/", b" a  <b>?|.txt", b"/usr/lib\0/usr/share/doc"],
    "fuzz_phrase": [struct.pack("<IB", 0x00010005, 12) + value
                    for value in (b"1.005", b"Nov  5 2026", b"&File && &Edit", b"a long text to be cut", b"65535.65535")],
    "fuzz_settings": [b"\x0c" + SETTINGS, b"\x0c[COMPANY\r\nNameLong", b"\x0c[PRODUCT12]\nName=@ByteArray(x)\nExeFile=a, b"],
    "fuzz_stream": stream_seeds(),
    "fuzz_tar": tar_seeds(),
    "fuzz_variant_stream": variant_stream_seeds(),
    "fuzz_variant_text": variant_text_seeds(),
}


def main():
    for target, inputs in SEEDS.items():
        folder = FOLDER / target
        folder.mkdir(parents=True, exist_ok=True)
        for old in folder.iterdir():
            old.unlink()
        for number, data in enumerate(inputs, 1):
            (folder / f"{number:02}").write_bytes(data)


if __name__ == "__main__":
    main()
