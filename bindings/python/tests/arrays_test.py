# SPDX-License-Identifier: MIT
"""Arrays: the results of a loop, no copy, no lock, and what is refused."""

import collections.abc
import math
import threading
import time

import numpy as np
import pytest

import vexmath as vm

RANDOM = np.random.default_rng(7)
POINTS = RANDOM.uniform(-10, 10, (1000, 3))
X = vm.rotate(0.7, vm.Vector(1, 2, 3), 0.0) * vm.translate(vm.Vector(4, 5, 6))


def directions(count):
    v = RANDOM.normal(size=(count, 3))
    return v / np.linalg.norm(v, axis=1)[:, None]


def test_points_are_moved_and_bounded_where_they_lie():
    given = POINTS.copy()
    moved = vm.transform_points(given, X)
    assert (given == POINTS).all() and moved is not given
    assert moved.tolist() == [[*(vm.Point(*p) * X)] for p in POINTS]
    assert vm.transform_points(given, X, out=given) is given
    assert (given == moved).all()
    for source, target in ((0, 300), (300, 0)):
        both = np.concatenate([POINTS, POINTS])
        expected = vm.transform_points(both[source : source + 1000].copy(), X)
        vm.transform_points(both[source : source + 1000], X, out=both[target : target + 1000])
        assert (both[target : target + 1000] == expected).all()
    box = vm.Box()
    for p in moved:
        box |= vm.Point(*p)
    halves = vm.bound_points(moved[500:], vm.bound_points(moved[:500]))
    assert vm.bound_points(moved) == halves == box
    assert vm.bound_points(np.empty((0, 3))) == vm.Box()


def test_distances():
    direction = vm.Direction(1, 1, 0)
    line, plane = vm.Line((1, 2, 3), direction), vm.Plane((1, 2, 3), direction)
    for other, distance in (
        (vm.Point(1, 2, 3), lambda p: vm.distance(p, vm.Point(1, 2, 3))),
        (line, lambda p: p.distance_to_ray(line.root_point, line.direction)[0]),
        (plane, lambda p: (p - plane.root_point) % plane.normal),
    ):
        assert vm.distances(POINTS, other).tolist() == [distance(vm.Point(*p)) for p in POINTS]


def rows(kinds, points):
    return [(kind, None if math.isnan(p[0]) else vm.Point(*p)) for kind, p in zip(kinds, points)]


def test_intersections():
    dirs = directions(1000)
    dirs[::7] = (1, 0, 0)
    plane, box = vm.Plane(vm.Point(), vm.Direction.z_axis()), vm.Box((-4, -4, -4), (4, 4, 4))
    rays = [(vm.Point(*p), vm.Direction(*d, False)) for p, d in zip(POINTS, dirs)]
    crossings = [vm.intersect_line_plane(vm.Line(*ray), plane)[:2] for ray in rays]
    assert rows(*vm.intersect_lines_plane(POINTS, dirs, plane)) == crossings
    assert rows(*vm.first_ray_hits(box, POINTS, dirs)) == [box.first_ray_hit(*ray) for ray in rays]
    ends = [POINTS, POINTS + (1, 0, 0), POINTS + (0.5, -1, 0), POINTS + (0.5, 1, 0)]
    ends[3][::3] += 5
    single = [vm.intersect_segments(*map(tuple, four), 1e-8) for four in zip(*ends)]
    assert rows(*vm.intersect_segment_arrays(*ends, 1e-8)) == single
    with pytest.raises(ValueError, match="arrays of 1000 and 999 rows"):
        vm.intersect_lines_plane(POINTS, dirs[1:], plane)


def test_boxes_and_placements_are_rows_or_sequences():
    boxes = [vm.Box(tuple(p), tuple(p + 2)) for p in POINTS]
    placements = [vm.rotate(t, (0, 0, 1), 0.0) for t in POINTS[:, 0]]
    box_rows, placement_rows = vm.box_rows(boxes), vm.placement_rows(placements)
    assert vm.boxes_of(box_rows) == boxes and placement_rows.shape == (1000, 13)
    pairs = vm.find_placed_clashes(boxes, placements)
    assert pairs.dtype == np.int32 and not pairs.flags.owndata
    assert (pairs == vm.find_placed_clashes(box_rows, placement_rows)).all()
    assert (pairs == vm.BoxIndex(boxes, placements).clashes(0.0)).all()
    loop = [(i, j) for j in range(60) for i in range(j)
            if vm.Box.clash_placed(boxes[i], placements[i], boxes[j], placements[j])]  # fmt: skip
    few = vm.find_placed_clashes(boxes[:60], placements[:60])
    assert [tuple(pair) for pair in few] == sorted(loop)
    assert vm.find_clashes([], 0.0).shape == (0, 2)


