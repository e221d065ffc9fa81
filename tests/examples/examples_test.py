#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares what the examples print with their README, and reads the gallery of curves.

usage: examples_test.py EXAMPLES_FOLDER PROGRAM_FOLDER [unittest arguments]
"""

import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree
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
        self.assertEqual(set(blocks) | {'curve_gallery'}, {f.stem for f in SOURCES.glob('*.cpp')})
        for name, expected in blocks.items():
            with self.subTest(name):
                self.assertEqual(output_of(name), expected)

    def test_gallery_shows_every_curve_at_every_tolerance(self):
        page = xml.etree.ElementTree.fromstring(output_of('curve_gallery'))
        texts = [e.text for e in page.iter('{http://www.w3.org/2000/svg}text')]
        captions = [t for t in texts if ' points, error ' in t]
        self.assertEqual(len(captions), 5 * 4)
        self.assertEqual(captions[2], '141 points, error 0.0126')  # circle, tolerance 0.05


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
