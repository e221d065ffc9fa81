// SPDX-License-Identifier: MIT
// Uses the package as its users do. Only its types are checked.
import createVexmath, { type Cut, type Triple } from 'vexmath';

const vexmath = await createVexmath();
const box = vexmath.BBox.of([0, 0, 0], [1, 2, 3]).placed(vexmath.Xform.translation([1, 0, 0]));
const pairs: Int32Array = vexmath.findClashes([box, box.grown(0.5)], 0);
new vexmath.BoxIndex([box], [new vexmath.Xform()]).place(0, vexmath.Xform.scale(2));
const points = new vexmath.Points(pairs.length);
points.view().set([1, 2, 3]);
const corner: Triple = points.bound().high();
const assembly = new vexmath.Assembly();
assembly.addMesh('a.obj', new Uint8Array(), new Float32Array(), new Uint32Array());
const cuts: Cut[] = assembly.section(corner, [0, 0, 1], 2);
const hit = box.firstHit({ root: [0, 0, 0], direction: [0, 0, 1] });
if (hit !== null) hit satisfies Triple;
cuts.map(({ hatch }) => hatch.length);
// @ts-expect-error a point has three coordinates
vexmath.distance([0, 0], [0, 0, 1]);
// @ts-expect-error two boxes are needed
box.clashes(0);
