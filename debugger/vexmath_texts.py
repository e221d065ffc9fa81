# SPDX-License-Identifier: MIT
"""What a debugger shows of each class of vexmath: one line of text.

This module knows no debugger. vexmath_gdb.py and vexmath_lldb.py give it values of this form:

    value["name"]                the member of that name, also of a base class
    value.base                   the part of its base class
    value[i]                     element i of an array, or of what a pointer points to
    value.kind                   "array", "real", "void", or the class without template arguments
    value.size                   the bytes of its type
    float(value), int(value)     a number, or the address that a pointer holds
    value.memory(offset, count)  bytes at the address that a pointer holds, plus the offset; read as
                                 numbers of the machine that the debugger runs on

All but the kind may raise: debuggers also show variables that are not yet, or no longer, valid.
`text` never raises. vexmath.natvis has the same texts for Visual Studio, as far as its language
goes.
"""

import math
import re
import struct

LIST = "suDynamicArray"  # the one template; its elements are shown too

# The text of each class: a function, or a pattern in which {name} stands for the text of a member.
TEXTS = {
    "mgVector_c": "{c_}",
    "mgPoint_c": "{c_}",
    "gcMdiPoint_c": "({x_}, {y_}, {z_})",
    "mg2DPoint_c": "{c_}",
    "mgTessPoint2D_c": "({x}, {y}, {z})",
    "mgVector4_c": "{xyzw_}",
    "mgQuaternion_c": "{xyzw_}",
    "mgLine_c": "line through {root_} along {unit_}",
    "mgPlane_c": "plane through {root_}, normal {unit_}",
    "mgCircle_c": "circle about {centre_}, normal {normal_}, r {radius_}",
    "mgPrimitiveBodyData_c": "kind {kind} at {anchor}, dimensions ({first}, {second}, {third})"
    ", extra {extra}",
    "arcEdgeData": "arc edge about {center}, normal {normal}, r {radius}",
    "ellipseEdgeData": "ellipse edge about {center}, {majorRadius} along {majorDir}"
    ", {minorRadius} along {minorDir}, from {start} to {end}",
    "parabolaEdgeData": "conic edge from {start} to {end}, vertex {vertex}, focus {focus}"
    ", normal {normal}",
    "mgIndexPair_c": "({first}, {second})",
    "mgCheckSum_c": "checksum {sum_}, key {key_}",
    "mgRect": "x {left} to {right}, y {bottom} to {top}",
}


# GCC describes a class with virtual functions only in the debug information of the library, which a
# release does not have; so does Clang, for instances of templates too. A debugger that does not see
# their members finds them by this table: in this order from the start of the object.
POINTER = "void *"
CONE = {
    "table": POINTER,
    "root_": "mgPoint_c",
    "axis_": "mgUnitVector_c",
    "radius_": "double",
    "angle_": "double",
}
PERSPECTIVE = {
    "table": POINTER,
    "eye_": "mgPoint_c",
    "planeDistance_": "double",
    "minFarClipDistance_": "double",
    "fovPlaneDistance_": "double",
}
SELECTION = {"first": POINTER, "end": POINTER}  # of the std::vector
MEMBERS = {
    "mgCone_c": CONE,
    "mgCylinder_c": CONE,
    "mgPerspInfo_c": PERSPECTIVE,
    "mgModelPerspInfo_c": {**PERSPECTIVE, "modelViewDir_": "mgUnitVector_c"},
    "uoSelectType_c": SELECTION,
    "uoSelectConstraint_c": SELECTION,
    LIST: {"table": POINTER, "data_": "{0} *"},  # of the template argument
}


def place(class_name, name, pointer_size):
    """The type of a member, and how far it lies behind the start of the object."""
    kind, _, argument = class_name.rstrip(">").partition("<")
    offset = 0
    for member, its_type in MEMBERS.get(kind, {}).items():
        if member == name:
            return its_type.format(argument or "void"), offset
        offset += {POINTER: pointer_size, "double": 8}.get(its_type, 24)
    raise LookupError(f"{class_name} has no member {name}")


class OptimizedOut(Exception):
    """The compiler has not kept the value."""


def text(value):
    """The text of a value whose kind is a key of TEXTS."""
    return guarded(show, value)


def guarded(function, value):
    try:
        return function(value)
    except OptimizedOut:
        return "<optimized out>"
    except Exception as error:  # whatever a debugger raises for memory that it cannot read
        return f"<error: {error}>"


def show(value):
    rule = TEXTS.get(value.kind)
    if rule is None:
        return array(value) if value.kind == "array" else number(value)
    return fill(rule, value) if isinstance(rule, str) else rule(value)


def fill(pattern, value):
    return re.sub(r"{(\w+)}", lambda name: show(value[name[1]]), pattern)


def shows(name):
    def add(function):
        TEXTS[name] = function
        return function

    return add


# Numbers.


