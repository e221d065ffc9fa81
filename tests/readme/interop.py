#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Keeps the pages about other libraries true.

usage: interop.py FOLDER_OF_THE_PAGES WORK_FOLDER COMPILER OPTION...

Each ```cpp block of a page is the inside of a function, with #include lines in front. It compiles
without a warning and prints the ```text block that follows it. A block is skipped when a header
that it names is not installed.
"""

import pathlib
import re
import subprocess
import sys

PAGES = ["interop.md", "coming-from.md"]
BLOCK = re.compile(r"^```cpp\n(.*?)^```\n\s*^```text\n(.*?)^```$", re.M | re.S)
SKIPPED = "skipped\n"


def split(block: str) -> tuple[list[str], str]:
    """The headers of a block, and the rest."""
    headers = re.findall(r"^#include (.*)$", block, re.M)
    return headers, re.sub(r"^#include .*\n", "", block, flags=re.M)


def program(blocks: list[str]) -> str:
    """One program that runs the blocks of a page, with a form feed behind the output of each."""
    text, calls = "#include <cstdio>\n", ""
    for header in (header for block in blocks for header in split(block)[0]):
        text += f"#if __has_include({header})\n#include {header}\n#endif\n"
    for number, block in enumerate(blocks):
        headers, body = split(block)
        present = " && ".join(f"__has_include({header})" for header in headers)
        text += f"static void block{number}() {{\n#if {present}\n{body}#else\n"
        text += f'std::fputs({SKIPPED!r}, stdout);\n#endif\n}}\n'.replace("'", '"')
        calls += f'    block{number}();\n    std::fputs("\\f", stdout);\n'
    return text + f"int main() {{\n{calls}}}\n"


def check(page: pathlib.Path, work: pathlib.Path, command: list[str]) -> list[str]:
    """The faults of a page."""
    blocks = BLOCK.findall(page.read_text())
    source, target = work / f"{page.stem}.cpp", work / page.stem
    source.write_text(program([code for code, _ in blocks]))
    subprocess.run([command[0], str(source), *command[1:], "-o", str(target)], check=True)
    run = subprocess.run([str(target)], check=True, capture_output=True, text=True)
    faults = []
    for (code, expected), printed in zip(blocks, run.stdout.split("\f")):
        if printed == SKIPPED:
            print(f"{page.name}: skipped, for a header is not here:\n{code}")
        elif printed != expected:
            faults.append(f"{page.name}:\n{code}prints:\n{printed}and not:\n{expected}")
    return faults


def main() -> int:
    folder, work, command = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3:]
    work.mkdir(parents=True, exist_ok=True)
    faults = []
    for name in PAGES:
        faults += check(folder / name, work, command)
        text = (folder / name).read_text()
        if text.count("```cpp") != len(BLOCK.findall(text)):
            faults.append(f"{name}: a block of code has no output behind it")
    print("\n".join(faults))
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())
