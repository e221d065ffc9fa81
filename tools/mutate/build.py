# SPDX-License-Identifier: MIT
"""Builds the library and its test programs once, then each of them again with one changed file.

The work is done on copies of the tree, one for each worker. A changed build takes every object that
does not depend on the changed file from the first build.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import resource
import shlex
import shutil
import signal
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "mutate"
BASE = BUILD / "base"
GOLDEN = "golden"
LIBRARY = "library"
# Objects that programs share.
SHARED = {
    "golden_rows": (GOLDEN, "memory", "process"),
    "interop_20": ("interop",),
}
WORKERS = 2

# Headers that no change touches, compiled once.
PRECOMPILED = {
    LIBRARY: "algorithm array atomic cmath cstdint cstdlib cstring functional limits memory mutex"
    " numeric string thread utility vector",
    "tests": "algorithm array cmath cstdint cstdlib cstring functional iomanip limits memory"
    " numeric random sstream string thread utility vector gtest/gtest.h",
}
COMPILE_SECONDS = 120  # of processor time
TIMES_NORMAL = 10  # processor time of a test program, compared with its normal one
LEAST_SECONDS = 2
MOST_BYTES = 4 << 30  # address space of a program


def tree(worker):
    return BUILD / "tree" / str(worker)


def copy_tree():
    """The files of the tree, committed or not, for each worker."""
    listing = ["git", "ls-files", "-co", "--exclude-standard", "-z"]
    listed = subprocess.run(listing, cwd=ROOT, capture_output=True, check=True).stdout.decode()
    for worker in range(WORKERS):
        shutil.rmtree(tree(worker), ignore_errors=True)
        for name in listed.split("\0"):
            if (ROOT / name).is_file():
                (tree(worker) / name).parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(ROOT / name, tree(worker) / name)
                shutil.copymode(ROOT / name, tree(worker) / name)


def limits(seconds, bytes_):
    def set_limits():
        resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1))
        resource.setrlimit(resource.RLIMIT_AS, (bytes_, bytes_))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        os.setsid()

    return set_limits


def run(command, seconds, cwd, bytes_=MOST_BYTES, **environment):
    """Exit code and output of a program; -1 when it did not end in time."""
    with subprocess.Popen(
        command,
        cwd=cwd,
        env={**os.environ, **environment},
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        preexec_fn=limits(int(seconds) + 1, bytes_),
    ) as process:
        try:
            # On a busy machine the clock runs faster than the processor time.
            output, _ = process.communicate(timeout=30 + 5 * seconds)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            output, _ = process.communicate()
            return -1, output
        return process.returncode, output


class Unit:
    """One source file and how it is compiled."""

    def __init__(self, entry):
        words = shlex.split(entry["command"])
        self.source = os.path.relpath(entry["file"], tree(0))
        inside = [w.replace(f"{tree(0)}/", "") for w in words]
        self.compiler = inside[0]
        self.is_library = self.source.startswith("src/")
        target = re.search(r"CMakeFiles/(?:vexmath_)?(\w+?)(?:_test)?\.dir/", entry["command"])[1]
        self.target = LIBRARY if self.is_library else target
        dropped = re.compile(r"-O.|-g|-W(?!l,).*|-c|-o")
        output = words[words.index("-o") + 1]
        self.flags = [
            w
            for w in inside[1:]
            if not dropped.fullmatch(w) and w not in (output, self.source, entry["file"])
        ]
        self.flags += ["-O1" if self.is_library else "-O0", "-w"]
        # An index out of an array's bounds ends the program, as under the sanitizers.
        self.flags += ["-fsanitize=bounds", "-fsanitize-undefined-trap-on-error"]
        self.needs = set()

    def name(self):
        return self.source.replace("/", "-") + ".o"

    def precompiled(self):
        return BUILD / "precompiled" / (LIBRARY if self.is_library else "tests") / "first.h"

    def compile(self, worker, output, *more):
        """Paths are relative, so that the objects of all workers are alike."""
        first = [] if self.source.endswith(".c") else ["-include", str(self.precompiled())]
        command = [self.compiler, *self.flags, *first, *more, "-c", self.source, "-o", str(output)]
        return run(command, COMPILE_SECONDS, tree(worker))

    def built_from(self):
        """What the object depends on, as one number; None before the first build."""
        if not self.needs:
            return None
        seen = hashlib.sha256(repr((self.compiler, self.flags)).encode())
        for name in sorted(self.needs):
            path = tree(0) / name
            seen.update(path.read_bytes() if path.is_file() else b"")
        return seen.hexdigest()


class Base:
    """The first build: objects, programs, and the time that each program takes."""

    def __init__(self):
        configure()
        entries = json.loads((BUILD / "configured" / "compile_commands.json").read_text())
        self.units = [u for u in map(Unit, entries) if not u.target.startswith("operators")]
        self.programs = {u.target for u in self.units} - {LIBRARY, *SHARED}
        (BASE / "objects").mkdir(parents=True, exist_ok=True)
        self._build()
        self.order = sorted(self.programs - {GOLDEN}, key=lambda p: self.seconds[p])

    def of(self, target):
        return [u for u in self.units if target in (u.target, *SHARED.get(u.target, ()))]

    def object(self, unit):
        return BASE / "objects" / unit.name()

    def _build(self):
        for kind in PRECOMPILED:
            precompile(next(u for u in self.units if u.is_library == (kind == LIBRARY)))
        with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
            list(pool.map(self._compile, self.units))
        self.seconds = {}
        for target in [LIBRARY, *sorted(self.programs)]:
            link(target, [self.object(u) for u in self.of(target)], BASE)
            self.seconds[target] = 0 if target == LIBRARY else self._normal_seconds(target)

    def _compile(self, unit):
        listed, stamp = self.object(unit).with_suffix(".d"), self.object(unit).with_suffix(".stamp")
        unit.needs = dependencies(listed)
        if self.object(unit).exists() and stamp.exists() and stamp.read_text() == unit.built_from():
            return
        code, output = unit.compile(0, self.object(unit), "-MMD", "-MF", str(listed))
        if code != 0:
            raise SystemExit(f"{unit.source} does not compile:\n{output.decode()}")
        unit.needs = dependencies(listed)
        stamp.write_text(unit.built_from())

    def _normal_seconds(self, target):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        if not self.passes(target, BASE, BASE, 600):
            raise SystemExit(f"the tests {target} fail before any change")
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime

    def passes(self, target, programs, library, seconds=None):
        """Does the program of one place pass with the library of another?"""
        seconds = seconds or max(LEAST_SECONDS, TIMES_NORMAL * self.seconds[target])
        locales = BUILD / "configured" / "tests" / "locales"
        place = {"LD_LIBRARY_PATH": str(library), "LOCPATH": str(locales)}
        if target != GOLDEN:
            brief = ["--gtest_brief=1", "--gtest_fail_fast=1"]
            return run([programs / target, *brief], seconds, tree(0), **place)[0] == 0
        expected = (tree(0) / "tests/golden/bits.txt").read_bytes()
        return all(
            run([programs / target], seconds, tree(0), VEXMATH_USE_VECTOR_UNITS=use, **place)
            == (0, expected)
            for use in ("1", "0")
        )


def configure():
    """CMake tells the sources and the flags. It also makes the locales of the tests."""
    off = ("BUILD_EXAMPLES", "BUILD_APPS", "INSTALL", "LTO")
    options = [f"-DVEXMATH_{name}=OFF" for name in off]
    options += ["-G", "Ninja", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON"]
    options += ["-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON"]  # in favour of PRECOMPILED
    place = BUILD / "configured"
    quiet = {"stdout": subprocess.DEVNULL}
    subprocess.run(["cmake", "-S", tree(0), "-B", place, *options], **quiet, check=True)
    # There are none where the system cannot make them.
    locales = ["cmake", "--build", place, "--target", "vexmath_test_locales"]
    subprocess.run(locales, **quiet, stderr=subprocess.DEVNULL, check=False)


def precompile(unit):
    header = unit.precompiled()
    header.parent.mkdir(parents=True, exist_ok=True)
    names = PRECOMPILED[header.parent.name].split()
    text = "".join(f"#include <{name}>\n" for name in names)
    if header.exists() and header.read_text() == text:
        return
    header.write_text(text)
    command = [unit.compiler, *unit.flags, "-x", "c++-header", str(header), "-o", f"{header}.gch"]
    subprocess.run(command, cwd=tree(0), check=True)


def dependencies(listed):
    """The files of the tree that a compiler's list names."""
    if not listed.exists():
        return set()
    words = listed.read_text().replace("\\\n", " ").split()[1:]
    return {os.path.normpath(w) for w in words if not os.path.isabs(w)}


