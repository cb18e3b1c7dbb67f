"""Seeded mutants of core/; see scripts/mutate."""

import concurrent.futures
import json
import pathlib
import random
import re
import resource
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutants"
SOURCE = WORK / "source"
PRESETS = ["debug", "asan-ubsan"]
SANDBOX = ["bwrap", "--ro-bind", "/", "/", "--dev", "/dev", "--proc", "/proc", "--tmpfs", "/tmp", "--unshare-pid",
           "--unshare-net", "--die-with-parent", "--cap-add", "ALL"]
JOBS = 2
MEMORY = 6 << 30  # of one test program; a sanitizer reserves addresses without limit

# clang-format sets blanks around every binary operator, and around no bracket of a template.
REPLACEMENTS = {
    " == ": [" != "], " != ": [" == "],
    " < ": [" <= "], " <= ": [" < "], " > ": [" >= "], " >= ": [" > "],
    " && ": [" || "], " || ": [" && "],
    " + ": [" - "], " - ": [" + "], " * ": [" / "], " / ": [" * "], " % ": [" * "],
    " << ": [" >> "], " >> ": [" << "], " & ": [" | "], " | ": [" & "], " ^ ": [" | "],
    " += ": [" -= "], " -= ": [" += "], " |= ": [" &= "], " &= ": [" |= "], " *= ": [" /= "], " /= ": [" *= "],
}
WORDS = {"true": "false", "false": "true", "++": "--", "--": "++"}
OPERATOR = re.compile("|".join(re.escape(key) for key in sorted(REPLACEMENTS, key=len, reverse=True)))
WORD = re.compile(r"\btrue\b|\bfalse\b|\+\+|--")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9a-fA-F']+|\d[\d']*)(?=[uUlL]*(?![\w.']))")
NOT = re.compile(r"(?<![\w)])!(?=[\w(:])")
CALL = re.compile(r"^\s+(?!return\b|throw\b|using\b|delete\b|else\b|if\b|for\b|while\b|switch\b|case\b|do\b)"
                  r"[\w:.>-]+\(.*\);$")
SKIPPED_LINE = re.compile(r"^\s*(#|static_assert|using |template|Q_|///?|\*)|\bcase TYPE_|TLXCORE_EXPORT|operator<<|"
                          r"operator>>|static_cast<.*\bstream\b")


def blank_texts(source):
    """The source with comments and texts blanked out, every other character in its place."""
    pattern = r'//[^\n]*|/\*.*?\*/|R"\((?:.*?)\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\''
    return re.sub(pattern, lambda match: re.sub(r"[^\n]", "~", match.group()), source, flags=re.S)


def line_mutants(line):
    """(start, end, replacement) of every change to one line whose comments and texts are blanked."""
    for match in OPERATOR.finditer(line):
        for replacement in REPLACEMENTS[match.group()]:
            yield match.start(), match.end(), replacement
    for match in WORD.finditer(line):
        yield match.start(), match.end(), WORDS[match.group()]
    for match in NUMBER.finditer(line):
        digits = match.group().replace("'", "")
        value = int(digits, 16) if digits[:2] in ("0x", "0X") else int(digits, 8 if digits[0] == "0" and len(digits) > 1 else 10)
        yield match.start(), match.end(), str(value + 1)
    for match in NOT.finditer(line):
        yield match.start(), match.end(), ""
    if CALL.match(line):
        yield len(line) - len(line.lstrip()), len(line), ";"


def compiled_files():
    """What this processor and platform build and can run, and all headers."""
    commands = json.loads((SOURCE / "build" / PRESETS[0] / "compile_commands.json").read_text())
    flags = pathlib.Path("/proc/cpuinfo").read_text()
    files = {pathlib.Path(entry["file"]) for entry in commands} | set(SOURCE.glob("core/**/*.h"))
    for word in ("vpclmul512", "vpclmul256"):
        if "vpclmulqdq" not in flags or ("512" in word and "avx512f" not in flags):
            files = {file for file in files if word not in file.name.lower()}
    return sorted(file for file in files if file.is_relative_to(SOURCE / "core"))


def all_mutants():
    for file in compiled_files():
        source = file.read_text()
        blanked = blank_texts(source)
        offset = 0
        for number, (line, seen) in enumerate(zip(source.split("\n"), blanked.split("\n")), 1):
            if not SKIPPED_LINE.search(seen):
                for start, end, replacement in line_mutants(seen):
                    yield {"file": file, "line": number, "from": offset + start, "to": offset + end,
                           "text": replacement, "before": line.strip(),
                           "after": (line[:start] + replacement + line[end:]).strip()}
            offset += len(line) + 1


def run(command, **options):
    return subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)


def copy_tree():
    """The tracked files as they are in the working tree; a file keeps its time when it did not change."""
    SOURCE.mkdir(parents=True, exist_ok=True)
    files = run(["git", "ls-files", "-z"], cwd=ROOT).stdout.split("\0")
    wanted = {SOURCE / name for name in files if name and (ROOT / name).is_file()}
    for target in wanted:
        content = (ROOT / target.relative_to(SOURCE)).read_bytes()
        if not target.exists() or target.read_bytes() != content:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content)
            target.chmod((ROOT / target.relative_to(SOURCE)).stat().st_mode)
    for old in SOURCE.rglob("*"):
        if old.is_file() and old not in wanted and not old.is_relative_to(SOURCE / "build"):
            old.unlink()


def configure(preset):
    """What CMake says when it fails. The tests need not be linked again for a library that has the same names."""
    result = run(["cmake", "--preset", preset, "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"], cwd=SOURCE)
    return result.stdout if result.returncode else ""


def build(preset, targets):
    """Builds the targets; the compiler's output when it fails."""
    result = run(["cmake", "--build", "--preset", preset, "-j", JOBS, "--target", *targets], cwd=SOURCE)
    return result.stdout if result.returncode else ""


def tests_of(folder):
    """(name, room, program, working folder) of every test program, built or not."""
    listed = json.loads(run(["ctest", "--test-dir", folder, "--show-only=json-v1"]).stdout)
    for test in listed["tests"]:
        place = next(p["value"] for p in test["properties"] if p["name"] == "WORKING_DIRECTORY")
        if test["name"].startswith("tst_"):
            yield test["name"], pathlib.Path(place).name, f"{place}/{test['name']}", place


def run_test(test, limit):
    name, _, program, place = test

    def confine():
        if PRESETS[1] not in place:
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))

    started = time.monotonic()
    process = subprocess.Popen(SANDBOX + ["--chdir", place, "--", program], stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, preexec_fn=confine, start_new_session=True)
    try:
        failed = process.wait(limit) != 0
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
        failed = True
    return name, failed, time.monotonic() - started


