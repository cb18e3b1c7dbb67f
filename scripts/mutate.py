"""Seeded mutants of core/; see scripts/mutate."""

import argparse
import collections
import concurrent.futures
import contextlib
import json
import os
import pathlib
import resource
import shutil
import subprocess
import sys
import threading
import time

import mutants as places

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutants"
PRESETS = ["debug", "asan-ubsan"]
SANDBOX = ["bwrap", "--ro-bind", "/", "/", "--dev", "/dev", "--proc", "/proc", "--tmpfs", "/tmp", "--unshare-pid",
           "--unshare-net", "--die-with-parent", "--cap-add", "ALL"]
WORKERS = 2  # each has a tree and one process of its own
MEMORY = 6 << 30  # of one test program; a sanitizer reserves addresses without limit
NOT_OF_THE_LIBRARY = ("tools", "docs")  # tests of the program, which need not notice what is wrong in the library
REJECTED, SURVIVED = "rejected", "SURVIVED"  # the other verdicts name the test that killed


def run(command, **options):
    return subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace", **options)


def copy_tree(source):
    """The tracked files as they are in the working tree; a file keeps its time when it did not change."""
    source.mkdir(parents=True, exist_ok=True)
    files = run(["git", "ls-files", "-z"], cwd=ROOT).stdout.split("\0")
    wanted = {source / name for name in files if name and (ROOT / name).is_file()}
    for target in wanted:
        content = (ROOT / target.relative_to(source)).read_bytes()
        if not target.exists() or target.read_bytes() != content:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content)
            target.chmod((ROOT / target.relative_to(source)).stat().st_mode)
    for old in source.rglob("*"):
        if old.is_file() and old not in wanted and not old.is_relative_to(source / "build"):
            old.unlink()


def configure(source, preset):
    """The tests need not be linked again for a library that has the same names; lld links it in a quarter of the time."""
    linker = [f"-DCMAKE_{kind}_LINKER_FLAGS=-fuse-ld=lld" for kind in ("EXE", "SHARED") if shutil.which("ld.lld")]
    result = run(["cmake", "--preset", preset, "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON", *linker], cwd=source)
    if result.returncode:
        sys.exit(result.stdout)


def tests_of(folder):
    """(name, room, program, working folder) of every test program, built or not."""
    listed = json.loads(run(["ctest", "--test-dir", folder, "--show-only=json-v1"]).stdout)
    for test in listed["tests"]:
        place = next(p["value"] for p in test["properties"] if p["name"] == "WORKING_DIRECTORY")
        room = pathlib.Path(place).name
        if test["name"].startswith("tst_") and room not in NOT_OF_THE_LIBRARY:
            yield test["name"], room, f"{place}/{test['name']}", place


def run_test(test, seconds, number=0):
    """Whether it failed, and how long it took. The processor's time is limited: a busy machine ends no test early."""
    _, _, program, place = test

    def confine():
        limit = 5 + round(10 * seconds)
        resource.setrlimit(resource.RLIMIT_CPU, (limit, limit))
        if PRESETS[1] not in place:
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))

    started = time.monotonic()
    process = subprocess.Popen(SANDBOX + ["--chdir", place, "--", program], stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, preexec_fn=confine, start_new_session=True,
                               env=dict(os.environ, TLX_MUTANT=str(number), QTEST_DISABLE_STACK_DUMP="1"))
    try:
        failed = process.wait(60 + 40 * seconds) != 0
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
        failed = True
    return failed, time.monotonic() - started


