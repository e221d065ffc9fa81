#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Times of array functions beside NumPy: process CPU time, one thread, least of mixed runs."""

import os

os.environ |= {"OMP_NUM_THREADS": "1", "OPENBLAS_NUM_THREADS": "1"}

import pickle
import time
from collections.abc import Callable

import numpy as np

import vexmath as vm
from vexmath.distributed import run, tasks

COUNT, REPETITIONS = 1_000_000, 15
POINTS = np.random.default_rng(1).uniform(-100, 100, (COUNT, 3))
X = vm.rotate(0.7, (1, 2, 3), 0.0) * vm.translate((4, 5, 6))
R, T = X.rotation.array, np.array(X.translation)
OUT = POINTS.copy()
FEW = OUT[:10_000]
LINE = vm.Line((1, 2, 3), vm.Direction(1, 1, 0))
ROOT, DIRECTION = np.array(LINE.root_point), np.array(LINE.direction)
ROWS = (
    ("transform in place", lambda: POINTS @ R + T, lambda: vm.transform_points(OUT, X, out=OUT)),
    ("transform into another array", lambda: POINTS @ R + T,
     lambda: vm.transform_points(POINTS, X, out=OUT)),
    ("transform into a new array", lambda: POINTS @ R + T, lambda: vm.transform_points(POINTS, X)),
    ("transform 1e4 in place, a hundred times", lambda: [FEW @ R + T for _ in range(100)],
     lambda: [vm.transform_points(FEW, X, out=FEW) for _ in range(100)]),
    ("bounds", lambda: (POINTS.min(0), POINTS.max(0)), lambda: vm.bound_points(POINTS)),
    ("distances from a line",
     lambda: np.linalg.norm(np.cross(POINTS - ROOT, DIRECTION), axis=1),
     lambda: vm.distances(POINTS, LINE)),
)  # fmt: skip


def seconds(call: Callable[[], object]) -> float:
    begin = time.process_time()
    call()
    return time.process_time() - begin


def distributed(count: int) -> None:
    """The steps of a distributed search, in this process, of parts that are rotated freely."""
    random = np.random.default_rng(2)
    side = count ** (1 / 3) * 4.0
    box = vm.Box((-1, -1, -1), (1, 1, 1))
    placements = vm.placement_rows(
        [
            vm.rotate(turn, (1, 2, 3), 0.0) * vm.translate(vm.Vector(*at))
            for turn, at in zip(random.uniform(-3, 3, count), random.uniform(0, side, (count, 3)))
        ]
    )
    boxes = vm.box_rows([box] * count)
    packed: list[bytes] = []
    pairs: list[int] = []
    divide = seconds(lambda: packed.extend(map(pickle.dumps, tasks(boxes, placements, 20000))))
    search = seconds(lambda: pairs.extend(len(run(task)) for task in packed))
    whole = seconds(lambda: vm.find_placed_clashes(boxes, placements))
    sent = sum(map(len, packed))
    print(
        f"\n{count} parts, {sum(pairs)} pairs, {len(packed)} tasks: divide and pack"
        f" {divide / count * 1e6:.2f} us a part, {sent / count:.0f} bytes a part;"
        f" search {search / count * 1e6:.2f} us a part ({search / sum(pairs) * 1e6:.2f} us a pair);"
        f" one call {whole / count * 1e6:.2f} us a part"
    )


def main() -> None:
    print("| 1e6 points, ms | NumPy | vexmath | ratio |\n|---|---|---|---|")
    for name, numpy_call, own_call in ROWS:
        pairs = [(seconds(numpy_call), seconds(own_call)) for _ in range(REPETITIONS)]
        other, own = (min(times) * 1e3 for times in zip(*pairs))
        print(f"| {name} | {other:.1f} | {own:.1f} | {other / own:.0f} |")
    memory = {"filling": lambda: OUT.fill(0.0), "copying": lambda: np.copyto(OUT, POINTS)}
    for name, call in memory.items():
        least = min(seconds(call) for _ in range(REPETITIONS))
        print(f"{name} the array: {least * 1e3:.1f} ms")
    distributed(100_000)
    distributed(400_000)


if __name__ == "__main__":
    main()