def first_failure(tests, limits):
    """The name of a test that fails; the others are not started any more."""
    with concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        running = [pool.submit(run_test, test, limits[test[0]]) for test in tests]
        for done in concurrent.futures.as_completed(running):
            if not done.cancelled() and done.result()[1]:
                for other in running:
                    other.cancel()
                return done.result()[0]
    return ""


def measured_limits(tests):
    """Ten times what each test takes with the library as it is. A test that fails then is of no use here."""
    with concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        results = list(pool.map(lambda test: run_test(test, 600), tests))
    failing = [name for name, failed, _ in results if failed]
    if failing:
        print("fail without a mutant, in the sandbox, and are left out:", ", ".join(failing))
    return {name: 10 + 10 * seconds for name, failed, seconds in results if not failed}


class Bench:
    """One build of the tree, its tests and the time that each may take."""

    def __init__(self, preset, room):
        self.preset = preset
        said = configure(preset)
        every = [test for test in tests_of(SOURCE / "build" / preset) if room in ("", test[1])] if not said else []
        said = said or build(preset, ["tlxCore"] + [test[0] for test in every])
        if said:
            sys.exit(said)
        self.limits = measured_limits(every)
        self.tests = [test for test in every if test[0] in self.limits]

    def of_room(self, mutant):
        room = mutant["file"].parent.relative_to(SOURCE / "core").parts[:1]
        own = "tst_" + mutant["file"].stem
        chosen = [test for test in self.tests if room and test[1] == room[0]]
        return sorted(chosen, key=lambda test: (not test[0].startswith(own), test[0]))

    def killer(self, mutant, room_only=False):
        """The test that notices, "" for a survivor, None for a mutant that does not compile."""
        room = self.of_room(mutant)
        if build(self.preset, ["tlxCore"] + [test[0] for test in room]):
            return None
        others = [] if room_only else [test for test in self.tests if test not in room]
        return first_failure(room, self.limits) or first_failure(others, self.limits)