class Bench:
    """A tree with its build, the tests built so far and the time that each takes with the library as it is."""

    def __init__(self, folder, preset):
        self.source, self.preset = WORK / folder, preset
        self.build_folder = self.source / "build" / preset
        copy_tree(self.source)
        configure(self.source, preset)
        self.tests = list(tests_of(self.build_folder))
        self.seconds, self.useless = {}, set()
        self.kills = collections.Counter()

    def build(self, tests):
        """The compiler's output when it fails."""
        targets = ["tlxCore"] + [test[0] for test in tests]
        result = run(["cmake", "--build", "--preset", self.preset, "-j", "1", "--target", *targets], cwd=self.source)
        return result.stdout if result.returncode else ""

    def prepare(self, tests):
        """Builds and times them with the library as it is. A test that fails then is of no use here."""
        new = [test for test in tests if test[0] not in self.seconds]
        said = self.build(new) if new else ""
        if said:
            raise SystemExit(said)
        for test in new:
            failed, self.seconds[test[0]] = run_test(test, 120)
            if failed:
                self.useless.add(test[0])
                print(f"{test[0]} fails without a mutant, in the sandbox, and is left out", flush=True)

    def of_room(self, room):
        return [test for test in self.tests if test[1] == room]

    def stages(self, name, rooms):
        """The tests that may notice: the file's own, then those of its room or of the others; quick ones first."""
        stem = pathlib.PurePath(name).stem
        tests = [test for test in self.tests if test[0] not in self.useless and test[1] in rooms]
        tests.sort(key=lambda test: self.seconds[test[0]])
        own = [test for test in tests if self.kills[name, test[0]] or test[0][4:].startswith(stem) or
               stem.startswith(test[0][4:])]
        return own, [test for test in tests if test not in own]

    def killer(self, name, tests, number=0, sound=None):
        """The test that notices, or SURVIVED. `sound` gathers the tests that pass when none of several is chosen."""
        for test in sorted(tests, key=lambda test: -self.kills[name, test[0]]):
            seconds = self.seconds[test[0]]
            if not run_test(test, seconds, number)[0]:
                continue
            if number and test[0] not in sound:
                if run_test(test, seconds)[0]:
                    continue
                sound.add(test[0])
            self.kills[name, test[0]] += 1
            return test[0]
        return SURVIVED

    def attempt(self, mutant, offset, rooms):
        """What becomes of the mutant, so many characters further on in its file, in the tests of these rooms."""
        file = self.source / mutant["name"]
        original = file.read_bytes()
        source = original.decode()
        file.write_text(source[:offset + mutant["from"]] + mutant["text"] + source[offset + mutant["to"]:])
        try:
            for stage in self.stages(mutant["name"], rooms):
                if self.build(stage):
                    return REJECTED
                killer = self.killer(mutant["name"], stage)
                if killer != SURVIVED:
                    return killer
            return SURVIVED
        finally:
            file.write_bytes(original)

    def compiled(self, file, source, numbered, tests, done):
        """Builds the file with those mutants that compile; whether that worked."""
        while numbered:
            text, lines = places.switched(source, numbered, WORK / "mutant.h")
            if file.read_text() != text:
                file.write_text(text)
            said = self.build(tests)
            if not said:
                return True
            refused = places.refused(said, str(file.relative_to(self.source)), lines)
            if not refused:
                return False
            for number in refused:
                done(numbered.pop(number), REJECTED)
        return True

    def attempt_together(self, batch, rooms, done):
        """Tries the mutants of one file in one build, and gives back those that must be tried alone."""
        file = self.source / batch[0]["name"]
        original = file.read_bytes()
        numbered = dict(enumerate(places.switchable(original.decode(), batch), 1))
        alone = [mutant for mutant in batch if mutant not in numbered.values()]
        left, sound = dict(numbered), set()
        try:
            for stage in self.stages(batch[0]["name"], rooms):
                if not self.compiled(file, original.decode(), numbered, stage, done):
                    return alone + [mutant for number, mutant in left.items() if number in numbered]
                left = {number: mutant for number, mutant in left.items() if number in numbered}
                for number, mutant in list(left.items()):
                    killer = self.killer(batch[0]["name"], stage, number, sound)
                    if killer != SURVIVED:
                        done(left.pop(number), killer)
            for mutant in left.values():
                done(mutant, SURVIVED)
            return alone
        finally:
            file.write_bytes(original)


def room_of(mutant):
    parts = pathlib.PurePath(mutant["name"]).parts
    return parts[1] if len(parts) > 2 else ""


