// SPDX-License-Identifier: MIT
// Mesh files, read by the loaders of three.js.

import { OBJLoader } from 'three/addons/loaders/OBJLoader.js';
import { PLYLoader } from 'three/addons/loaders/PLYLoader.js';
import { STLLoader } from 'three/addons/loaders/STLLoader.js';

const asText = (bytes) => new TextDecoder('latin1').decode(bytes);

/**
 * A number of a text as the mesh library of the command line reads it: in single precision, digits
 * before and after the point apart, the first fifteen of the latter. The last bit can differ from
 * that of the nearest number, and the document stores bits.
 */
function readNumber(text, whole, fraction = '', exponent) {
  const digits = fraction.slice(0, 15);
  let value = Math.fround(Number(whole));
  if (digits) value = Math.fround(value + Math.fround(Number(digits) * Number(`1e-${digits.length}`)));
  if (exponent) value = Math.fround(value * Math.fround(Number(`1e${exponent}`)));
  return String(value);
}

const readNumbers = (text) => text.replace(/(\d*)\.(\d+)(?:[eE]([+-]?\d+))?/g, readNumber);

function isTextStl(bytes) {
  return /^\s*solid/i.test(asText(bytes.subarray(0, 80))) && !bytes.includes(0);
}

function parse(format, bytes) {
  if (format === 'obj') {
    const geometries = [];
    new OBJLoader().parse(readNumbers(asText(bytes)))
      .traverse((object) => object.geometry && geometries.push(object));
    return geometries.map((object) => [object.geometry, object.isMesh === true]);
  }
  if (format === 'stl') {
    const data = isTextStl(bytes) ? readNumbers(asText(bytes).trimStart()) : bytes.slice().buffer;
    return [[new STLLoader().parse(data), true]];
  }
  const header = asText(bytes.subarray(0, 65536)).split('end_header')[0];
  const isSingle = /format ascii/.test(header) && !/property\s+(double|float64)\s+x/.test(header);
  const geometry = new PLYLoader().parse(isSingle ? readNumbers(asText(bytes)) : bytes.slice().buffer);
  const hasFaces = geometry.index !== null || /element\s+face\s+[1-9]/.test(header);
  return [[geometry, hasFaces]];
}

/** Positions of vertices and indices of triangles. */
export function readMesh(name, bytes) {
  const pieces = parse(name.split('.').pop().toLowerCase(), bytes);
  const positions = [];
  const indices = [];
  let count = 0;
  for (const [geometry, hasFaces] of pieces) {
    const vertices = geometry.attributes.position?.array ?? new Float32Array();
    const order = geometry.index?.array ?? Uint32Array.from({ length: vertices.length / 3 }, (_, i) => i);
    const first = count;
    positions.push(vertices);
    if (hasFaces) indices.push(first ? order.map((index) => index + first) : order);
    count += vertices.length / 3;
  }
  return { positions: joined(Float32Array, positions), indices: joined(Uint32Array, indices) };
}

function joined(Type, arrays) {
  if (arrays.length === 1 && arrays[0] instanceof Type) return arrays[0];
  const result = new Type(arrays.reduce((length, array) => length + array.length, 0));
  let at = 0;
  for (const array of arrays) {
    result.set(array, at);
    at += array.length;
  }
  return result;
}
