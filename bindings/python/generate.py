#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""generate.py <folder of headers> <output folder>: writes what follows from the headers.

Every public declaration is bound under the library's name and under one in the manner of Python,
with its comment as docstring. An output becomes a result; an accessor becomes a property. What is
bound by hand in src/, or not bound, is listed here: a declaration that is neither is an error.
"""

import re
import sys
from collections.abc import Iterable, Iterator
from dataclasses import dataclass, field
from pathlib import Path

CLASSES = {
    "mgVector_c": "Vector", "mgPoint_c": "Point", "mgUnitVector_c": "Direction",
    "mg2DPoint_c": "Point2D", "mgVector4_c": "Vector4", "mgMatrix_c": "Matrix",
    "mgMatrix4_c": "Matrix4", "mgQuaternion_c": "Quaternion", "mgXform_c": "Transform",
    "mgGenXform_c": "GenTransform", "mgPerspInfo_c": "Perspective",
    "mgModelPerspInfo_c": "ModelPerspective", "mgBBox_c": "Box", "mgBoxIndex_c": "BoxIndex",
    "mgParallelogram_c": "Parallelogram", "mgGeneralBox_c": "GeneralBox", "mgLine_c": "Line",
    "mgPlane_c": "Plane", "mgCircle_c": "Circle", "mgArc_c": "Arc", "mgCone_c": "Cone",
    "mgCylinder_c": "Cylinder", "mgPrimitiveBodyData_c": "PrimitiveBody", "mgRect": "Rect",
}  # fmt: skip
ENUMERATIONS = {
    "mgIntersectionType_e": "IntersectionType", "mgClipLine_e": "ClipLine",
    "mgLinePlaneIntersectionType_e": "LinePlaneIntersectionType",
    "mgPlnPlnIntersectionType_e": "PlanePlaneIntersectionType",
    "mgLineCircleIntType_e": "LineCircleIntersectionType", "mgInsideBox_e": "InsideBox",
    "mgPointOnLine_e": "PointOnLine", "mgPolylineArc_e": "PolylineArc",
    "mg_GoodEqu3Status": "CubicStatus",
}  # fmt: skip
HEADERS_LEFT_OUT = ["checksum", "edge_data", "select_type", "su_dynamic_array"]
CLASSES_LEFT_OUT = {"gcMdiPoint_c", "mgTessPoint2D_c", "mgXform_64BitHelper_c", "mgIndexPair_c"}
# Of every class, or of one. Numbers, bytes and sequences serve better in Python.
LEFT_OUT = """set get component save2D restore2D Dump dump random SetHelper GetHelper
    getDataPtr loadIdentity mg_pointSelectionSort""".split()
BY_HAND = """save restore restoreAsIs saveStringRep restoreStringRep create getPerspectiveInfo
    addPerspectiveInfo deletePerspectiveInfo mgBoxIndex_c::build mgBoxIndex_c::clashesOf
    mg_TransformPoints mg_BoundPoints mg_MultiplyXforms mg_FindClashes mg_ZoomBoxToBox
    getBaricentricCoordinates mg_Clip2DArcToBox minCnvxPlgRect mg_calcHatchLinesPolygon2D
    mg_pointQuickSort mg_TessArc mg_TessEllipse mg_TessParabola mg_TessBConic
    mg_TessParabolaOrBConic""".split()
# Parameters, by name or by function and name. They are read as well as written, or only read.
IN_AND_OUT = """p edge mg_ClipLineEndToRotated2DBox::end mg_PutParamInRange::param
    mg_PutParamInRange::endParam mg_PutAngleInRange::angle mg_PutAngleInRange::endAngle""".split()
READ_ONLY = ["points", "input"]
# None is passed as a null pointer.
OPTIONAL = """mgMatrix_c::getRotationAngle::axis mg_PutParamInRange::endParam
    mg_PutAngleInRange::endAngle""".split()
IGNORED = {"getMatrixFromEigs::values": "nullptr"}
# They point to so many. Of some, the function returns how many it has written.
ARRAYS = {
    "roots": 3, "checkCollinear::pts": 3, "mg_Find3PointArcCenter::pts": 3,
    "getEigensystem::values": 3, "vectors": 3, "getNullspace::basis": 3, "getScale::out": 3,
    "extremePts::out": 2, "gl": 16, "mg_FindBBox::out": 4,
}  # fmt: skip
COUNTED = ["getNullspace", "mg_solveQuadratic", "mg_solveCubic"]
NUMBERS = """dominantComponentIndex getNearestAxis isReflection GetUseSphereBoundingBox firstOnRay
    SetUseSphereBoundingBox mg_GetUseVectorUnits mg_SetUseVectorUnits""".split()
METHODS = """getGLData getGenGLData inverse transpose linearComponent null isNull
    isNotNull isOrthogonal isNearZero isNearIdentity isRigid convertToMatrix
    quatToMatrix""".split()
SETTERS = {"setNearClipPlaneDistance": "getPlaneDistance"}
NAMES = {
    "len": "length", "sqlen": "squared_length", "null": "is_zero", "vol": "triple_product",
    "sqDist": "squared_distance", "dist": "distance", "rotate": "rotates", "vvt": "outer_square",
    "isReflection": "reflection", "equals": "is_same", "getPLUSrep": "plus_marker",
    "getXrep": "cross_marker", "pointPerp": "foot", "pointPerpParam": "foot_param",
    "containsBBox": "contains_box", "mgBBox_c::clash(static)": "clash_placed",
    "mgBBox_c::pointPerp": "nearest_point", "mg_getModelSpaceViewRay": "view_ray",
    "mg_getSgConicEccentricity": "shoulder_eccentricity",
    "mgSolveQuadratic": "solve_quadratic_sorted", "mgUnitVectorDer": "direction_derivative",
    "interLine": "line_of_planes", "s_projPointOnLine": "project_point_on_line",
    "matrixToQuat": "set_from_matrix", "quatToMatrix": "to_matrix", "quatSlerp": "set_slerp",
    "convertToMatrix": "to_matrix", "createFromGLData": "from_gl", "getScale": "scales",
    "getMatrixFromEigs": "from_eigenvectors", "extremePts": "extreme_points",
    "getNullspace": "null_space", "mg_GoodEqu3": "solve_characteristic",
    "mg_FindBBox": "placed_extent", "mg_Find3PointArcCenter": "arc_center_of_3_points",
    "doScreenPointPerspectiveDivision": "divide",
    "doScreenPointInversePerspectiveDivision": "divide_inversely", "iGetAngle": "angle_of",
    "iValidateRepairXForm": "repair", "iValidateRepairRotationMatrix": "repair_rotation",
}  # fmt: skip
RULES = [
    (r"^(mg_|mg(?=[A-Z])|s_)", ""), (r"^iValidate|^i(?=[A-Z])", ""),
    (r"^get((Gen)?GL)Data", r"to\1"), (r"^getI([XYZ])Axis", r"\1Row"), (r"^get(?=[A-Z])", ""),
    (r"LineSeg(ment)?", "Segment"), (r"Seg(?=$|2D)", ""), (r"^(\w+)Int\1", r"intersect\1s"),
    (r"^(\w+)Int([A-Z]\w+)$", r"intersect\1\2"), (r"^calc", ""), (r"^dist(?=To)", "distance"),
    (r"TSP$", "Tour"), (r"InRadians$", ""),
    (r"Cyl$", "Cylinder"), (r"Disk", "Disc"), (r"Coordinate(?=Xform)", "Frame"),
    (r"(?<=\w)Xform", ""), (r"_v(?=\d)", ""),
]  # fmt: skip
OPERATORS = {
    "operator+": "__add__", "operator-": "__sub__", "operator*": "__mul__",
    "operator/": "__truediv__", "operator%": "__mod__",
    "operator<": "__lt__", "operator==": "is_same",
    "operator+=": "__iadd__", "operator-=": "__isub__", "operator*=": "__imul__",
    "operator|=": "__ior__", "operator&=": "__iand__",
}  # fmt: skip
# Where C++ has no binary operator, Python's works on a copy.
COPIED = {"mgBBox_c": "|&*", "mgLine_c": "*", "mgPlane_c": "*", "mgCircle_c": "*"}
OPERATORS_LEFT_OUT = ["operator" + mark for mark in ("()", "[]", "||", "<<", ">>", "=")]
NOT_CALLED = ("template", "~")
BODIES = "// -----"
TYPE = re.compile(r"^(class|struct|enum) (?:VEXMATH_API )?(\w+)(?: : (?:public )?([\w:]+))?[^;]*$")
FUNCTION = re.compile(r"(operator\s*(?:\(\)|\[\]|[^\w\s(]+)|\w+)\s*\(")
FIELD = re.compile(r"^(?:double|int|mgPoint_c) (\w+)(?: = .*)?;$")
PARAMETER = re.compile(r"^([\w:<>]+?)( const)? ?([*&]*)(\w+)(\[\w*\])?(?: = (.+))?$")


@dataclass
class Parameter:
    type: str
    is_const: bool
    mark: str  # "", "*" or "&"
    name: str
    default: str | None

    @property
    def is_output(self) -> bool:
        return bool(self.mark) and not self.is_const


@dataclass
class Declaration:
    owner: str
    name: str
    result: str
    parameters: list[Parameter] = field(default_factory=list)
    is_const: bool = False
    is_static: bool = False
    is_field: bool = False

    @property
    def key(self) -> str:
        return f"{self.owner}::{self.name}" if self.owner else self.name


class Unbindable(Exception):
    """A declaration that only a hand can bind."""


def split(text: str) -> list[str]:
    """At the commas outside brackets."""
    parts, depth = [""], 0
    for letter in text:
        depth += (letter in "(<[{") - (letter in ")>]}")
        if letter == "," and not depth:
            parts.append("")
        else:
            parts[-1] += letter
    return [part.strip() for part in parts if part.strip()]


def parameter(text: str) -> Parameter:
    match = PARAMETER.match(text)
    if match is None:
        raise Unbindable(text)
    kind, const, mark, name, size, default = match.groups()
    return Parameter(kind, bool(const), "*" if size else mark, name, default)


def function(owner: str, text: str) -> Declaration | None:
    """A declared function or data member; None for what no caller calls."""
    text = re.sub(r"\b(VEXMATH_API|constexpr|inline|virtual|explicit) ", "", text)
    if "= delete" in text or "float *" in text or text.startswith(NOT_CALLED):
        return None
    if match := FIELD.match(text):
        return Declaration(owner, match.group(1), "", is_field=True)
    match = FUNCTION.search(text)
    if match is None or match.group(1) in OPERATORS_LEFT_OUT:
        return None
    end = match.end()
    while text[match.end() : end].count("(") >= text[match.end() : end].count(")"):
        end += 1
    before, after = text[: match.start()].strip(), text[end:]
    made = Declaration(owner, match.group(1).replace(" ", ""), before.removeprefix("static "))
    made.is_const, made.is_static = after.startswith(" const"), before.startswith("static ")
    try:
        made.parameters = [parameter(part) for part in split(text[match.end() : end - 1])]
    except Unbindable:
        if made.name in BY_HAND + LEFT_OUT or made.name == owner:
            return Declaration(owner, made.name, before)
        raise
    return made


def declarations(text: str) -> Iterator[tuple[str, str, str]]:
    """(class, declaration, comment) of what is public. Without a comment, that of its paragraph."""
    scope, access, depth, declaration = "", True, 0, ""
    comment: list[str] = []
    paragraph = ""
    for raw in text.split(BODIES)[0].splitlines():
        line = raw.strip()
        if depth:
            depth += line.count("{") - line.count("}")
        elif not line or line.startswith("#"):
            comment, paragraph = [], ""
        elif line.startswith("///"):
            comment.append(line[3:].removeprefix(" "))
        elif line.startswith("//"):
            paragraph = (paragraph + "\n" if paragraph else "") + line[2:].strip()
        elif match := TYPE.match(raw):
            scope, access = match.group(2), match.group(1) != "class"
            yield scope, raw, "\n".join(comment)
            comment, paragraph = [], ""
        elif line in ("public:", "private:", "protected:"):
            access = line == "public:"
        elif raw.startswith("}"):
            if declaration:  # the last enumerator
                yield scope, declaration, paragraph
            scope, access, declaration = "", True, ""
        else:
            code, _, after = line.partition("///<")
            declaration = f"{declaration} {code}".strip()
            whole = declaration.endswith((";", "{", "}", ","))
            if not whole or declaration.count("(") != declaration.count(")"):
                continue
            depth = declaration.count("{") - declaration.count("}")
            paragraph = after.strip() or "\n".join(comment) or paragraph
            if access:
                yield scope, declaration, paragraph
            declaration, comment = "", []


def snake(name: str) -> str:
    name = re.sub(r"([a-z])([A-Z])", r"\1_\2", name)
    name = re.sub(r"([A-Z]+)([A-Z][a-z])", r"\1_\2", name)
    return re.sub(r"(?<=[a-zA-Z])(2D|2d)$", "_2d", name).lower().replace("__", "_")


def python_name(made: Declaration) -> str:
    for name in (f"{made.key}(static)" if made.is_static else "", made.key, made.name):
        if name in NAMES:
            return NAMES[name]
    name = made.name
    for pattern, by in RULES:
        name = re.sub(pattern, by, name)
    return NAMES.get(name, snake(name))


@dataclass
class Call:
    """How a function is called: the lambda's parameters, what precedes the call, its results."""

    inputs: list[str] = field(default_factory=list)
    names: list[str] = field(default_factory=list)
    before: list[str] = field(default_factory=list)
    arguments: list[str] = field(default_factory=list)
    results: list[str] = field(default_factory=list)
    filled: str = ""  # the call of rows.h around one that fills a list

    def take(self, kind: str, p: Parameter, argument: str) -> None:
        self.inputs.append(f"{kind}{p.name}")
        default = f" = {p.default}" if p.default and p.default != "nullptr" else ""
        self.names.append(f'"{snake(p.name)}"_a{default}')
        self.arguments.append(argument)


