#!/usr/bin/env python3
"""Builds the golden program for many compilers and platforms, runs it, and prints a table.

    matrix.py [--quick] [word...]   --quick: the part for continuous integration
                                    words: only platforms whose name has one of them

The table of all builds is also written to build/matrix/table.md, that of some to part.md. A platform
whose tools are missing is skipped, and the table says so. The program ends with an error when a
result differs.
"""

import os
import shutil
import subprocess
import sys
import time
from dataclasses import dataclass, field
from pathlib import Path

root = Path(__file__).parents[2]
work = root / "build/matrix"


@dataclass
class Build:
    """One way to build the library and the program."""

    platform: str
    compiler: str
    flags: str
    toolchain: str = ""
    arguments: list[str] = field(default_factory=list)
    runner: list[str] = field(default_factory=list)
    needs: list[str] = field(default_factory=list)
    has_vector_units: bool = False
    with_lto: bool = False

    @property
    def folder(self) -> Path:
        words = [self.platform, self.compiler, self.flags, "lto" if self.with_lto else ""]
        return work / "".join(c if c.isalnum() else "-" for c in " ".join(words).strip())

    def missing(self) -> list[str]:
        tools = [self.compiler, *self.needs, *self.runner[:1]]
        return [tool for tool in tools if not shutil.which(tool)]

    def make(self) -> Path:
        command = [
            "cmake", "-S", str(root / "tests/golden"), "-B", str(self.folder), "-G", "Ninja",
            f"-DCMAKE_CXX_FLAGS={self.flags}", *self.arguments,
        ]
        # Only a build type of CMake's has link-time optimisation.
        command.append(f"-DCMAKE_BUILD_TYPE={'Release' if self.with_lto else ''}")
        if self.toolchain:
            toolchain = root / f"cmake/toolchains/{self.toolchain}.cmake"
            command.append(f"-DCMAKE_TOOLCHAIN_FILE={toolchain}")
        if not self.toolchain or self.compiler == "clang++":
            command.append(f"-DCMAKE_CXX_COMPILER={self.compiler}")
        run(command)
        run(["cmake", "--build", str(self.folder)])
        found = [self.folder / f"vexmath_golden{suffix}" for suffix in ("", ".exe", ".js")]
        return next(program for program in found if program.exists())


def run(command: list[str]) -> None:
    """A command whose output shows only when it fails."""
    done = subprocess.run(command, capture_output=True, text=True)
    if done.returncode != 0:
        print(done.stdout[-4000:], done.stderr[-4000:], sep="\n")
        done.check_returncode()


def all_builds() -> list[Build]:
    levels = ("-O0", "-O1", "-O2", "-O3", "-O3 -march=x86-64-v3", "-O3 and LTO")
    library_32 = "/usr/i686-linux-gnu/lib"
    only_32 = {
        "toolchain": "linux-32", "needs": ["i686-linux-gnu-g++"],
        "runner": [f"{library_32}/ld-linux.so.2", "--library-path", library_32],
    }
    builds = [
        Build(
            f"Linux, x86, {bits} bit", compiler, level.removesuffix(" and LTO"),
            with_lto=level.endswith("LTO"), **(only_32 if bits == 32 else {"has_vector_units": True}),
        )
        for bits in (64, 32) for compiler in ("g++", "clang++") for level in levels
    ]
    for platform, compiler, toolchain, runner, *needs in (
        ("Linux, AArch64", "aarch64-linux-gnu-g++", "aarch64", qemu("aarch64")),
        ("Linux, s390x, big-endian", "s390x-linux-gnu-g++", "s390x", qemu("s390x")),
        ("Windows, 64 bit", "x86_64-w64-mingw32-g++-posix", "windows-64", ["/usr/lib/wine/wine64"]),
        ("Windows, 32 bit", "i686-w64-mingw32-g++-posix", "windows-32",
         [str(root / "tests/windows/wine32.sh")], str(root / "build/wine32/usr/lib/wine/wine")),
        ("WebAssembly", "em++", "wasm", ["node"]),
    ):
        builds.append(Build(platform, compiler, "-O2", toolchain, runner=runner, needs=needs))
    return builds


def qemu(processor: str) -> list[str]:
    return [f"qemu-{processor}-static", "-L", f"/usr/{processor}-linux-gnu"]


def quick_builds() -> list[Build]:
    """What ./dev test does not build itself: optimised by clang++, and 32 bit."""
    chosen = [("64 bit", "clang++", "-O3"), ("32 bit", "g++", "-O3"), ("32 bit", "clang++", "-O3")]
    return [
        build for build in all_builds() for bits, compiler, level in chosen
        if build.platform == f"Linux, x86, {bits}" and build.compiler == compiler
        and build.flags == level and not build.with_lto
    ]


def result(build: Build, program: Path, vector_units: bool) -> tuple[bool, str]:
    """Whether the lines are the expected ones, and the cell of the table."""
    environment = dict(os.environ, VEXMATH_USE_VECTOR_UNITS=str(int(vector_units)))
    if build.toolchain.startswith("windows"):
        environment |= {
            "WINEPREFIX": str(work / "wine"), "WINEDEBUG": "-all",
            "WINEPATH": f"Z:{program.parent / 'vexmath/src'}",
        }
    done = subprocess.run(
        [str(root / "tests/golden/check.py"), *build.runner, str(program)],
        env=environment, capture_output=True, text=True,
    )
    if done.returncode != 0:
        print(done.stdout, done.stderr)
        return False, "**different**"
    cell = done.stdout.strip().removeprefix("the ").replace("same bits", "same")
    if build.platform.startswith("Linux") and cell != "same":  # with the same C library
        print(cell)
        return False, "**different**"
    return True, cell


def rows(builds: list[Build]) -> tuple[bool, list[str]]:
    succeeded, lines = True, []
    for build in builds:
        name = f"{build.compiler} | {build.flags}{', LTO' if build.with_lto else ''}"
        print(f"== {build.platform}: {name}", flush=True)
        if missing := build.missing():
            print(f"SKIPPED, for lack of {', '.join(missing)}", flush=True)
            lines.append(f"| {build.platform} | {name} | not run | not run |")
            continue
        start, cells = time.monotonic(), []
        try:
            program = build.make()
        except subprocess.CalledProcessError:
            succeeded = False
            lines.append(f"| {build.platform} | {name} | **does not build** | |")
            continue
        for vector_units in (True, False) if build.has_vector_units else (True,):
            same, cell = result(build, program, vector_units)
            succeeded &= same
            cells.append(cell)
        print(f"{', '.join(cells)} ({time.monotonic() - start:.0f} s)", flush=True)
        lines.append(f"| {build.platform} | {name} | {' | '.join((cells + ['none'])[:2])} |")
    return succeeded, lines


def main() -> int:
    os.environ.setdefault("NODE_PATH", "/usr/share/nodejs")
    words = set(sys.argv[1:]) - {"--quick"}
    builds = quick_builds() if "--quick" in sys.argv else all_builds()
    chosen = [b for b in builds if not words or any(word in b.platform for word in words)]
    if not chosen:
        sys.exit(f"no platform has one of these words: {', '.join(sorted(words))}")
    succeeded, lines = rows(chosen)
    table = "\n".join(
        ["| Platform | Compiler | Options | Bits | Without vector units |", "|---|---|---|---|---|", *lines]
    )
    work.mkdir(parents=True, exist_ok=True)
    (work / ("part.md" if sys.argv[1:] else "table.md")).write_text(table + "\n")
    print(f"\n{table}")
    return 0 if succeeded else 1


if __name__ == "__main__":
    sys.exit(main())
