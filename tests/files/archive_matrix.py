"""Archives of other programs, made on the spot in every format that each offers, and what CTar reads of them.

    archive_matrix.py PROBE [--large] [--table | --check docs/files.md]

PROBE is the program tar_probe. Every archive holds one thing that is worth a question and a plain file after it. What
CTar says of it, member by member, must be what the rules of the format and of CTar's header say of the archive's bytes;
those rules are written here a second time. --table prints what becomes of each thing, --check compares that with the
page's table. --large adds a member of 8 GiB. Programs that are not installed are named and left out.
"""

import hashlib
import json
import os
import pathlib
import resource
import shutil
import subprocess
import sys
import tempfile

BLOCK = 512
LARGE = 8 << 30
LARGEST_COMPARED = 1 << 20
LARGEST_ARCHIVE = 64 << 20  # what a program may write that does not leave holes out
AFTER = "zz-after"

LONG_PATH = "/".join(["d" * 70, "f" * 70])
LONG_NAME = "n" * 120
LONG_TARGET = "t" * 150

PYTHON = """
import sys, tarfile
class Holes:
    def __init__(self, path): self.file = open(path, "wb")
    def write(self, data):
        if data.count(0) == len(data): self.file.seek(len(data), 1)
        else: self.file.write(data)
        return len(data)
    def tell(self): return self.file.tell()
    def close(self): self.file.truncate(); self.file.close()
form, path, *names = sys.argv[1:]
out = Holes(path)
with tarfile.open(fileobj=out, mode="w", format=getattr(tarfile, form)) as archive:
    for name in names: archive.add(name)
out.close()
"""

PERL = """
use Archive::Tar;
my ($noPrefix, $path, @names) = @ARGV;
$Archive::Tar::DO_NOT_USE_PREFIX = $noPrefix;
$Archive::Tar::WARN = 0;
my $tar = Archive::Tar->new;
my @all = map { -d $_ && !-l $_ ? ($_, glob("$_/*"), glob("$_/*/*")) : $_ } @names;
$tar->add_files(@all) or exit 1;
$tar->write($path) or exit 1;
"""

GIT = """
set -e
path=$1; shift
rm -rf .git
git init -q . 2>/dev/null
git -c core.quotePath=false add -f -- "$@"
git -c user.name=x -c user.email=x -c commit.gpgSign=false commit -q -m x
git archive --format=tar -o "$path" HEAD
rm -rf .git
"""


def gnu(form):
    # Holes are left out only where the format can tell so.
    return lambda path, names: ["tar", "--format=" + form, *(["--sparse"] if form not in ("v7", "ustar") else []),
                                "-cf", path, *names]


FORMS = [("GNU tar", "tar", form, gnu(form)) for form in ("v7", "oldgnu", "gnu", "ustar", "posix")]
FORMS += [("bsdtar", "bsdtar", form, lambda path, names, form=form: ["bsdtar", "--format=" + form, "-cf", path, *names])
          for form in ("v7tar", "ustar", "gnutar", "pax")]
FORMS += [("BusyBox tar", "busybox", "its own", lambda path, names: ["busybox", "tar", "cf", path, *names])]
FORMS += [("pax", "pax", form, lambda path, names, form=form: ["pax", "-w", "-x", form, "-f", path, *names])
          for form in ("tar", "ustar")]
FORMS += [("Python tarfile", "python3", form,
           lambda path, names, form=form: ["python3", "-c", PYTHON, form + "_FORMAT", path, *names])
          for form in ("USTAR", "GNU", "PAX")]
FORMS += [("Perl Archive::Tar", "perl", form,
           lambda path, names, flag=flag: ["perl", "-e", PERL, flag, path, *names])
          for form, flag in (("prefix", "0"), ("no prefix", "1"))]
FORMS += [("git archive", "git", "tar", lambda path, names: ["sh", "-c", GIT, "sh", path, *names])]
FORMS += [("cmake -E tar", "cmake", form,
           lambda path, names, form=form: ["cmake", "-E", "tar", "cf", path, "--format=" + form, "--", *names])
          for form in ("gnutar", "pax", "paxr")]
WITH_HOLES = ["tar", "bsdtar", "python3", "cmake"]  # the others would take the 8 GiB


