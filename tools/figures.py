# SPDX-License-Identifier: MIT
"""The look of the plots in docs/: matplotlib figures, written as SVG files that do not change when
the data do not."""

import matplotlib

matplotlib.use("svg")
matplotlib.rcParams.update({
    "svg.hashsalt": "vexmath",
    "svg.fonttype": "none",
    "font.family": "sans-serif",
    "font.size": 10,
    "axes.grid": True,
    "axes.axisbelow": True,
    "axes.spines.top": False,
    "axes.spines.right": False,
    "grid.color": "#dddddd",
    "legend.frameon": False,
})

COLOURS = ("#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9", "#555555", "#8b4513")


def save(figure, path):
    figure.savefig(path, bbox_inches="tight", metadata={"Date": None, "Creator": None})
    # matplotlib ends lines with blanks, which the house's editors remove.
    lines = path.read_text(encoding="utf-8").splitlines()
    path.write_text("\n".join(line.rstrip() for line in lines) + "\n", encoding="utf-8")
