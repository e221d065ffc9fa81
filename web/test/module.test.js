// SPDX-License-Identifier: MIT
// The module under node: the library's values, and the checker beside the command line's.

import assert from 'node:assert/strict';
import { before, describe, test } from 'node:test';

import createVexmath from 'vexmath';
import { readMesh } from '../page/meshes.js';
import { commandLine, ply, plyHeader, sample, sampleMeshes } from './common.js';

let v;
before(async () => { v = await createVexmath(); });

const near = (actual, expected) => actual.forEach((x, i) => assert.ok(Math.abs(x - expected[i]) < 1e-12, `${actual}`));

test('values agree with the library', () => {
  const box = v.BBox.of([-4, -4, 0], [4, 4, 30]);
  const placement = v.Xform.rotation(Math.PI / 2, [0, 1, 0], 1e-9).times(v.Xform.translation([100, 0, 0]));
  const placed = box.placed(placement);
  assert.deepEqual([placed.low(), placed.high()], [[100, -4, -4], [130, 4, 4]]);
  assert.deepEqual(placement.point([1, 2, 3]), [103, 2, -1]);
  assert.deepEqual(placement.inverse().point([103, 2, -1]), [1, 2, 3]);
  assert.deepEqual(placement.line({ root: [0, 0, 0], direction: [0, 0, 9] }), { root: [100, 0, 0], direction: [1, 0, 0] });
  const plate = v.BBox.of([120, -50, -50], [125, 50, 50]);
  assert.ok(placed.clashes(plate, 0));
  assert.ok(plate.clashesPlane({ root: [122, 0, 0], direction: [1, 0, 0] }, 0));
  assert.deepEqual(plate.firstHit({ root: [0, 1, 2], direction: [1, 0, 0] }), [120, 1, 2]);
  assert.equal(plate.firstHit({ root: [0, 99, 2], direction: [1, 0, 0] }), null);
  assert.ok(!new v.BBox().isSet());
  assert.deepEqual(v.cross([1, 0, 0], [0, 1, 0]), [0, 0, 1]);
  assert.deepEqual(v.footOnPlane({ root: [0, 0, 5], direction: [0, 0, 2] }, [1, 2, 9]), [1, 2, 5]);
  assert.ok(v.Xform.mirror({ root: [0, 0, 0], direction: [1, 0, 0] }).isReflection());
});

test('records keep every bit, and a short one is an Error', () => {
  const box = v.BBox.of([0.1, 0.2, 0.3], [0.4, 0.5, 0.6]);
  assert.equal(box.record().length, 80);
  assert.deepEqual(v.BBox.fromRecord(box.record()).high(), box.high());
  const x = v.Xform.rotation(0.3, [1, 2, 3], 0).times(v.Xform.scale(25.4));
  assert.deepEqual(v.Xform.fromRecord(x.record()).glData(), x.glData());
  assert.throws(() => v.BBox.fromRecord(new Uint8Array(79)), Error);
  assert.throws(() => v.Xform.fromGlData([1]), /sixteen/);
});

test('arrays of points are not copied', () => {
  const points = new v.Points(2);
  points.view().set([1, 2, 3, -4, 5, 6]);
  points.transform(v.Xform.translation([10, 0, 0]));
  assert.deepEqual([...points.view()], [11, 2, 3, 6, 5, 6]);
  assert.deepEqual(points.bound().low(), [6, 2, 3]);
  for (const count of [2 ** 30, 2 ** 32 + 5, -1, NaN]) assert.throws(() => new v.Points(count), Error);
});

test('an error leaves nothing behind', () => {
  const short = new Uint8Array(3);
  for (let i = 0; i < 6000; ++i) { // more than the stack would hold
    assert.throws(() => v.BBox.fromRecord(short), { name: 'Error', message: /^archive/ });
  }
  assert.throws(() => v.findClashes([1], 0), { name: 'BindingError' });
  assert.ok(new v.BBox() instanceof v.BBox);
});

