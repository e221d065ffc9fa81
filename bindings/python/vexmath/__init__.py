# SPDX-License-Identifier: MIT
"""Geometry of mechanical CAD: the classes and functions of the vexmath library.

Each has two names, the library's and one in the manner of Python: mgPoint_c and Point,
isParallelTo and is_parallel_to. Accessors are properties.
"""

import math as _math

from . import _vexmath
from ._vexmath import *
from ._vexmath import __version__

# What makes the classes values. _arguments() are those that construct an equal object.


def _shown(argument: object) -> str:
    """As Python reads it back."""
    if isinstance(argument, list):
        return f"[{', '.join(map(_shown, argument))}]"
    if isinstance(argument, float) and not _math.isfinite(argument):
        return f"float('{argument}')"
    return repr(argument)


def _repr(self: object) -> str:
    shown = map(_shown, self._arguments())
    if isinstance(self, Box):  # whose order is not plain
        shown = map("=".join, zip(("sph_center", "high", "low", "sph_radius"), shown))
    return f"{type(self).__name__}({', '.join(shown)})"


def _reduce(self: object, protocol: int) -> tuple:
    """By the archive record, or by arguments where no record has all fields.

    The record of a matrix lacks the flag, and saving a transform repairs it.
    """
    if hasattr(self, "save") and not isinstance(self, (Matrix, Transform)):
        return _restored, (type(self), self.save())
    return type(self), self._arguments()


def _restored(cls: type, record: bytes) -> object:
    value = cls()
    value.restore(record)
    return value


for _class in vars(_vexmath).values():
    if hasattr(_class, "_arguments"):
        _class.__repr__, _class.__reduce_ex__ = _repr, _reduce
