#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Which test exercises which part of the interface, written to docs/coverage.md.

The interface is what the library exports (tests/abi/exported_symbols.txt) and every public inline
function of the headers. A test exercises a function when its object file, built without
optimisation, calls it. Fails when something is not exercised, or when the table is out of date;
--update writes the table anew.
"""

import argparse
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
HEADERS = ROOT / "include" / "vexmath"
TABLE = ROOT / "docs" / "coverage.md"
SHOWN_TESTS = 3


def demangled(*nm_arguments):
    """(kind, name) of every symbol."""
    out = subprocess.run(["nm", "-C", *nm_arguments], check=True, capture_output=True, text=True)
    for line in out.stdout.splitlines():
        match = re.match(r"[0-9a-f ]{16,17} ?(\w) (.*)", line)
        if match:
            yield match.group(1), match.group(2).replace("(anonymous namespace)::", "")


def is_ours(name):
    if re.search(r"\bstd::|__gnu_cxx|vexmath::detail|\[clone", name):
        return False
    if re.match(r"(vtable|VTT|typeinfo|guard variable|non-virtual thunk|operator (new|delete))", name):
        return False
    # A declared destructor that does nothing, and what the compiler adds, are nobody's to call.
    return not re.search(r"::~|::operator=\(\w+&&\)", name)


def common(name):
    """One name for the same member of all instances of the list template."""
    instance = re.match(r"suDynamicArray<(\w+)>::(.*)", name)
    if not instance:
        return name
    element, member = instance.groups()
    indices = re.search(r"\(int, int\)|\[\]\(int\)", member)
    member = member if indices else re.sub(rf"\b{element}\b", "T", member)
    return "suDynamicArray<T>::" + member


def inline_functions():
    """Every inline function of the headers, emitted whether called or not."""
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder) / "interface.cpp"
        source.write_text("#include <vexmath/vexmath.h>\n")
        made = source.with_suffix(".o")
        subprocess.run(
            ["g++", "-std=c++17", "-O0", "-fkeep-inline-functions", "-c", source, "-o", made,
             f"-I{ROOT / 'include'}", f"-I{ROOT / 'src/platform/include'}"], check=True)
        return {common(name) for kind, name in demangled(made) if kind in "WT"}


def code_of(header):
    text = re.sub(r"//[^\n]*|/\*.*?\*/", " ", header.read_text(), flags=re.S)
    return re.sub(r"\s+", " ", text)


class Headers:
    """Where each name is declared, and whether to the public."""

    def __init__(self):
        self.code = {h.name: code_of(h) for h in sorted(HEADERS.glob("*.h"))}
        self.class_home = {}
        self.class_public = {}
        for name, code in self.code.items():
            for match in re.finditer(r"\b(?:class|struct) (?:VEXMATH_\w+ )?(\w+)(?: final)?(?: :[^{;]*)? \{", code):
                self.class_home[match.group(1)] = name
                self.class_public[match.group(1)] = self.public_part(code, match)

    @staticmethod
    def public_part(code, match):
        depth, end = 0, match.end() - 1
        while True:
            depth += {"{": 1, "}": -1}.get(code[end], 0)
            end += 1
            if depth == 0:
                break
        parts = re.split(r"\b(public|private|protected): ", code[match.end():end])
        public = parts[0] if code[match.start():].startswith("struct") else ""
        for label, part in zip(parts[1::2], parts[2::2]):
            if label == "public":
                public += part
        return public

    def home(self, symbol):
        """The header that declares a symbol of the interface; None when it is not part of it."""
        own_types = re.compile(r"\b(?:\w+_c|mgRect)\b")

        def declared_in(code, name):
            """With the same classes among the arguments, in the same order."""
            types = own_types.findall(arguments)
            calls = re.finditer(rf"(?<!\w){re.escape(name)}\s?(?:\(((?:[^()]|\([^()]*\))*)\)|;)", code)
            return any(own_types.findall(call.group(1) or "") == types for call in calls)

        symbol = symbol.replace("operator()", "operator[call]")
        path, _, arguments = symbol.partition("(")
        path = path.replace("[call]", "()").split(" ", path.count(" ") if "operator" not in path else 0)[-1]
        owner, _, name = path.rpartition("::")
        owner = owner.split("<")[0]
        name = name.split("<")[0] if not name.startswith("operator") else name
        if owner:
            public = self.class_public.get(owner)
            return self.class_home[owner] if public and declared_in(public, name) else None
        return next((header for header, code in self.code.items() if declared_in(code, name)), None)


def exercised(objects):
    """Test file -> names that it calls."""
    tests = {}
    for path in sorted(objects.glob("CMakeFiles/*_test.dir/**/*.o")):
        parts = path.parts
        room = next(i for i, p in enumerate(parts) if p.endswith("_test.dir"))
        test = "/".join(parts[room + 1:])[:-2]
        if not (ROOT / "tests" / test).exists():
            continue  # left in the build folder by a test that is gone
        names = {common(name) for kind, name in demangled(path) if kind in "UWVut"}
        tests[test] = {name for name in names if is_ours(name)}
    return tests


def shown(users, header):
    stem = header[:-2].removeprefix("mg_").removeprefix("su_")
    users = sorted(users, key=lambda test: (stem not in test, test))
    text = ", ".join(f"`{test}`" for test in users[:SHOWN_TESTS])
    more = len(users) - SHOWN_TESTS
    return text + (f" and {more} more" if more > 0 else "")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("objects", type=pathlib.Path, help="the tests' folder of an unoptimised build")
    parser.add_argument("--update", action="store_true")
    arguments = parser.parse_args()

    exported = {common(name) for name in (ROOT / "tests/abi/exported_symbols.txt").read_text().splitlines()}
    headers = Headers()
    tests = exercised(arguments.objects)
    if not tests:
        sys.exit(f"{arguments.objects}: holds no test objects")

    rows, missing = {}, []
    for name in sorted(n for n in exported | inline_functions() if is_ours(n)):
        header = headers.home(name)
        if header is None:
            if name in exported and "::" not in name:
                missing.append(f"{name}: exported, and no header declares it")
            continue
        users = [test for test, names in tests.items() if name in names]
        if not users:
            missing.append(f"{name}: no test calls it")
        rows.setdefault(header, []).append((name, users))

    table = ["# What is tested where", "",
             "Every public function, constructor and object of the interface, by the header that declares it,",
             "with tests that call it. `./dev coverage --update` makes this table; `./dev test` compares it.", ""]
    for header in sorted(rows):
        classes = sorted(c for c, home in headers.class_home.items() if home == header and c.endswith(("_c", "Rect", "Data", "Array")))
        table += [f"## `{header}`", ""]
        if classes:
            table += ["Classes: " + ", ".join(f"`{c}`" for c in classes) + ".", ""]
        table += ["| Function or object | Tests, in `tests/` |", "|---|---|"]
        table += ["| `" + name.replace("|", "\\|") + f"` | {shown(users, header)} |" for name, users in rows[header]]
        table += [""]
    text = "\n".join(table)
    if arguments.update:
        TABLE.write_text(text)
        print(f"docs/coverage.md: {sum(map(len, rows.values()))} rows")
    elif not TABLE.exists() or TABLE.read_text() != text:
        missing.append("docs/coverage.md is out of date: run ./dev coverage --update")
    if missing:
        sys.exit("\n".join(missing))


if __name__ == "__main__":
    main()
