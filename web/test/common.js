// SPDX-License-Identifier: MIT
// What both tests use: the sample, the command line's program, and made meshes.

import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after } from 'node:test';

export const root = new URL('../../', import.meta.url).pathname;
const program = process.env.VEXMATH_ASSEMBLY ?? join(root, 'build/release/apps/assembly/vexmath_assembly');
const data = join(root, 'apps/assembly/data');
const folder = mkdtempSync(join(tmpdir(), 'vexmath-web-'));
after(() => rmSync(folder, { recursive: true }));

/** The sample assembly and its meshes: bytes by names. */
export const sample = JSON.parse(readFileSync(join(data, 'assembly.json')));
export const sampleMeshes = new Map(sample.parts.map(({ mesh }) => [mesh, readFileSync(join(data, mesh))]));

/** The report and the document that the command line writes of an assembly. */
export function commandLine(assembly, meshes = sampleMeshes, ...options) {
  for (const [name, bytes] of meshes) writeFileSync(join(folder, name), bytes);
  const file = join(folder, 'assembly.json');
  writeFileSync(file, JSON.stringify(assembly));
  const report = execFileSync(program, ['--out', folder, ...options, file], { encoding: 'utf8' });
  return { report, document: readFileSync(join(folder, 'assembly.vxa')) };
}

export const plyHeader = (format, points, faces) => `ply
format ${format} 1.0
element vertex ${points}
property float x
property float y
property float z
element face ${faces}
property list uchar int vertex_indices
end_header
`;

/** A binary PLY file. */
export function ply(points, faces) {
  const corners = faces.reduce((sum, face) => sum + face.length, 0);
  const body = Buffer.alloc(12 * points.length + faces.length + 4 * corners);
  let at = 0;
  for (const point of points) for (const x of point) at = body.writeFloatLE(x, at);
  for (const face of faces) {
    at = body.writeUInt8(face.length, at);
    for (const index of face) at = body.writeInt32LE(index, at);
  }
  return Buffer.concat([Buffer.from(plyHeader('binary_little_endian', points.length, faces.length)), body]);
}