def link(target, objects, place):
    script = tree(0) / "src" / "vexmath.map"
    words = [f"-L{BASE}", "-lvexmath", "-lgtest_main", "-lgtest", "-pthread", "-o", place / target]
    if target == "interop":
        words.append("-lfmt")
    if target == LIBRARY:
        options = ["-shared", "-Wl,-soname,libvexmath.so", f"-Wl,--version-script={script}"]
        words = [*options, "-o", place / "libvexmath.so"]
    if run(["g++", *objects, *words], COMPILE_SECONDS, BUILD)[0] != 0:
        raise Refused


class Refused(Exception):
    """The compiler or the linker refuses the change."""


class Asserted(Exception):
    """A static assertion of a test fails."""


class Trial:
    """One changed file in one worker's tree: builds and runs only what can differ."""

    def __init__(self, base, worker, room, change):
        self.base, self.worker, self.room, self.change = base, worker, room, change
        self.place = BUILD / "work" / str(worker)
        shutil.rmtree(self.place, ignore_errors=True)
        self.place.mkdir(parents=True)
        self.path = tree(worker) / change.file
        self.built = {}  # the place of each program, and of the library

    def verdict(self):
        """(verdict, the program that noticed)."""
        original = self.path.read_text()
        start, end = self.change.start, self.change.end
        self.path.write_text(original[:start] + self.change.text + original[end:])
        try:
            return self._judged()
        except Refused:
            return "refused", ""
        except Asserted as by:
            return "noticed", str(by)
        finally:
            self.path.write_text(original)

    def _judged(self):
        others = [p for p in self.base.order if p != self.room]
        # A change within an inline function shows in the callers alone: most end here.
        if self.change.in_body and any(map(self._depends, self.base.of(self.room))):
            programs = self._built(self.room)
            if programs != BASE and not self.base.passes(self.room, programs, BASE):
                return "noticed", self.room
        library = self._built(LIBRARY)
        for target in [self.room, *others, GOLDEN]:
            programs = self._built(target)
            if BASE == programs == library:
                continue
            if not self.base.passes(target, programs, library):
                return ("golden" if target == GOLDEN else "noticed"), target
        return ("unnoticed" if self.place in self.built.values() else "equivalent"), ""

    def _depends(self, unit):
        return self.change.file in unit.needs

    def _built(self, target):
        """The place of a program or of the library. It is built again if the change alters an object."""
        if target not in self.built:
            objects = [self._object(unit) for unit in self.base.of(target)]
            changed = any(self.place in path.parents for path in objects)
            if changed:
                link(target, objects, self.place)
            self.built[target] = self.place if changed else BASE
        return self.built[target]

    def _object(self, unit):
        made, mine = self.base.object(unit), self.place / unit.name()
        if not self._depends(unit):
            return made
        code, output = unit.compile(self.worker, mine)
        if code != 0 and b"static assertion failed" in output and not unit.is_library:
            raise Asserted(unit.target)
        if code != 0:
            raise Refused
        return mine if mine.read_bytes() != made.read_bytes() else made
