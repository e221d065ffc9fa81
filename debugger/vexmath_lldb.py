# SPDX-License-Identifier: MIT
"""Shows the classes of vexmath in lldb, with the texts of vexmath_texts.py.

`command script import vexmath_lldb.py` loads it. docs/debugging.md of vexmath tells more.
"""

import os
import sys

import lldb

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import vexmath_texts as texts


class Value:
    """A value of lldb in the form that vexmath_texts.py describes."""

    def __init__(self, raw, kind=None):
        if not raw.IsValid():
            raise LookupError("no such member")
        self.raw = raw.GetNonSyntheticValue()
        self.type = (kind or self.raw.GetType()).GetCanonicalType().GetUnqualifiedType()
        if self.type.IsReferenceType():
            self.type = self.type.GetDereferencedType()
            self.raw = at(raw.GetTarget(), raw.GetValueAsUnsigned(), raw.GetName(), self.type)

    def __getitem__(self, key):
        if isinstance(key, str):
            member = self.raw.GetChildMemberWithName(key)
            return Value(member if member.IsValid() else self.hidden(key))
        if self.type.IsPointerType():
            return Value(element(self.raw, key), self.type.GetPointeeType())
        return Value(self.raw.GetChildAtIndex(key))

    def hidden(self, name):
        """A member of a class that only the library describes."""
        target, start = self.raw.GetTarget(), self.raw.GetLoadAddress()
        if start == lldb.LLDB_INVALID_ADDRESS:
            raise RuntimeError("no memory at that address")
        kind, offset = texts.place(self.name, name, target.GetAddressByteSize())
        kind, pointer, _ = kind.partition(" *")
        void = target.GetBasicType(lldb.eBasicTypeVoid)
        found = void if kind == "void" else target.FindFirstType(kind)
        return at(target, start + offset, name, found.GetPointerType() if pointer else found)

    def __float__(self):
        data, error = self.raw.GetData(), lldb.SBError()
        x = data.GetFloat(error, 0) if self.size == 4 else data.GetDouble(error, 0)
        return self.checked(x, error)

    def __int__(self):
        error = lldb.SBError()
        signed = self.type.GetTypeFlags() & lldb.eTypeIsSigned
        read = self.raw.GetValueAsSigned if signed else self.raw.GetValueAsUnsigned
        return self.checked(read(error, 0), error)

    def checked(self, number, error):
        if error.Fail() or self.raw.GetError().Fail():
            reason = str(self.raw.GetError().GetCString() or error.GetCString())
            raise texts.OptimizedOut if "optimized" in reason else RuntimeError(reason)
        return number

    @property
    def name(self):
        return self.type.GetUnqualifiedType().GetName()

    @property
    def kind(self):
        if self.type.IsArrayType():
            return "array"
        real = self.type.GetTypeFlags() & lldb.eTypeIsFloat
        return "real" if real else self.name.split("<")[0]

    @property
    def size(self):
        return self.type.GetByteSize()

    @property
    def base(self):
        return Value(self.raw.GetChildAtIndex(0))

    def memory(self, offset, count):
        error = lldb.SBError()
        read = self.raw.GetProcess().ReadMemory(int(self) + offset, count, error)
        if error.Fail():
            raise RuntimeError(error.GetCString())
        return read


def element(pointer, index):
    kind = pointer.GetType().GetPointeeType()
    address = pointer.GetValueAsUnsigned() + index * kind.GetByteSize()
    return at(pointer.GetTarget(), address, f"[{index}]", kind)


def at(target, address, name, kind):
    place = lldb.SBAddress(address, target)
    found = target.CreateValueFromAddress(name, place, kind)
    if found.IsValid():
        return found
    # A class that only the library describes: its first byte tells at least the address.
    return target.CreateValueFromAddress(name, place, target.GetBasicType(lldb.eBasicTypeChar))


def summary(raw, _):
    return texts.text(Value(raw))


class Elements:
    """The elements of a list, as children that can be expanded."""

    def __init__(self, raw, _):
        self.raw = raw
        self.count = 0

    def update(self):
        try:
            self.handle = Value(self.raw)["data_"]
            self.count = texts.list_count(self.handle)
        except Exception:  # the summary says what is wrong
            self.count = 0

    def num_children(self):
        return self.count

    def has_children(self):
        return self.count > 0

    def get_child_index(self, name):
        return int(name.strip("[]"))

    def get_child_at_index(self, index):
        return element(self.handle.raw, index) if 0 <= index < self.count else None


def __lldb_init_module(debugger, _):
    lists = f"^{texts.LIST}<.*>$"
    classes = "|".join(sorted(set(texts.TEXTS) - {texts.LIST}))
    for command in (
        f'summary add -w vexmath -p -F vexmath_lldb.summary -x "^({classes})$"',
        f'summary add -w vexmath -p -e -F vexmath_lldb.summary -x "{lists}"',
        f'synthetic add -w vexmath -p -l vexmath_lldb.Elements -x "{lists}"',
        "category enable vexmath",
    ):
        debugger.HandleCommand("type " + command)
