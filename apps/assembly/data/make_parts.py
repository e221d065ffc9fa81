#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the meshes of the gear drive, beside this script or into the folder given.

Python's standard library is all it needs, and it writes the same bytes every time. Lengths are in
millimetres, except the bolt, which is drawn in inches as it would come from a catalogue.
"""

import math
import sys
from pathlib import Path

PRESSURE_ANGLE = math.radians(20.0)
MODULE = 2.5  # pitch diameter per tooth, the same for gears that mesh


# Outlines in the plane, counter-clockwise.

def circle(x, y, radius, count):
    turn = 2.0 * math.pi / count
    return [(x + radius * math.cos(i * turn), y + radius * math.sin(i * turn)) for i in range(count)]


def rectangle(x0, y0, x1, y1):
    return [(x0, y0), (x1, y0), (x1, y1), (x0, y1)]


def arc(x, y, radius, start_deg, end_deg, count):
    angles = (math.radians(start_deg + (end_deg - start_deg) * i / count) for i in range(count + 1))
    return [(x + radius * math.cos(a), y + radius * math.sin(a)) for a in angles]


def gear_outline(teeth):
    """Involute teeth of standard height; tooth 0 is centred on the x axis."""
    def involute(angle):
        return math.tan(angle) - angle

    pitch = MODULE * teeth / 2.0
    base, tip, root = pitch * math.cos(PRESSURE_ANGLE), pitch + MODULE, pitch - 1.25 * MODULE
    flank = [max(base, root) + (tip - max(base, root)) * i / 5.0 for i in range(6)]

    def half_angle(radius):  # from the middle of the tooth to its flank
        pressure = math.acos(min(1.0, base / radius))
        return math.pi / (2.0 * teeth) + involute(PRESSURE_ANGLE) - involute(pressure)

    rising = [(root, -half_angle(flank[0]))] * (root < base) + [(r, -half_angle(r)) for r in flank]
    falling = [(radius, -angle) for radius, angle in reversed(rising)]
    points = []
    for tooth in range(teeth):
        middle = 2.0 * math.pi * tooth / teeth
        points += [(r * math.cos(middle + a), r * math.sin(middle + a)) for r, a in rising + falling]
    return points


# From outlines to solids: a solid is (vertices, triangles), its triangles facing outwards.

def cross(a, b, c):
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0])


def sees(outline, i, p):
    """Does the segment from corner i to p begin inside the outline and cross none of its sides?"""
    before, v, after = outline[i - 1], outline[i], outline[(i + 1) % len(outline)]
    if cross(v, after, before) >= 0.0:
        inside = cross(v, p, before) > 0.0 and cross(p, v, after) > 0.0
    else:
        inside = not (cross(v, p, after) >= 0.0 and cross(p, v, before) >= 0.0)
    return inside and not any(
        cross(v, p, q) * cross(v, p, r) <= 0.0 and cross(q, r, v) * cross(q, r, p) <= 0.0
        for q, r in zip(outline, outline[1:] + outline[:1]) if v[:2] not in (q[:2], r[:2]))


def bridge(outline, hole):
    """One outline that runs to the hole, round it and back. Both hold (x, y, index)."""
    far = max(range(len(hole)), key=lambda i: hole[i][0])
    start = hole[far]
    right = [i for i, p in enumerate(outline) if p[0] > start[0] and sees(outline, i, start)]
    near = min(right, key=lambda i: (outline[i][0] - start[0]) ** 2 + (outline[i][1] - start[1]) ** 2)
    around = hole[far:] + hole[:far + 1]
    return outline[:near + 1] + around + outline[near:]


def triangulate(outline, holes):
    """Ear clipping; indices count the outline's points first, then each hole's."""
    numbered, first = [], 0
    for loop in [outline] + holes:
        numbered.append([(x, y, first + i) for i, (x, y) in enumerate(loop)])
        first += len(loop)
    polygon = numbered[0]
    for hole in sorted(numbered[1:], key=lambda h: -max(p[0] for p in h)):
        polygon = bridge(polygon, hole[::-1])

    triangles = []
    while len(polygon) > 3:
        for i in range(len(polygon)):
            a, b, c = polygon[i - 1], polygon[i], polygon[(i + 1) % len(polygon)]
            corners = {a[:2], b[:2], c[:2]}
            if cross(a, b, c) > 1e-9 and not any(
                    cross(a, b, p) >= -1e-9 and cross(b, c, p) >= -1e-9 and cross(c, a, p) >= -1e-9
                    for p in polygon if p[:2] not in corners):
                triangles.append((a[2], b[2], c[2]))
                del polygon[i]
                break
        else:
            raise ValueError('outline cannot be cut into triangles')
    return triangles + [tuple(p[2] for p in polygon)]


def extrude(outline, holes, low, high):
    """The prism over an outline with holes, between z = low and z = high."""
    flat = [p for loop in [outline] + holes for p in loop]
    count = len(flat)
    caps = triangulate(outline, holes)
    triangles = [(a + count, b + count, c + count) for a, b, c in caps]
    triangles += [(c, b, a) for a, b, c in caps]
    first = 0
    for loop in [outline] + [hole[::-1] for hole in holes]:
        order = list(range(first, first + len(loop)))
        if first:
            order.reverse()  # seen from inside the material a hole runs clockwise
        for a, b in zip(order, order[1:] + order[:1]):
            triangles += [(a, b, b + count), (a, b + count, a + count)]
        first += len(loop)
    return [(x, y, z) for z in (low, high) for x, y in flat], triangles


def turn(profile, count):
    """The solid of revolution about z; the profile holds (radius, z) and ends on the axis."""
    middle = profile[1:-1]
    vertices = [(x, y, z) for r, z in middle for x, y in circle(0.0, 0.0, r, count)]
    triangles = []
    for ring in range(len(middle) - 1):
        for i in range(count):
            a, b = ring * count + i, ring * count + (i + 1) % count
            triangles += [(a, b, b + count), (a, b + count, a + count)]
    bottom, top, last = len(vertices), len(vertices) + 1, (len(middle) - 1) * count
    vertices += [(0.0, 0.0, profile[0][1]), (0.0, 0.0, profile[-1][1])]
    for i in range(count):
        j = (i + 1) % count
        triangles += [(bottom, j, i), (top, last + i, last + j)]
    return vertices, triangles


def standing(solid):
    """Turned so that what was extruded along z lies along x: (x, y, z) becomes (z, x, y)."""
    vertices, triangles = solid
    return [(z, x, y) for x, y, z in vertices], triangles


def join(*solids):
    vertices, triangles = [], []
    for more_vertices, more_triangles in solids:
        shift = len(vertices)
        vertices += more_vertices
        triangles += [(a + shift, b + shift, c + shift) for a, b, c in more_triangles]
    return vertices, triangles


# The parts.

BOLTS = (-17.0, 0.0, 17.0)  # where they are along a bracket


def base_plate():
    holes = [circle(x, y, 4.0, 24) for x in (-59.0, 59.0) for y in BOLTS]
    outline = [p for x, y, start in ((74, 42, 0), (-74, 42, 90), (-74, -42, 180), (74, -42, 270))
               for p in arc(x, y, 8.0, start, start + 90, 6)]
    return extrude(outline, holes, -10.0, 0.0)


def bracket():
    """An upright with a bore for the shaft, welded to a foot that bolts hold down."""
    upright = [(-25.0, 0.0), (25.0, 0.0)] + arc(0.0, 60.0, 25.0, 0.0, 180.0, 24)
    foot = rectangle(-38.0, -25.0, 0.0, 25.0)
    return join(standing(extrude(upright, [circle(0.0, 45.0, 8.0, 36)], 0.0, 8.0)),
                extrude(foot, [circle(-19.0, y, 4.2, 24) for y in BOLTS], 0.0, 8.0))


def shaft():
    half = [(0.0, 58.0), (7.0, 58.0), (8.0, 57.0), (8.0, 26.0), (11.0, 26.0)]
    return turn([(r, -z) for r, z in half] + half[::-1], 36)


def bolt():
    """A 5/16 inch hex bolt in inches, 1 inch long; z = 0 is the underside of its head."""
    head = circle(0.0, 0.0, 0.25 / math.cos(math.pi / 6.0), 6)
    shank = [(0.0, -1.0), (0.1275, -1.0), (0.15625, -0.97), (0.15625, 0.0), (0.0, 0.0)]
    return join(extrude(head, [], 0.0, 0.203), turn(shank, 24))


def key():
    outline = arc(5.0, 0.0, 2.5, -90.0, 90.0, 10) + arc(-5.0, 0.0, 2.5, 90.0, 270.0, 10)
    return extrude(outline, [], 0.0, 5.0)


def lid():
    return extrude(rectangle(-55.0, -25.0, 55.0, 25.0),
                   [circle(x, 0.0, 2.5, 24) for x in (-36.0, 36.0)], 0.0, 4.0)


def lever():
    """A rod with a ball grip, its middle at the origin."""
    ball = [(6.0 * math.cos(math.radians(a)), 27.0 + 6.0 * math.sin(math.radians(a)))
            for a in range(-60, 90, 15)]
    return turn([(0.0, -33.0), (3.0, -33.0), (3.0, 27.0 - math.sqrt(27.0))] + ball[1:]
                + [(0.0, 33.0)], 20)


def gear(teeth, bore, width):
    return extrude(gear_outline(teeth), [circle(0.0, 0.0, bore, 48)], -width / 2.0, width / 2.0)


# Files.

def number(value):
    return f'{round(value, 5) + 0.0:.5f}'.rstrip('0').rstrip('.')  # adding 0.0 makes -0 plain 0


def triple(values):
    return ' '.join(number(v) for v in values)


def obj(name, vertices, triangles):
    yield f'# {name}'
    yield from (f'v {triple(v)}' for v in vertices)
    yield from ('f ' + ' '.join(str(i + 1) for i in t) for t in triangles)


def ply(name, vertices, triangles):
    yield from ('ply', 'format ascii 1.0', f'comment {name}', f'element vertex {len(vertices)}')
    yield from (f'property float {axis}' for axis in 'xyz')
    yield from (f'element face {len(triangles)}', 'property list uchar int vertex_indices')
    yield 'end_header'
    yield from (triple(v) for v in vertices)
    yield from ('3 ' + ' '.join(str(i) for i in t) for t in triangles)


def stl(name, vertices, triangles):
    yield f'solid {name}'
    for a, b, c in ([vertices[i] for i in t] for t in triangles):
        u, v = [[q - p for p, q in zip(a, end)] for end in (b, c)]
        normal = (u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0])
        length = math.hypot(*normal)
        yield f'facet normal {triple(n / length for n in normal)}'
        yield 'outer loop'
        yield from (f'vertex {triple(corner)}' for corner in (a, b, c))
        yield from ('endloop', 'endfacet')
    yield f'endsolid {name}'


PARTS = {
    'base_plate.ply': (ply, base_plate()),
    'bracket.obj': (obj, bracket()),
    'shaft.ply': (ply, shaft()),
    'gear.obj': (obj, gear(24, 11.0, 16.0)),
    'pinion.obj': (obj, gear(14, 6.0, 16.0)),
    'key.stl': (stl, key()),
    'bolt.ply': (ply, bolt()),
    'lid.stl': (stl, lid()),
    'lever.ply': (ply, lever()),
}


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent
    for filename, (form, solid) in PARTS.items():
        text = '\n'.join(form(Path(filename).stem, *solid)) + '\n'
        (folder / filename).write_bytes(text.encode('ascii'))


if __name__ == '__main__':
    main()
