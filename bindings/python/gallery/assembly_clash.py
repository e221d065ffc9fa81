#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plates and bolts: which parts clash? Seen from above; red parts clash, dots join each pair."""

import sys

import numpy as np
from matplotlib.figure import Figure
from matplotlib.patches import Polygon

import vexmath as vm

COUNT = 100
random = np.random.default_rng(4)


def parts():
    """Plates and bolts, each rotated about z and moved into place."""
    boxes, placements = [], []
    for i in range(COUNT):
        half = (random.uniform(2, 6), random.uniform(0.5, 1.5), 0.5) if i % 3 else (0.6, 0.6, 2)
        x, y = random.uniform(-50, 50), random.uniform(-30, 30)
        turned = vm.rotate(random.uniform(0, np.pi), (0, 0, 1), 1e-9)
        boxes.append(vm.Box(tuple(-h for h in half), half))
        placements.append(turned * vm.translate((x, y, 0)))
    return boxes, placements


def outline(box, placement):
    """The four corners of the box's lower face, placed."""
    low, high = box.low, box.high
    corners = [(low.x, low.y, 0), (high.x, low.y, 0), (high.x, high.y, 0), (low.x, high.y, 0)]
    return vm.transform_points(np.array(corners, float), placement)[:, :2]


boxes, placements = parts()
pairs = vm.find_placed_clashes(boxes, placements)
clashing = set(pairs.ravel().tolist())
figure = Figure(figsize=(8, 5), layout="constrained")
axes = figure.subplots()
for i, (box, placement) in enumerate(zip(boxes, placements)):
    fill = "#d95f4c" if i in clashing else "#c8d3de"
    axes.add_patch(Polygon(outline(box, placement), fc=fill, ec="#333333", lw=0.6))
for i, j in pairs:
    a, b = placements[i].translation, placements[j].translation
    axes.plot([a.x, b.x], [a.y, b.y], "o-", color="black", lw=0.9, ms=2.2)
axes.set(title=f"{len(pairs)} clashes of {COUNT} placed parts", aspect="equal")
axes.set(xlim=(-58, 58), ylim=(-36, 36), xlabel="x, mm", ylabel="y, mm")
picture = sys.argv[1] if len(sys.argv) > 1 else __file__.replace(".py", ".png")
figure.savefig(picture, dpi=56, pil_kwargs={"optimize": True})