test('boxes are searched', () => {
  const boxes = [0, 0.5, 3].map((x) => v.BBox.of([x, 0, 0], [x + 1, 1, 1]));
  assert.deepEqual([...v.findClashes(boxes, 0)], [0, 1]);
  const away = v.Xform.translation([-2.5, 0, 0]);
  assert.deepEqual([...v.findPlacedClashes(boxes, [new v.Xform(), new v.Xform(), away])], [0, 1, 0, 2, 1, 2]);
  const index = new v.BoxIndex(boxes);
  index.move(2, v.BBox.of([1.2, 0, 0], [2, 1, 1]));
  assert.deepEqual([...index.clashes(0)], [0, 1, 1, 2]);
  assert.deepEqual([...index.around([0.7, 0.5, 0.5], 0)], [0, 1]);
  assert.deepEqual([...index.clashesWith(boxes[1], 0)], [0, 1, 2]);
  const placed = new v.BoxIndex(boxes, [new v.Xform(), new v.Xform(), away]);
  assert.deepEqual([...placed.clashes(0)], [0, 1, 0, 2, 1, 2]);
  placed.place(0, v.Xform.translation([0, 9, 0]));
  assert.deepEqual([...placed.clashesOf([0, 1], 0)], [1, 2]);
  placed.move(1, v.BBox.of([1.6, 0, 0], [2, 1, 1]));
  assert.deepEqual([...placed.clashes(0)], []);
  assert.throws(() => new v.BoxIndex(boxes, [away]), /placement for each box/);
  assert.deepEqual(index.firstOnRay({ root: [9, 0.5, 0.5], direction: [-1, 0, 0] }), { box: 2, point: [2, 0.5, 0.5] });
});

test('curves, polygons and tours', () => {
  assert.deepEqual(new Set(v.convexHull([0, 0, 2, 0, 1, 1, 2, 2, 0, 2])).size, 2);
  assert.deepEqual([...v.closedTour([0, 0, 0, 1, 1, 0, 1, 0, 0, 0, 1, 0])].sort(), [0, 1, 2, 3]);
  assert.deepEqual([...v.clipSegment([-1, 1, 0], [3, 1, 0], [0, 0, 0], [2, 2, 0], 0)], [0, 1, 0, 2, 1, 0]);
  assert.equal(v.clipSegment([-1, 9, 0], [3, 9, 0], [0, 0, 0], [2, 2, 0], 0), null);
  assert.equal(v.hatch([[0, 0, 0, 4, 0, 0, 4, 4, 0, 0, 4, 0]], [0, 0.5, 0], 0, 1).length, 4 * 6);
  const arc = v.tessellateArc([0, 0, 0], [0, 0, 1], [1, 0, 0], [0, 1, 0], 0.01);
  assert.ok(arc.length >= 27);
  near([Math.hypot(arc[3], arc[4])], [1]);
  assert.throws(() => v.convexHull([0, 0, 1]), { message: 'needs 2 numbers for each point' });
});

function load(assembly, meshes) {
  const checker = new v.Assembly();
  for (const [name, bytes] of meshes) {
    const mesh = readMesh(name, bytes);
    checker.addMesh(name, bytes, mesh.positions, mesh.indices);
  }
  checker.load(JSON.stringify(assembly));
  return checker;
}

