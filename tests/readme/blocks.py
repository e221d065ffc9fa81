#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compiles and runs the C++ blocks of pages, and compares what they print with the block after each.

usage: blocks.py [--update] WORK_FOLDER PAGE... -- COMPILER OPTION...

A block is a whole program, or statements that may use all headers, with #include lines in front. It
is skipped when a header that it names is not installed. --update writes the outputs.
"""

import re
import subprocess
import sys
from pathlib import Path

BLOCK = re.compile(r'^```cpp\n(.*?)^```\n(?:\s*^```text\n(.*?)^```\n)?', re.S | re.M)
HEADERS = ('algorithm', 'cmath', 'cstdio', 'cstdlib', 'sstream', 'vector', 'vexmath/vexmath.h')
SKIPPED = 'skipped: a header is not installed'


def function(number: int, block: str) -> str:
    """The block as a function, behind its headers. A whole program's main is renamed."""
    headers = re.findall(r'^#include (.*)\n', block, re.M)
    body = re.sub(r'^#include .*\n', '', block, flags=re.M)
    name = f'static void block{number}()'
    body = body.replace('int main()', name) if 'int main()' in body else f'{name} {{\n{body}}}\n'
    present = ' && '.join(f'__has_include({header})' for header in headers) or '1'
    includes = ''.join(f'#include {header}\n' for header in headers)
    return (f'#if {present}\n{includes}{body}#else\n'
            f'{name} {{ std::fputs("{SKIPPED}", stdout); }}\n#endif\n')


def outputs(blocks: list[str], work: Path, command: list[str]) -> list[str]:
    """What the blocks print, as one program whose argument selects a block."""
    text = ''.join(f'#include <{header}>\n' for header in HEADERS)
    text += ''.join(function(*numbered) for numbered in enumerate(blocks))
    text += 'int main(int, char **argv) {\nswitch (std::atoi(argv[1])) {\n'
    text += ''.join(f'case {i}: block{i}(); break;\n' for i in range(len(blocks))) + '}\n}\n'
    work.mkdir(parents=True, exist_ok=True)
    (work / 'blocks.cpp').write_text(text)
    subprocess.run([command[0], work / 'blocks.cpp', *command[1:], '-o', work / 'blocks'], check=True)
    return [subprocess.run([work / 'blocks', str(i)], check=True, capture_output=True,
                           text=True).stdout for i in range(len(blocks))]


def main(arguments: list[str]) -> int:
    update = arguments[0] == '--update'
    command = arguments[arguments.index('--') + 1:]
    work, *names = map(Path, arguments[update:arguments.index('--')])
    pages = {name: name.read_text() for name in names}
    found = [(page, match) for page, text in pages.items() for match in BLOCK.finditer(text)]
    wrong = 0
    for (page, match), output in zip(found, outputs([m[1] for _, m in found], work, command)):
        if output == SKIPPED:
            print(f'{page}: {SKIPPED}:\n{match[1]}')
        elif output != (match[2] or '') and update:
            new = f'```cpp\n{match[1]}```\n```text\n{output}```\n'
            pages[page] = pages[page].replace(match[0], new)
        elif output != (match[2] or ''):
            wrong += 1
            print(f'{page}: this block\n{match[1]}prints\n{output}instead of\n{match[2]}')
    for page, text in pages.items() if update else ():
        page.write_text(text)
    return wrong > 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
