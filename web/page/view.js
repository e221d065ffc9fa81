// SPDX-License-Identifier: MIT
// The assembly in three dimensions. Draws only when something changed.

import * as THREE from 'three';
import { OrbitControls } from 'three/addons/controls/OrbitControls.js';

const PART_COLOURS = [0x5b8fc7, 0x7aa874, 0xc7a15b, 0x8d7cc3, 0x5fb0ad, 0xb98a72];
const CLASH_COLOUR = new THREE.Color(0xe02030);
/** Milliseconds that a frame should take, and the least number of corners that it may have. */
const FRAME = 40;
const LEAST = 20000;
const DIRECTIONS = {
  perspective: [0.5, -0.85, 0.42], front: [0, -1, 0], top: [0, -1e-4, 1], side: [1, 0, 0],
};

const colour = (name) =>
  new THREE.Color(getComputedStyle(document.documentElement).getPropertyValue(name).trim());
const cornersOf = (geometry) => geometry.index.count;
/** The level of a part, or its coarsest. */
const levelOf = ({ levels }, level) => levels[Math.min(level, levels.length - 1)];

export class View {
  constructor(canvas) {
    this.canvas = canvas;
    // Draws out of sight. What is ready is copied to the canvas.
    this.renderer = new THREE.WebGLRenderer({ antialias: true, alpha: true, preserveDrawingBuffer: true });
    this.renderer.setClearColor(0, 0);
    this.renderer.autoClear = false;
    this.renderer.localClippingEnabled = true;
    this.camera = new THREE.PerspectiveCamera(30, 1, 1, 1000);
    this.camera.up.set(0, 0, 1);
    this.scene = new THREE.Scene();
    this.lamp = new THREE.DirectionalLight(0xffffff, 2);
    this.marks = new THREE.Group();
    this.cut = new THREE.Group();
    this.scene.add(new THREE.HemisphereLight(0xffffff, 0x8890a0, 2), this.lamp, this.marks, this.cut);
    this.parts = [];
    this.inOrder = []; // those that show what is behind them last
    this.planes = [];
    this.totals = [0]; // corners of all parts at each level
    this.mostCorners = 100000; // of a frame
    this.controls = new OrbitControls(this.camera, canvas);
    this.controls.addEventListener('change', () => this.redraw());
    this.controls.addEventListener('start', () => { this.isMoving = true; });
    this.controls.addEventListener('end', () => { this.isMoving = false; this.redraw(); });
    new ResizeObserver(() => this.resize()).observe(canvas);
  }

  resize() {
    const { clientWidth: width, clientHeight: height } = this.canvas;
    if (!width || !height) return;
    this.renderer.setPixelRatio(Math.min(devicePixelRatio, 2));
    this.renderer.setSize(width, height, false);
    Object.assign(this.canvas, { width: this.renderer.domElement.width, height: this.renderer.domElement.height });
    this.camera.aspect = width / height;
    this.camera.updateProjectionMatrix();
    this.redraw();
  }

  redraw() {
    this.reached = null;
    this.isWhole = false;
    this.frame ??= requestAnimationFrame(() => this.draw());
  }

  /**
   * After a change, shows the parts at the level that a frame has time for. When the view rests, the
   * whole is then drawn in pieces, one in each frame, and shown when it is complete.
   */
  draw() {
    this.frame = null;
    const began = performance.now();
    const isFirst = this.reached === null;
    const level = isFirst ? this.levelInTime() : 0;
    const from = isFirst ? 0 : this.reached;
    const to = isFirst ? this.totals[level] : Math.min(from + this.mostCorners, this.totals[0]);
    if (from === 0) this.renderer.clear();
    this.drawCorners(level, from, to);
    this.isWhole = level === 0 && to === this.totals[0];
    this.reached = level === 0 ? to : 0;
    if (isFirst || this.isWhole) this.copyToCanvas();
    this.waitForPixels();
    this.took = performance.now() - began;
    this.adapt(to - from);
    if (!this.isWhole && !this.isMoving) this.frame = requestAnimationFrame(() => this.draw());
  }

  levelInTime() {
    const level = this.totals.findIndex((total) => total <= this.mostCorners);
    return level >= 0 ? level : this.totals.indexOf(this.totals.at(-1));
  }

  /** Draws some corners of the list that the triangles of all parts make. */
  drawCorners(level, from, to) {
    const isLast = to === this.totals[level];
    let before = 0;
    for (const part of this.inOrder) {
      part.geometry = levelOf(part, level);
      const count = cornersOf(part.geometry);
      const within = (corner) => (corner >= count ? count : Math.max(0, corner - corner % 3));
      const first = within(from - before);
      part.range = [first, within(to - before) - first];
      part.visible = part.range[1] > 0;
      before += count;
    }
    this.lamp.position.copy(this.camera.position);
    this.marks.visible = isLast;
    this.cut.visible = isLast;
    this.renderer.render(this.scene, this.camera);
  }

  copyToCanvas() {
    const screen = this.canvas.getContext('2d');
    screen.globalCompositeOperation = 'copy';
    screen.drawImage(this.renderer.domElement, 0, 0);
  }

  waitForPixels() {
    const gl = this.renderer.getContext();
    gl.readPixels(0, 0, 1, 1, gl.RGBA, gl.UNSIGNED_BYTE, new Uint8Array(4));
  }

