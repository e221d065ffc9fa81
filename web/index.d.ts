// SPDX-License-Identifier: MIT
// Types of the module. The contracts of the functions are those of the C++ headers. Arrays whose
// length does not fit are refused with an Error.

/** x, y, z. */
export type Triple = [number, number, number];

/** A line or a plane: a point of it, and its direction or normal, which need not have length 1. */
export interface Direction {
  root: Triple;
  direction: Triple;
}

/** What lives in the memory of the module until it is deleted. */
interface Kept {
  delete(): void;
}

/** A rotation, mirrored or not, with a scale and a translation. */
export interface Xform extends Kept {
  /** The product: this one first, then b. */
  times(b: Xform): Xform;
  inverse(): Xform;
  /** Within the tolerances of the library. */
  equals(b: Xform): boolean;
  isReflection(): boolean;
  scaling(): number;
  point(p: Triple): Triple;
  /** Rotated and scaled, not translated. */
  vector(v: Triple): Triple;
  /** Rotated; the direction of v, of length 1, or zero where v is too short. */
  direction(v: Triple): Triple;
  /** A line or a plane, rotated, scaled and translated. */
  line(line: Direction): Direction;
  /** Sixteen numbers, as graphics libraries read them. */
  glData(): Float64Array;
  /** The archive record. It has no reflection flag. */
  record(): Uint8Array;
}

export interface XformClass {
  /** The identity. */
  new (): Xform;
  translation(by: Triple): Xform;
  /** Radians. A rotation within snapTol of a quarter turn has exact zeros and ones. */
  rotation(angle: number, axis: Triple, snapTol: number): Xform;
  scale(s: number): Xform;
  mirror(plane: Direction): Xform;
  /** A frame with the x axis u and the y axis towards v. */
  frame(origin: Triple, u: Triple, v: Triple): Xform;
  fromGlData(numbers: ArrayLike<number>): Xform;
  fromRecord(bytes: Uint8Array): Xform;
}

/** A box along the axes, with a sphere that encloses the same. Operations return new boxes. */
export interface BBox extends Kept {
  isSet(): boolean;
  low(): Triple;
  high(): Triple;
  centre(): Triple;
  sphereCentre(): Triple;
  sphereRadius(): number;
  placed(x: Xform): BBox;
  grown(by: number): BBox;
  enclosing(p: Triple): BBox;
  united(b: BBox): BBox;
  intersected(b: BBox): BBox;
  clashes(b: BBox, tolerance: number): boolean;
  clashesPlane(plane: Direction, tolerance: number): boolean;
  contains(b: BBox, tolerance: number): boolean;
  containsPoint(p: Triple, tolerance: number): boolean;
  /** The first point of the box on the ray, or null. */
  firstHit(ray: Direction): Triple | null;
  record(): Uint8Array;
}

export interface BBoxClass {
  /** Unset. */
  new (): BBox;
  /** Of two opposite corners. */
  of(a: Triple, b: Triple): BBox;
  fromRecord(bytes: Uint8Array): BBox;
}

/** Many points in the memory of the module. The count must be a number from 0 to 2147483647. */
export interface Points extends Kept {
  /** The coordinates themselves, not a copy. Ask again after any other call: the memory can move. */
  view(): Float64Array;
  transform(x: Xform): void;
  bound(): BBox;
  count(): number;
}

/**
 * Many boxes, kept for search, and perhaps their placements. A list of pairs holds two indices for
 * each pair. Clashes of placed boxes have no tolerance; it is ignored. Indices out of range are
 * ignored, too.
 */
export interface BoxIndex extends Kept {
  /** Replaces the box; its placement stays. */
  move(index: number, box: BBox): void;
  /** Replaces the placement. Ignored when the index has none. */
  place(index: number, placement: Xform): void;
  clashes(tolerance: number): Int32Array;
  clashesOf(some: ArrayLike<number>, tolerance: number): Int32Array;
  clashesWith(box: BBox, tolerance: number): Int32Array;
  around(p: Triple, tolerance: number): Int32Array;
  firstOnRay(ray: Direction): { box: number; point: Triple } | null;
}

