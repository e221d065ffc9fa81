// SPDX-License-Identifier: MIT
// The assembly in three dimensions. Draws only when something changed.

import * as THREE from 'three';
import { OrbitControls } from 'three/addons/controls/OrbitControls.js';

const PART_COLOURS = [0x5b8fc7, 0x7aa874, 0xc7a15b, 0x8d7cc3, 0x5fb0ad, 0xb98a72];
const CLASH_COLOUR = new THREE.Color(0xe02030);
/** More triangles are not drawn while the view moves. */
const MOST_IN_MOTION = 300000;
const DIRECTIONS = {
  perspective: [0.5, -0.85, 0.42], front: [0, -1, 0], top: [0, -1e-4, 1], side: [1, 0, 0],
};

const colour = (name) =>
  new THREE.Color(getComputedStyle(document.documentElement).getPropertyValue(name).trim());

/** Every so many-th triangle of a large geometry, over the same vertices. */
function thinned(geometry, share) {
  if (share >= 1 || !geometry.index) return geometry;
  const all = geometry.index.array;
  const step = Math.ceil(1 / share);
  const some = new Uint32Array(3 * Math.ceil(all.length / 3 / step));
  for (let from = 0, to = 0; from < all.length; from += 3 * step, to += 3) {
    some.set(all.subarray(from, from + 3), to);
  }
  const result = new THREE.BufferGeometry();
  result.setAttribute('position', geometry.attributes.position);
  result.setIndex(new THREE.BufferAttribute(some, 1));
  return result;
}

export class View {
  constructor(canvas) {
    this.canvas = canvas;
    this.renderer = new THREE.WebGLRenderer({ canvas, antialias: true, alpha: true });
    this.renderer.localClippingEnabled = true;
    this.camera = new THREE.PerspectiveCamera(30, 1, 1, 1000);
    this.camera.up.set(0, 0, 1);
    this.scene = new THREE.Scene();
    this.scene.add(new THREE.HemisphereLight(0xffffff, 0x8890a0, 2));
    this.lamp = new THREE.DirectionalLight(0xffffff, 2);
    this.scene.add(this.lamp);
    this.parts = [];
    this.marks = new THREE.Group();
    this.cut = new THREE.Group();
    this.scene.add(this.marks, this.cut);
    this.planes = [];
    this.controls = new OrbitControls(this.camera, canvas);
    this.controls.addEventListener('change', () => this.redraw());
    this.controls.addEventListener('start', () => { this.isMoving = true; });
    this.controls.addEventListener('end', () => { this.isMoving = false; this.redraw(); });
    new ResizeObserver(() => this.resize()).observe(canvas);
    matchMedia('(prefers-color-scheme: dark)').addEventListener('change', () => this.redraw());
  }

  resize() {
    const { clientWidth: width, clientHeight: height } = this.canvas;
    if (!width || !height) return;
    this.renderer.setPixelRatio(Math.min(devicePixelRatio, 2));
    this.renderer.setSize(width, height, false);
    this.camera.aspect = width / height;
    this.camera.updateProjectionMatrix();
    this.redraw();
  }

  redraw() {
    this.frame ??= requestAnimationFrame(() => this.draw());
  }

  draw() {
    this.frame = null;
    for (const part of this.parts) {
      if (part.isMesh) part.geometry = this.isMoving ? part.userData.thin : part.userData.full;
    }
    this.lamp.position.copy(this.camera.position);
    this.renderer.render(this.scene, this.camera);
  }

  /** Shows these parts; a part without a geometry is a box. */
  show(parts, geometries) {
    const total = parts.reduce((sum, p) => sum + (geometries.get(p.mesh)?.index?.count ?? 0) / 3, 0);
    const thin = new Map();
    for (const [name, geometry] of geometries) thin.set(name, thinned(geometry, MOST_IN_MOTION / total));
    for (const part of this.parts) this.scene.remove(part);
    this.parts = parts.map((part, i) => {
      const options = {
        color: PART_COLOURS[i % PART_COLOURS.length], side: THREE.DoubleSide, flatShading: true,
        clippingPlanes: this.planes,
      };
      const full = geometries.get(part.mesh);
      if (full && !full.index) return new THREE.Points(full, new THREE.PointsMaterial({ color: options.color, size: 2, sizeAttenuation: false, clippingPlanes: this.planes }));
      const geometry = full ?? boxGeometry(part.bounds);
      const mesh = new THREE.Mesh(geometry, new THREE.MeshLambertMaterial(options));
      mesh.userData = { full: geometry, thin: thin.get(part.mesh) ?? geometry };
      if (!full) Object.assign(mesh.material, { transparent: true, opacity: 0.5 });
      return mesh;
    });
    for (const part of this.parts) part.matrixAutoUpdate = false;
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
    this.marks.clear();
    const red = new THREE.LineBasicMaterial({ color: colour('--clash') });
    const plain = new THREE.LineBasicMaterial({ color: colour('--quiet') });
    const accent = new THREE.LineBasicMaterial({ color: colour('--accent') });
    parts.forEach((part, i) => {
      const isClashing = clashing.has(i);
      const { material } = this.parts[i];
      material.color.set(PART_COLOURS[i % PART_COLOURS.length]);
      if (isClashing) material.color.lerp(CLASH_COLOUR, 0.6);
      if (boxes || i === selected) {
        const material = i === selected ? accent : isClashing ? red : plain;
        const box = new THREE.LineSegments(new THREE.EdgesGeometry(boxGeometry(part.bounds)), material);
        box.applyMatrix4(new THREE.Matrix4().fromArray(part.matrix));
        this.marks.add(box);
      }
      if (spheres) {
        const sphere = new THREE.WireframeGeometry(new THREE.SphereGeometry(part.placed.radius, 16, 8));
        this.marks.add(new THREE.LineSegments(sphere.translate(...part.placed.centre), isClashing ? red : plain));
      }
    });
    this.redraw();
  }

  /** Cuts what lies before the plane; cuts are those of Assembly.section, or nothing. */
  section(plane, cuts) {
    this.planes.length = 0;
    if (plane) {
      const normal = new THREE.Vector3(...plane.normal);
      this.planes.push(new THREE.Plane().setFromNormalAndCoplanarPoint(normal, new THREE.Vector3(...plane.root)));
    }
    for (const part of this.parts) part.material.needsUpdate = true;
    this.cut.clear();
    const line = new THREE.LineBasicMaterial({ color: colour('--text') });
    for (const { outlines, hatch } of cuts ?? []) {
      for (const outline of outlines) this.cut.add(new THREE.LineLoop(lines(outline), line));
      this.cut.add(new THREE.LineSegments(lines(hatch), line));
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

  /** Milliseconds for a frame at rest and in motion, the least of several; each is waited for. */
  frameTimes() {
    const gl = this.renderer.getContext();
    const timeOf = (isMoving) => Math.min(...Array.from({ length: 5 }, () => {
      this.isMoving = isMoving;
      const start = performance.now();
      this.draw();
      gl.readPixels(0, 0, 1, 1, gl.RGBA, gl.UNSIGNED_BYTE, new Uint8Array(4));
      return performance.now() - start;
    }));
    return { moving: timeOf(true), resting: timeOf(false) };
  }
}

function lines(coordinates) {
  return new THREE.BufferGeometry().setAttribute('position', new THREE.Float32BufferAttribute(coordinates, 3));
}

function boxGeometry({ low, high }) {
  const size = high.map((value, k) => value - low[k]);
  return new THREE.BoxGeometry(...size).translate(...low.map((value, k) => value + size[k] / 2));
}
