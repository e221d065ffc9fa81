#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the assembly checker as its users do: on the assembly that comes with it, and on bad input.

gear_drive.txt is the report on that assembly, and docs/assembly.svg its picture.

usage: assembly_test.py PROGRAM DATA_FOLDER [unittest arguments]

VEXMATH_TEST_RUNNER in the environment is Wine for a program for Windows.
"""

import filecmp
import json
import math
import os
import pty
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

PROGRAM, DATA = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
RUNNER = os.environ.get('VEXMATH_TEST_RUNNER', '').split()
HERE = Path(__file__).resolve().parent
TRIANGLE = 'v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n'
PLY = ('ply\nformat ascii 1.0\nelement vertex {}\nproperty float x\nproperty float y\n'
       'property float z\nelement face 0\nproperty list uchar int vertex_indices\nend_header\n{}')


class AssemblyCheckerTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        if not RUNNER:
            return
        # Keeps Wine running. Else each run starts processes of Wine, which hold its pipes for seconds.
        shell = subprocess.Popen([*RUNNER, 'cmd'], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                 stderr=subprocess.DEVNULL)
        shell.stdout.readline()  # it has started
        for action in (shell.stdout.close, shell.wait, shell.stdin.close):  # the last one first
            cls.addClassCleanup(action)

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.out = self.folder / 'out'
        (self.folder / 'a.obj').write_text(TRIANGLE)

    def run_on(self, assembly, out=None, options=()):
        """On an assembly file, given by name, as text or as what JSON makes of it."""
        if not isinstance(assembly, Path):
            text = assembly if isinstance(assembly, str) else json.dumps(assembly)
            assembly = self.folder / 'test.json'
            assembly.write_text(text)
        return self.run_with('--out', out or self.out, *options, assembly)

    def run_with(self, *arguments):
        run = subprocess.run([*RUNNER, PROGRAM, *arguments], capture_output=True, text=True,
                             check=False, cwd=self.folder)
        if RUNNER:  # paths as Windows writes them
            run.stdout = run.stdout.replace('\\', '/')
        return run

    def files(self):
        return {path: path.read_bytes() for path in self.folder.rglob('*')
                if path.is_file() and path.name != 'test.json'}

    @staticmethod
    def of_parts(*parts, tolerance=0.0):
        return {'name': 'test', 'clash_tolerance': tolerance, 'parts': list(parts)}

    @staticmethod
    def part(name='p', mesh='a.obj', **placement):
        return {'name': name, 'mesh': mesh, 'placement': placement}

    def check_refused(self, assembly, message, out=None, options=()):
        """One line on standard error that holds the message, status 2, no file written."""
        with self.subTest(message):
            before = self.files()
            run = self.run_on(assembly, out, options)
            self.assertEqual((run.returncode, run.stdout), (2, ''), run.stderr)
            self.assertRegex(run.stderr, r'\A[^\n]+\n\Z')
            self.assertIn(message, run.stderr)
            self.assertEqual(self.files(), before)

    @staticmethod
    def lines(stdout, heading):
        block = re.search(heading + r': \S+\n((?:  .*\n)*)', stdout).group(1)
        return [line.strip() for line in block.splitlines()]

    @staticmethod
    def elements(picture):
        """What is drawn, and where, but for the paths."""
        elements = list(xml.etree.ElementTree.parse(picture).iter())
        values = [value for e in elements for value in e.attrib.values()]
        return ([(e.tag, e.get('class'), e.get('color'), e.text) for e in elements],
                [float(value) for value in values if re.fullmatch(r'-?[\d.]+', value)])

    def test_gear_drive(self):
        run = self.run_with('--out', 'out', '--pick', '0.36', '0.62', '--section', '0', '0', '0', '0', '-1',
                            '0', DATA / 'assembly.json')
        self.assertEqual(run.stdout, (HERE / 'gear_drive.txt').read_text())
        self.assertEqual((run.returncode, run.stderr), (0, ''))
        self.assertEqual(sorted(os.listdir(self.out)), ['assembly.svg', 'assembly.vxa'])
        kinds, numbers = self.elements(self.out / 'assembly.svg')
        stored_kinds, stored_numbers = self.elements(HERE.parents[1] / 'docs' / 'assembly.svg')
        self.assertEqual(kinds, stored_kinds)
        self.assertEqual(len(numbers), len(stored_numbers))
        for number, stored in zip(numbers, stored_numbers):
            self.assertAlmostEqual(number, stored, delta=0.11)  # a rounding of the last digit
        self.run_on(DATA / 'assembly.json')  # without options
        kinds = [kind for _, kind, _, _ in self.elements(self.out / 'assembly.svg')[0]]
        self.assertEqual([kinds.count(kind) for kind in ('frame', 'overlap', 'sight', 'trace', 'hit')],
                         [3, 3 * 18 + 1, 0, 0, 0])

    def test_section_through_the_corners_of_a_cube(self):
        (self.folder / 'cube.ply').write_text(PLY.format(2, '0 0 0\n1 1 1\n'))
        cube = self.of_parts(self.part(mesh='cube.ply'))
        for section, expected in (('.5 .5 .5 1 1 1', ['p, its box in a polygon of 6 corners']),
                                  ('0 0 0 0 0 1', ['p, its box in a polygon of 4 corners']),
                                  ('0 0 1 0 0 1', [])):
            run = self.run_on(cube, options=['--section', *section.split()])
            self.assertEqual(self.lines(run.stdout, 'cut by the section'), expected)

    def test_hatching_leaves_holes_white(self):
        # The walls of a square tube, open at both ends, with sides of 4 outside and 2 inside.
        corners = [(s * x, s * y, z) for s in (2, 1) for z in (-1, 1)
                   for x, y in ((-1, -1), (1, -1), (1, 1), (-1, 1))]
        walls = [(8 * s + i, 8 * s + (i + 1) % 4, 8 * s + 4 + (i + 1) % 4, 8 * s + 4 + i)
                 for s in (0, 1) for i in range(4)]
        (self.folder / 'tube.obj').write_text(''.join('v {} {} {}\n'.format(*c) for c in corners) + ''.join(
            'f {} {} {} {}\n'.format(*(i + 1 for i in wall)) for wall in walls))
        self.run_on(self.of_parts(self.part(mesh='tube.obj', scale=25)), options=['--section', *'000001'])

        def numbers(kind):
            path = next(e for e in xml.etree.ElementTree.parse(self.out / 'assembly.svg').iter()
                        if e.get('class') == kind).get('d')
            self.assertEqual(path.count('Z'), 2 if kind == 'material' else 0)  # outlines
            return [float(n) for n in re.findall(r'-?[\d.]+', path)]
        x, hatch = numbers('material')[::2], numbers('hatching')
        lengths = [math.dist(hatch[i:i + 2], hatch[i + 2:i + 4]) for i in range(0, len(hatch), 4)]
        self.assertAlmostEqual(sum(lengths) * 7 / (max(x) - min(x))**2, 0.75, delta=0.01)

    def test_stock(self):
        for points, stock in (('0 0 5\n3 3 0\n2 4 0\n-1 1 0\n', '42.4264 x 14.1421 x 50     45'),
                              ('3 -3 0\n1 -1 0\n0 0 0\n2 -2 1\n', '42.4264 x 0 x 10    135'),
                              ('1 2 3\n', '0 x 0 x 0      0')):
            (self.folder / 'stock.ply').write_text(PLY.format(points.count('\n'), points))
            run = self.run_on(self.of_parts(self.part(mesh='stock.ply', scale=10, axis=[1, 2, 3], angle_degrees=7)))
            self.assertRegex(run.stdout, '(yes|no) +' + stock + '\n')

    def test_exchange(self):
        file = self.folder / 'export.json'
        good = self.of_parts(self.part('p', translation=[1, 2, 0.1]), self.part('q', mirror='x', scale=2))
        run = self.run_on(good, options=['--export', file])
        self.assertEqual((run.returncode, run.stderr), (0, ''))
        self.assertIn(f'written: {file}\n', run.stdout)
        first, second, view = json.loads(file.read_text())['transforms']
        self.assertEqual(first['text'], '1 0 0 0 0 1 0 0 0 0 1 0 1 2 0.1 1')
        self.assertEqual(second['gl'], [-2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1])
        first['gl'][13] += 0.5
        file.write_text(json.dumps({'transforms': [first, second, view]}))
        run = self.run_on(good, options=['--import', file])
        losses = self.lines(run.stdout, 'not kept by the forms in .*')
        self.assertEqual(losses[:3], ['p, GL array: translation by 0.5', 'q, text form: scale 2, mirror flag',
                                      'q, GL array: scale 2, mirror flag'])
        self.assertRegex(losses[3], r'^perspective view, text form: scale .*, perspective, rotation by')

        def check(message, changed):
            file.write_text(json.dumps({'transforms': changed}))
            self.check_refused(good, 'export.json: transforms' + message, options=['--import', file])
        check('[0].text: ', [dict(first, text='nan' + first['text'][1:]), second, view])
        check('[1].gl', [first, dict(second, gl=16 * [0]), view])
        check('[1].name: must be "q", as', [first, first, view])
        check(': must have 3 entries', [first])
        self.check_refused(good, 'a.obj: would be over', options=['--export', self.folder / 'a.obj'])
        self.check_refused(good, 'another output', options=['--export', self.out / 'x/../assembly.svg'])

    def test_since_an_earlier_document(self):
        earlier = Path(__file__).parent / 'layout_1.vxa'  # of these three parts
        parts = [self.part('né', mirror='y', translation=[7, 0, 0]), self.part('turned', scale=2,
                 axis=[0, 0, 1], angle_degrees=90), self.part('p')]
        run = self.run_on(self.of_parts(*parts, tolerance=0.5), options=['--since', earlier])
        self.assertIn(f'changed since {earlier}: none\n', run.stdout, run.stderr)
        layout_2 = Path(__file__).parent / 'layout_2.vxa'
        self.assertEqual((self.out / 'assembly.vxa').read_bytes(), layout_2.read_bytes())
        run = self.run_on(self.of_parts(*parts, tolerance=0.5), options=['--since', layout_2])
        self.assertIn(f'changed since {layout_2}: none\n', run.stdout, run.stderr)
        (self.folder / 'b.obj').write_text(TRIANGLE.replace('1 0 0', '2 0 0'))
        parts = [dict(parts[0], mesh='b.obj'), self.part('turned', scale=2), self.part('o')]
        run = self.run_on(self.of_parts(*parts), options=['--since', earlier])
        self.assertEqual(self.lines(run.stdout, 'changed since .*'), [
            'the clash tolerance is 0 and was 0.5', 'né has another shape', 'turned is placed differently', 'o is new', 'p is gone'])
        self.assertEqual(self.lines(run.stdout, 'gone touching pairs'), ['turned - p'])
        self.assertEqual(self.lines(run.stdout, 'new clashing pairs'), ['turned - o'])
        self.assertNotIn('total bounds', run.stdout)
        whole, other = earlier.read_bytes(), self.folder / 'other.vxa'
        damaged = bytearray(layout_2.read_bytes())
        damaged[-32] = 3  # the second part of the only pair
        for content, message in (
                (whole[:-1], 'is cut short'), (whole + b'0', 'goes on after'),
                (b'x' + whole, 'is no assembly document'),
                (bytes(damaged), 'is damaged: it names a part that is not there'),
                (b'VXAS\3' + whole[5:], 'has layout 3, this program reads up to 2')):
            other.write_bytes(content)
            self.check_refused(self.of_parts(self.part()), message, options=['--since', other])

    def test_many_parts(self):
        def make(folder, moved):
            subprocess.run([sys.executable, DATA / 'make_large.py', folder, '1000', moved], check=True)
            return folder / 'large.json'
        first, second = make(self.folder / 'first', '0'), make(self.folder / 'second', '50')
        before = self.run_with('--out', 'first', '--section', *'300 300 300 1 2 4'.split(), first)
        self.assertIn('The 500 largest of 1000 parts', (first.parent / 'assembly.svg').read_text())

        # What moving gives is what a fresh start gives.
        after = self.run_with('--out', 'fresh', second)
        moved = self.run_with('--out', 'second', '--since', first.parent / 'assembly.vxa', second)
        for name in ('assembly.svg', 'assembly.vxa'):
            self.assertTrue(filecmp.cmp(self.folder / 'fresh' / name, second.parent / name, shallow=False))
        self.assertEqual(len(self.lines(moved.stdout, 'changed since .*')), 50)
        for kind in ('clashing', 'touching'):
            was, now = (set(self.lines(run.stdout, f'\n{kind} pairs')) for run in (before, after))
            self.assertGreater(len(was), 20)
            self.assertEqual(set(self.lines(moved.stdout, f'new {kind} pairs')), now - was)
            self.assertEqual(set(self.lines(moved.stdout, f'gone {kind} pairs')), was - now)

    def test_parts_are_placed_before_they_are_compared(self):
        run = self.run_on(self.of_parts(self.part('p'), self.part('q', scale=9),
                                        self.part('r', scale=9, translation=[8.5, 0, 0])))
        self.assertEqual(set(self.lines(run.stdout, 'clashing pairs')), {'p - q', 'q - r'})
        # Mirrored, scaled, rotated and translated, in this order.
        (self.folder / 'a.obj').write_text(3 * 'v 1 0 0\n' + 'f 1 2 3\n')
        run = self.run_on(self.of_parts(self.part(
            mirror='x', scale=2, axis=[0, 0, 3], angle_degrees=90, translation=[10, 0, 0])))
        self.assertIn('(10, -2, 0)', run.stdout)

    def test_meshes_are_the_generator_s(self):
        subprocess.run([sys.executable, DATA / 'make_parts.py', self.folder], check=True)
        for mesh in [m for m in DATA.iterdir() if m.suffix in ('.obj', '.stl', '.ply')]:
            self.assertTrue(filecmp.cmp(mesh, self.folder / mesh.name, shallow=False), mesh)

    def test_bad_assembly_files(self):
        p = self.part()
        for assembly, message in (
                (self.folder / 'none.json', 'none.json: cannot be opened: No such file'),
                ('{"name": "x",\n  "parts": nonsense}', 'line 2, column 13: syntax error'),
                ('{"name": "x", "name": "y"}', 'key "name" occurs twice'),
                ({'name': 'x'}, 'key "clash_tolerance" is missing'),
                (self.of_parts(tolerance='0'), 'clash_tolerance: must be a number'),
                (self.of_parts(tolerance=-1), 'clash_tolerance: must not be negative'),
                (self.of_parts(), 'parts: must be a list with at least one entry'),
                (self.of_parts(p, dict(p, colour='red')), 'parts[1]: unknown key "colour"'),
                (self.of_parts(self.part(name='')), 'parts[0].name: must not be empty'),
                (self.of_parts(self.part(name='p\x9b2J')), 'parts[0].name: must be one line of plain'),
                (self.of_parts(p, p), 'parts[1].name: "p" is the name of parts[0] already'),
                (self.of_parts(self.part(mesh='b.obj')), 'parts[0].mesh: there is no file'),
                (self.of_parts(self.part(mesh=300 * 'b' + '.obj')),
                 'there is no file' if RUNNER else 'read: File name too long'),
                ('{"\\n\\u001b[2J\\u009b": 1}', r'unknown key "\x0a\x1b[2J\x9b"')):
            self.check_refused(assembly, message)

    def test_bad_placements(self):
        for placement, message in (
                ({'shift': 1}, ': unknown key "shift"'),
                ({'mirror': 'w'}, '.mirror: must be "x", "y" or "z", not "w"'),
                ({'scale': 0}, '.scale: is out of range'),
                ({'axis': [1, 0, 0]}, ': key "angle_degrees" is missing'),
                ({'axis': [1e-9, 0, 0], 'angle_degrees': 1}, '.axis: has no direction'),
                ({'axis': [1, 0], 'angle_degrees': 1}, '.axis: must be a list of three numbers'),
                ({'axis': [1, None, 0], 'angle_degrees': 1}, '.axis[1]: must be a number')):
            self.check_refused(self.of_parts(self.part(**placement)), 'parts[0].placement' + message)
        far = self.of_parts(self.part('q'), self.part(translation=[0, 0, 2e8]))
        self.check_refused(far, 'test.json: parts[1]: "p" reaches farther than 1e8')

    def test_bad_meshes(self):
        facets = 'facet normal 0 0 1\nouter loop\n' + 3 * 'vertex 0 0 1\n' + 'endloop\nendfacet\n'
        binary = PLY.format(2, '').replace('ascii', 'binary_big_endian').replace('ce 0', 'ce 1').encode()
        body = struct.pack('>6fB3i', 0, 0, 0, 1, 0, 0, 3, 0, 1, 1)
        for name, content, message in (
                ('nan.obj', 'v 0 nan 0\n' + TRIANGLE, ': line 1: every coordinate must be finite, not nan'),
                ('inf.ply', PLY.format(1, '0 0 inf\n'), ': vertex 1 (0, 0, inf): every coordinate'),
                ('short.ply', PLY.format(3, '0 0 0\n'), ': is cut short: 2 of the elements'),
                ('wrong.obj', TRIANGLE.replace('f 1 2 3', 'f 1 2 9'), ': '),
                ('short.stl', 'solid s\n' + 9 * facets, ': is cut short: its last line'),
                ('binary.stl', b'solid'.ljust(80, b'\0') + struct.pack('<I', 9) + bytes(9 * 50 - 1),
                 ': is cut short: 1 of the triangles'),
                ('binary.ply', binary + body[:-1], ': is cut short: 1 of the'),
                ('binary.ply', binary + body[:-14], ': is cut short: 2 of the'),
                ('type.ply', PLY.format(1, '').replace('float z', 'real z'), ': no mesh: unknown type'),
                ('empty.obj', '', ': no mesh: the file is empty'),
                ('a.step', TRIANGLE, ': is no known kind of mesh')):
            (self.folder / name).write_bytes(content if isinstance(content, bytes) else content.encode())
            self.check_refused(self.of_parts(self.part(mesh=name)), name + message)

    def test_unwritable_output(self):
        good = self.of_parts(self.part())
        self.check_refused(good, 'a.obj/out', out=self.folder / 'a.obj' / 'out')
        (self.out / 'assembly.svg').mkdir(parents=True)
        (self.out / 'assembly.vxa').write_text('earlier')
        self.check_refused(good, 'assembly.svg: cannot be written')

    def test_command_line(self):
        for arguments, message in (
                ('--frob x', '--frob'), ('--out', '--out'), ('', 'ASSEMBLY is required'), ('a b', ' b '),
                ('--pick 0 1.01 a', '--pick: needs two numbers from 0 to 1'),
                ('--pick nan 0 a', '--pick: needs two numbers from 0 to 1'),
                ('--pick 0 x a', '--pick'), ('--section 0 0 0 0 0 inf a', '--section: needs six finite'),
                ('--section 0 0 0 0 0 0 a', '--section: the normal has no direction')):
            with self.subTest(arguments):
                run = self.run_with(*arguments.split())
                self.assertEqual((run.returncode, run.stdout), (2, ''))
                self.assertRegex(run.stderr, r'\Avexmath_assembly: [^\n]+ \(see --help\)\n\Z')
                self.assertIn(message, run.stderr)
        self.assertIn('Usage: vexmath_assembly [OPTIONS] ASSEMBLY', self.run_with('--help').stdout)
        self.assertRegex(self.run_with('--version').stdout, r'\Avexmath_assembly \d+\.\d+\.\d+\n\Z')

    @unittest.skipIf(RUNNER, 'Wine draws a terminal by its own escape sequences')
    def test_progress_shows_on_a_terminal_and_is_erased(self):
        (self.folder / 'test.json').write_text(json.dumps(self.of_parts(self.part('p'), self.part('q'))))
        terminal, stderr = pty.openpty()
        subprocess.run([PROGRAM, 'test.json'], check=True, stdout=subprocess.DEVNULL, stderr=stderr,
                       cwd=self.folder)
        shown = os.read(terminal, 4096).decode()
        self.assertIn('reading meshes 0 % a.obj', shown)
        self.assertTrue(shown.endswith('\r\x1b[K'), repr(shown))


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