export interface Bounds {
  low: Triple;
  high: Triple;
  /** Of the sphere. */
  centre: Triple;
  radius: number;
}

export interface Part {
  name: string;
  /** The name of its mesh file; empty for a part of a document whose mesh is not loaded. */
  mesh: string;
  /** The placement, as graphics libraries read it. */
  matrix: Float64Array;
  translation: Triple;
  /** In the part's own coordinates. */
  bounds: Bounds;
  /** In the assembly's. */
  placed: Bounds;
}

export interface Contacts {
  clashing: [number, number][];
  touching: [number, number][];
  /** The first contains the second. */
  containing: [number, number][];
}

export interface Cut {
  part: number;
  /** Closed outlines in space: x, y, z of each corner. */
  outlines: Float64Array[];
  /** Two ends for each hatch line. */
  hatch: Float64Array;
}

export interface Hit {
  part: number;
  point: Triple;
  distance: number;
}

/**
 * A checked assembly. Only one is in use at a time: a new one forgets the meshes of the one before.
 * What is wrong with a file is thrown as an Error in the words of the command line.
 */
export interface Assembly extends Kept {
  /**
   * Adds a mesh under the name that the assembly file has for it: the bytes of the file, which are
   * checked for damage, three coordinates for each vertex, and three indices for each triangle.
   */
  addMesh(name: string, file: Uint8Array, positions: ArrayLike<number>, indices: ArrayLike<number>): void;
  /** Reads an assembly file whose meshes were added. */
  load(json: string): void;
  name(): string;
  clashTolerance(): number;
  parts(): Part[];
  bounds(): Bounds;
  check(): Contacts;
  movePart(part: number, dx: number, dy: number, dz: number): void;
  /** About an axis through the middle of the part's box. */
  rotatePart(part: number, axis: Triple, degrees: number): void;
  section(root: Triple, normal: Triple, spacing: number): Cut[];
  /** The parts whose boxes the ray enters, nearest first. */
  pick(root: Triple, direction: Triple): Hit[];
  /** The bytes that the command line writes to assembly.vxa. */
  document(): Uint8Array;
  /** Parts whose meshes are not loaded are boxes. */
  readDocument(bytes: Uint8Array): void;
}

export interface Vexmath {
  Xform: XformClass;
  BBox: BBoxClass;
  Points: new (count: number) => Points;
  BoxIndex: new (boxes: BBox[], placements?: Xform[]) => BoxIndex;
  Assembly: new () => Assembly;

  dot(a: Triple, b: Triple): number;
  cross(a: Triple, b: Triple): Triple;
  /** Zero where v is too short. */
  normalise(v: Triple): Triple;
  distance(a: Triple, b: Triple): number;
  /** Radians. */
  angleBetween(a: Triple, b: Triple): number;
  footOnLine(line: Direction, p: Triple): Triple;
  footOnPlane(plane: Direction, p: Triple): Triple;
  clashPlaced(a: BBox, placementA: Xform, b: BBox, placementB: Xform): boolean;
  /** Two indices for each pair, here and in the next one. */
  findClashes(boxes: BBox[], tolerance: number): Int32Array;
  findPlacedClashes(boxes: BBox[], placements: Xform[]): Int32Array;
  /** Two coordinates for each point, here and in the result. */
  convexHull(coordinates: ArrayLike<number>): Float64Array;
  /** The order of the points. Three coordinates for each point, here and in all that follow. */
  openTour(coordinates: ArrayLike<number>): Int32Array;
  closedTour(coordinates: ArrayLike<number>): Int32Array;
  /** Both ends of what lies in the box, or null. */
  clipSegment(a: Triple, b: Triple, corner1: Triple, corner2: Triple, tolerance: number): Float64Array | null;
  /** The angle is in radians. Two ends for each line. */
  hatch(outlines: ArrayLike<number>[], origin: Triple, angle: number, spacing: number): Float64Array;
  tessellateArc(centre: Triple, normal: Triple, start: Triple, end: Triple, tolerance: number): Float64Array;
}

export default function createVexmath(): Promise<Vexmath>;