def near(build, mutant):
    """The rooms whose tests look at the file: its own, and for what all rooms share those that include it."""
    users = places.including(build, mutant["name"]) if room_of(mutant) == "base" else []
    return {room_of(mutant)} | {room_of({"name": source}) for source in users}


def describe(mutant):
    return f"{mutant['name']}:{mutant['line']}: {mutant['before']}   ==>   {mutant['after']}"


class Results:
    """What became of each mutant, in a file that a later run goes on with."""

    def __init__(self, path):
        self.path, self.lock, self.verdicts = path, threading.Lock(), {}
        if path and path.exists():
            for line in path.read_text().splitlines():
                entry = json.loads(line)
                self.verdicts[entry["key"]] = entry["verdict"]

    def known(self, mutant):
        """A survivor is tried again: a test may have come."""
        return self.verdicts.get(mutant["key"], SURVIVED) != SURVIVED

    def of(self, mutant):
        return self.verdicts.get(mutant["key"])

    def add(self, mutant, verdict, seconds, note=""):
        with self.lock:
            self.verdicts[mutant["key"]] = verdict
            shown = verdict if verdict in (REJECTED, SURVIVED) else f"killed by {verdict}"
            print(f"{len(self.verdicts):4} {shown + note:40} {seconds:5.1f} s  {describe(mutant)}", flush=True)
            if self.path:
                with self.path.open("a") as out:
                    out.write(json.dumps({"key": mutant["key"], "verdict": verdict}) + "\n")


class Queue:
    """Mutants by file. Two workers begin at the two ends of the rooms, so that each builds other tests."""

    def __init__(self, mutants, cost):
        self.lock, self.files = threading.Lock(), collections.defaultdict(list)
        for mutant in mutants:
            self.files[mutant["name"]].append(mutant)
        self.order = sorted(self.files, key=lambda name: (room_of(self.files[name][0]), cost[name], name))

    def take(self, worker):
        """The mutants of one file: each build then compiles one change."""
        with self.lock:
            if not self.order:
                return []
            # Headers come last: with one, all that includes it is built again.
            waiting = [name for name in self.order if name.endswith(".cpp")] or self.order
            room = room_of(self.files[waiting[0 if worker % 2 == 0 else -1]][0])
            name = next(name for name in waiting if room_of(self.files[name][0]) == room)
            self.order.remove(name)
            return self.files[name]


@contextlib.contextmanager
def precompiled(bench, batch):
    """What the sources of a batch include of Qt and the C++ library, compiled once: three quarters of their time."""
    if not batch:
        yield 0
        return
    source, build = bench.source, bench.build_folder
    files = places.including(build, batch[0]["name"])
    header = source / "build" / "precompiled.h"
    useful = len(files) * len(batch) > 3 and bench.preset == PRESETS[0]
    if useful:
        header.write_text(places.foreign_includes(build, files))
        useful = "#include <Q" in header.read_text() and run(
            places.library_commands(build)[source / files[0]] + ["-x", "c++-header", header, "-o", f"{header}.gch"],
            cwd=build).returncode == 0
    originals = {source / name: (source / name).read_bytes() for name in files} if useful else {}
    first = f'#include "{header}"\n#line 1\n'.encode()
    for file, content in originals.items():
        file.write_bytes(first + content)
    try:
        yield len(first) if source / batch[0]["name"] in originals else 0
    finally:
        for file, content in originals.items():
            file.write_bytes(content)


def try_all(benches, mutants, results, rooms_for, note=""):
    """Every worker tries mutants, file by file."""
    dependent = places.dependencies(benches[0].build_folder)
    cost = collections.Counter(name for names in dependent.values() for name in names)
    queue = Queue(mutants, cost)

    def work(worker):
        bench = benches[worker]
        while batch := queue.take(worker):
            started = time.monotonic()

            def done(mutant, verdict):
                nonlocal started
                results.add(mutant, verdict, time.monotonic() - started, note)
                started = time.monotonic()

            rooms = rooms_for(batch[0])
            bench.prepare([test for test in bench.tests if test[1] in rooms])
            alone = bench.attempt_together(batch, rooms, done)
            with precompiled(bench, alone) as offset:
                for mutant in alone:
                    done(mutant, bench.attempt(mutant, offset, rooms))

    with concurrent.futures.ThreadPoolExecutor(len(benches)) as pool:
        for done in [pool.submit(work, worker) for worker in range(len(benches))]:
            done.result()


