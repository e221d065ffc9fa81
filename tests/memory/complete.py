#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the tests of this folder call every exported function that may allocate.

    complete.py <folder of the library's objects> <folder of these tests' objects>

Reads the calls off unoptimised objects and follows them from the heaps to the exported functions.
Does not follow calls of the archive: it is the host's, and the default allocates only for errors.
"""

import collections
import pathlib
import re
import subprocess
import sys

EXPORTED = pathlib.Path(__file__).resolve().parents[1] / "abi/exported_symbols.txt"
# What heap.cpp replaces, and the members of strings that call it from other libraries.
HEAP = re.compile(r"_Zn[wa][mj](RKSt9nothrow_t)?$|(m|c|re)alloc$|_ZNSt7__cxx1112basic_string\w+(6resize|9_M_create)")
NOT_REPLACED = re.compile(r"_Zn[wa]\w*align|\w*align(ed_alloc)?$|w?c?s?strn?dup$")
ARCHIVE = re.compile(r"su_CArchive|\(anonymous namespace\)::(describe|put|take)\(")
SKIPPED = re.compile(r"::addSlowly\(|suDynamicArray<[^i]")  # private; one list stands for all


def lines(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()


def callers_in(path, callers):
    """Adds the callers of each function in one object. Local functions get the object's name."""
    local = {line.split()[-1] for line in lines("nm", path) if line.split()[-2] in "tdbr"}
    where, found = {}, []

    def unique(name):
        return f"{path.name}:{name}" if name in local else re.sub(r"C[12]E", "C1E", name)

    for line in lines("objdump", "-dr", "--no-show-raw-insn", path):
        if match := re.match(r"Disassembly of section (\S+):", line):
            section = match[1]
        elif match := re.match(r"([0-9a-f]+) <(.*)>:", line):
            caller = unique(match[2])
            where[section, int(match[1], 16)] = caller
        elif match := re.search(r"R_X86_64_\w+\s+(\.text\S*?)\+0x([0-9a-f]+)$", line):
            found.append(((match[1], int(match[2], 16) + 4), caller))
        elif match := re.search(r"R_X86_64_\w+\s+([^\s+-]+)", line) or re.search(r"<([^>+]+)>$", line):
            callers[unique(match[1])].add(caller)
    for place, caller in found:
        if place in where:
            callers[where[place]].add(caller)


def main():
    library, tests = (pathlib.Path(argument) for argument in sys.argv[1:])
    callers = collections.defaultdict(set)
    for path in library.rglob("*.o"):
        callers_in(path, callers)
    names = list(set(callers).union(*callers.values()))
    plain = subprocess.run(["c++filt"], input="\n".join(n.split(":")[-1] for n in names), check=True,
                           capture_output=True, text=True).stdout.splitlines()
    demangled = dict(zip(names, plain))

    todo = [name for name in callers if HEAP.match(name)]
    faults = [f"{name}: heap.cpp does not replace it" for name in callers if NOT_REPLACED.match(name)]
    reached = set(todo)
    while todo:
        new = {c for c in callers[todo.pop()] if not ARCHIVE.match(demangled[c])} - reached
        reached |= new
        todo += new
    exported = set(EXPORTED.read_text().splitlines())
    called = {line[19:] for path in tests.rglob("*_test.cpp.o") for line in lines("nm", "-C", path)}
    allocating = {name for name in map(demangled.get, reached) if name in exported and not SKIPPED.search(name)}
    faults += [f"{name}: may allocate, and no test of tests/memory calls it" for name in sorted(allocating - called)]
    if not allocating:
        faults.append(f"{library}: no exported function allocates")
    sys.exit("\n".join(faults) or 0)


if __name__ == "__main__":
    main()
