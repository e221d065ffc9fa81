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

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tools"))
import guard
from svg_plot import COLOURS, Picture, Plot

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
    ("compose", BEST, 1.5),
    ("inverse", BEST, 1.0),
    ("placed clash", "placed clash/FCL prebuilt", 2.0),
    ("placed clash", "placed clash/Open CASCADE", 0.5),
    ("line plane", BEST, 1.0),
    ("hull of 1000000", "hull of 1000000/CGAL Graham-Andrew", 0.8),
    ("tour of 2000", BEST, 2.0),
    ("length of the tour of 2000", BEST, 1.0),
    ("sort of 1000000", BEST, 1.0),
    ("arc", BEST, 0.2),
    ("eigensystem 3x3", "eigensystem 3x3/Eigen iterative", 0.6),
    ("cubic roots", BEST, 1.5),
    ("append points", BEST, 1.0),
    ("float point by matrix", BEST, 1.0),
    ("float matrix product", BEST, 1.0),
)

# Works "<name> of <n>" may grow with this power of n at most.
GROWTH_WANTED = {"tour": 2.2, "sort": 1.2, "hull": 1.2}

# What an item takes: sums, products, quotients, roots and comparisons of numbers, as the source has
# them, on the average of the inputs measured, and the bytes that it reads and writes.
OPERATIONS = {
    "transform points in cache": (21, 48),
    "transform array in cache": (21, 48),
    "bounds in cache": (34, 24),
    "bounds of array in cache": (15, 24),
    "compose": (130, 256),
    "inverse": (80, 256),
    "placed clash": (250, 416),
    "line plane": (21, 120),
    "arc": (18, 24),
    "eigensystem 3x3": (420, 176),
    "cubic roots": (440, 56),
    "float point by matrix": (18, 24),
}

PACKAGES = {"Eigen": "libeigen3-dev", "Imath": "libimath-dev", "GLM": "libglm-dev",
            "CGAL": "libcgal-dev", "Boost": "libboost-dev", "FCL": "libfcl-dev",
            "Open CASCADE": "libocct-foundation-dev"}


