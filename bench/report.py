#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints the benchmark report as a table: nanoseconds an item, and vexmath against each peer."""

import json
import sys

# Ratios we hold ourselves to: work, peer, at most.
GOALS = {
    ("transform points", "Eigen"): 1.3,
    ("bounds", "unchecked"): 2.0,
    ("append points", "std::vector"): 1.0,
}


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


def main():
    print(f"\n{'work':<20}{'who':<18}{'ns/item':>10}{'vexmath is':>14}   goal")
    missed = 0
    for work, times in nanoseconds_per_item(sys.argv[1]).items():
        for who, time in times.items():
            line = f"{work:<20}{who:<18}{time:>10.2f}"
            if who != "vexmath" and "vexmath" in times:
                ratio = times["vexmath"] / time
                line += f"{ratio:>11.2f} x "
                goal = GOALS.get((work, who))
                if goal is not None:
                    line += f"   at most {goal} x: {'met' if ratio <= goal else 'MISSED'}"
                    missed += ratio > goal
            print(line)
    if missed:
        print(f"\n{missed} goal(s) missed; on a busy machine run it again before you believe it.")


if __name__ == "__main__":
    main()