@pytest.mark.parametrize(
    ("points", "error", "given"),
    [
        ([[1.0, 2.0, 3.0]], TypeError, "got list"),
        (POINTS.astype(np.float32), TypeError, "got float32 of shape"),
        (POINTS.astype(">f8"), TypeError, "got >f8"),
        (POINTS[::2], TypeError, "strided"),
        (np.asfortranarray(POINTS), TypeError, "strided"),
        (np.zeros(73, np.uint8)[1:].view(np.float64).reshape(3, 3), TypeError, "not aligned"),
        (POINTS.reshape(-1), ValueError, r"got float64 of shape \(3000,\)"),
        (POINTS.reshape(-1, 2), ValueError, r"got float64 of shape \(1500, 2\)"),
    ],
)
def test_other_arrays_are_refused(points, error, given):
    wanted = r"expected a C-contiguous, aligned float64 array of shape \(n, 3\).*"
    with pytest.raises(error, match=wanted + given):
        vm.bound_points(points)


class Lazy(collections.abc.Sequence):
    """Boxes that live only while they are looked at."""

    def __len__(self):
        return 100

    def __getitem__(self, i):
        if i >= len(self):
            raise IndexError
        return vm.Box((i, 0, 0), (i + 2, 1, 1))


def test_a_sequence_may_make_its_items_when_asked():
    assert vm.boxes_of(vm.box_rows(Lazy())) == list(Lazy())


def test_what_is_written_must_be_writable_and_items_of_their_type():
    locked = POINTS.copy()
    locked.flags.writeable = False
    with pytest.raises(ValueError, match="read-only"):
        vm.transform_points(POINTS, X, out=locked)
    with pytest.raises(TypeError, match="float64 array or a sequence of Box, got set"):
        vm.find_clashes({vm.Vector}, 0.0)
    with pytest.raises(TypeError, match="expected a Box, got Point"):
        vm.find_clashes([vm.Point()], 0.0)
    with pytest.raises(TypeError, match="expected a Transform, got NoneType"):
        vm.find_placed_clashes([vm.Box()], [None])
    with pytest.raises(TypeError):
        vm.multiply_transforms([X], None)


def test_the_lock_is_released():
    points = np.zeros((3_000_000, 3))
    ticks, done = [], threading.Event()

    def work():
        for _ in range(20):
            vm.transform_points(points, X, out=points)
        done.set()

    thread = threading.Thread(target=work)
    thread.start()
    while not done.is_set():
        ticks.append(time.perf_counter())
        time.sleep(0.0005)
    thread.join()
    assert len(ticks) > 20  # about one a call where the lock is held


def test_lists_of_points():
    square = np.array([[0.0, 0], [1, 0], [1, 1], [0, 1], [0.5, 0.5]])
    hull = vm.convex_hull(square)
    assert hull.tolist() == [[0, 0], [1, 0], [1, 1], [0, 1]]
    assert vm.least_rectangle(hull).shape == (4, 2) and vm.least_rectangle(np.empty((0, 2))) is None
    outline = np.array([[0.0, 0, 0], [4, 0, 0], [4, 4, 0], [0, 4, 0]])
    hatch = vm.hatch_lines_polygon_2d([outline, outline / 2 + (1, 1, 0)], vm.Point(), 0.0, 1.0)
    assert hatch.shape == (12, 3)
    assert vm.hatch_lines_rect_2d(vm.Rect(0, 4, 4, 0), (0, 0, 0), 0.0, 1.0).shape == (8, 3)
    assert sorted(vm.closed_tour(POINTS[:30])) == list(range(30))
    assert vm.is_polyline_line(outline[:2] * 1.0)[0] is True
    arc = vm.tessellate_arc(vm.Point(), vm.Vector(0, 0, 1), 2.0, (2, 0, 0), (0, 2, 0), 0.01)
    assert vm.is_polyline_arc(arc, 1e-6)[0] is vm.PolylineArc.ARC
    assert vm.sort_points(moved := POINTS.copy()) is None and (np.diff(moved[:, 0]) >= 0).all()
