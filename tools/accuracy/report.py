#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes docs/accuracy.md and its plots: report.py <measurements> <template> <docs folder>.

The measurements are lines of "family, series, x, median error, worst error", split by tabs. The
template's {plot:family} becomes a picture, {table:family x...} a table of the errors at those x.
"""

import math
import pathlib
import re
import sys

COLOURS = ("#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9", "#555555",
           "#8b4513")
WIDTH, HEIGHT, LEFT, TOP, PLOT_WIDTH, PLOT_HEIGHT = 800, 560, 70, 50, 700, 370
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
         ("one rounding over its square", lambda x: ROUNDING / x**2, (1e-8, 1.0))],
        [(5e-9, "determinant 1e-08"), (1e-8, "cross product 1e-16")]),
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


class Plot:
    """A plot with a logarithmic x axis and a logarithmic or a percentage y axis."""

    def __init__(self, title, x_name, x_range, y_name, y_range):
        self.x_range, self.y_range = x_range, y_range
        self.items = [
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" '
            'font-family="sans-serif" font-size="13">',
            f'<rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>']
        self.text(WIDTH / 2, 28, title, 'font-size="18" text-anchor="middle"')
        self.axes(x_name, y_name)
        self.legend_rows = 0

    def x(self, value):
        low, high = map(math.log10, self.x_range)
        return LEFT + PLOT_WIDTH * (math.log10(max(value, self.x_range[0])) - low) / (high - low)

    def y(self, value):
        if self.y_range is None:
            return TOP + PLOT_HEIGHT * (1.0 - value)
        low, high = map(math.log10, self.y_range)
        share = (math.log10(max(value, self.y_range[0])) - low) / (high - low)
        return TOP + PLOT_HEIGHT * (1.0 - share)

    def text(self, x, y, text, style=""):
        self.items.append(f'<text x="{x:.1f}" y="{y:.1f}" {style}>{text}</text>')

    def line(self, points, style):
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        self.items.append(f'<polyline points="{path}" fill="none" {style}/>')

    def axes(self, x_name, y_name):
        bottom, right, grid = TOP + PLOT_HEIGHT, LEFT + PLOT_WIDTH, 'stroke="#dddddd"'
        for value in decades(self.x_range):
            self.line([(self.x(value), TOP), (self.x(value), bottom)], grid)
            self.text(self.x(value), bottom + 18, f"{value:.0e}", 'text-anchor="middle"')
        shares = [i / 5 for i in range(6)]
        for value in shares if self.y_range is None else decades(self.y_range):
            self.line([(LEFT, self.y(value)), (right, self.y(value))], grid)
            label = f"{100 * value:.0f} %" if self.y_range is None else f"{value:.0e}"
            self.text(LEFT - 8, self.y(value) + 4, label, 'text-anchor="end"')
        self.line([(LEFT, TOP), (LEFT, bottom), (right, bottom)], 'stroke="black"')
        self.text((LEFT + right) / 2, bottom + 38, x_name, 'text-anchor="middle"')
        middle = TOP + PLOT_HEIGHT / 2
        self.text(18, middle, y_name, f'text-anchor="middle" transform="rotate(-90 18 {middle})"')

    def curve(self, label, points, style):
        self.line([(self.x(x), self.y(y)) for x, y in points], style)
        if label:
            x = LEFT + 350 * (self.legend_rows % 2)
            y = TOP + PLOT_HEIGHT + 62 + 20 * (self.legend_rows // 2)
            self.line([(x, y), (x + 30, y)], style)
            self.text(x + 38, y + 4, label)
            self.legend_rows += 1

    def tolerance(self, x, label, row):
        self.line([(self.x(x), TOP), (self.x(x), TOP + PLOT_HEIGHT)],
                  'stroke="#888888" stroke-dasharray="2 3"')
        at_right = self.x(x) > LEFT + 0.5 * PLOT_WIDTH
        anchor, offset = ("end", -4) if at_right else ("start", 4)
        self.text(self.x(x) + offset, TOP + 28 + 16 * row, label,
                  f'fill="#555555" text-anchor="{anchor}"')

    def write(self, path):
        path.write_text("\n".join(self.items) + "\n</svg>\n", encoding="utf-8")


def decades(limits):
    """The powers of ten in a range, thinned out to a dozen."""
    low, high = (round(math.log10(limit)) for limit in limits)
    step = 1 + (high - low) // 13
    return [10.0**exponent for exponent in range(low, high + 1, step)]


def plot(family, series, path):
    title, x_name, x_range, guides, tolerances = PLOTS[family]
    if family == "well-scaled":  # x is the share of the problems there
        result = Plot(title, x_name, x_range, "share of the problems", None)
        for colour, (name, points) in zip(COLOURS, series.items()):
            result.curve(name, [(error, share) for share, error, _ in points],
                         f'stroke="{colour}" stroke-width="2"')
    else:
        result = Plot(title, x_name, x_range, "median error; thin: worst", ERROR_RANGE)
        for row, (x, label) in enumerate(tolerances):
            result.tolerance(x, label, row)
        for label, error, (low, high) in guides:
            result.curve(label, [(x, error(x)) for x in (low, high)],
                         'stroke="black" stroke-dasharray="6 4"')
        for colour, (name, points) in zip(COLOURS, series.items()):
            result.curve(name, [(x, median) for x, median, _ in points],
                         f'stroke="{colour}" stroke-width="2.5"')
            result.curve(None, [(x, worst) for x, _, worst in points],
                         f'stroke="{colour}" stroke-width="0.8"')
    result.write(path)


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
