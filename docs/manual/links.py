#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a page of the manual links to a place, or shows a picture, that does not exist.

usage: links.py FOLDER_OF_THE_PAGES
"""

import re
import sys
from pathlib import Path
from urllib.parse import unquote


def anchors(page):
    return set(re.findall(r'(?:id|name)="([^"]+)"', page))


def main(folder):
    pages = {path.name: path.read_text() for path in folder.glob('*.html')}
    places = {name: anchors(text) for name, text in pages.items()}
    faults = set()
    for name, text in pages.items():
        for link in re.findall(r'\b(?:href|src|data)="([^"]+)"', text):
            if re.match(r'\w+:', link):
                continue
            file, _, place = unquote(link).partition('#')
            file = file or name
            if not (folder / file).exists() or place and place not in places.get(file, {place}):
                faults.add(f'{name}: {link}')
    print('\n'.join(sorted(faults)), end='\n' if faults else '')
    return bool(faults)


if __name__ == '__main__':
    sys.exit(main(Path(sys.argv[1])))