def read(path):
    """{work: {who: ns per item}}, medians of the repetitions, and where that was."""
    report = json.loads(path.read_text(encoding="utf-8"))
    runs = {}
    for run in report["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        work, who = run["run_name"].removesuffix("/manual_time").split("/", 1)
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
    result = [Row(times, *goal) for goal in WANTED if US in times.get(goal[0], {})]
    named = {work for work, *_ in WANTED}
    for work, by in sorted(times.items()):
        if work not in named and US in by and not re.search(r" of (the tour of )?\d+$", work):
            result.append(Row(times, work, BEST, None))
    return result


def growths(times):
    """{name: {who: [(n, ns per item)]}} of the works that are measured for several n."""
    result = {}
    for work, by in times.items():
        match = re.fullmatch(r"(\w+) of (\d+)", work)
        for who, time in by.items() if match else ():
            if who != LIMIT:
                result.setdefault(match[1], {}).setdefault(who, []).append((int(match[2]), time))
    return {name: {who: sorted(by[who]) for who in sorted(by, key=lambda who: (who != US, who))
                   if len(by[who]) > 1}
            for name, by in result.items()}


def power(points):
    """The exponent of n with which the whole time grows."""
    (few, fast), (many, slow) = points[0], points[-1]
    return 1.0 + math.log(slow / fast) / math.log(many / few)


def growth_rows(times):
    for name, by in growths(times).items():
        for who, points in by.items():
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


# The plots: ratios as bars about 1, and time per item over n.

ROW_HEIGHT, BAR_LEFT, BAR_WIDTH, RATIOS = 24, 230, 400, (0.1, 10.0)
MET, MISSED, NEUTRAL = "#009e73", "#d55e00", "#888888"


def ratio_plot(shown, path):
    shown = [row for row in shown if row.ratio is not None]
    bottom = 76 + ROW_HEIGHT * len(shown)
    picture = Picture("Time of vexmath, as a multiple of its peer's", 880, bottom + 50)

    def x(ratio):
        low, high = map(math.log10, RATIOS)
        share = (math.log10(min(max(ratio, RATIOS[0]), RATIOS[1])) - low) / (high - low)
        return BAR_LEFT + BAR_WIDTH * share

    for ratio in (0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0):
        picture.line([(x(ratio), 66), (x(ratio), bottom)], 'stroke="#dddddd"')
        picture.text(x(ratio), bottom + 18, f"{ratio:g}", 'text-anchor="middle"')
    picture.text(x(1.0) - 12, 56, "&#8592; vexmath is faster", 'text-anchor="end" fill="#555555"')
    picture.text(x(1.0) + 12, 56, "slower &#8594;", 'fill="#555555"')
    for i, row in enumerate(shown):
        y = 70 + ROW_HEIGHT * i
        colour = NEUTRAL if row.wanted is None else MISSED if row.missed() else MET
        left, right = sorted((x(row.ratio), x(1.0)))
        picture.text(BAR_LEFT - 8, y + 16, row.work, 'text-anchor="end"')
        picture.box(left, y + 4, max(right - left, 1.5), ROW_HEIGHT - 8, f'fill="{colour}"')
        if row.wanted is not None:
            goal = x(row.wanted)
            picture.line([(goal, y + 1), (goal, y + ROW_HEIGHT - 1)],
                         'stroke="black" stroke-width="2.5"')
        picture.text(BAR_LEFT + BAR_WIDTH + 12, y + 16, f"{row.ratio:.2f} &#215; {row.peer}")
    picture.line([(x(1.0), 66), (x(1.0), bottom)], 'stroke="black"')
    legend = ((MET, "as wanted"), (MISSED, "missed"), (NEUTRAL, "no goal"))
    for i, (colour, label) in enumerate(legend):
        picture.box(BAR_LEFT + 110 * i, bottom + 30, 12, 12, f'fill="{colour}"')
        picture.text(BAR_LEFT + 110 * i + 18, bottom + 41, label)
    picture.line([(BAR_LEFT + 336, bottom + 28), (BAR_LEFT + 336, bottom + 44)],
                 'stroke="black" stroke-width="2.5"')
    picture.text(BAR_LEFT + 344, bottom + 41, "at most wanted")
    picture.write(path)


def short(value):
    """1000000 as 1M."""
    for unit, name in ((1e6, "M"), (1e3, "k")):
        if value >= unit:
            return f"{value / unit:g}{name}"
    return f"{value:g}"


def growth_plot(curves, path):
    plot = Plot("Time per point, as lists grow; vexmath thick", "points", (100.0, 1e6),
                "ns per point", (10.0, 1e5), short)
    styles = ('stroke-width="3.5"', 'stroke-width="1.5" stroke-dasharray="7 4"',
              'stroke-width="1.5" stroke-dasharray="2 3"')
    for colour, (name, by) in zip(COLOURS, curves.items()):
        for style, (who, points) in zip(styles, by.items()):
            plot.curve(f"{name}: {who}", points, f'stroke="{colour}" {style}')
    plot.write(path)


def label(plot, text, x, y, taken):
    """Writes beside a point, where no other text or point is."""
    width = 7 * len(text)
    for left in (x + 8, x - 8 - width):
        for shift in (0, -11, 11, -22, 22):
            place = (left, left + width, y + shift)
            if left + width < 800 and not any(a < place[1] and place[0] < b
                                              and abs(c - place[2]) < 11 for a, b, c in taken):
                taken.append(place)
                plot.text(left, y + shift + 4, text, f'font-size="12" textLength="{width}"')
                return


def roofline_plot(times, path):
    """Operations per nanosecond over operations per byte, under what the machine allows."""
    plot = Plot("Operations done, and what the machine allows", "operations per byte",
                (0.1, 10.0), "operations per nanosecond", (0.1, 100.0), "{:g}".format)
    bandwidths = (("memory", "transform points"), ("cache", "transform points in cache"))
    slopes = {name: 48 / times[work][LIMIT] for name, work in bandwidths}
    ceilings = {who: 1 / time for who, time in times.get("operations", {}).items()}
    highest = max(ceilings.values(), default=100.0)
    for colour, (name, slope) in zip(COLOURS, slopes.items()):
        plot.curve(f"{name}: {slope:.0f} bytes a nanosecond",
                   [(0.1, 0.1 * slope), (highest / slope, highest)],
                   f'stroke="{colour}" stroke-width="2"')
    for colour, (who, ceiling) in zip(COLOURS[2:], ceilings.items()):
        plot.curve(f"{who}: {ceiling:.1f} a nanosecond",
                   [(ceiling / max(slopes.values()), ceiling), (10.0, ceiling)],
                   f'stroke="{colour}" stroke-width="2" stroke-dasharray="7 4"')
    points = {work.removesuffix(" in cache"):
              (plot.x(operations / moved), plot.y(operations / times[work][US]))
              for work, (operations, moved) in OPERATIONS.items() if US in times.get(work, {})}
    taken = [(x - 5, x + 5, y) for x, y in points.values()]
    for name, (x, y) in points.items():
        plot.box(x - 4, y - 4, 8, 8, 'fill="black"')
        label(plot, name, x, y, taken)
    plot.write(path)


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
    lines, growth_lines = [row.cells() for row in compared], list(growth_rows(times))
    print("\n" + as_text(HEAD, lines))
    print("\n" + as_text(GROWTH_HEAD, growth_lines))
    missed = sum(row.missed() for row in compared)
    print(f"\n{missed} goal(s) missed; on a busy machine run it again before you believe it.")
    if len(sys.argv) < 3:
        return
    docs = pathlib.Path(sys.argv[2])
    ratio_plot(compared, docs / "performance.svg")
    growth_plot(growths(times), docs / "performance-growth.svg")
    roofline_plot(times, docs / "performance-roofline.svg")
    filled = {"machine": machine(context), "table": as_markdown(HEAD, lines),
              "growth": as_markdown(GROWTH_HEAD, growth_lines)}
    text = pathlib.Path(__file__).with_name("performance.md.in").read_text(encoding="utf-8")
    (docs / "performance.md").write_text(
        re.sub(r"\{(\w+)\}", lambda match: filled[match[1]], text), encoding="utf-8")


if __name__ == "__main__":
    main()
