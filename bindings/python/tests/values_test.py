# SPDX-License-Identifier: MIT
"""Every class is a value; every name has a text; outputs, operators and refusals."""

import copy
import enum
import inspect
import math
import pickle
import struct

import pytest

import vexmath
from vexmath import *  # for the reprs

DIRECTION = Direction(1, 2, 3)
STALE = Matrix([1, 2, 3, 4, 5, 6, 7, 8, 9], False, True)  # an identity flag that lies
VIEW = Transform(STALE, Vector(1e-9, 0, -0.0), 7e12, 1, Perspective(Point(0, 0, -5), 1, 2, 3))
VALUES = [
    Vector(0.1, -0.0, 1e300), Point(math.inf, 1, -math.inf), DIRECTION, Direction(3, 4, 0, False),
    Point2D(1, 2), Vector4(1, 2, 3, 4), Quaternion(0, 0, 0.6, 0.8), Matrix(), STALE,
    Matrix([2] * 9), Matrix4(range(16)), Transform(), VIEW, rotate(0.3, Vector(1, 1, 0), 0.0),
    GenTransform(translate((1, 2, 3)), rotate(0.3, (1, 1, 0), 0.0), (1, 2, 0.5)),
    Perspective(Point(1, 2, 3), 4, 5, 6), ModelPerspective(Point(1, 2, 3), 4, 5, 6, DIRECTION),
    Box(), Box(Point(1, 2, 3), Point(-1, 0, 5)), Box(Point(1, 2, 3), Point(), Point(0.1, 0, 0), 9),
    Parallelogram(Point(1, 2, 3), DIRECTION, Direction.y_axis(), 4, 5),
    GeneralBox(Point(1, 2, 3), DIRECTION, Direction.y_axis(), 4, 5, 6),
    Line(Point(1, 2, 3), DIRECTION),
    Plane(Point(1, 2, 3), DIRECTION), Circle(Point(1, 2, 3), 4, DIRECTION),
    Arc(DIRECTION, Point(1, 2, 3), 4, 0.5, 6),
    Arc(DIRECTION, Point(), Point(3, 0, -1), Point(0, 3, -2)),
    Cone(Point(1, 2, 3), DIRECTION, 4, 0.5), Cylinder(Point(1, 2, 3), DIRECTION, 4),
    PrimitiveBody(7, Point(1, 2, 3), 4, 5, 6, -8), Rect(0, 4, 3, 1),
]  # fmt: skip


@pytest.mark.parametrize("value", VALUES, ids=lambda value: type(value).__name__)
def test_a_value_is_read_back_exactly(value):
    protocols = range(pickle.HIGHEST_PROTOCOL + 1)
    pickled = [pickle.loads(pickle.dumps(value, protocol)) for protocol in protocols]
    for other in (eval(repr(value)), copy.copy(value), copy.deepcopy(value), *pickled):
        assert type(other) is type(value) and other is not value
        assert other == value and repr(other) == repr(value)
    for other in VALUES:
        assert (other == value) is (other is value)
    with pytest.raises(TypeError):
        hash(value)


def test_equality_is_that_of_numbers_and_is_same_that_of_the_library():
    p = Point(1, 2, 3)
    assert p != Point(1 + 1e-9, 2, 3) and p.is_same(Point(1 + 1e-9, 2, 3))
    assert Point(0.0, 0, 0) == Point(-0.0, 0, 0)
    assert Point(math.nan, 0, 0) != Point(math.nan, 0, 0)
    assert Vector(1, 0, 0) != Direction(1, 0, 0) and p != (1, 2, 3)


def members(cls):
    return {name: member for name, member in vars(cls).items() if not name.startswith("_")}


