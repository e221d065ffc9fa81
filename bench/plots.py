# SPDX-License-Identifier: MIT
"""The plots of docs/performance.md: ratios, growth, roofline."""

import pathlib
import sys

from matplotlib import pyplot
from matplotlib.lines import Line2D
from matplotlib.patches import Patch
from matplotlib.ticker import EngFormatter, FuncFormatter, NullFormatter

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tools"))
from figures import COLOURS, save

MET, MISSED, NEUTRAL = "#009e73", "#d55e00", "#888888"
RATIOS = (0.1, 10.0)
PLAIN = FuncFormatter(lambda value, _: f"{value:g}")


def ratios(shown, path):
    """Horizontal bars from 1 to each ratio; a mark at the ratio that is wanted."""
    shown = [row for row in shown if row.ratio is not None]
    figure, axes = pyplot.subplots(figsize=(9, 0.8 + 0.27 * len(shown)))
    for i, row in enumerate(shown):
        colour = NEUTRAL if row.wanted is None else MISSED if row.missed() else MET
        axes.barh(i, row.ratio - 1.0, left=1.0, height=0.65, color=colour)
        if row.wanted is not None:
            axes.vlines(row.wanted, i - 0.45, i + 0.45, color="black", linewidth=2.5)
        axes.text(1.02, i, f"{row.ratio:.2f} × {row.peer}", va="center",
                  transform=axes.get_yaxis_transform())
    axes.axvline(1.0, color="black", linewidth=1)
    axes.set(xscale="log", xlim=RATIOS, ylim=(len(shown) - 0.5, -0.5))
    for x, text in ((0.25, "← vexmath is faster"), (0.75, "vexmath is slower →")):
        axes.text(x, -1.5 / len(shown), text, ha="center", color="#555555",
                  transform=axes.transAxes)
    axes.set_yticks(range(len(shown)), [row.work for row in shown])
    axes.set_xticks([0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0])
    axes.xaxis.set_major_formatter(PLAIN)
    axes.xaxis.set_minor_formatter(NullFormatter())
    axes.grid(axis="y", visible=False)
    legend = [Patch(color=MET, label="as wanted"), Patch(color=MISSED, label="missed"),
              Patch(color=NEUTRAL, label="no goal"),
              Line2D([], [], color="black", marker="|", linestyle="", markersize=12,
                     markeredgewidth=2.5, label="at most wanted")]
    axes.legend(handles=legend, loc="upper center", ncol=4,
                bbox_to_anchor=(0.5, -0.9 / (0.8 + 0.27 * len(shown))))
    axes.set_title("Time of vexmath, as a multiple of its peer's")
    save(figure, path)


def growth(curves, path):
    """Time per point over the number of points, vexmath as a thick line."""
    figure, axes = pyplot.subplots(figsize=(9, 5))
    for colour, (name, by) in zip(COLOURS, curves.items()):
        for (width, style), (who, points) in zip(((3.0, "-"), (1.5, "--"), (1.5, ":")), by.items()):
            axes.plot(*zip(*points), color=colour, linewidth=width, linestyle=style,
                      label=f"{name}: {who}")
    axes.set(xscale="log", yscale="log", xlabel="points", ylabel="ns per point",
             title="Time per point, as lists grow")
    axes.xaxis.set_major_formatter(EngFormatter(sep=""))
    axes.yaxis.set_major_formatter(EngFormatter(sep=""))
    axes.legend(loc="center left", bbox_to_anchor=(1.0, 0.5))
    save(figure, path)


def growth_of_clashes(curves, path):
    """Time per box over the number of boxes, a panel for each scene, vexmath as a thick line."""
    figure, row = pyplot.subplots(1, len(curves), figsize=(12, 4), sharey=True, squeeze=False)
    everybody = list(dict.fromkeys(who for by in curves.values() for who in by))
    for axes, (name, by) in zip(row[0], curves.items()):
        for who, points in by.items():
            place = everybody.index(who)
            axes.plot(*zip(*points), color=COLOURS[place], marker="o", markersize=3,
                      linewidth=1.5 if place else 3.0, label=who)
        axes.set(xscale="log", yscale="log", xlabel="boxes", title=name)
        axes.xaxis.set_major_formatter(EngFormatter(sep=""))
        axes.yaxis.set_major_formatter(EngFormatter(sep=""))
    row[0][0].set_ylabel("ns per box")
    row[0][0].legend(loc="upper center", ncol=len(everybody), bbox_to_anchor=(0.5, 0.0),
                     bbox_transform=figure.transFigure)
    save(figure, path)


def roofline(points, slopes, ceilings, path):
    """Operations per nanosecond over operations per byte, under the machine's ceilings.

    points: {work: (operations per byte, operations per nanosecond)}; slopes: {memory: bytes per
    nanosecond}; ceilings: {kind: operations per nanosecond}.
    """
    figure, axes = pyplot.subplots(figsize=(9, 5.5))
    highest = max(ceilings.values(), default=100.0)
    for colour, (name, slope) in zip(COLOURS, slopes.items()):
        axes.plot([0.1, highest / slope], [0.1 * slope, highest], color=colour, linewidth=2,
                  label=f"{name}: {slope:.0f} bytes per ns")
    for colour, (who, ceiling) in zip(COLOURS[2:], ceilings.items()):
        axes.plot([ceiling / max(slopes.values()), 10.0], [ceiling, ceiling], color=colour,
                  linewidth=2, linestyle="--", label=f"{who}: {ceiling:.1f} per ns")
    for i, (work, place) in enumerate(sorted(points.items(), key=lambda item: item[1]), start=1):
        axes.plot(*place, "ko", markersize=4, label=f"{i}  {work}")
        axes.annotate(str(i), place, xytext=(5, 3), textcoords="offset points")
    axes.set(xscale="log", yscale="log", xlim=(0.1, 10.0), ylim=(0.5, 50.0),
             xlabel="operations per byte", ylabel="operations per nanosecond",
             title="Operations per nanosecond, and what the machine allows")
    axes.xaxis.set_major_formatter(PLAIN)
    axes.yaxis.set_major_formatter(PLAIN)
    axes.legend(loc="center left", bbox_to_anchor=(1.0, 0.5))
    save(figure, path)
