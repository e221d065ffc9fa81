# SPDX-License-Identifier: MIT
"""Plots as SVG, for the reports that are written to docs/."""

import math

COLOURS = ("#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9", "#555555",
           "#8b4513")
WIDTH, HEIGHT, LEFT, TOP, PLOT_WIDTH, PLOT_HEIGHT = 800, 560, 70, 50, 700, 370


class Picture:
    """A white sheet with a title, on which the rest is drawn."""

    def __init__(self, title, width=WIDTH, height=HEIGHT):
        self.items = [
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
            'font-family="sans-serif" font-size="13">',
            f'<rect width="{width}" height="{height}" fill="white"/>']
        self.text(width / 2, 28, title, 'font-size="18" text-anchor="middle"')

    def text(self, x, y, text, style=""):
        self.items.append(f'<text x="{x:.1f}" y="{y:.1f}" {style}>{text}</text>')

    def line(self, points, style):
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        self.items.append(f'<polyline points="{path}" fill="none" {style}/>')

    def box(self, x, y, width, height, style):
        self.items.append(f'<rect x="{x:.1f}" y="{y:.1f}" width="{width:.1f}" '
                          f'height="{height:.1f}" {style}/>')

    def write(self, path):
        path.write_text("\n".join(self.items) + "\n</svg>\n", encoding="utf-8")


class Plot(Picture):
    """A plot with a logarithmic x axis and a logarithmic or a percentage y axis."""

    def __init__(self, title, x_name, x_range, y_name, y_range, shown="{:.0e}".format):
        super().__init__(title)
        self.x_range, self.y_range, self.shown = x_range, y_range, shown
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

    def axes(self, x_name, y_name):
        bottom, right, grid = TOP + PLOT_HEIGHT, LEFT + PLOT_WIDTH, 'stroke="#dddddd"'
        for value in decades(self.x_range):
            self.line([(self.x(value), TOP), (self.x(value), bottom)], grid)
            self.text(self.x(value), bottom + 18, self.shown(value), 'text-anchor="middle"')
        shares = [i / 5 for i in range(6)]
        for value in shares if self.y_range is None else decades(self.y_range):
            self.line([(LEFT, self.y(value)), (right, self.y(value))], grid)
            label = f"{100 * value:.0f} %" if self.y_range is None else self.shown(value)
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


def decades(limits):
    """The powers of ten in a range, thinned out to a dozen."""
    low, high = (round(math.log10(limit)) for limit in limits)
    step = 1 + (high - low) // 13
    return [10.0**exponent for exponent in range(low, high + 1, step)]
