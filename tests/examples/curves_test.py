#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the gallery of curves as its users do.

usage: curves_test.py PROGRAM [unittest arguments]
"""

import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

PROGRAM = Path(sys.argv[1]).resolve()


class CurvesTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def run_with(self, *arguments):
        return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, check=False,
                              cwd=self.folder)

    def table(self, stdout):
        """{(curve, tolerance): (points, error)}"""
        rows = re.findall(r'^(\S.*?) +(\S+) +(\d+) +(\S+)$', stdout, re.MULTILINE)
        return {(name, float(tolerance)): (int(points), float(error))
                for name, tolerance, points, error in rows}

    def test_every_curve_at_every_tolerance(self):
        run = self.run_with('--out', 'out')
        self.assertEqual((run.returncode, run.stderr), (0, ''))
        table = self.table(run.stdout)
        self.assertEqual(len(table), 8 * 4)
        self.assertEqual(table['Circle', 0.05], (141, 0.0126))
        for (name, tolerance), (points, error) in table.items():
            # Chords are off by a quarter of the tolerance, unless the curve does not follow it.
            self.assertLess(error, max(0.3 * tolerance, 0.02), name)
            self.assertGreater(points, 8, name)
        page = xml.etree.ElementTree.parse(self.folder / 'out' / 'curves.svg')
        kinds = [e.get('class') for e in page.iter()]
        for kind, count in (('lens', 32), ('curve', 2 * 4), ('ideal', 1), ('alarm', 3)):
            self.assertEqual(kinds.count(kind), count, kind)

    def test_tolerances_of_ones_own(self):
        table = self.table(self.run_with('0.1', '30').stdout)
        self.assertEqual(list(table)[:2], [('Circle', 30.0), ('Circle', 0.1)])
        self.assertEqual(table['Ellipse', 30.0], (0, 0.0))
        self.assertTrue((self.folder / 'curves.svg').exists())

    def test_refusals(self):
        for arguments, message in (('0', 'is no tolerance'), ('nan', 'no tolerance'),
                                   ('1mm', 'no tolerance'), ('--x', 'unknown option --x'),
                                   ('--out', 'needs a folder'), ('1 1 1 1 1 1 1', 'more than six'),
                                   ('--out /dev/null/x', '/dev/null/x')):
            with self.subTest(message):
                run = self.run_with(*arguments.split())
                self.assertEqual((run.returncode, run.stdout), (2, ''))
                self.assertRegex(run.stderr, r'\A[^\n]+\n\Z')
                self.assertIn(message, run.stderr)
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_help_and_version(self):
        self.assertIn('usage: vexmath_curves', self.run_with('--help', '--x').stdout)
        self.assertRegex(self.run_with('--version').stdout, r'^vexmath_curves \d+\.\d+')


if __name__ == '__main__':
    unittest.main(argv=sys.argv[1:])