def with_mutant(mutant, action):
    original = mutant["file"].read_bytes()
    source = original.decode()
    mutant["file"].write_text(source[:mutant["from"]] + mutant["text"] + source[mutant["to"]:])
    try:
        return action()
    finally:
        mutant["file"].write_bytes(original)


def describe(mutant):
    return f"{mutant['file'].relative_to(SOURCE)}:{mutant['line']}: {mutant['before']}   ==>   {mutant['after']}"


def try_mutants(bench, mutants, count):
    """Tries mutants until so many of them compiled; the survivors."""
    survivors, tried = [], 0
    for mutant in mutants:
        if tried == count:
            break
        started = time.monotonic()
        killer = with_mutant(mutant, lambda: bench.killer(mutant))
        if killer is None:
            continue
        tried += 1
        verdict = f"killed by {killer}" if killer else "SURVIVED"
        print(f"{tried:4} {verdict:34} {time.monotonic() - started:5.1f} s  {describe(mutant)}", flush=True)
        if not killer:
            survivors.append(mutant)
    return survivors, tried


def sanitized(survivors, only_room):
    """Those survivors that the sanitizers do not notice either."""
    if not survivors:
        return []
    print("\nsurvivors under AddressSanitizer and UndefinedBehaviorSanitizer", flush=True)
    bench = Bench(PRESETS[1], only_room)
    left = []
    for mutant in survivors:
        killer = with_mutant(mutant, lambda: bench.killer(mutant, room_only=True))
        print(f"     {'killed by ' + killer if killer else 'SURVIVED':34} {describe(mutant)}", flush=True)
        if not killer:
            left.append(mutant)
    return left


def listed_as_equivalent():
    text = (ROOT / "docs" / "reliability.md").read_text().replace("\\|", "|")
    return lambda mutant: f"`{mutant['after']}`" in text


def chosen(arguments, room):
    """The mutants to try, in order, and how many of them."""
    mutants = [m for m in all_mutants() if m["file"].is_relative_to(SOURCE / "core" / room)]
    if arguments[:1] == ["--only"] and len(arguments) == 2:
        file, _, line = arguments[1].partition(":")
        mutants = [m for m in mutants if m["file"] == SOURCE / file and line in ("", str(m["line"]))]
        return mutants, len(mutants)
    count, seed = (int(argument) for argument in (arguments + ["50", "1"][len(arguments):]))
    random.Random(seed).shuffle(mutants)
    return mutants, count


def main():
    arguments, room = sys.argv[1:], ""
    if arguments[:1] == ["--room"] and len(arguments) > 1:
        room, arguments = arguments[1], arguments[2:]
    copy_tree()
    bench = Bench(PRESETS[0], room)
    mutants, count = chosen(arguments, room)
    print(f"{len(mutants)} places; {len(bench.tests)} test programs", flush=True)
    survivors, tried = try_mutants(bench, mutants, count)
    left = sanitized(survivors, room)
    is_listed = listed_as_equivalent()
    equivalent = [mutant for mutant in left if is_listed(mutant)]
    unknown = [mutant for mutant in left if not is_listed(mutant)]
    print(f"\n{tried} mutants: {tried - len(left)} killed ({len(survivors) - len(left)} of them by a sanitizer only), "
          f"{len(equivalent)} equivalent, {len(unknown)} survived")
    for mutant in unknown:
        print("  " + describe(mutant))
    return 1 if unknown else 0


if __name__ == "__main__":
    sys.exit(main())