describe('the checker', () => {
  test('writes the document of the command line, byte for byte, also after a move', () => {
    const checker = load(sample, sampleMeshes);
    assert.deepEqual(Buffer.from(checker.document()), commandLine(sample).document);
    const moved = structuredClone(sample);
    moved.parts[10].placement.translation = [0.3, -39.6, 84.9];
    checker.movePart(10, 0.3, 0, 84.9 - 84.6);
    assert.deepEqual(Buffer.from(checker.document()), commandLine(moved).document);
  });

  test('writes the same document of each format, for numbers with many digits', () => {
    const meshes = new Map(Object.entries(generatedMeshes()));
    const parts = [...meshes.keys()].map((mesh, i) => (
      { name: `bolt ${mesh}`, mesh, placement: { axis: [1, 2, i], angle_degrees: 10 + 17.3 * i, translation: [3 * i, 0, 0] } }));
    const assembly = { name: 'formats', clash_tolerance: 0.01, parts };
    const checker = load(assembly, meshes);
    assert.deepEqual(Buffer.from(checker.document()), commandLine(assembly, meshes).document);
  });

  test('reads a document with its meshes and without them', () => {
    const { document } = commandLine(sample);
    const whole = load(sample, sampleMeshes);
    whole.movePart(4, 0, 20, 0);
    whole.readDocument(document);
    const bare = new v.Assembly();
    bare.readDocument(document);
    for (const checker of [whole, bare]) {
      assert.deepEqual(Buffer.from(checker.document()), document);
      assert.equal(checker.parts().length, 15);
    }
    assert.throws(() => bare.readDocument(document.subarray(0, 99)), /document.vxa: is cut short/);
  });

  test('cuts and picks', () => {
    const checker = load(sample, sampleMeshes);
    const cuts = checker.section([0, 0, 45], [0, 1, 0], 2);
    const hits = checker.pick([0, -500, 45], [0, 1, 0]);
    const { report } = commandLine(sample, sampleMeshes, '--section', '0', '0', '45', '0', '1', '0');
    assert.equal(cuts.length, Number(/cut by the section: (\d+)/.exec(report)[1]));
    for (const { outlines, hatch } of cuts) {
      for (const xyz of [...outlines, hatch]) near(xyz.filter((_, i) => i % 3 === 1), xyz.map(() => 0));
      assert.ok(hatch.length > 0);
    }
    assert.ok(hits.length > 1 && hits.every((hit, i) => i === 0 || hits[i - 1].distance <= hit.distance));
    assert.match(report, new RegExp(`clashing pairs: ${checker.check().clashing.length || 'none'}`));
  });

  test('refuses bad input in the words of the command line', () => {
    const stl = sampleMeshes.get('key.stl');
    assert.throws(() => load(sample, [['key.stl', stl.subarray(0, 3000)]]), { message: /key.stl: is cut short/ });
    const checker = new v.Assembly();
    assert.throws(() => checker.load('{'), { message: /assembly.json: line 1, column 2/ });
    assert.throws(() => checker.load(JSON.stringify(sample)), { message: /there is no file base_plate.ply/ });
    assert.throws(() => checker.movePart(0, 1, 1, 1), { message: /no part/ });
  });
});

/** A surface of quads in every format, and its points alone. */
function generatedMeshes() {
  const points = Array.from({ length: 300 }, (_, i) => [Math.sin(i) * (1 + i / 7), Math.cos(i * i) * 31, i / 3 - 1 / 7]);
  const quads = Array.from({ length: 297 }, (_, i) => [i, i + 1, i + 3, i + 2]);
  const triangles = quads.flatMap(([a, b, c, d]) => [[a, b, c], [a, c, d]]);
  const textOf = (rows, word = '') => rows.map((row) => `${word}${row.join(' ')}\n`).join('');
  const fixed = (digits) => points.map((p) => p.map((x) => x.toFixed(digits)));
  const facets = triangles.map((t) => `facet normal 0 0 1\nouter loop\n${
    textOf(t.map((i) => points[i].map((x) => x.toExponential(7))), 'vertex ')}endloop\nendfacet\n`);
  const stl = Buffer.alloc(84 + 50 * triangles.length);
  stl.writeUInt32LE(triangles.length, 80);
  triangles.forEach((t, i) => t.flatMap((k) => points[k]).forEach((x, k) => stl.writeFloatLE(x, 96 + 50 * i + 4 * k)));
  return {
    'quads.obj': Buffer.from(`${textOf(fixed(9), 'v ')}g one\n${textOf(quads.map((q) => q.map((i) => i + 1)), 'f ')}`),
    'text.stl': Buffer.from(`solid a\n${facets.join('')}endsolid a\n`),
    'binary.stl': stl,
    'text.ply': Buffer.from(plyHeader('ascii', 300, 297) + textOf(fixed(16)) + textOf(quads, '4 ')),
    'binary.ply': ply(points, quads),
    'cloud.ply': Buffer.from(plyHeader('ascii', 300, 0) + textOf(fixed(6))),
  };
}
