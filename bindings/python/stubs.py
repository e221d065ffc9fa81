#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""stubs.py <folder of the compiled module>: prints the type stubs of the package.

They follow from the signatures that the module's docstrings begin with.
"""

import enum
import importlib
import inspect
import re
import sys
from collections.abc import Iterator
from typing import Any

from generate import split

HEAD = '''from enum import IntEnum
from typing import Optional, Sequence, Union, overload

import numpy
from numpy.typing import NDArray

__version__: str
PointLike = Union[Point, Vector, tuple[float, float, float]]
BoxesLike = Union[NDArray[numpy.float64], Sequence[Box]]
PlacementsLike = Union[NDArray[numpy.float64], Sequence[Transform]]
'''
TYPES: list[tuple[str, str]] = [
    (r"numpy\.ndarray\[numpy\.(\w+)\]", r"NDArray[numpy.\1]"),
    (r"\bvexmath\.(?:_vexmath\.)?", ""),
    (r"([\w\]])\[\d+\]", r"\1"),
    (r"\bTuple\[", "tuple["),
    (r"\bList\[", "list["),
    (r" = .*", " = ..."),
]
# A type checker reads a += b as a = a + b, where there is such an operator.
IN_PLACE = {"__iadd__": "__add__", "__isub__": "__sub__", "__imul__": "__mul__",
            "__ior__": "__or__", "__iand__": "__and__"}  # fmt: skip
WIDER_THAN_BASE = {"GenTransform.__mul__"}
WITHOUT_STUB = {"_arguments", "_pybind11_conduit_v1_"}


def plain(annotation: str) -> str:
    for pattern, by in TYPES:
        annotation = re.sub(pattern, by, annotation)
    return annotation


def argument(text: str, is_operator: bool) -> str:
    """Where a point or a vector is wanted, any three numbers do; but operators tell them apart."""
    name, _, annotation = plain(text).partition(": ")
    if name == "self":
        return name
    kind, _, default = annotation.partition(" = ")
    if kind in ("Point", "Vector") and not is_operator:
        kind = "PointLike"
    return f"{name}: {kind}" + (f" = {default}" if default else "")


def signatures(function: Any, name: str) -> Iterator[str]:
    """(arguments) -> result, of each overload."""
    pattern = rf"^(?:\d+\. )?{name}\((.*)\) -> (.*)$"
    lines = re.findall(pattern, function.__doc__ or "", re.MULTILINE)
    is_operator = name.startswith("__") and name != "__init__"
    for arguments, result in lines:
        if "*args" in arguments:
            continue
        parts = [argument(part, is_operator) for part in split(arguments)]
        if name == "__eq__":
            parts = ["self", "other: object"]
        yield f"({', '.join(parts)}) -> {plain(result)}"


def definitions(function: Any, name: str, indent: str, decorators: list[str]) -> list[str]:
    found = list(dict.fromkeys(signatures(function, function.__name__)))
    lines = []
    for signature in found:
        marks = (["@overload"] if len(found) > 1 else []) + decorators
        lines += [indent + mark for mark in marks]
        lines.append(f"{indent}def {name}{signature}: ...")
    return lines


def property_lines(name: str, prop: property) -> list[str]:
    get = next(iter(signatures(prop.fget, r"\w*")), None)
    kind = get.rpartition(" -> ")[2] if get else "object"
    lines = ["    @property", f"    def {name}(self) -> {kind}: ..."]
    if prop.fset is not None:
        wanted = "PointLike" if kind in ("Point", "Vector") else kind
        lines += [f"    @{name}.setter", f"    def {name}(self, value: {wanted}) -> None: ..."]
    return lines


def class_lines(cls: type) -> list[str]:
    bases = [base.__name__ for base in cls.__bases__ if base.__module__ == "vexmath"]
    lines = [f"class {cls.__name__}" + (f"({bases[0]})" if bases else "") + ":"]
    names: dict[int, str] = {}
    for name, member in vars(cls).items():
        if isinstance(member, property):
            lines += property_lines(name, member)
            continue
        inner = getattr(member, "__func__", None) or getattr(cls, name)
        if not callable(inner) or name in WITHOUT_STUB or hasattr(cls, IN_PLACE.get(name, "?")):
            continue
        if id(inner) in names:
            lines.append(f"    {name} = {names[id(inner)]}")
            continue
        names[id(inner)] = name
        marks = ["@staticmethod"] if isinstance(member, staticmethod) else []
        made = definitions(inner, name, "    ", marks)
        if name in IN_PLACE:  # returns the object itself
            made = [line.replace("-> object", f"-> {cls.__name__}") for line in made]
        if f"{cls.__name__}.{name}" in WIDER_THAN_BASE:
            made[0] += "  # type: ignore[override]"
        lines += made
    return lines


def module_lines(module: Any) -> Iterator[str]:
    names: dict[int, str] = {}
    for name, value in vars(module).items():
        if name.startswith("_"):
            continue
        if id(value) in names:
            yield f"{name} = {names[id(value)]}"
            continue
        names[id(value)] = getattr(value, "__name__", name)
        if inspect.isclass(value) and issubclass(value, enum.IntEnum):
            yield f"class {value.__name__}(IntEnum):"
            yield from (f"    {item.name} = {item.value}" for item in value)
        elif inspect.isclass(value) and issubclass(value, Exception):
            yield f"class {value.__name__}({value.__base__.__name__}): ..."
        elif inspect.isclass(value):
            yield from class_lines(value)
        else:
            yield from definitions(value, name, "", [])


def main() -> None:
    sys.path.insert(0, sys.argv[1])
    print(HEAD + "\n".join(module_lines(importlib.import_module("_vexmath"))))


if __name__ == "__main__":
    main()