def sample(ordered, count, results):
    """The first mutants in the order, so many of which compile as far as is known."""
    wanted = []
    for mutant in ordered:
        if len([m for m in wanted if results.of(m) != REJECTED]) == count:
            break
        wanted.append(mutant)
    return wanted


def survivors_of(mutants, results):
    return [mutant for mutant in mutants if results.of(mutant) == SURVIVED]


def try_sample(benches, ordered, count, results):
    """Each mutant meets the tests of its room; then survivors meet all others. What was tried and compiles."""
    while True:
        wanted = sample(ordered, count, results)
        untried = [mutant for mutant in wanted if results.of(mutant) is None]
        if not untried:
            break
        try_all(benches, untried, results, lambda mutant: near(benches[0].build_folder, mutant))
    rooms = {test[1] for test in benches[0].tests}
    try_all(benches, survivors_of(wanted, results), results, lambda mutant: rooms, " in all rooms")
    return [mutant for mutant in wanted if results.of(mutant) != REJECTED]


def listed_as_equivalent():
    rows = (ROOT / "docs" / "reliability.md").read_text().replace("\\|", "|").splitlines()
    return lambda mutant: any(row.startswith(f"| `{mutant['file'].name}` | `{mutant['after']}`") for row in rows)


def report(tried, results, sanitized):
    is_listed = listed_as_equivalent()
    left = survivors_of(tried, results)
    unknown = [mutant for mutant in left if not is_listed(mutant)]
    print(f"\n{len(tried)} mutants: {len(tried) - len(left)} killed ({len(sanitized)} of them by a sanitizer only), "
          f"{len(left) - len(unknown)} equivalent, {len(unknown)} survived")
    for mutant in unknown:
        print("  " + describe(mutant))
    return 1 if unknown else 0


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutate")
    parser.add_argument("count", nargs="?", type=int, default=50)
    parser.add_argument("seed", nargs="?", type=int, default=1)
    parser.add_argument("--room", default="")
    parser.add_argument("--only", default="")
    return parser.parse_args()


def chosen(given, ordered):
    """The mutants to try, in order, and how many of them."""
    if given.only:
        file, _, line = given.only.partition(":")
        ordered = [m for m in ordered if m["name"] == file and line in ("", str(m["line"]))]
        return ordered, len(ordered)
    return [m for m in ordered if given.room in ("", room_of(m))], given.count


def main():
    given = arguments()
    folders = ["only"] if given.only else [f"{worker}" for worker in range(WORKERS)]
    WORK.mkdir(parents=True, exist_ok=True)
    (WORK / "mutant.h").write_text(places.SWITCH)
    benches = [Bench(folder, PRESETS[0]) for folder in folders]
    ordered = places.in_seeded_order(places.all_mutants(benches[0].source), given.seed)
    mutants, count = chosen(given, ordered)
    print(f"{len(mutants)} places; {len(benches[0].tests)} test programs", flush=True)
    results = Results(None if given.only else WORK / "results")
    tried = try_sample(benches, mutants, count, results)
    is_listed = listed_as_equivalent()
    survivors = [mutant for mutant in survivors_of(tried, results) if not is_listed(mutant)]
    if survivors:
        bench = Bench(folders[0], PRESETS[1])
        try_all([bench], survivors, results, lambda mutant: near(benches[0].build_folder, mutant), " under sanitizers")
    return report(tried, results, [m for m in survivors if results.of(m) != SURVIVED])


if __name__ == "__main__":
    sys.exit(main())
