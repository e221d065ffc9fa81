#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes a large assembly: brackets on a grid, one mesh for all, and its assembly file.

Each bracket is off its place by a little, so that some touch or clash with a neighbour, and one
in a hundred is rotated freely. The same arguments give the same bytes.

usage: make_large.py FOLDER [PARTS] [MOVED]

FOLDER gets large.json and bracket.obj. PARTS is 100000 unless given. The last MOVED brackets stand a
step aside, as in a later state of the same assembly; 0 unless given.
"""

import json
import random
import shutil
import sys
from pathlib import Path

PITCH = (46.4, 50.4, 85.4)  # a bracket is 46 x 50 x 85
LARGEST_SHIFT = 0.25


def placement(place, is_moved, numbers):
    shift = [numbers.uniform(-LARGEST_SHIFT, LARGEST_SHIFT) for _ in range(3)]
    axis = [numbers.uniform(-1.0, 1.0) for _ in range(3)]
    angle = numbers.uniform(-180.0, 180.0)
    translation = [round(p * i + s, 3) for p, i, s in zip(PITCH, place, shift)]
    if is_moved:
        translation[0] += 1.0
    if numbers.random() < 0.99:
        return {'translation': translation}
    return {'axis': axis, 'angle_degrees': angle, 'translation': translation}


def main(folder, count=100000, moved=0):
    numbers = random.Random(1)
    side = round(count ** (1.0 / 3.0) + 0.5)
    parts = ({'name': f'bracket {i}', 'mesh': 'bracket.obj',
              'placement': placement((i % side, i // side % side, i // side**2), i >= count - moved, numbers)}
             for i in range(count))
    folder.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(Path(__file__).with_name('bracket.obj'), folder / 'bracket.obj')
    assembly = {'name': f'{count} brackets', 'clash_tolerance': 0.02, 'parts': list(parts)}
    (folder / 'large.json').write_text(json.dumps(assembly))


if __name__ == '__main__':
    main(Path(sys.argv[1]), *(int(number) for number in sys.argv[2:]))
