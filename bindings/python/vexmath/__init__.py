# SPDX-License-Identifier: MIT
"""Geometry of mechanical CAD: the classes and functions of the vexmath library.

Each has two names, the library's and one in the manner of Python: mgPoint_c and Point,
isParallelTo and is_parallel_to. Accessors are properties.
"""

from ._vexmath import *
from ._vexmath import __version__


def _restored(cls: type, record: bytes) -> object:
    """What pickle calls for a class with an archive record of the library."""
    value = cls()
    value.restore(record)
    return value
