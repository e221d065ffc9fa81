# SPDX-License-Identifier: MIT
"""Clashes of assemblies that outgrow one process, found on a Dask cluster.

Space is divided at medians until a cell holds few enough parts. A part goes to every cell that the
cube around its placed sphere meets: parts that clash have cubes that meet, also where their boxes
in the common frame do not. Each cell is one task, which asks the library. A pair that several cells
find is reported by the cell with the lowest corner that both cubes share. A part about which its
cube tells nothing (NaN, infinite numbers, placements that are no similarity) goes to every cell.

The tasks hold their parts, and nothing else is kept on a worker: when one dies, Dask runs its tasks
again on another.
"""

from __future__ import annotations

import pickle
from collections.abc import Iterator, Sequence
from typing import Any, NamedTuple, Union

import numpy
from numpy.typing import NDArray

from . import Box, Transform, box_rows, find_placed_clashes, placed_cubes

Floats = NDArray[numpy.float64]
Indices = NDArray[numpy.int64]
Placements = Union[Floats, Sequence[Transform]]

PARTS_PER_CELL = 20000


class Cell(NamedTuple):
    """The parts of a cell, ascending, and where it lies: low < corner <= high on each axis."""

    parts: Indices
    low: Floats
    high: Floats


class Task(NamedTuple):
    """What a worker gets. Corners are the low ones of the cubes, -inf for a part of every cell."""

    parts: Indices
    boxes: Floats
    placements: Placements
    corners: Floats
    bounds: tuple[Floats, Floats] | None  # of the cell; None for the parts of every cell


def cells(cubes: Floats, parts: Indices, parts_per_cell: int) -> Iterator[Cell]:
    """Cells that cover space and hold the finite cubes they meet."""
    infinite = numpy.full(3, numpy.inf)
    waiting = [Cell(parts, -infinite, infinite)] if len(parts) else []
    while waiting:
        cell = waiting.pop()
        halves = halved(cubes, cell) if len(cell.parts) > parts_per_cell else None
        if halves:
            waiting += halves
        else:
            yield cell


def halved(cubes: Floats, cell: Cell) -> list[Cell] | None:
    """Two cells, divided across the axis that shares the fewest parts; None if it helps little."""
    best: list[Cell] | None = None
    most = 0.9 * len(cell.parts)
    inside = cubes[cell.parts]
    for axis in range(3):
        at = float(numpy.median(inside[:, axis] + inside[:, axis + 3])) / 2
        left, right = inside[:, axis] <= at, inside[:, axis + 3] > at
        larger = max(numpy.count_nonzero(left), numpy.count_nonzero(right))
        if larger < most:
            most = larger
            high, low = cell.high.copy(), cell.low.copy()
            high[axis] = low[axis] = at
            best = [
                Cell(cell.parts[left], cell.low, high),
                Cell(cell.parts[right], low, cell.high),
            ]
    return best


def run(packed: bytes) -> Indices:
    """The pairs that a task reports, by the numbers of the parts in the assembly.

    Runs on a worker. The task is packed so that Dask does not look at thousands of objects.
    """
    task: Task = pickle.loads(packed)
    pairs = find_placed_clashes(task.boxes, task.placements)
    if task.bounds:
        low, high = task.bounds
        shared = numpy.maximum(task.corners[pairs[:, 0]], task.corners[pairs[:, 1]])
        pairs = pairs[numpy.all((shared > low) & (shared <= high), axis=1)]
    return numpy.take(task.parts, pairs)


def tasks(boxes: Floats, placements: Placements, parts_per_cell: int) -> Iterator[Task]:
    """One for each cell, and one for the parts that go to every cell."""
    cubes = placed_cubes(boxes, placements)
    is_set = ~numpy.isnan(cubes[:, 0])
    is_finite = numpy.isfinite(cubes).all(axis=1)
    everywhere = numpy.flatnonzero(is_set & ~is_finite)
    corners = numpy.where(is_finite[:, None], cubes[:, :3], -numpy.inf)

    def task(parts: Indices, bounds: tuple[Floats, Floats] | None) -> Task:
        placed: Placements
        if isinstance(placements, numpy.ndarray):
            placed = placements[parts]
        else:
            placed = [placements[i] for i in parts]
        return Task(parts, boxes[parts], placed, corners[parts], bounds)

    if len(everywhere):
        yield task(everywhere, None)
    for cell in cells(cubes, numpy.flatnonzero(is_finite), parts_per_cell):
        yield task(numpy.union1d(cell.parts, everywhere), (cell.low, cell.high))


def clashes(
    parts: tuple[Union[Floats, Sequence[Box]], Placements],
    client: Any,
    parts_per_cell: int = PARTS_PER_CELL,
) -> Indices:
    """All clashes of placed boxes: the pairs of `find_placed_clashes(*parts)`, in its order.

    `parts` are boxes and their placements, as that function takes them; `client` is one of Dask.
    The result has the shape (k, 2) and the type int64.
    """
    boxes, placements = box_rows(parts[0]), parts[1]
    futures = [
        client.submit(run, pickle.dumps(task), pure=False)
        for task in tasks(boxes, placements, parts_per_cell)
    ]
    found = [numpy.empty((0, 2), numpy.int64), *client.gather(futures)]
    pairs = numpy.concatenate(found)
    ordered: Indices = pairs[numpy.lexsort((pairs[:, 1], pairs[:, 0]))]
    return ordered
