#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""How far do the chords of a tessellated arc and ellipse stay from the curve, by tolerance?"""

import sys

import numpy as np
from matplotlib.figure import Figure

import vexmath as vm

RADIUS, MINOR = 50.0, 20.0
TOLERANCES = np.logspace(-4, 1, 41)
ENDS = (vm.Point(RADIUS, 0, 0), vm.Point(-RADIUS, 0, 0))


def half_circle(tol):
    return vm.tessellate_arc(vm.Point(), (0, 0, 1), RADIUS, *ENDS, tol)


def half_ellipse(tol):
    axes = (vm.Vector(1, 0, 0), vm.Vector(0, 1, 0))
    return vm.tessellate_ellipse(vm.Point(), *axes, RADIUS, MINOR, *ENDS, tol)


def error(points, minor):
    """The largest distance of the curve from its chords, measured at fifty places of each."""
    angles = np.unwrap(np.arctan2(points[:, 1] / minor, points[:, 0] / RADIUS))
    worst = 0.0
    for a, b, p, q in zip(angles, angles[1:], points, points[1:]):
        at = np.linspace(a, b, 50)
        curve = np.c_[RADIUS * np.cos(at), minor * np.sin(at), 0 * at]
        chord = vm.Line(tuple(p), vm.Direction(vm.Point(*q) - vm.Point(*p)))
        worst = max(worst, vm.distances(curve, chord).max())
    return worst


figure = Figure(figsize=(9, 4.2), layout="constrained")
left, right = figure.subplots(1, 2)
left.loglog(TOLERANCES, TOLERANCES, "--", color="#999999", label="error = tolerance")
circle, ellipse = (half_circle, RADIUS, "half circle"), (half_ellipse, MINOR, "half ellipse")
for make, minor, name in (circle, ellipse):
    curves = [make(tol) for tol in TOLERANCES]
    left.loglog(TOLERANCES, [error(curve, minor) for curve in curves], label=name)
    right.semilogx(TOLERANCES, [len(curve) - 1 for curve in curves], label=name)
left.set(xlabel="tolerance", ylabel="largest distance of the curve from its chords")
right.set(xlabel="tolerance", ylabel="segments")
left.legend()
right.legend()
figure.suptitle("The number of segments has limits, and so has the error")
picture = sys.argv[1] if len(sys.argv) > 1 else __file__.replace(".py", ".png")
figure.savefig(picture, dpi=70, pil_kwargs={"optimize": True})