def number(value):
    try:
        return shortest(float(value), value.size) if value.kind == "real" else str(int(value))
    except OptimizedOut:
        return "?"


def shortest(x, size=8):
    """The shortest decimal number that reads back as x, a number of 8 or of 4 bytes."""
    if size == 8:
        return repr(x).removesuffix(".0")
    bits = struct.pack("f", x)
    candidates = (f"{x:.{digits}g}" for digits in range(6, 9))
    return next((c for c in candidates if struct.pack("f", float(c)) == bits), f"{x:.9g}")


def array(value, first=0, count=None):
    last = first + count if count else value.size // value[0].size
    return "(" + ", ".join(number(value[i]) for i in range(first, last)) + ")"


def reals(value, count=3):
    return [float(value[i]) for i in range(count)]


def sum_of_squares(x, y, z):
    return x * x + y * y + z * z


def counted(count, noun):
    return f"{count} {noun}" if count == 1 else f"{count} {noun}s"


@shows("mgUnitVector_c")
def direction(value):
    shown = fill("{c_}", value)
    if "?" in shown:
        return shown
    if not any(reals(value["c_"])):
        return "no direction"
    length = math.sqrt(sum_of_squares(*reals(value["c_"])))
    return shown if abs(length - 1.0) <= 1e-8 else f"{shown} of length {shortest(length)}"


# Matrices and transforms.


def rows(elements, count):
    """The rows of a square matrix, or "identity" when it is exactly that."""
    if reals(elements, count * count) == [i % (count + 1) == 0 for i in range(count * count)]:
        return "identity"
    return "[" + ", ".join(array(elements, count * row, count) for row in range(count)) + "]"


@shows("mgMatrix_c")
def matrix(value):
    shown, flag = rows(value["m_"], 3), int(value["identity_"])
    if flag not in (0, 1):
        return f"{shown} with flag {flag}"
    if shown == "identity":
        return shown if flag else "unflagged identity"
    return shown + " flagged as identity" if flag else shown


@shows("mgMatrix4_c")
def matrix4(value):
    return rows(value["m_"], 4)


def similarity(rotation, translation, scale, reflection, record):
    parts = []
    if matrix(rotation) != "identity":
        parts.append("rotation " + matrix(rotation))
    if float(scale) != 1.0:
        parts.append("scale " + number(scale))
    if any(reals(translation["c_"])):
        parts.append("translation " + show(translation))
    shown = [", ".join(parts) or "identity"]
    if int(reflection) != 0:
        shown.append("mirrored" if int(reflection) == 1 else f"mirrored by {int(reflection)}")
    if int(record) != 0:
        shown.append(guarded(perspective, record[0]))
    return ", ".join(shown)


@shows("mgXform_c")
def transform(value, end="_"):
    names = ("rotation", "translation", "scale", "reflection", "perspective")
    return similarity(*(value[name + end] for name in names))


@shows("mgXform_64BitHelper_c")
def transform_helper(value):
    return transform(value, "")


@shows("mgGenXform_c")
def general_transform(value):
    shown = transform(value.base) + fill(", body scaled {scale_}", value)
    frame = transform(value["body_"])
    return shown if frame == "identity" else f"{shown} in frame: {frame}"


@shows("mgPerspInfo_c")
def perspective(value):
    camera = float(value["fovPlaneDistance_"])
    kind = "orthographic camera" if camera == 0.0 else "no camera"
    if camera > 0.0:
        kind = "camera plane " + shortest(camera)
    pattern = "perspective from {eye_}, plane {planeDistance_}, far clip {minFarClipDistance_}, "
    return fill(pattern, value) + kind


@shows("mgModelPerspInfo_c")
def model_perspective(value):
    return perspective(value) + fill(", looking along {modelViewDir_}", value)


# Boxes.

UNSET_CORNERS = ([1, 1, 1], [-1, -1, -1]), ([0, 0, 0], [0, 0, -2])  # of a new and of a reset box


@shows("mgBBox_c")
def box(value):
    low, high, centre = (reals(value[name]["c_"]) for name in ("low_", "high_", "sphCentre_"))
    radius = float(value["sphRadius_"])
    shown = fill("box {low_} to {high_}, sphere {sphCentre_} r {sphRadius_}", value)
    if not (radius >= 0.0 and all(a <= b for a, b in zip(low, high))):
        return "unset box" if (low, high) in UNSET_CORNERS else "unset " + shown
    return shown if sphere_agrees(low, high, centre, radius) else "invalid " + shown


