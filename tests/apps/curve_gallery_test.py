#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reads the picture of the gallery of curves.

usage: curve_gallery_test.py PROGRAM [unittest arguments]

VEXMATH_TEST_RUNNER in the environment is Wine for a program for Windows.
"""

import os
import subprocess
import sys
import unittest
import xml.etree.ElementTree


class CurveGalleryTest(unittest.TestCase):
    def test_it_shows_every_curve_at_every_tolerance(self):
        runner = os.environ.get('VEXMATH_TEST_RUNNER', '').split()
        output = subprocess.run([*runner, sys.argv[1]], stdout=subprocess.PIPE, check=True).stdout
        page = xml.etree.ElementTree.fromstring(output)
        texts = [e.text for e in page.iter('{http://www.w3.org/2000/svg}text')]
        captions = [t for t in texts if ' points, error ' in t]
        self.assertEqual(len(captions), 5 * 4)
        self.assertEqual(captions[2], '141 points, error 0.0126')  # circle, tolerance 0.05


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
