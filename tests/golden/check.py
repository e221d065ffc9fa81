#!/usr/bin/env python3
"""Compares the golden program's lines with those that are kept beside this script.

    check.py <program, with its runner in front>   shows the differences; fails if there are any
    check.py --update <vexmath_golden>             stores the lines, when different bits are meant
    check.py --reached <vexmath_golden>            fails for an exported function without a line

Lines that begin with "trig" depend on the trigonometric functions of the C library. Their numbers
may differ by kUnits units in the last place: of the number, or of 1 for a smaller one. The number
of points or segments, and all other lines, are the same everywhere.
"""

import math
import re
import subprocess
import sys
from itertools import zip_longest
from pathlib import Path

kUnits = 32
here = Path(__file__).parent
lines_file = here / "bits.txt"

# Exported names that the program does not import, each with the reason.
not_imported = {
    r"typeinfo |vtable ": "not functions",
    r"uo_?GenSel": "not functions; tests/selection has them all",
    r"mgUnitVector_c::random\(": "depends on the C library's random numbers",
    r"mg\w+_c::(pointPerp|extremePts|getFocusPoint)\(": "virtual, so called by the table",
    r"mgPerspInfo_c::scaleFromEye\(": "private, called by the moves of screen points",
    r"CArchive::~?CArchive\(": "of a base class, called by su_CArchive",
    r"suDynamicArray<": "inline",
    r"vexmath::detail::SelectSet<.*::SelectSet\(": "of a base class, called by the sets",
}


def output(command: list[str]) -> list[str]:
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()


def numbers_of(line: str) -> tuple[list[float], str]:
    """The numbers of a trigonometric line, and its name."""
    count, rest = line.split(" ", 2)[1:]
    *numbers, name = rest.split(" ", int(count))
    return list(map(float, numbers)), name


def units_between(a: float, b: float) -> float:
    if a == b or (math.isnan(a) and math.isnan(b)):
        return 0.0
    difference = abs(a - b) / (max(1.0, abs(a)) * sys.float_info.epsilon)
    return difference if math.isfinite(difference) else math.inf


def apart(expected: str, actual: str) -> float:
    """By how many units two lines differ; infinity where that is no question of units."""
    if not (expected.startswith("trig ") and actual.startswith("trig ")):
        return 0.0 if expected == actual else math.inf
    (a, name), (b, other) = numbers_of(expected), numbers_of(actual)
    if name != other or len(a) != len(b):
        return math.inf
    return max(map(units_between, a, b))


def compare(command: list[str]) -> int:
    expected, actual = lines_file.read_text().splitlines(), output(command)
    worst = 0.0
    for line, other in zip_longest(expected, actual, fillvalue="no line"):
        units = apart(line, other)
        worst = max(worst, units)
        if units > kUnits:
            print(f"< {line}\n> {other}")
    if worst <= kUnits:
        units = math.ceil(worst)
        within = f"; trigonometric lines within {units} unit{'s' * (units > 1)}" if units else ""
        print("the same bits" + within)
    return int(worst > kUnits)


def reached(program: str) -> int:
    exported = set((here / "../abi/exported_symbols.txt").read_text().splitlines())
    imported = "nm --dynamic --undefined-only $0 | sed 's/@.*//' | c++filt"
    called = output(["bash", "-c", imported, program])
    names = {line.strip().removeprefix("U ") for line in called}
    missing = [
        name for name in sorted(exported - names)
        if not any(re.match(pattern, name) for pattern in not_imported)
    ]
    print("\n".join(missing) or "every exported function has a line")
    return int(bool(missing))


def main(arguments: list[str]) -> int:
    if arguments[0] == "--update":
        lines_file.write_text("\n".join(output(arguments[1:])) + "\n")
        return 0
    if arguments[0] == "--reached":
        return reached(arguments[1])
    return compare(arguments)


sys.exit(main(sys.argv[1:]))
