# SPDX-License-Identifier: MIT
"""Shows the classes of vexmath in gdb, with the texts of vexmath_texts.py.

gdb loads it together with the library. `source vexmath_gdb.py` loads it by hand.
docs/debugging.md of vexmath tells more.
"""

import os
import sys

import gdb
import gdb.printing
import gdb.types

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import vexmath_texts as texts


KINDS = {gdb.TYPE_CODE_ARRAY: "array", gdb.TYPE_CODE_FLT: "real", gdb.TYPE_CODE_VOID: "void"}


class Value:
    """A value of gdb in the form that vexmath_texts.py describes."""

    def __init__(self, raw):
        self.raw = raw
        self.type = gdb.types.get_basic_type(raw.type)

    def __getitem__(self, key):
        if isinstance(key, str):
            return Value(self.member(key))
        return Value(self.raw[key] if key or self.kind == "array" else self.raw.dereference())

    def member(self, name):
        try:
            return self.raw[name]
        except gdb.error:  # in a class that only the library describes
            byte = gdb.lookup_type("char").pointer()
            kind, offset = texts.place(str(self.type.tag), name, byte.sizeof)
            kind, pointer, _ = kind.partition(" *")
            kind = gdb.lookup_type(kind).pointer() if pointer else gdb.lookup_type(kind)
            return (self.raw.address.cast(byte) + offset).cast(kind.pointer()).dereference()

    def __float__(self):
        return float(self.kept())

    def __int__(self):
        return int(self.kept())

    def kept(self):
        if self.raw.is_optimized_out:
            raise texts.OptimizedOut
        return self.raw

    @property
    def kind(self):
        return KINDS.get(self.type.code) or str(self.type.tag).split("<")[0]

    @property
    def size(self):
        return self.type.sizeof

    @property
    def base(self):
        return Value(self.raw.cast(self.type.fields()[0].type))

    def memory(self, offset, count):
        return gdb.selected_inferior().read_memory(int(self) + offset, count).tobytes()


class Printer:
    def __init__(self, raw):
        self.raw = raw

    def to_string(self):
        return texts.text(Value(self.raw))


class ListPrinter(Printer):
    def children(self):
        handle, count = elements(lambda: Value(self.raw)["data_"])
        return ((f"[{i}]", handle.raw[i]) for i in range(count))

    def display_hint(self):
        return "array"


def elements(find_handle):
    """The handle of a list and how many elements can be shown."""
    try:
        handle = find_handle()
        return handle, texts.list_count(handle)
    except Exception:  # the text of the list says what is wrong
        return None, 0


def register(objfile=None):
    """Shows values while the object file is loaded, or for ever."""
    printers = gdb.printing.RegexpCollectionPrettyPrinter("vexmath")
    for name in texts.TEXTS:
        kind, end = (ListPrinter, "<.*>$") if name == texts.LIST else (Printer, "$")
        printers.add_printer(name, f"^{name}{end}", kind)
    gdb.printing.register_pretty_printer(objfile, printers, replace=True)


class ArrayFunction(gdb.Function):
    """$vexmath_array(handle): the elements of an array that dynamic_array.h made.

    The handle is a typed pointer to element 0."""

    def __init__(self):
        super().__init__("vexmath_array")

    def invoke(self, handle):
        _, count = elements(lambda: Value(handle))
        if count == 0:
            return texts.guarded(texts.list_of_handle, Value(handle))
        return handle.cast(handle.type.target().array(count - 1).pointer()).dereference()


ArrayFunction()
if gdb.current_objfile() is None:
    register()
