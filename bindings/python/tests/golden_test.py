# SPDX-License-Identifier: MIT
"""Python gives the bits of tests/golden/bits.txt: each family repeats that of golden.cpp."""

import math
import struct
from pathlib import Path

import numpy as np
import pytest

import vexmath as vm

ROUNDS = 20000
LINES = Path(__file__).resolve().parents[3] / "tests" / "golden" / "bits.txt"
WORD = 2**64 - 1


class Stream:
    """Numbers of ordinary, tiny and large size."""

    def __init__(self):
        self.state = 1

    def step(self):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) & WORD
        return self.state

    def next(self):
        unit = (self.step() >> 11) * 2.0**-53
        return (unit - 0.5) * (1.0, 1.0, 100.0, 1e-9, 1e7)[(self.step() >> 33) % 5]

    def vector(self):
        return vm.Vector(self.next(), self.next(), self.next())

    def point(self):
        return vm.Point(self.next(), self.next(), self.next())

    def direction(self):
        return vm.Direction(self.next(), self.next(), self.next())

    def placement(self):
        z, x, origin = self.direction(), self.direction(), self.vector()
        rotation = vm.Transform(z, x, origin).rotation
        return vm.mg_RestoreXform(rotation, origin, 0.5 + abs(self.next()))


def numbers(value):
    if isinstance(value, (float, int)):
        return [float(value)]
    if isinstance(value, vm.Matrix):
        return [*value.array.ravel().tolist(), value.is_identity]
    if isinstance(value, vm.Transform):
        return [*numbers(value.rotation), *value.translation, value.scaling, value.reflection]
    if isinstance(value, vm.Box):
        return [value.is_set, *value.low, *value.high, *value.sph_center, value.sph_radius]
    return [float(number) for number in value]


class Bits:
    """FNV-1a over the bits; every NaN counts as the same."""

    def __init__(self):
        self.value = 0xCBF29CE484222325

    def add(self, *values):
        flat = [math.nan if x != x else x for value in values for x in numbers(value)]
        value = self.value
        for byte in struct.pack(f"<{len(flat)}d", *flat):
            value = ((value ^ byte) * 0x100000001B3) & WORD
        self.value = value


def vectors(stream, out):
    a, b = stream.vector(), stream.vector()
    out.add(a * b, a % b, a / b.x, stream.direction(), a.any_unit_normal(1))
    out.add(a.pull_back(b, stream.vector()))
    p, q, r = stream.point(), stream.point(), stream.point()
    out.add(p.distance_to_line(q, r)[0])


def matrices(stream, out):
    a, b = stream.placement(), stream.placement()
    null = vm.Vector()
    product = vm.mg_RestoreXform(a.rotation * b.rotation, null, 1.0)
    inverse = vm.mg_RestoreXform(a.rotation.inverse(), null, 1.0)
    out.add(product, inverse, a.rotation.determinant)


def transforms(stream, out):
    a, b = stream.placement(), stream.placement()
    out.add(a * b, a.inverse(), stream.point() * a)
    out.add(stream.vector() * b)
    out.add(stream.direction() * b)
    out.add(vm.reflection(stream.direction()))


def boxes(stream, out):
    a, b = vm.Box(), vm.Box()
    for _ in range(10):
        a |= stream.point()
        b |= stream.point()
    xa, xb = stream.placement(), stream.placement()
    out.add(vm.Box.clash_placed(a, xa, b, xb), a.clash(b, 1e-8), a.is_valid)
    a *= xa
    out.add(a)
    a |= b
    out.add(a)
    a &= b
    out.add(a)


def bulk(stream, out):
    points = np.array([[*stream.point()] for _ in range(11)])
    vm.transform_points(points, stream.placement(), out=points)
    out.add(points.ravel(), vm.bound_points(points))


def products(stream, out):
    placements = [stream.placement() for _ in range(11)]
    placements = [vm.scale(x, x.scaling) for x in placements]  # as a copy in C++ changes them
    placements = vm.multiply_transforms(placements, stream.placement())
    out.add(*vm.multiply_transforms(placements, placements))


def parts(stream, count):
    pairs = [(vm.Box(stream.point(), stream.point()), stream.placement()) for _ in range(count)]
    return [box for box, _ in pairs], [placement for _, placement in pairs]


def clashes(stream, out):
    some, placements = parts(stream, 60)
    for pairs in (
        vm.find_clashes(some, 1e-8),
        vm.find_clashes_between(some, some, -0.1),
        vm.find_placed_clashes(some, placements),
    ):
        out.add(len(pairs), pairs @ (60, 1))


def index(stream, out):
    some, placements = parts(stream, 60)
    p, direction = stream.point(), stream.direction()
    for placed in (None, placements):
        made = vm.BoxIndex(some, placed)
        for i in range(0, 60, 7):
            made.move(i, vm.Box(stream.point(), stream.point()))
        made.place(1, placements[2])
        pairs = made.clashes_of([3, 7, 3], 1e-8)
        out.add(1, len(made.clashes(1e-8)), len(pairs), pairs @ (60, 1))
        for which in (
            made.clashes_with(some[5], 0.1),
            made.around(p, 1.0),
            made.on_line(p, direction),
        ):
            out.add(len(which), which)
        nearest, hit = made.first_on_ray(p, direction)
        out.add(nearest, hit or vm.Point())


@pytest.mark.parametrize(
    ("family", "rounds"),
    [(vectors, ROUNDS), (matrices, ROUNDS), (transforms, ROUNDS), (boxes, ROUNDS), (bulk, ROUNDS),
     (products, ROUNDS), (clashes, ROUNDS // 50), (index, ROUNDS // 50)],
)  # fmt: skip
def test_python_gives_the_golden_bits(family, rounds):
    lines = (line.split(" ", 1) for line in LINES.read_text().splitlines())
    golden = {name: bits for bits, name in lines}
    stream, out = Stream(), Bits()
    for _ in range(rounds):
        family(stream, out)
    assert f"{out.value:016x}" == golden[family.__name__]
