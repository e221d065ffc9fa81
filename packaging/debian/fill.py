#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the debian folder of a source tree: versions, licence and the list of symbols are filled in.

usage: fill.py SOURCE_TREE DATE

DATE is that of the changelog, as `date --rfc-email` prints it.
"""

import lzma
import re
import shutil
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent


def versions(tree):
    text = (tree / 'CMakeLists.txt').read_text()
    version = re.search(r'^  VERSION ([\d.]+)$', text, re.M)[1]
    soversion = re.search(r'^set\(VEXMATH_SOVERSION ([\d.]+)\)$', text, re.M)[1]
    return version, soversion


def released_symbols(tree, soversion):
    """The names that each released version with this soname exports, oldest version first."""
    folders = (tree / 'tests/abi/released').iterdir()
    for folder in sorted(folders, key=lambda f: [int(part) for part in f.name.split('.')]):
        layouts = lzma.open(folder / 'layouts.abi.xz', 'rt').read()
        if f"soname='libvexmath.so.{soversion}'" in layouts:
            mangled = re.findall(r"<elf-symbol name='(\w+)'", layouts)
            names = subprocess.run(['c++filt'], input='\n'.join(mangled), text=True, check=True,
                                   stdout=subprocess.PIPE).stdout.splitlines()
            yield folder.name, set(names)


def symbols(tree, version, soversion):
    """A line for each exported name, with the first version that has it: a program that calls it
    needs that one. Names of templates may be missing from an optimised build."""
    released = list(released_symbols(tree, soversion))
    lines = [f'libvexmath.so.{soversion} libvexmath{soversion} #MINVER#']
    for name in (tree / 'tests/abi/exported_symbols.txt').read_text().splitlines():
        first = next((v for v, names in released if name in names), version)
        if re.fullmatch(r'\w+', name):
            lines.append(f' {name}@Base {first}')
            continue
        tags = 'c++|optional=templinst' if 'suDynamicArray<' in name.split('(')[0] else 'c++'
        lines.append(f' ({tags})"{name}@Base" {first}')
    return '\n'.join(lines) + '\n'


def copyright_of(tree):
    text = (tree / 'LICENSE').read_text().strip()
    holder = re.search(r'^Copyright \(c\) (.*)$', text, re.M)[1]
    terms = text[text.index('Permission'):]
    indented = '\n'.join(f' {line}' if line else ' .' for line in terms.splitlines())
    page = (HERE / 'copyright').read_text()
    return page.replace('@COPYRIGHT@', holder).replace('@LICENSE@', indented)


def main(tree, date):
    version, soversion = versions(tree)
    debian, package = tree / 'debian', f'libvexmath{soversion}'
    shutil.copytree(HERE, debian, ignore=shutil.ignore_patterns('fill.py'))
    (debian / 'control').write_text((HERE / 'control').read_text().replace('@SOVERSION@', soversion))
    (debian / 'copyright').write_text(copyright_of(tree))
    for suffix in ('install', 'lintian-overrides'):
        (debian / f'libvexmath.{suffix}').rename(debian / f'{package}.{suffix}')
    shutil.copy(debian / f'{package}.lintian-overrides', debian / 'libvexmath-dev.lintian-overrides')
    (debian / f'{package}.symbols').write_text(symbols(tree, version, soversion))
    (debian / 'changelog').write_text(
        f'vexmath ({version}-1) unstable; urgency=medium\n\n  * Release {version}.\n\n'
        f' -- The vexmath developers <vexmath@example.org>  {date}\n')


if __name__ == '__main__':
    main(Path(sys.argv[1]).resolve(), sys.argv[2])