def sphere_agrees(low, high, centre, radius):
    """The rule of mgBBox_c::isValid for a box that is set, in the same steps."""
    millions = int(min(radius * 1e-06, 2147483647.0))
    tolerance = (10.0 ** len(str(millions)) if millions else 1.0) * 1e-08
    reach = tolerance + radius
    for a, b, c in zip(low, high, centre):
        reached = abs(a - c) <= reach and abs(b - c) <= reach
        if not reached and not abs(c / tolerance) >= 1e13:
            return False
    nearest = sum_of_squares(*(c - min(max(c, a), b) for a, b, c in zip(low, high, centre)))
    farthest = sum_of_squares(*(max(b - c, c - a) for a, b, c in zip(low, high, centre)))
    radius_sq = radius * radius
    return nearest <= radius_sq * 1.00000001 + 1e-08 and radius_sq * 0.99999999 - 1e-08 <= farthest


@shows("mgBoxIndex_c")
def box_index(value):
    if int(value["data_"]) == 0:
        return "empty box index"
    (count,) = struct.unpack("i", value["data_"].memory(0, 4))
    return f"index of {count} {'box' if count == 1 else 'boxes'}"


@shows("mgParallelogram_c")
def parallelogram(value):
    valid = all(float(value[name]) > 0.0 for name in ("len1_", "len2_"))
    pattern = "parallelogram at {corner_}, {len1_} along {d1_}, {len2_} along {d2_}"
    return ("" if valid else "invalid ") + fill(pattern, value)


@shows("mgGeneralBox_c")
def general_box(value):
    valid = all(float(value[name]) > 0.0 for name in ("len1_", "len2_", "len3_"))
    pattern = "box at {corner_}, {len1_} along {d1_}, {len2_} along {d2_}, {len3_} across"
    return ("" if valid else "invalid ") + fill(pattern, value)


# Round things; the others are patterns.


@shows("mgArc_c")
def arc(value):
    angle = float(value["startAngle_"]) - float(value["endAngle_"])
    valid = float(value["radius_"]) >= 1e-8 and abs(angle) >= 1e-11
    shown = "arc about {centre_}, normal {normal_}, r {radius_}, {startAngle_} to {endAngle_} rad"
    if any(reals(value["start_"]["c_"]) + reals(value["end_"]["c_"])):
        shown += ", from {start_} to {end_}"
    if matrix(value["matrix_"]) != "identity":
        shown += ", matrix {matrix_}"
    shown += ", 2D" if int(value["is2D_"]) else ""
    return fill(shown if valid else "invalid " + shown, value)


@shows("mgCone_c")
def cone(value):
    if float(value["radius_"]) == float(value["angle_"]) == -2.0:
        return "unset cone"
    return fill("cone at {root_} along {axis_}, r {radius_}, half-angle {angle_} rad", value)


@shows("mgCylinder_c")
def cylinder(value):
    shown = fill("cylinder at {root_} along {axis_}, r {radius_}", value)
    return shown + (fill(", half-angle {angle_} rad", value) if float(value["angle_"]) else "")


# Arrays, lists and sets.


@shows("amDynamicArrayHeader")
def array_header(value):
    shown = counted(int(value["count"]), "element")
    mode = {1: "linear growth", 2: "proportional growth"}.get(int(value["growMode"]))
    shown += fill(" of {elementSize} bytes, capacity {capacity}, ", value)
    shown += (mode or fill("growth mode {growMode}", value)) + fill(" by {growStep}", value)
    return shown + (", kept" if int(value["keepFlag"]) else "")


def list_header(handle):
    """Count, capacity and bytes of an element, from the header in front of element 0."""
    return struct.unpack("iih", handle.memory(-16, 10))


def is_list(handle):
    count, capacity, size = list_header(handle)
    return 0 <= count <= capacity and (handle[0].kind == "void" or handle[0].size == size)


def list_count(handle):
    """How many elements can be shown."""
    known = int(handle) != 0 and handle[0].kind != "void" and is_list(handle)
    return list_header(handle)[0] if known else 0


def list_of_handle(handle):
    if int(handle) == 0:
        return "no elements"
    count, capacity, size = list_header(handle)
    if not is_list(handle):
        return f"corrupt list: count {count}, capacity {capacity}, element size {size}"
    return f"{counted(count, 'element') if count else 'no elements'}, capacity {capacity}"


@shows(LIST)
def list_text(value):
    return list_of_handle(value["data_"])


def codes(value):
    """The first codes of a selection set, from the std::vector of GCC's or of LLVM's library."""
    try:
        words = value["words_"]["words_"]["_M_impl"]
        first, end = words["_M_start"], words["_M_finish"]
    except Exception:  # another class in each debugger
        first, end = value["first"], value["end"]
    count = (int(end) - int(first)) // 4
    if not 0 <= count < 1 << 29:
        return f"corrupt set of {count} codes"
    shown = min(count, 100)
    words = first.memory(0, 4 * shown) if shown else b""
    listed = [str(code) for code in struct.unpack(f"{shown}i", words)]
    return "{" + ", ".join(listed + (["..."] if shown < count else [])) + "}"


@shows("uoSelectType_c")
def select_type(value):
    return "selection types " + codes(value)


@shows("uoSelectConstraint_c")
def select_constraint(value):
    return "selection constraints " + codes(value)