def call_of(made: Declaration) -> Call:
    call = Call()
    is_counted = False
    for index, p in enumerate(made.parameters):
        following = made.parameters[index + 1] if index + 1 < len(made.parameters) else None
        names = {p.name, f"{made.name}::{p.name}", f"{made.key}::{p.name}"}
        item = "".join(re.findall(r"^suDynamicArray<(\w+)>$", p.type))
        in_out = bool(names & set(IN_AND_OUT))
        size = next((ARRAYS[name] for name in names if name in ARRAYS), 0)
        kind = f"std::array<{p.type}, {size}>" if size else p.type
        address = "&" if p.mark == "*" else ""
        if name := next((name for name in names if name in IGNORED), None):
            call.arguments.append(IGNORED[name])
        elif p.name == "n" and following and following.mark == "*" and following.is_const:
            is_counted = True
        elif is_counted:
            call.take(f"Rows<{p.type}> const &", p, f"intCount({p.name}.count()), {p.name}.data()")
            is_counted = False
        elif item and (p.is_const or p.name in READ_ONLY or in_out):
            call.take(f"Rows<{item}> const &", p, "list" if in_out else f"*{p.name}List")
            if in_out:
                call.filled = f"filled<{item}>({{}}, listOf({p.name}))"
            else:
                call.before.append(f"auto {p.name}List = listOf({p.name});")
        elif item:
            call.filled = f"filled<{item}>({{}})"
            call.arguments.append("list")
        elif size and p.is_const:
            call.take(f"{kind} const &", p, f"{p.name}.data()")
        elif names & set(OPTIONAL):
            call.take(f"std::optional<{p.type}> ", p, f"{p.name} ? &*{p.name} : nullptr")
            call.names[-1] += " = py::none()"
            call.results += [p.name] if in_out else []
        elif p.is_output and in_out:
            call.take(f"{p.type} ", p, address + p.name)
            call.results.append(p.name)
        elif p.is_output:
            call.before.append(f"Output<{kind}> {p.name};")
            call.arguments.append(f"{p.name}.value.data()" if size else f"{address}{p.name}.value")
            call.results.append(f"{p.name}.get()")
        else:
            is_plain = p.type in ("double", "int", "bool")
            call.take(f"{p.type} " if is_plain else f"{p.type} const &", p, address + p.name)
    return call