def test_every_name_has_a_text():
    for name, thing in vars(vexmath).items():
        if name.startswith("_") or inspect.ismodule(thing):
            continue
        assert thing.__doc__, name
        if inspect.isclass(thing) and not issubclass(thing, (enum.Enum, Exception)):
            for member_name, member in members(thing).items():
                text = getattr(member, "__func__", member).__doc__ or ""
                assert text.split("\n\n", 1)[-1].strip(), f"{name}.{member_name}"
        elif inspect.isbuiltin(thing):
            assert "\n\n" in thing.__doc__.strip(), name


def test_both_names_are_one():
    assert vexmath.mgPoint_c is Point and vexmath.mg_LineIntPlane is vexmath.intersect_line_plane
    v = Vector(1, 2, 2)
    assert v.isParallelTo(Vector(2, 4, 4)) is v.is_parallel_to(Vector(2, 4, 4)) is True
    assert v.len() == v.length == 3.0
    line = Line(Point(1, 2, 3), DIRECTION)
    line.root_point = (4, 5, 6)
    assert line.rootPoint() == line.root_point == Point(4, 5, 6)


def test_outputs_are_results_and_none_where_unwritten():
    plane = Plane(Point(0, 0, 2), Direction.z_axis())
    kind, hit, param = intersect_line_plane(Line(Point(), Direction.z_axis()), plane)
    assert (kind, hit, param) == (LinePlaneIntersectionType.POINT, Point(0, 0, 2), 2.0)
    parallel = intersect_line_plane(Line(Point(), Direction.x_axis()), plane)
    assert parallel == (LinePlaneIntersectionType.PARALLEL, None, None)
    assert pickle.loads(pickle.dumps(kind)) is kind
    assert Box(Point(), 1).first_ray_hit(Point(9, 9, 9), DIRECTION) == (False, None)
    assert solve_cubic(1, -6, 11, -6) == pytest.approx([1, 2, 3])
    assert rotate(0.5, (0, 0, 1), 0.0).three_angles_new()[0] is True


def test_copies_of_a_transform_follow_no_rule():
    assert VIEW.scaling == 7e12 and VIEW.linear_component().scaling == 7e12
    assert copy.copy(VIEW).translation.x == 1e-9
    assert (VIEW * Transform()).scaling == 1.0  # but operations of the library do


def test_operators():
    p, v, x = Point(1, 2, 3), Vector(0, 0, 1), translate(Vector(1, 0, 0))
    assert p + v == Point(1, 2, 4) and type(p - p) is Vector and 2 * v == v * 2 == Vector(0, 0, 2)
    assert v % v == v @ v == 1.0 and -v == Vector(0, 0, -1)
    assert v * Vector(1, 0, 0) == Vector(0, 1, 0)
    assert p * x == Point(2, 2, 3) and v * x == v and type(-Direction(1, 0, 0)) is Direction
    same = p
    same += v
    assert same is p and p == Point(1, 2, 4)
    box = Box() | Point(1, 1, 1) | Point()
    assert box.low == Point() and (box * x).low == Point(1, 0, 0) and tuple(box.high) == (1, 1, 1)


def test_a_record_is_that_of_the_library():
    assert Point(1, 2, 3).save() == struct.pack("<3d", 1, 2, 3)
    box = Box(Point(), 2.0)
    other = Box()
    other.restore(box.save())
    assert other == box
    with pytest.raises(ArchiveError):
        other.restore(b"short")
    make, (cls, _) = box.__reduce_ex__(4)
    with pytest.raises(ArchiveError):
        make(cls, b"short")


@pytest.mark.parametrize(
    "call",
    [lambda: Point(None), lambda: Box(None, 1.0), lambda: distance(None, Point()),
     lambda: Point(1, 2), lambda: intersect_ray_plane(None, Point(), DIRECTION), lambda: Line(Point(), Vector(1, 0, 0))],
)  # fmt: skip
def test_wrong_arguments_are_refused(call):
    with pytest.raises(TypeError):
        call()


def test_indices_are_checked():
    for call in (lambda: Point()[3], lambda: Matrix()[3, 0], lambda: Vector4()[-1]):
        with pytest.raises(IndexError):
            call()