  /** Changes the number of corners of a frame by the time that the last one took. */
  adapt(corners) {
    const factor = THREE.MathUtils.clamp(FRAME / this.took, 0.5, 2);
    if (factor > 1 && corners < this.mostCorners / 2) return; // a small frame tells little
    this.mostCorners = Math.max(LEAST, Math.round(factor * this.mostCorners));
  }

  /** Shows these parts. meshes has their levels; a part without a mesh is a box. */
  show(parts, meshes) {
    this.scene.remove(...this.parts);
    for (const { material } of this.parts) material.dispose();
    this.parts = parts.map(({ mesh, bounds }, i) => {
      const levels = meshes.get(mesh) ?? [boxGeometry(bounds)];
      const look = { color: PART_COLOURS[i % PART_COLOURS.length], clippingPlanes: this.planes };
      const glass = meshes.has(mesh) ? {} : { transparent: true, opacity: 0.5 };
      const part = levels.isCloud
        ? new THREE.Points(levels[0], new THREE.PointsMaterial({ ...look, size: 2, sizeAttenuation: false }))
        : new THREE.Mesh(levels[0], new THREE.MeshLambertMaterial({ ...look, ...glass, side: THREE.DoubleSide, flatShading: true }));
      part.onBeforeRender = () => part.geometry.setDrawRange(...part.range);
      return Object.assign(part, { levels, matrixAutoUpdate: false });
    });
    this.inOrder = [...this.parts].sort((a, b) => a.material.transparent - b.material.transparent);
    const depth = Math.max(1, ...this.parts.map(({ levels }) => levels.length));
    this.totals = Array.from({ length: depth }, (_, level) =>
      this.parts.reduce((sum, part) => sum + cornersOf(levelOf(part, level)), 0));
    this.scene.add(...this.parts);
    this.place(parts);
  }

  place(parts) {
    this.parts.forEach((object, i) => {
      object.matrix.fromArray(parts[i].matrix);
      object.matrixWorldNeedsUpdate = true;
    });
    this.redraw();
  }

  /** Marks parts: those that clash are red, the box of the selected one is outlined. */
  mark(parts, { clashing, selected, boxes, spheres }) {
    empty(this.marks);
    parts.forEach((part, i) => {
      const isClashing = clashing.has(i);
      const { material } = this.parts[i];
      material.color.set(PART_COLOURS[i % PART_COLOURS.length]);
      if (isClashing) material.color.lerp(CLASH_COLOUR, 0.6);
      const plain = isClashing ? '--clash' : '--quiet';
      if (boxes || i === selected) {
        const edges = new THREE.EdgesGeometry(boxGeometry(part.bounds));
        edges.applyMatrix4(new THREE.Matrix4().fromArray(part.matrix));
        this.marks.add(segments(edges, i === selected ? '--accent' : plain));
      }
      if (spheres) {
        const sphere = new THREE.EdgesGeometry(new THREE.SphereGeometry(part.placed.radius, 12, 6));
        this.marks.add(segments(sphere.translate(...part.placed.centre), plain));
      }
    });
    this.redraw();
  }

  /** Cuts what lies before the plane; cuts are those of Assembly.section, or nothing. */
  section(plane, cuts = []) {
    this.planes.length = 0;
    if (plane) {
      const [normal, root] = [plane.normal, plane.root].map((xyz) => new THREE.Vector3(...xyz));
      this.planes.push(new THREE.Plane().setFromNormalAndCoplanarPoint(normal, root));
    }
    empty(this.cut);
    for (const { outlines, hatch } of cuts) {
      for (const outline of outlines) this.cut.add(segments(lines(outline), '--text', THREE.LineLoop));
      this.cut.add(segments(lines(hatch), '--text'));
    }
    this.redraw();
  }

  /** The line of sight through a point of the view: shares of its width and height, y upwards. */
  sight(x, y) {
    this.camera.updateMatrixWorld();
    const towards = new THREE.Vector3(2 * x - 1, 2 * y - 1, 0.5).unproject(this.camera);
    const root = this.camera.position;
    return { root: root.toArray(), direction: towards.sub(root).toArray() };
  }

  look(name, bounds) {
    const { centre, radius } = bounds;
    const away = new THREE.Vector3(...DIRECTIONS[name]).normalize();
    const narrow = Math.min(1, this.camera.aspect);
    const distance = (Math.max(radius, 1e-6) / Math.sin(THREE.MathUtils.degToRad(15))) / narrow;
    this.controls.target.set(...centre);
    this.camera.position.copy(this.controls.target).addScaledVector(away, distance);
    this.camera.near = distance / 1000;
    this.camera.far = 100 * distance;
    this.camera.updateProjectionMatrix();
    this.controls.update();
    this.redraw();
  }

  zoom(factor) {
    const { target } = this.controls;
    this.camera.position.sub(target).multiplyScalar(factor).add(target);
    this.controls.update();
    this.redraw();
  }
}

function empty(group) {
  for (const { geometry, material } of group.children) {
    geometry.dispose();
    material.dispose();
  }
  group.clear();
}

const lines = (coordinates) =>
  new THREE.BufferGeometry().setAttribute('position', new THREE.Float32BufferAttribute(coordinates, 3));

const segments = (geometry, colourName, Kind = THREE.LineSegments) =>
  new Kind(geometry, new THREE.LineBasicMaterial({ color: colour(colourName) }));

function boxGeometry({ low, high }) {
  const size = high.map((value, k) => value - low[k]);
  return new THREE.BoxGeometry(...size).translate(...low.map((value, k) => value + size[k] / 2));
}
