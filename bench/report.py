#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints what the benchmarks measured beside what is wanted: report.py <report.json> [docs folder].

With a docs folder it writes performance.md, from performance.md.in, and its plots there as well.
"""

import json
import math
import pathlib
import re
import statistics
import subprocess
import sys

import guard
import plots

US, LIMIT, BEST = "vexmath", "limit", None

# Ratios that are wanted: work, whom it is measured against (BEST of those who do it too, or another
# work's "work/who"), at most.
WANTED = (
    ("transform points", BEST, 1.0),
    ("transform points in cache", BEST, 1.0),
    ("transform array", "transform points/Eigen", 0.6),
    ("transform array in cache", "transform points in cache/Eigen", 0.6),
    ("bounds", "bounds/unchecked", 1.1),
    ("bounds in cache", "bounds in cache/unchecked", 1.1),
    ("bounds of array", "bounds/unchecked", 0.7),
    ("bounds of array in cache", "bounds in cache/unchecked", 0.7),
    ("compose", "compose/Eigen", 2.0),
    ("compose in place", "compose in place/Eigen", 2.0),
    ("compose and assign", "compose and assign/Eigen", 2.0),
    ("compose array", "compose array/Eigen", 1.2),
    ("compose arrays", "compose arrays/Eigen", 1.2),
    ("inverse", BEST, 1.0),
    ("placed clash", "placed clash/FCL prebuilt", 2.0),
    ("placed clash", "placed clash/Open CASCADE", 0.5),
    ("line plane", BEST, 1.0),
    ("hull of 1000000", "hull of 1000000/CGAL Graham-Andrew", 0.8),
    ("hull of 1000", "hull of 1000/CGAL Graham-Andrew", 1.1),
    ("tour of 2000", BEST, 2.0),
    ("length of the tour of 2000", BEST, 1.0),
    ("clip segments", BEST, 1.0),
    ("least rectangle", BEST, 1.0),
    ("closed tour of 2000", BEST, 2.0),
    ("length of the closed tour of 2000", BEST, 0.9),
    ("sort of 1000000", BEST, 1.0),
    ("sort of 1000", BEST, 1.1),
    ("arc", BEST, 0.2),
    ("eigensystem 3x3", "eigensystem 3x3/Eigen iterative", 0.6),
    ("cubic roots", BEST, 1.5),
    ("append points", BEST, 1.0),
    ("append of 1000", BEST, 1.1),
    ("float point by matrix", BEST, 1.0),
    ("float matrix product", BEST, 1.0),
)

# Likewise of all clashes of n boxes and of their index, which have a table of their own. Every size
# is in it; below 100 000 boxes there is no goal.
CLASHES = re.compile(r"\bclashes\b|^index ")
CLASHES_WANTED = (
    *((f"{scene} clashes of {n}", BEST, wanted if n >= 100000 else None)
      for scene, wanted in (("uniform", 0.35), ("assembly", 0.35), ("grid", 0.9), ("rod", 0.6))
      for n in (1000, 10000, 100000, 1000000)),
    ("clashes among 20", BEST, 1.0),
    ("clashes among 45", BEST, 1.0),
    ("index build", BEST, None),
    ("index move", BEST, 0.15),
    ("index clashesWith", BEST, 0.6),
)

# Works "<name> of <n>" may grow with this power of n at most.
GROWTH_WANTED = {"tour": 2.2, "sort": 1.2, "hull": 1.2, "uniform clashes": 1.15,
                 "assembly clashes": 1.15, "grid clashes": 1.15}

# What an item takes: sums, products, quotients, roots and comparisons of numbers, as the source has
# them, on the average of the inputs measured, and the bytes that it reads and writes.
OPERATIONS = {
    "transform points in cache": (21, 48),
    "transform array in cache": (21, 48),
    "bounds in cache": (34, 24),
    "bounds of array in cache": (15, 24),
    "compose": (130, 256),
    "compose array": (130, 256),
    "inverse": (80, 256),
    "placed clash": (250, 416),
    "line plane": (21, 120),
    "arc": (18, 24),
    "eigensystem 3x3": (420, 176),
    "cubic roots": (440, 56),
    "float point by matrix": (18, 24),
}

PACKAGES = {"Eigen": "libeigen3-dev", "Imath": "libimath-dev", "GLM": "libglm-dev",
            "CGAL": "libcgal-dev", "Boost": "libboost-dev", "Embree": "libembree-dev",
            "FCL": "libfcl-dev", "Open CASCADE": "libocct-foundation-dev"}


def read(path):
    """{work: {who: ns per item}}, medians of the repetitions, and where that was."""
    report = json.loads(path.read_text(encoding="utf-8"))
    runs = {}
    for run in report["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        work, who = run["run_name"].split("/")[:2]
        runs.setdefault(work, {}).setdefault(who, []).append(1e9 / run["items_per_second"])
        if "length" in run:
            runs.setdefault(f"length of the {work}", {}).setdefault(who, []).append(run["length"])
    times = {work: {who: statistics.median(values) for who, values in by.items()}
             for work, by in runs.items()}
    return times, report["context"]


def peers(times, work):
    return {who: time for who, time in times[work].items() if who not in (US, LIMIT)}


class Row:
    """A work, measured against one of those who do it too."""

    def __init__(self, times, work, against, wanted):
        self.work, self.times, self.wanted = work, times[work], wanted
        self.peer, self.ratio = None, None
        if against is not BEST:
            other, self.peer = against.split("/", 1)
            base = times.get(other, {}).get(self.peer)
        else:
            self.peer, base = min(peers(times, work).items(), key=lambda item: item[1],
                                  default=(None, None))
        if base is not None:
            self.ratio = self.times[US] / base

    def missed(self):
        """To the two decimals that are shown; what differs less is noise."""
        return (self.ratio is not None and self.wanted is not None
                and round(self.ratio, 2) > self.wanted)

    def cells(self):
        """The cells of HEAD."""
        others = sorted(((time, who) for who, time in self.times.items() if who not in (US, LIMIT)))
        instructions = guard.stored().get(self.work.removesuffix(" in cache"))
        return (self.work, number(self.times[US]), number(instructions),
                number(self.times.get(LIMIT)),
                ", ".join(f"{who} {number(time)}" for time, who in others),
                f"{self.ratio:.2f} x {self.peer}" if self.ratio is not None else "",
                "" if self.wanted is None else f"{self.wanted:g} {'MISSED' if self.missed() else 'met'}")


def number(value):
    return "" if value is None else f"{value:.2f}" if value < 10 else f"{value:,.0f}"


def rows(times):
    """Those with a goal first, in the order of the goals, then the others."""
    goals = WANTED + CLASHES_WANTED
    result = [Row(times, *goal) for goal in goals if US in times.get(goal[0], {})]
    named = {work for work, *_ in goals}
    for work, by in sorted(times.items()):
        if work not in named and US in by and not re.search(r" of (the [a-z ]*tour of )?\d+$", work):
            result.append(Row(times, work, BEST, None))
    return result


def growths(times):
    """{name: {who: [(n, ns per item)]}} of the works that are measured for several n."""
    result = {}
    for work, by in sorted(times.items()):
        match = re.fullmatch(r"(?!length)([\w ]+) of (\d+)", work)
        for who, time in by.items() if match else ():
            if who != LIMIT:
                result.setdefault(match[1], {}).setdefault(who, []).append((int(match[2]), time))
    return {name: {who: sorted(by[who]) for who in sorted(by, key=lambda who: (who != US, who))
                   if len(by[who]) > 1}
            for name, by in result.items() if any(len(points) > 1 for points in by.values())}


def split(works, key):
    """Those that are no clashes, and those that are, by the name that key gives of each."""
    return ([each for each in works if not CLASHES.search(key(each))],
            [each for each in works if CLASHES.search(key(each))])


def power(points):
    """The exponent of n with which the whole time grows."""
    (few, fast), (many, slow) = points[0], points[-1]
    return 1.0 + math.log(slow / fast) / math.log(many / few)


def growth_rows(times):
    """Of the clashes, all others are in their table."""
    for name, by in growths(times).items():
        for who, points in by.items():
            if CLASHES.search(name) and who != US:
                continue
            sizes = f"{points[0][0]:,} to {points[-1][0]:,}"
            each = ", ".join(number(time) for _, time in points)
            wanted = GROWTH_WANTED.get(name) if who == US else None
            verdict = "" if wanted is None else (
                f"{wanted:g} {'MISSED' if power(points) > wanted else 'met'}")
            yield name, who, sizes, each, f"{power(points):.2f}", verdict


HEAD = ("work", "vexmath", "instructions", "limit", "others", "ratio", "wanted")
GROWTH_HEAD = ("work", "who", "sizes", "ns per item", "power of n", "wanted")


def as_text(head, lines):
    table = [head, *lines]
    widths = [max(len(line[i]) for line in table) for i in range(len(head))]
    return "\n".join("  ".join(f"{cell:<{width}}" for cell, width in zip(line, widths)).rstrip()
                     for line in table)


def as_markdown(head, lines):
    table = [head, ["---"] * len(head), *lines]
    return "\n".join("| " + " | ".join(line).replace("MISSED", "**missed**") + " |"
                     for line in table)


def roofline(times):
    """What plots.roofline draws."""
    bandwidths = (("memory", "transform points"), ("cache", "transform points in cache"))
    slopes = {name: 48 / times[work][LIMIT] for name, work in bandwidths}
    ceilings = {who: 1 / time for who, time in times.get("operations", {}).items()}
    points = {work.removesuffix(" in cache"): (operations / moved, operations / times[work][US])
              for work, (operations, moved) in OPERATIONS.items() if US in times.get(work, {})}
    return points, slopes, ceilings


def machine(context):
    cpu = pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8")
    name = re.search(r"^model name\s*: (.*)$", cpu, re.M)
    caches = ", ".join(f"L{c['level']} {c['size'] // 1024:,} KiB" for c in context["caches"]
                       if c["type"] != "Instruction")
    compiler = command("c++", "--version").splitlines()[0]
    versions = ", ".join(f"{who} {command('dpkg-query', '-W', '-f', '${Version}', package)}"
                         for who, package in PACKAGES.items())
    return f"{name[1] if name else 'unknown'} ({caches}), {compiler}; {versions}"


def command(*words):
    done = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          check=False)
    return done.stdout.strip() or "missing"


def main():
    times, context = read(pathlib.Path(sys.argv[1]))
    compared = rows(times)
    others, clashes = split(compared, lambda row: row.work)
    lines, clash_lines = ([row.cells() for row in part] for part in (others, clashes))
    growth_lines = list(growth_rows(times))
    print("\n" + as_text(HEAD, lines))
    print("\n" + as_text(HEAD, clash_lines))
    print("\n" + as_text(GROWTH_HEAD, growth_lines))
    missed = sum(row.missed() for row in compared)
    print(f"\n{missed} goal(s) missed; on a busy machine run it again before you believe it.")
    if len(sys.argv) < 3:
        return
    docs = pathlib.Path(sys.argv[2])
    curves, clash_curves = (dict(part) for part in split(growths(times).items(), lambda c: c[0]))
    plots.ratios(others, docs / "performance.svg")
    plots.ratios(clashes, docs / "performance-clashes.svg")
    plots.growth(curves, docs / "performance-growth.svg")
    plots.growth_of_clashes(clash_curves, docs / "performance-clashes-growth.svg")
    plots.roofline(*roofline(times), docs / "performance-roofline.svg")
    filled = {"machine": machine(context), "table": as_markdown(HEAD, lines),
              "clashes": as_markdown(HEAD, clash_lines),
              "growth": as_markdown(GROWTH_HEAD, growth_lines)}
    text = pathlib.Path(__file__).with_name("performance.md.in").read_text(encoding="utf-8")
    (docs / "performance.md").write_text(
        re.sub(r"\{(\w+)\}", lambda match: filled[match[1]], text), encoding="utf-8")


if __name__ == "__main__":
    main()