def body(made: Declaration, call: Call, callee: str) -> str:
    """A lambda's body. An int says yes or no, or how long a list is, or is a number."""
    expression = f"{callee}({', '.join(call.arguments)})"
    before = " ".join(call.before)
    if made.result == "mgXform_c":
        return f"{before} return new mgXform_c({expression});"
    if call.filled:
        fill = f"[&](auto &list) {{ return {expression}; }}"
        return f"{before} return {call.filled.format(fill)};"
    if made.name in COUNTED:
        output = call.results[0].replace(".get()", ".value")
        return f"{before} int const count = {expression}; return firstOf({output}, count);"
    if made.result == "void":
        values = [result.replace(".get()", ".value") for result in call.results]
        returned = values[0] if len(values) == 1 else f"std::tuple({', '.join(values)})"
        return f"{before} {expression}; return {returned};" if values else f"{expression};"
    if made.result == "int" and made.name not in NUMBERS:
        expression += " != 0"
    if not call.results:
        return f"{before} return {expression};"
    results = ", ".join(["returned", *call.results])
    return f"{before} auto const returned = {expression}; return std::tuple({results});"


def lambda_of(made: Declaration) -> tuple[str, list[str]]:
    call = call_of(made)
    callee, inputs = made.name, call.inputs
    if made.owner:
        callee = f"{made.owner}::{made.name}" if made.is_static else f"self.{made.name}"
    if made.owner and not made.is_static:
        inputs = [f"{made.owner}{' const' if made.is_const else ''} &self", *inputs]
    return f"[]({', '.join(inputs)}) {{ {body(made, call, callee)} }}", call.names


