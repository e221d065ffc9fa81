#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Collects the QUIRK marks of include/ and src/ into docs/quirks.md.

A mark is a comment of one form:

    // QUIRK: <public header>, <function>[, <function>...]: <what happens>
    // Expected: <what a reader would expect> Kept: <the reason> (test: <test>)

Without arguments the script compares the page with the marks. --update writes the page. It fails
when the page is out of date, when a mark has another form, when its header does not declare its
function, and when its test does not exist.
"""

import argparse
import collections
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
HEADERS = ROOT / "include" / "vexmath"
PAGE = ROOT / "docs" / "quirks.md"

MARK = re.compile(
    r"QUIRK: (?P<header>\w+\.h), (?P<functions>[^ ]+(?:, [^ ]+)*): (?P<happens>.+?)"
    r" Expected: (?P<expected>.+?) Kept: (?P<kept>.+?) \(test: (?P<test>\w+)\)$"
)

INTRODUCTION = """\
# Quirks

Some behaviour looks wrong and is kept, because callers and stored documents depend on it. This page
lists all of it by header: what happens, what one would expect, and the test that keeps it. Each
header tells its own quirks too, at the function concerned.

`./dev quirks --update` makes this page from the marks in the source.
"""

Quirk = collections.namedtuple("Quirk", "header functions happens expected kept test place")


def comments(path):
    """(line number, text) of each run of // comment lines that begins with QUIRK:."""
    number, parts = 0, []
    for i, line in enumerate(path.read_text().splitlines() + [""], start=1):
        text = re.match(r"\s*//(?!/)\s*(.*)", line)
        begins = text is not None and text.group(1).startswith("QUIRK:")
        if parts and (text is None or begins):
            yield number, " ".join(parts)
            parts = []
        if begins:
            number, parts = i, [text.group(1)]
        elif parts:
            parts.append(text.group(1))
            if re.search(r"\(test: \w+\)$", parts[-1]):
                yield number, " ".join(parts)
                parts = []


def suites_by_test():
    sources = "\n".join(path.read_text() for path in (ROOT / "tests").rglob("*.cpp"))
    suites = collections.defaultdict(list)
    for suite, name in re.findall(r"\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)", sources):
        suites[name].append(suite)
    return suites


def declares(header, function):
    """Does the header have the last part of the function's name as a word, or its operator?"""
    name = function.rsplit("::", 1)[-1]
    text = re.sub(r"\s+", " ", header.read_text())
    pattern = re.escape(name)
    if name[0].isalnum() or name[0] == "_":
        pattern = rf"\b{pattern}"
    if name[-1].isalnum() or name[-1] == "_":
        pattern = rf"{pattern}\b"
    return re.search(pattern, text) is not None


def read_quirks():
    quirks, faults, tests = [], [], suites_by_test()
    paths = sorted([*(ROOT / "include").rglob("*.h"), *(ROOT / "src").rglob("*.[ch]*")])
    for path in paths:
        for number, text in comments(path):
            place = f"{path.relative_to(ROOT)}:{number}"
            mark = MARK.fullmatch(text)
            if mark is None:
                faults.append(f"{place}: not of the form that this script reads: {text}")
                continue
            quirk = Quirk(**mark.groupdict(), place=place)
            header = HEADERS / quirk.header
            if not header.exists():
                faults.append(f"{place}: there is no header {quirk.header}")
            else:
                for function in quirk.functions.split(", "):
                    if not declares(header, function):
                        faults.append(f"{place}: {quirk.header} does not declare {function}")
            suites = tests.get(quirk.test, [])
            if len(suites) != 1:
                faults.append(f"{place}: {len(suites)} tests have the name {quirk.test}")
            else:
                quirk = quirk._replace(test=f"{suites[0]}.{quirk.test}")
            quirks.append(quirk)
    return quirks, faults


def page_of(quirks):
    lines = [INTRODUCTION]
    for header in sorted({quirk.header for quirk in quirks}):
        lines.append(f"\n## `{header}`\n")
        for quirk in sorted((q for q in quirks if q.header == header), key=lambda q: q.functions):
            functions = ", ".join(f"`{name}`" for name in quirk.functions.split(", "))
            lines.append(f"- {functions}: {quirk.happens}")
            lines.append(f"  - Expected: {quirk.expected}")
            lines.append(f"  - Kept: {quirk.kept}")
            lines.append(f"  - Test: `{quirk.test}`")
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--update", action="store_true", help="write docs/quirks.md")
    arguments = parser.parse_args()

    quirks, faults = read_quirks()
    for fault in faults:
        print(fault, file=sys.stderr)
    if faults:
        return 1
    page = page_of(quirks)
    if arguments.update:
        PAGE.write_text(page)
    elif not PAGE.exists() or PAGE.read_text() != page:
        print("docs/quirks.md is out of date: run ./dev quirks --update", file=sys.stderr)
        return 1
    print(f"{len(quirks)} quirks of {len({q.header for q in quirks})} headers")
    return 0


if __name__ == "__main__":
    sys.exit(main())
