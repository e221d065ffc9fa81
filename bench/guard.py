#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Counts the instructions of a fixed set of works: guard.py <program> <folder> [--update].

Fails when a work executes more of them than bench/guard.txt says, by more than LIMIT; --update
stores them there. The counts are those of the compiler that the file names, and independent of
the machine: the C library is kept from choosing code by the processor.
"""

import os
import pathlib
import re
import subprocess
import sys

LIMIT = 1.03
STORED = pathlib.Path(__file__).with_name("guard.txt")
NEED_SIMD = ("transform array", "bounds of array", "compose", "compose in place", "compose array",
             "compose arrays", "inverse", "placed clash", "uniform clashes of 10000",
             "index clashesWith")


def measure(program, folder):
    """{work: instructions per item}"""
    out = folder / "guard.out"
    for old in folder.glob("guard.out*"):
        old.unlink()
    plain = "glibc.cpu.hwcaps=-AVX2,-AVX,-FMA,-FMA4,-AVX512F,-AVX512VL,-ERMS,-FSRM"
    run = subprocess.run(
        ["valgrind", "--tool=callgrind", "--quiet", "--instr-atstart=no",
         f"--callgrind-out-file={out}", program],
        check=True, stdout=subprocess.PIPE, text=True, env=os.environ | {"GLIBC_TUNABLES": plain})
    items = dict(line.split("\t") for line in run.stdout.splitlines())
    counts = {}
    for dump in folder.glob("guard.out.*"):
        text = dump.read_text(encoding="utf-8")
        name = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.M)
        total = re.search(r"^(?:totals|summary): (\d+)", text, re.M)
        if name and total:
            counts[name[1]] = int(total[1]) / int(items[name[1]])
    return {work: counts[work] for work in items}


def stored():
    """{work: instructions per item}, as they were when the file was written."""
    lines = [line.rsplit(None, 1) for line in STORED.read_text(encoding="utf-8").splitlines()
             if not line.startswith("#")]
    return {work: float(count) for work, count in lines}


def update(counts, compiler):
    lines = [f"# Instructions per item, {compiler}; ./dev bench --guard --update writes them.\n"]
    lines += [f"{work:<34}{count:>12.1f}\n" for work, count in counts.items()]
    STORED.write_text("".join(lines), encoding="utf-8")


def has_simd():
    return re.search(r"\bavx2\b", pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8"))


def compare(counts):
    """Prints the table; returns how many works grew too much, are missing, or are not stored."""
    before, failures = stored(), 0
    print(f"{'work':<34}{'before':>12}{'now':>12}")
    for work in before | counts:
        if work in NEED_SIMD and not has_simd():
            print(f"{work:<34}  this processor has no such units")
            continue
        old, new = before.get(work), counts.get(work)
        if old is None or new is None:
            print(f"{work:<34}  only {'stored' if new is None else 'measured'}")
            failures += 1
            continue
        change = f"{100 * (new / old - 1):+.1f} %" if abs(new / old - 1) >= 0.005 else ""
        grown = new > LIMIT * old
        failures += grown
        print(f"{work:<34}{old:>12.1f}{new:>12.1f}  {change}{'  GROWN' if grown else ''}")
    return failures


def main():
    program, folder, *options = sys.argv[1:]
    counts = measure(program, pathlib.Path(folder))
    if "--update" in options:
        compiler = subprocess.run(["c++", "--version"], check=True, stdout=subprocess.PIPE,
                                  text=True).stdout.splitlines()[0]
        update(counts, compiler)
        return 0
    failures = compare(counts)
    if failures:
        print(f"{failures} work(s) differ from bench/guard.txt; when that is meant: "
              "./dev bench --guard --update")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
