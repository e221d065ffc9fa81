// SPDX-License-Identifier: MIT
// Meshes in levels: the mesh itself, and coarser ones of the same vertices for a view that moves.

import { BufferAttribute, BufferGeometry, Vector3 } from 'three';

/** Meshes with fewer corners of triangles get no coarser level. */
const FEW = 6000;
/** Cells of the grid of the first coarser level. */
const CELLS = 1e6;

/** Geometries of one mesh, each coarser than the one before it. Those of a cloud have an index too. */
export function levelsOf({ positions, indices }) {
  const position = new BufferAttribute(positions, 3);
  const geometryOf = (index) => new BufferGeometry().setAttribute('position', position)
    .setIndex(new BufferAttribute(index, 1));
  const isCloud = indices.length === 0;
  let index = isCloud ? Uint32Array.from({ length: position.count }, (_, i) => i) : indices;
  const levels = [geometryOf(index)];
  levels[0].computeBoundingBox();
  levels[0].computeBoundingSphere();
  const { boundingBox: box, boundingSphere } = levels[0];
  const size = box.getSize(new Vector3()).toArray();
  const longest = Math.max(...size);
  const volume = size.reduce((product, length) => product * Math.max(length, longest / 1000), 1);
  for (let cell = Math.cbrt(volume / CELLS); index.length > FEW && cell < longest / 4; cell *= 1.5) {
    const twins = twinsOf(index, positions, box, cell);
    const next = isCloud ? index.filter((vertex) => twins[vertex] === vertex) : joined(index, twins);
    if (next.length > 0.7 * index.length) continue;
    index = next;
    levels.push(Object.assign(geometryOf(index), { boundingSphere }));
  }
  return Object.assign(levels, { isCloud });
}

/** For each vertex of the index the first one in the same cell of a grid. */
function twinsOf(index, positions, { min, max }, cell) {
  const nx = Math.floor((max.x - min.x) / cell) + 1;
  const ny = Math.floor((max.y - min.y) / cell) + 1;
  const nz = Math.floor((max.z - min.z) / cell) + 1;
  const firsts = new Int32Array(nx * ny * nz).fill(-1);
  const twins = new Int32Array(positions.length / 3).fill(-1);
  for (const vertex of index) {
    if (twins[vertex] >= 0) continue;
    const x = Math.floor((positions[3 * vertex] - min.x) / cell);
    const y = Math.floor((positions[3 * vertex + 1] - min.y) / cell);
    const z = Math.floor((positions[3 * vertex + 2] - min.z) / cell);
    const place = (z * ny + y) * nx + x;
    if (firsts[place] < 0) firsts[place] = vertex;
    twins[vertex] = firsts[place];
  }
  return twins;
}

/** The triangles whose corners have three twins. They close the surface: the others have no area. */
function joined(index, twins) {
  const kept = new Uint32Array(index.length);
  let count = 0;
  for (let i = 0; i < index.length; i += 3) {
    const a = twins[index[i]];
    const b = twins[index[i + 1]];
    const c = twins[index[i + 2]];
    if (a === b || b === c || c === a) continue;
    kept[count] = a;
    kept[count + 1] = b;
    kept[count + 2] = c;
    count += 3;
  }
  return kept.slice(0, count);
}
