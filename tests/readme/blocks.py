#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compiles and runs the C++ blocks of pages, and compares what they print with the block after each.

usage: blocks.py [--update] SOURCE_FOLDER LIBVEXMATH WORK_FOLDER COMPILER PAGE...

A block is a whole program, or statements that may use all headers. --update writes the outputs.
"""

import re
import subprocess
import sys
from pathlib import Path

BLOCK = re.compile(r'```cpp\n(.*?)```\n(?:```text\n(.*?)```\n)?', re.S)
HEADERS = ('algorithm', 'cmath', 'cstdio', 'sstream', 'vector', 'vexmath/vexmath.h')


def program(number, block):
    """The block as a function. A whole program's main is renamed."""
    if 'int main()' in block:
        return block.replace('int main()', f'void block{number}()')
    return f'void block{number}() {{\n{block}}}\n'


def build(blocks, source, library, work, compiler):
    """One program for all blocks; its argument selects the one to run."""
    text = ''.join(f'#include <{header}>\n' for header in HEADERS)
    text += '#include <cstdlib>\n' + '\n'.join(program(i, b) for i, b in enumerate(blocks))
    text += 'int main(int, char **argv) {\nswitch (std::atoi(argv[1])) {\n'
    text += ''.join(f'case {i}: block{i}(); break;\n' for i in range(len(blocks))) + '}\n}\n'
    work.mkdir(parents=True, exist_ok=True)
    (work / 'blocks.cpp').write_text(text)
    subprocess.run([compiler, '-std=c++17', '-Wall', '-Wextra', '-Werror', '-Wno-unused-variable',
                    '-Wno-unused-but-set-variable', '-I', source / 'include', '-I',
                    source / 'src/platform/include', work / 'blocks.cpp', '-o', work / 'blocks', library,
                    f'-Wl,-rpath,{library.parent}'], check=True)
    return [subprocess.run([work / 'blocks', str(i)], check=True, capture_output=True,
                           text=True).stdout for i in range(len(blocks))]


def main(arguments):
    update = arguments[0] == '--update'
    source, library, work = map(Path, arguments[update:update + 3])
    compiler, *names = arguments[update + 3:]
    pages = {Path(name): Path(name).read_text() for name in names}
    found = [(page, m) for page, text in pages.items() for m in BLOCK.finditer(text)]
    outputs = build([m[1] for _, m in found], source, library.resolve(), work, compiler)
    wrong = 0
    for (page, match), output in zip(found, outputs):
        if output == (match[2] or ''):
            continue
        if update:
            block = f'```cpp\n{match[1]}```\n'
            pages[page] = pages[page].replace(match[0], f'{block}```text\n{output}```\n')
        else:
            wrong += 1
            print(f'{page}: this block\n{match[1]}prints\n{output}instead of\n{match[2]}')
    if update:
        for page, text in pages.items():
            page.write_text(text)
    return wrong > 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
