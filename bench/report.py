#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints the benchmark report as a table: nanoseconds an item, and vexmath against each peer."""

import json
import math
import re
import sys

# Ratios we hold ourselves to: work, peer, at most.
GOALS = {
    ("transform points", "Eigen"): 1.3,
    ("bounds", "unchecked"): 2.0,
    ("append points", "std::vector"): 1.0,
    ("arc", "sine and cosine"): 0.25,
    ("sort points", "std::sort"): 1.0,
    ("hull", "CGAL Graham-Andrew"): 1.0,
    ("tour of 2000", "Boost approximation"): 4.0,
    ("line plane", "Eigen"): 1.3,
    ("line plane", "Imath"): 1.1,
    ("eigensystem 3x3", "Eigen iterative"): 0.8,
    ("eigensystem 3x3", "Imath Jacobi"): 0.8,
}

# Work "<name> of <n>" that may grow with this power of n at most.
GROWTH_GOALS = {"tour": 2.2}


def nanoseconds_per_item(path):
    """{work: {who: ns}}, the best of the repetitions: what disturbs a run only makes it slower."""
    with open(path, encoding="utf-8") as file:
        runs = json.load(file)["benchmarks"]
    times = {}
    for run in runs:
        if run["run_type"] != "iteration":
            continue
        work, who = run["run_name"].split("/", 1)
        time = 1e9 / run["items_per_second"]
        best = times.setdefault(work, {})
        best[who] = min(time, best.get(who, time))
    return times


def growths(times):
    """{name: (least n, greatest n, exponent)} of the works that are measured for several n."""
    sizes = {}
    for work, who in times.items():
        match = re.fullmatch(r"(.+) of (\d+)", work)
        if match and "vexmath" in who:
            n = int(match[2])
            sizes.setdefault(match[1], []).append((n, n * who["vexmath"]))
    result = {}
    for name, runs in sizes.items():
        (few, fast), (many, slow) = min(runs), max(runs)
        if few < many:
            result[name] = (few, many, math.log(slow / fast) / math.log(many / few))
    return result


def verdict(value, goal, unit):
    return f"   at most {goal}{unit}: {'met' if value <= goal else 'MISSED'}"


def main():
    print(f"\n{'work':<20}{'who':<22}{'ns/item':>10}{'vexmath is':>14}   goal")
    missed = 0
    measured = nanoseconds_per_item(sys.argv[1])
    for work, times in measured.items():
        for who, time in times.items():
            line = f"{work:<20}{who:<22}{time:>10.2f}"
            if who != "vexmath" and "vexmath" in times:
                ratio = times["vexmath"] / time
                line += f"{ratio:>11.2f} x "
                goal = GOALS.get((work, who))
                if goal is not None:
                    line += verdict(ratio, goal, " x")
                    missed += ratio > goal
            print(line)
    for name, (few, many, power) in growths(measured).items():
        goal = GROWTH_GOALS[name]
        print(f"{name} from {few} to {many}: n^{power:.2f}" + verdict(power, goal, ""))
        missed += power > goal
    if missed:
        print(f"\n{missed} goal(s) missed; on a busy machine run it again before you believe it.")


if __name__ == "__main__":
    main()
