#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes docs/accuracy.md and its plots: report.py <measurements> <template> <docs folder>.

The measurements are lines of "family, series, x, median error, worst error", separated by tabs.
In the template {plot:family} becomes a picture, and {table:family x...} becomes a table of the
errors at those x.
"""

import math
import pathlib
import re
import sys

from matplotlib import pyplot
from matplotlib.ticker import PercentFormatter

sys.path.insert(0, str(pathlib.Path(__file__).parents[1]))
from figures import COLOURS, save

ROUNDING = 2.0**-53
ERROR_RANGE = (1e-18, 1.0)

# Title, name and range of x; dashed guides (label, error at x, range of x); tolerances (x, label).
PLOTS = {
    "well-scaled": ("Well-scaled problems", "error at most", (1e-18, 1e-13), [], []),
    "clustered-roots": (
        "Clustered roots", "distance between the roots", (1e-15, 1.0),
        [("one rounding of the coefficients, pair", lambda x: ROUNDING / x, (1e-8, 1.0)),
         ("the same, triple", lambda x: ROUNDING / x**2, (5e-6, 1.0))],
        [(math.sqrt(1e-13), "discriminant 1e-13"), (1.1e-6, "cosine 1 - 1e-12"),
         (6.4e-5, "critical value 1e-13"), (1e-4, "P 1e-08")]),
    "nearly-equal-eigenvalues": (
        "Nearly equal eigenvalues", "relative distance between the eigenvalues", (1e-15, 1.0),
        [("one rounding of the elements", lambda x: ROUNDING / x, (1e-15, 1.0))],
        [(1e-13, "difference 1e-13"), (1e-3, "difference 1e-13 at size 1e-10")]),
    "nearly-singular": (
        "Nearly singular matrices", "singular value", (1e-15, 1.0),
        [("square of the singular value", lambda x: x * x / 4, (2e-8, 1.0)),
         ("one rounding over the singular value", lambda x: ROUNDING / x, (1e-8, 1.0))],
        [(5e-9, "determinant 1e-08"), (1e-8, "cross product 1e-16")]),
    "rank-two": (
        "Matrices of rank two", "largest cross product of two columns", (1e-8, 1.0),
        [("one rounding of the elements", lambda x: ROUNDING / x, (1e-8, 1.0))], []),
    "scaled": ("Scaled problems", "factor", (1e-16, 1e16), [], []),
}


def read(path):
    """{family: {series: [(x, median, worst)]}}"""
    families = {}
    for line in path.read_text(encoding="utf-8").splitlines()[1:]:
        family, series, *numbers = line.split("\t")
        points = families.setdefault(family, {}).setdefault(series, [])
        points.append(tuple(float(number) for number in numbers))
    return families


def plot(family, series, path):
    title, x_name, x_range, guides, tolerances = PLOTS[family]
    figure, axes = pyplot.subplots(figsize=(9, 5))
    axes.set(xscale="log", xlim=x_range, xlabel=x_name, title=title)
    if family == "well-scaled":  # x is the share of the problems there
        axes.set(ylabel="share of the problems", ylim=(0.0, 1.0))
        axes.yaxis.set_major_formatter(PercentFormatter(1.0))
        for colour, (name, points) in zip(COLOURS, series.items()):
            axes.plot(*zip(*((max(error, x_range[0]), share) for share, error, _ in points)),
                      color=colour, linewidth=2, label=name)
    else:
        axes.set(yscale="log", ylabel="median error; thin: worst", ylim=ERROR_RANGE)
        for row, (x, label) in enumerate(tolerances):
            axes.axvline(x, color="#888888", linestyle=":")
            at_right = math.log10(x / x_range[0]) > 0.5 * math.log10(x_range[1] / x_range[0])
            axes.annotate(label, (x, 1.0), xycoords=("data", "axes fraction"),
                          xytext=(-4 if at_right else 4, -16 - 14 * row),
                          textcoords="offset points", ha="right" if at_right else "left",
                          color="#555555", fontsize=9)
        for label, error, (low, high) in guides:
            axes.plot([low, high], [error(low), error(high)], color="black", linestyle="--",
                      label=label)
        for colour, (name, points) in zip(COLOURS, series.items()):
            x, medians, worst = zip(*points)
            axes.plot(x, [max(e, ERROR_RANGE[0]) for e in medians], color=colour, linewidth=2.5,
                      label=name)
            axes.plot(x, [max(e, ERROR_RANGE[0]) for e in worst], color=colour, linewidth=0.8)
    axes.legend(loc="upper center", bbox_to_anchor=(0.5, -0.12), ncol=2)
    save(figure, path)
    pyplot.close(figure)


def table(family, series, wanted):
    """Median and worst error of each series at the wanted x; shares for the well-scaled ones."""
    shares = family == "well-scaled"
    head = [PLOTS[family][1]] + [f"{100 * x:g} %" if shares else f"{x:.0e}" for x in wanted]
    lines = ["| " + " | ".join(head) + " |", "|---" * len(head) + "|"]
    for name, points in series.items():
        cells = []
        for x in wanted:
            _, median, worst = min(points, key=lambda point: abs(math.log(point[0] / x)))
            cells.append(f"{median:.0e}" if shares else f"{median:.0e} / {worst:.0e}")
        lines.append(f"| {name} | " + " | ".join(cells) + " |")
    return "\n".join(lines)


def main():
    measurements, template, docs = map(pathlib.Path, sys.argv[1:])
    families = read(measurements)

    def filled(match):
        kind, family, *wanted = match[1].replace(":", " ").split()
        if kind == "table":
            return table(family, families[family], [float(x) for x in wanted])
        plot(family, families[family], docs / f"accuracy-{family}.svg")
        return f"![{PLOTS[family][0]}](accuracy-{family}.svg)"

    text = template.read_text(encoding="utf-8")
    (docs / "accuracy.md").write_text(re.sub(r"\{([^}]*)\}", filled, text), encoding="utf-8")


if __name__ == "__main__":
    main()