def contents(name, size):
    return (hashlib.sha256(name.encode()).hexdigest().encode() * (size // 64 + 1))[:size]


def write(name, data):
    pathlib.Path(name).parent.mkdir(parents=True, exist_ok=True)
    pathlib.Path(name).write_bytes(data)


def write_holes(name, size, text):
    with open(name, "wb") as file:
        file.truncate(size)
        file.seek(size // 2)
        file.write(text)


def file_feature(title, name, size):
    write(name, contents(name, size))
    return {"title": title, "pack": [name], "name": name, "kind": 1, "data": contents(name, size)}


def link_feature(title, name, target):
    os.symlink(target, name)
    return {"title": title, "pack": [name], "name": name, "kind": 2, "link": target}


def make_features(large):
    """The files of all features, in the current folder, and what a reader should find."""
    features = [file_feature("empty file", "empty", 0), file_feature("1 byte", "one", 1),
                file_feature("512 bytes", "block", 512), file_feature("513 bytes", "more", 513)]
    os.mkdir("folder")
    features.append({"title": "empty directory", "pack": ["folder"], "name": "folder", "kind": 3})
    write("tree/below/file", contents("tree", 700))
    features.append({"title": "file in a tree", "pack": ["tree"], "name": "tree/below/file", "kind": 1,
                     "data": contents("tree", 700)})
    features.append(link_feature("symbolic link", "link", "one"))
    write("first", contents("first", 30))
    os.link("first", "hard")
    features.append({"title": "hard link", "pack": ["first", "hard"], "name": "hard", "kind": 1,
                     "data": contents("first", 30), "link": "first"})
    features.append(file_feature("name of 100", "h" * 100, 40))
    features.append(file_feature("path of 141", LONG_PATH, 41))
    features.append(file_feature("name of 120", LONG_NAME, 42))
    features.append(link_feature("link to 150", "far", LONG_TARGET))
    features.append(file_feature("UTF-8 name", "m\u00fc\u20ac.bin", 43))
    write_holes("holes", 300000, b"middle")
    features.append({"title": "sparse file", "pack": ["holes"], "name": "holes", "kind": 1,
                     "data": pathlib.Path("holes").read_bytes()})
    if large:
        write_holes("large", LARGE, b"middle")
    features.append({"title": "8 GiB", "pack": ["large"], "name": "large", "kind": 1, "size": LARGE, "large": True})
    write(AFTER, contents(AFTER, 600))
    return features


# The reader's rules, from the bytes.

def text_at(block, offset):
    return block[offset:].split(b"\0")[0]


def octal(text):
    """Qt's conversion to a signed 64-bit number, in base 8: blanks around, one sign, digits."""
    text = text.strip(b" \t\n\v\f\r")
    digits = text[1:] if text[:1] in (b"+", b"-") else text
    if not digits or any(byte not in b"01234567" for byte in digits):
        return None
    value = int(text, 8)
    return value if -(1 << 63) <= value < 1 << 63 else None


def size_at(block):
    value = octal(text_at(block, 124))
    if value is None and block[135:136] == b" ":
        value = octal(block[124:136])
    return value if value is not None and value >= 0 else None


def wanted_reading(path):
    """What CTar is to say of the archive: as the probe prints it."""
    members, error, pos = [], "", 0
    with open(path, "rb") as file:
        while True:
            file.seek(pos)
            block = file.read(BLOCK)
            if len(block) < BLOCK:
                error = f"ERROR : The file ist too short. Only {len(block)} bytes read but 512 expected !"
                break
            if not any(block):
                return {"ok": True, "error": "", "members": members}
            if block[257:262] != b"ustar":
                error = 'ERROR : This is not a tar archive. Header.magic = "512" but "ustar" was expected !'
                break
            size = size_at(block)
            if size is None:
                break
            kind = {b"0": 1, b"\0": 1, b"2": 2, b"5": 3}.get(block[156:157], 0)
            member = {"kind": kind, "name": text_at(block, 0).hex(), "link": text_at(block, 157).hex(),
                      "size": str(size), "pos": str(pos)}
            if size <= LARGEST_COMPARED:
                data = file.read(size)
                member["data"] = hashlib.sha256(data).hexdigest() if len(data) == size else None
            members.append(member)
            pos += BLOCK + (size + BLOCK - 1) // BLOCK * BLOCK
    return {"ok": False, "error": error.encode().hex(), "members": members}


# What became of the thing.

def has_contents(member, feature):
    if feature.get("large"):
        return member["size"] == str(LARGE)
    if member["kind"] == 2:
        return bytes.fromhex(member["link"]).decode("utf-8", "replace") == feature["link"]
    return feature["kind"] == 3 or member.get("data") == hashlib.sha256(feature["data"]).hexdigest()


def record_holds(path, members, text):
    """Whether the data of a member of kind 0 holds the text: an extension's record before the member itself."""
    with open(path, "rb") as file:
        for member in members:
            if member["kind"] == 0 and int(member["size"]) <= LARGEST_COMPARED:
                file.seek(int(member["pos"]) + BLOCK)
                if text.encode() in file.read(int(member["size"])):
                    return True
    return False


def outcome(path, reading, feature):
    members = reading["members"]
    after = AFTER.encode().hex()
    if not reading["ok"]:
        return "refused" if reading["error"] else "stops"
    if not any(member["name"] == after and member["kind"] == 1 for member in members):
        return "ends"
    name = feature["name"].encode()
    own = [member for member in members if member["name"] not in (after, b"pax_global_header".hex())]
    if not own:
        return "-"
    right = [member for member in own if member["kind"] == feature["kind"]]
    whole = [member for member in right if has_contents(member, feature)]
    if any(bytes.fromhex(member["name"]).rstrip(b"/") == name for member in whole):
        return "yes"
    if whole and feature["title"] != "hard link":
        return "name*" if record_holds(path, own, feature["name"]) else "name"
    if feature["kind"] == 2 and right:
        return "target*" if record_holds(path, own, feature["link"]) else "target"
    if any(member["kind"] == 0 and bytes.fromhex(member["name"]) == name for member in own):
        return "kind"
    return "packed" if right else "lost"


def pack(command, path, feature, may_be_large):
    """Whether the program wrote the archive."""
    def confine():
        if not may_be_large:
            resource.setrlimit(resource.RLIMIT_FSIZE, (LARGEST_ARCHIVE, LARGEST_ARCHIVE))

    if os.path.exists(path):
        os.remove(path)
    done = subprocess.run(command(path, feature["pack"] + [AFTER]), stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, preexec_fn=confine)
    return done.returncode == 0 and os.path.exists(path)


def cell(probe, path, feature, form):
    """What becomes of one feature in one form, and whether CTar says what the bytes say."""
    _, program, _, command = form
    if feature.get("large") and program not in WITH_HOLES:
        return "-", True
    if not pack(command, path, feature, program == "python3"):
        return "-", True
    said = json.loads(subprocess.run([probe, path], stdout=subprocess.PIPE, check=True).stdout)
    wanted = wanted_reading(path)
    if said != wanted:
        print(f"{form[0]}, {form[2]}, {feature['title']}:\n  CTar:      {said}\n  the bytes: {wanted}", file=sys.stderr)
    return outcome(path, said, feature), said == wanted


def matrix(probe, large):
    """Rows of the table, and whether every reading was right."""
    features = make_features(large)
    path = os.path.abspath("../archive.tar")
    rows, right, count = [["Program, format"] + [feature["title"] for feature in features]], True, 0
    for form in FORMS:
        if not shutil.which(form[1]):
            print(f"{form[0]} is not installed: nothing is known about its archives", file=sys.stderr)
            continue
        row = [f"{form[0]}, {form[2]}"]
        for feature in features:
            text, good = ("?", True) if feature.get("large") and not large else cell(probe, path, feature, form)
            row.append(text)
            right = right and good
            count += text not in "-?"
        rows.append(row)
    print(f"{count} archives of {len(rows) - 1} forms", file=sys.stderr)
    return rows, right and count > 0


def table(rows):
    rows = [rows[0], ["---"] * len(rows[0])] + rows[1:]
    return "\n".join("| " + " | ".join(row) + " |" for row in rows)


def main():
    arguments = sys.argv[1:]
    probe = os.path.abspath(arguments[0])
    page = pathlib.Path(arguments[arguments.index("--check") + 1]).read_text() if "--check" in arguments else None
    with tempfile.TemporaryDirectory() as folder:
        os.mkdir(os.path.join(folder, "files"))
        os.chdir(os.path.join(folder, "files"))
        rows, right = matrix(probe, "--large" in arguments)
        os.chdir("/")
    if "--table" in arguments:
        print(table(rows))
    if page is not None:
        missing = [line for line in table(rows).split("\n")[2:] if line not in page]
        print("\n".join(["not so in the page:"] + missing) if missing else "the page's table is right", file=sys.stderr)
        right = right and not missing
    return 0 if right else 1


if __name__ == "__main__":
    sys.exit(main())