def bound(kind: str, made: Declaration) -> str:
    """`kind` is what precedes the names in a call of a helper of bind.h."""
    code, names = lambda_of(made)
    return f'{kind}"{made.name}", "{python_name(made)}", {", ".join([code, *names])});'


def operator(owner: str, made: Declaration) -> Iterator[str]:
    """The operators of Python for one of C++, as members of the class `owner`."""
    cls = f"classes.{CLASSES[owner]}"
    types = [p.type for p in made.parameters]
    symbol = made.name.removeprefix("operator")
    a, b = f"{owner} const &a", f"{types[-1]} const &b" if types else ""
    result = "new mgXform_c(a * b)" if made.result == "mgXform_c" else f"a {symbol} b"
    name = OPERATORS[made.name]
    if name == "is_same":
        call = f"[]({a}, {owner} const &b) {{ return bool(a == b); }}"
        yield f'{cls}.def("is_same", {call}, doc("{made.key}").c_str(), "other"_a);'
        return
    if len(types) == (0 if made.owner else 1):
        lambdas = [("__neg__", a, "return -a;")]
    elif symbol.endswith("="):
        code = f"self.cast<{owner} &>() {symbol} b; return self;"
        lambdas = [(name, f"py::object self, {b}", code)]
        if symbol[0] in COPIED.get(owner, ""):
            copying = f"a {symbol} b; return a;"
            lambdas.append((name.replace("__i", "__"), f"{owner} a, {b}", copying))
    elif types[0] == "double":
        lambdas = [("__rmul__", f"{owner} const &b, double a", "return a * b;")]
    else:
        names = [name, "__matmul__"] if symbol == "%" else [name]
        lambdas = [(same, f"{a}, {b}", f"return {result};") for same in names]
    for name, inputs, code in lambdas:
        other = ', "other"_a' if "," in inputs else ""
        yield f'{cls}.def("{name}", []({inputs}) {{ {code} }}{other});'


