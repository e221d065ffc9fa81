#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A click on the screen picks a box: the line of sight through a perspective, and its first hit."""

import sys

import numpy as np
from matplotlib.figure import Figure

import vexmath as vm

CLICK = vm.Point(1.9, 0.2, 0)
EDGES = [(i, i | bit) for i in range(8) for bit in (1, 2, 4) if not i & bit]


def view():
    """The model, rotated, in front of an eye at z = -40 whose screen is 30 away."""
    turned = vm.rotate(0.5, (0, 1, 0), 1e-9) * vm.rotate(0.4, (1, 0, 0), 1e-9)
    turned.perspective = vm.Perspective(vm.Point(0, 0, -40), 30.0)
    return turned


def boxes():
    cells = [(x, y, z) for x in (-6, 0, 6) for y in (-4, 3) for z in (-6, 6)]
    return [vm.Box((x - 1.6, y - 1.6, z - 1.6), (x + 1.6, y + 1.6, z + 1.6)) for x, y, z in cells]


def corners(box):
    low, high = box.low, box.high
    xs, ys, zs = zip(low, high)
    return np.array([(xs[i & 1], ys[i >> 1 & 1], zs[i >> 2]) for i in range(8)])


def draw(axes, box, camera, colour, width):
    on_screen = vm.transform_points(corners(box), camera)
    for i, j in EDGES:
        axes.plot(on_screen[[i, j], 0], on_screen[[i, j], 1], color=colour, lw=width)


camera, parts = view(), boxes()
start, direction, *_ = vm.view_ray(camera, CLICK, True)
picked, hit = vm.BoxIndex(parts).first_on_ray(start, direction)
figure = Figure(figsize=(7, 5.4), layout="constrained")
axes = figure.subplots()
for i, box in enumerate(parts):
    draw(axes, box, camera, *(("#d95f4c", 2.0) if i == picked else ("#8fa3b5", 0.9)))
axes.plot(CLICK.x, CLICK.y, "+", color="black", ms=16)
at = "" if hit is None else f", at ({hit.x:.2f}, {hit.y:.2f}, {hit.z:.2f})"
title = f"box {picked}{at}" if at else "nothing"
axes.set(title=f"Picked: {title}", aspect="equal")
axes.set(xlabel="x on the screen", ylabel="y on the screen")
picture = sys.argv[1] if len(sys.argv) > 1 else __file__.replace(".py", ".png")
figure.savefig(picture, dpi=70, pil_kwargs={"optimize": True})
