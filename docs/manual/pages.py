#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the pages of the manual whose text is elsewhere in the tree.

usage: pages.py SOURCE_FOLDER OUTPUT_FOLDER
"""

import re
import sys
from pathlib import Path

# Pages that readers of the tree find in docs/, and their names in the manual.
PAGES = {'quirks': 'quirks', 'interop': 'interop', 'coming-from': 'coming_from',
         'debugging': 'debugging', 'c': 'c_callers'}

TUTORIAL = '''# Tutorial {#tutorial}

Each short program teaches one subject. Below it is what it prints. The sources are in `examples/` and
need nothing but the library.

'''


def linked(text):
    """Links to other pages of the manual stay, those to files of the tree become plain words. The
    words for a picture come on one line, as Doxygen wants them."""
    text = re.sub(r'!\[[^]]+\]', lambda words: words[0].replace('\n', ' '), text)

    def link(match):
        name = Path(match[2]).stem
        return f'\\ref {PAGES[name]} "{match[1]}"' if name in PAGES else match[1]
    return re.sub(r'(?<!!)\[([^]]+)\]\((?!https?:|#)([^)]+)\)', link, text)


def page(text, name):
    """The text, whose first heading gets the name."""
    return linked(re.sub(r'^(# .*)$', rf'\1 {{#{name}}}', text, count=1, flags=re.M))


def tutorial(examples):
    """The page of the examples, with each program under its heading."""
    text = (examples / 'README.md').read_text()
    result = TUTORIAL
    for name, body in re.findall(r'^## (\w+)\n(.*?)(?=^## |\Z)', text, re.M | re.S):
        source = (examples / f'{name}.cpp').read_text().split('\n', 1)[1]
        words, *printed = body.split('```text', 1)
        result += f'## {name.replace("_", " ").capitalize()}\n{linked(words)}\n```cpp\n{source}```\n'
        result += f'It prints:\n\n```text{printed[0]}\n' if printed else ''
    return result


def main(source, output):
    output.mkdir(parents=True, exist_ok=True)
    (output / 'tutorial.md').write_text(tutorial(source / 'examples'))
    for file, name in PAGES.items():
        (output / f'{file}.md').write_text(page((source / f'docs/{file}.md').read_text(), name))


if __name__ == '__main__':
    main(*map(Path, sys.argv[1:]))
