#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares what the examples print with their README and its picture.

usage: examples_test.py EXAMPLES_FOLDER PROGRAM_FOLDER [unittest arguments]
"""

import re
import subprocess
import sys
import unittest
from pathlib import Path

SOURCES, PROGRAMS = Path(sys.argv[1]), Path(sys.argv[2])


def output_of(name):
    return subprocess.run([PROGRAMS / f'vexmath_example_{name}'], stdout=subprocess.PIPE, text=True,
                          check=True).stdout


class ExamplesTest(unittest.TestCase):
    maxDiff = None

    def test_each_prints_its_block_of_the_readme(self):
        readme = (SOURCES / 'README.md').read_text()
        blocks = dict(re.findall(r'^## (\w+)\n[^#]*?```text\n(.*?)```$', readme, re.M | re.S))
        self.assertEqual(set(blocks) | {'drawing'}, {f.stem for f in SOURCES.glob('*.cpp')})
        for name, expected in blocks.items():
            with self.subTest(name):
                self.assertEqual(output_of(name), expected)

    def test_drawing_is_the_picture_of_the_readme(self):
        self.assertEqual(output_of('drawing'), (SOURCES / 'drawing.svg').read_text())


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
