#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A drill visits the holes of a plate: as they are listed, and by a short closed tour."""

import sys

import numpy as np
from matplotlib.figure import Figure

import vexmath as vm

random = np.random.default_rng(1)


def holes():
    """Three bolt circles and a field of holes, in the order in which a designer drew them."""
    circles = []
    for centre, radius, count in (((25, 25), 15, 12), ((75, 30), 20, 16), ((40, 70), 12, 10)):
        angles = np.arange(count) * 2 * np.pi / count
        circles.append(np.c_[np.cos(angles), np.sin(angles)] * radius + centre)
    field = np.c_[np.meshgrid(np.arange(64, 98, 7), np.arange(62, 98, 7))].reshape(2, -1).T
    plane = np.vstack([*circles, field])
    random.shuffle(plane)
    return np.c_[plane, np.zeros(len(plane))]


def length(points):
    """Of the closed path."""
    return sum(vm.distance(tuple(a), tuple(b)) for a, b in zip(points, np.roll(points, -1, axis=0)))


points = holes()
tour = points[vm.closed_tour(points)]
figure = Figure(figsize=(9, 4.8), layout="constrained")
panels = figure.subplots(1, 2)
for axes, path, name in zip(panels, (points, tour), ("as listed", "closed tour")):
    closed = np.vstack([path, path[:1]])
    axes.plot(closed[:, 0], closed[:, 1], color="#4c7fb5", lw=0.9)
    axes.plot(path[:, 0], path[:, 1], "o", color="white", mec="#333333", ms=5)
    axes.set(title=f"{name}: {length(path):.0f} mm", aspect="equal", xlabel="x, mm")
panels[0].set_ylabel("y, mm")
picture = sys.argv[1] if len(sys.argv) > 1 else __file__.replace(".py", ".png")
figure.savefig(picture, dpi=56, pil_kwargs={"optimize": True})