class Generator:
    def __init__(self, folder: Path) -> None:
        self.docs: dict[str, list[str]] = {}
        self.bases: dict[str, str] = {}
        self.values: dict[str, list[str]] = {name: [] for name in ENUMERATIONS}
        self.found: list[Declaration] = []
        for header in sorted(folder.glob("*.h")):
            if header.stem not in HEADERS_LEFT_OUT:
                self.read(header.read_text())

    def read(self, text: str) -> None:
        for scope, code, comment in declarations(text):
            if scope in CLASSES_LEFT_OUT:
                continue
            if match := TYPE.match(code):
                self.docs[scope] = [comment]
                self.bases[scope] = match.group(3) or ""
            elif scope in ENUMERATIONS:
                self.values[scope].append(snake(code.split(" = ")[0].partition("_")[2]).upper())
            elif scope in CLASSES or not scope:
                if made := function(scope, code):
                    self.found.append(made)
                    texts = self.docs.setdefault(made.key, [])
                    if comment and comment not in texts:
                        texts.append(comment)

    def doc(self, made: Declaration) -> str:
        """An accessor without a comment is described by its name."""
        words = python_name(made).replace("_", " ")
        if not self.docs[made.key] and len(words) == 1:
            return f"The coordinate {words}."
        return "\n\n".join(self.docs[made.key]) or f"The {words.removeprefix('set ')}."

    def table(self) -> Iterator[str]:
        texts = {name: "\n\n".join(comments) for name, comments in self.docs.items()}
        texts |= {made.key: self.doc(made) for made in self.found}
        for name, text in texts.items():
            yield f'{{"{name}", R"~~({text})~~"}},'

    def is_property(self, made: Declaration) -> bool:
        call = call_of(made)
        is_read = made.is_const and made.owner and not call.names and made.name not in METHODS
        wanted = 1 if made.result == "void" else 0
        return bool(is_read) and len(call.results) == wanted and not call.filled

    def setter(self, made: Declaration) -> Declaration | None:
        bare = re.sub(r"^(get|is)(?=[A-Z\d])", "", made.name)
        wanted = {f"set_{bare}", f"set{bare[0].upper()}{bare[1:]}"}
        for other in self.found:
            is_setter = other.name in wanted or SETTERS.get(other.name) == made.name
            if other.owner == made.owner and is_setter and len(other.parameters) == 1:
                return other
        return None

    def member(self, made: Declaration) -> Iterator[str]:
        cls = f"classes.{CLASSES[made.owner]}"
        python = python_name(made)
        if made.is_field:
            text = f'doc("{made.key}").c_str()'
            yield f'{cls}.def_readwrite("{python}", &{made.owner}::{made.name}, {text});'
        elif made.name == made.owner:
            if not any(p.mark == "*" or p.type == made.owner for p in made.parameters):
                kinds = [p.type + (" const &" if p.mark else "") for p in made.parameters]
                names = [f', "{snake(p.name)}"_a' for p in made.parameters]
                yield f"{cls}.def(py::init<{', '.join(kinds)}>(){''.join(names)});"
        elif made.name.startswith("operator"):
            yield from operator(made.owner, made)
        elif self.is_property(made):
            other = self.setter(made)
            setter = f", {lambda_of(other)[0]}" if other else ""
            yield f'{cls}.property("{made.name}", "{python}", {lambda_of(made)[0]}{setter});'
        else:
            yield bound(f"{cls}.{'fixed' if made.is_static else 'method'}(", made)

    def lines(self) -> Iterator[str]:
        for name, values in self.values.items():
            listed = '", "'.join(values)
            yield f'enumeration<{name}>(classes.m, "{name}", {{"{listed}"}});'
        for made in self.found:
            if made.name in LEFT_OUT or {made.name, made.key} & set(BY_HAND):
                continue
            if made.owner:
                yield from self.member(made)
            elif not made.name.startswith("operator"):
                yield bound("function(classes.m, ", made)
        for name in CLASSES:
            yield from self.free_operators(name)

    def free_operators(self, owner: str) -> Iterator[str]:
        """A class that adds to an operator of its base hides those of the base: all are bound."""
        names = {owner, self.bases.get(owner, "")}
        for made in self.found:
            types = [p.type for p in made.parameters]
            if made.owner or made.name not in OPERATORS:
                continue
            if types[0] in names or (types[0] == "double" and types[1] in names):
                if made.name != "operator==" or types == [owner, owner]:
                    yield from operator(owner, made)

    def enumerations(self) -> Iterator[str]:
        for name, python in ENUMERATIONS.items():
            text = f'static constexpr char text[] = "{python}";'
            yield f"template <>\nstruct EnumName<{name}> {{\n    {text}\n}};"

    def classes(self) -> Iterator[str]:
        yield "struct Classes {\n    py::module_ &m;"
        for name, python in CLASSES.items():
            base = self.bases.get(name, "")
            bases = f", {base}" if base in CLASSES else ""
            yield f'    Class<{name}{bases}> {python}{{m, "{python}", "{name}"}};'
        yield "};"


def main() -> None:
    made = Generator(Path(sys.argv[1]))
    lines = list(made.lines())
    files: dict[str, Iterable[str]] = {
        "docs.inc": made.table(),
        "classes.inc": made.classes(),
        "enumerations.inc": made.enumerations(),
    }
    for part in range(PARTS):
        share = lines[part * len(lines) // PARTS : (part + 1) * len(lines) // PARTS]
        head = ['#include "classes.h"', '#include "rows.h"']
        begin = f"void bind::bindPart{part}(Classes &classes) {{"
        files[f"part{part}.cpp"] = [*head, begin, *share, "}"]
    for name, content in files.items():
        (Path(sys.argv[2]) / name).write_text("\n".join(content) + "\n")


PARTS = 3

if __name__ == "__main__":
    main()
