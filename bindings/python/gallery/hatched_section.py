#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A section through a hub with a key way and four bores, hatched; the key is hatched crosswise."""

import sys

import numpy as np
from matplotlib.figure import Figure
from matplotlib.patches import Polygon

import vexmath as vm

ORIGIN = vm.Point()
Z = vm.Vector(0, 0, 1)


def circle(x, y, radius):
    """A closed outline whose chords stay near the circle."""
    start = (x + radius, y, 0)
    return vm.tessellate_arc((x, y, 0), Z, radius, start, start, 0.02)[:-1].copy()


def hub():
    """The rim, the shaft's hole with the key way, four bores: the even-odd rule does the rest."""
    arc = vm.tessellate_arc(ORIGIN, Z, 12.0, (-3.0, 135**0.5, 0), (3.0, 135**0.5, 0), 0.02)
    hole = np.vstack([arc, [[3.0, 15.0, 0], [-3.0, 15.0, 0]]])
    bores = [circle(25 * np.cos(a), 25 * np.sin(a), 4.5) for a in np.arange(4) * np.pi / 2 + 0.4]
    return [circle(0, 0, 36), hole, *bores]


def key():
    return [np.array([[-3.0, 8, 0], [3, 8, 0], [3, 15, 0], [-3, 15, 0]])]


def draw(axes, outlines, angle, spacing, colour):
    """Hatch lines and outlines, in the same plane."""
    ends = vm.hatch_lines_polygon_2d(outlines, ORIGIN, angle, spacing).reshape(-1, 2, 3)
    for a, b in ends:
        axes.plot([a[0], b[0]], [a[1], b[1]], color=colour, lw=0.7)
    for outline in outlines:
        axes.add_patch(Polygon(outline[:, :2], fill=False, ec="#222222", lw=1.3))
    return len(ends)


figure = Figure(figsize=(6, 6), layout="constrained")
axes = figure.subplots()
count = draw(axes, hub(), np.pi / 4, 1.8, "#4c7fb5")
count += draw(axes, key(), -np.pi / 4, 0.9, "#b5674c")
axes.set(title=f"Section with {count} hatch lines", aspect="equal")
axes.axis("off")
picture = sys.argv[1] if len(sys.argv) > 1 else __file__.replace(".py", ".png")
figure.savefig(picture, dpi=70, pil_kwargs={"optimize": True})
