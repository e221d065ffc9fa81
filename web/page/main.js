// SPDX-License-Identifier: MIT
// The page: files in, lists and the view out. The checker itself is the module's Assembly.

import createVexmath from './vexmath.js';
import { levelsOf } from './levels.js';
import { readMesh } from './meshes.js';
import { View } from './view.js';

const at = (id) => document.getElementById(id);
const along = (axis, value = 1) => [0, 1, 2].map((k) => (k === axis ? value : 0));
const MESHES = /\.(obj|stl|ply)$/i;
const HATCHES = 60; // hatch lines across the assembly
const KINDS = [['clashing', 'Clashing', '–'], ['touching', 'Touching', '–'], ['containing', 'Containing', 'contains']];
const FIELDS = ['place-x', 'place-y', 'place-z'].map(at);
const KEYS = {
  ArrowLeft: [-1, 0, 0], ArrowRight: [1, 0, 0], ArrowDown: [0, -1, 0], ArrowUp: [0, 1, 0],
  PageDown: [0, 0, -1], PageUp: [0, 0, 1],
};

let assembly; // the module's
let view;
const files = new Map(); // the mesh files dropped so far: bytes and what was read, by names without folders
const meshes = new Map(); // as the view draws them, by the names that the assembly file has for them
let waiting = null; // the last assembly file, when meshes of it were not there or bad
let parts = [];
let contacts = {};

function make(tag, ...children) {
  const node = document.createElement(tag);
  node.append(...children);
  return node;
}

function say(text, isFailure = false) {
  at('status').textContent = text;
  at('status').classList.toggle('failed', isFailure);
}

/** Runs an action of the user; what goes wrong is said. */
async function act(action) {
  try {
    await action();
  } catch (error) {
    say(error.message, true);
  }
}

// Files.

const baseName = (name) => name.split(/[\\/]/).pop();

/**
 * Opens files: [{name, bytes}]. Meshes without an assembly file complete the one that waits for
 * them, or become parts where they were drawn.
 */
function open(opened) {
  for (const { name, bytes } of opened.filter((file) => MESHES.test(file.name))) {
    files.set(name, { bytes });
  }
  const text = ({ bytes }) => new TextDecoder().decode(bytes);
  const list = opened.find(({ name }) => /\.json$/i.test(name));
  const document = opened.find(({ name }) => /\.vxa$/i.test(name));
  const unknown = opened.find((file) => !MESHES.test(file.name) && file !== list && file !== document);
  if (unknown) throw new Error(`${unknown.name}: the page opens meshes, one assembly file and one document`);
  if (list) loadAssembly(text(list));
  else if (opened.some((file) => MESHES.test(file.name))) {
    const isComplete = waiting !== null && lacking(waiting).length === 0;
    loadAssembly(isComplete ? waiting : listOf([...files.keys()]));
  }
  if (document) {
    assembly.readDocument(document.bytes);
    showAll(`${document.name} read`);
  }
}

function listOf(names) {
  return JSON.stringify({
    name: 'Dropped meshes', clash_tolerance: 0,
    parts: names.map((mesh) => ({ name: mesh, mesh })),
  });
}

function loadAssembly(json) {
  waiting = json;
  const missing = lacking(json);
  if (missing.length > 0) throw new Error(`mesh files are missing: ${missing.join(', ')}. Drop them too.`);
  for (const name of namesIn(json)) addMesh(name);
  waiting = null;
  assembly.load(json);
  showAll(`${assembly.name()} loaded`);
}

/** The names of meshes in an assembly file. What is wrong with the file the checker says. */
function namesIn(json) {
  try {
    return new Set(JSON.parse(json).parts.map((part) => String(part.mesh)));
  } catch {
    return new Set();
  }
}

/** The mesh files of an assembly file that were not dropped yet. */
const lacking = (json) => [...namesIn(json)].filter((name) => !files.has(baseName(name)));

function addMesh(name) {
  const file = files.get(baseName(name));
  if (file.addedAs === name) return;
  files.delete(baseName(name)); // a bad file is forgotten, so that the others can be opened
  file.mesh ??= readMesh(name, file.bytes);
  assembly.addMesh(name, file.bytes, file.mesh.positions, file.mesh.indices);
  meshes.get(name)?.forEach((geometry) => geometry.dispose());
  meshes.set(name, levelsOf(file.mesh));
  file.addedAs = name;
  files.set(baseName(name), file);
}

async function openFiles(list) {
  const opened = [...list];
  if (opened.length === 0) return; // a text was dropped
  say(`Reading ${opened.length} files…`);
  await act(async () => open(await Promise.all(opened.map(async (file) => ({
    name: file.name, bytes: new Uint8Array(await file.arrayBuffer()),
  })))));
}

async function openSample() {
  const fetched = async (name) => {
    const response = await fetch(`sample/${name}`);
    if (!response.ok) throw new Error(`sample/${name}: ${response.statusText}`);
    return { name, bytes: new Uint8Array(await response.arrayBuffer()) };
  };
  const list = await fetched('assembly.json');
  const names = namesIn(new TextDecoder().decode(list.bytes));
  open([list, ...await Promise.all([...names].map(fetched))]);
}

function store() {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(new Blob([assembly.document()], { type: 'application/octet-stream' }));
  link.download = 'assembly.vxa';
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 10000);
  say('assembly.vxa stored');
}

// What is shown.

const selected = () => at('parts').selectedIndex;

function showAll(what) {
  parts = assembly.parts();
  at('parts').replaceChildren(...parts.map((part) => new Option(part.name, part.name)));
  at('parts').selectedIndex = parts.length ? 0 : -1;
  view.show(parts, meshes);
  view.look('perspective', assembly.bounds());
  at('store').disabled = false;
  at('place').disabled = parts.length === 0;
  at('hits').replaceChildren();
  update(what);
}

function update(what) {
  parts = assembly.parts();
  contacts = assembly.check();
  view.place(parts);
  showContacts();
  showPlace();
  mark();
  cut();
  const count = contacts.clashing.length;
  say(`${what}. ${count === 0 ? 'No clashes' : count === 1 ? '1 clash' : `${count} clashes`}.`);
}

function showContacts() {
  at('contacts').replaceChildren(...KINDS.flatMap(([kind, title, between]) => {
    const items = contacts[kind].map(([a, b]) => make('li', `${parts[a].name} ${between} ${parts[b].name}`));
    const list = Object.assign(make('ul', ...items), { id: kind, className: kind });
    return [make('h3', `${title}: ${items.length || 'none'}`), ...(items.length ? [list] : [])];
  }));
  const clashing = new Set(contacts.clashing.flat());
  [...at('parts').options].forEach((option, i) => {
    option.textContent = parts[i].name + (clashing.has(i) ? ' (clashes)' : '');
  });
}

function showPlace() {
  const part = parts[selected()];
  if (part) FIELDS.forEach((field, k) => { field.value = part.translation[k]; });
}

function mark() {
  view.mark(parts, {
    clashing: at('show-clashes').checked ? new Set(contacts.clashing?.flat()) : new Set(),
    selected: selected(), boxes: at('show-boxes').checked, spheres: at('show-spheres').checked,
  });
}

// Placing.

function move(by) {
  const part = selected();
  if (part < 0 || by.every((value) => value === 0)) return;
  assembly.movePart(part, ...by);
  update(`${parts[part].name} moved`);
}

function moveTo(axis, value) {
  const part = parts[selected()];
  if (part && Number.isFinite(value)) move(along(axis, value - part.translation[axis]));
  else showPlace();
}

function rotate(axis) {
  const part = selected();
  const degrees = at('angle').valueAsNumber;
  if (part < 0 || !Number.isFinite(degrees)) return;
  assembly.rotatePart(part, along(axis), degrees);
  update(`${parts[part].name} rotated`);
}

// Section and pick.

/** While the slider moves, the view cuts the meshes; outlines and hatching follow when it rests. */
function cut() {
  clearTimeout(cut.timer);
  if (!at('section').checked || parts.length === 0) {
    at('section-value').textContent = '';
    view.section(null);
    return;
  }
  const { low, high, radius } = assembly.bounds();
  const axis = Number(at('section-axis').value);
  const root = [...low];
  root[axis] += (high[axis] - low[axis]) * at('section-at').valueAsNumber / 1000;
  const normal = along(axis); // what lies behind the plane stays
  const digits = Math.max(0, 3 - Math.ceil(Math.log10(2 * radius))); // a thousandth of the assembly
  at('section-value').textContent = `${'xyz'[axis]} = ${Number(root[axis].toFixed(Math.min(digits, 20)))}`;
  view.section({ root, normal });
  cut.timer = setTimeout(() => act(() => {
    view.section({ root, normal }, assembly.section(root, normal, 2 * radius / HATCHES));
  }), 60);
}

function pick(x, y) {
  if (parts.length === 0) return;
  const { root, direction } = view.sight(x, y);
  const hits = assembly.pick(root, direction);
  at('pick-x').value = x.toFixed(3);
  at('pick-y').value = y.toFixed(3);
  at('hits').replaceChildren(...hits.map(({ part, distance }) =>
    make('li', `${parts[part].name}, distance ${Number(distance.toPrecision(6))}`)));
  if (hits.length) {
    at('parts').selectedIndex = hits[0].part;
    showPlace();
    mark();
  }
  say(hits.length ? `Picked ${hits.map(({ part }) => parts[part].name).join(', ')}.` : 'Nothing picked.');
}

// What the user does.

function listen() {
  at('files').addEventListener('change', () => {
    openFiles(at('files').files);
    at('files').value = ''; // so that the same file can be opened again
  });
  at('sample').addEventListener('click', () => act(openSample));
  at('store').addEventListener('click', () => act(store));
  for (const type of ['dragover', 'dragleave', 'drop']) {
    document.addEventListener(type, (event) => {
      event.preventDefault();
      document.body.classList.toggle('dropping', type === 'dragover');
      if (type === 'drop') openFiles(event.dataTransfer.files);
    });
  }
  at('parts').addEventListener('change', () => { showPlace(); mark(); });
  FIELDS.forEach((field, axis) => field.addEventListener('change', () => act(() => moveTo(axis, field.valueAsNumber))));
  at('step').addEventListener('change', () => FIELDS.forEach((field) => { field.step = at('step').value || 'any'; }));
  for (const button of document.querySelectorAll('[data-axis]')) {
    button.addEventListener('click', () => act(() => rotate(Number(button.dataset.axis))));
  }
  matchMedia('(prefers-color-scheme: dark)').addEventListener('change', () => { mark(); cut(); });
  for (const id of ['show-clashes', 'show-boxes', 'show-spheres']) at(id).addEventListener('change', mark);
  for (const id of ['section', 'section-axis', 'section-at']) at(id).addEventListener('input', cut);
  at('views').addEventListener('click', ({ target }) => {
    if (target.dataset.zoom) view.zoom(Number(target.dataset.zoom));
    if (target.dataset.view && parts.length) view.look(target.dataset.view, assembly.bounds());
  });
  at('pick').addEventListener('click', () => act(() => pick(at('pick-x').valueAsNumber, at('pick-y').valueAsNumber)));
  at('view').addEventListener('keydown', (event) => {
    const direction = KEYS[event.key];
    if (!direction || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    act(() => move(direction.map((value) => value * (at('step').valueAsNumber || 0))));
  });
  let down;
  at('view').addEventListener('pointerdown', (event) => { down = event; });
  at('view').addEventListener('pointerup', (event) => {
    const isClick = down && Math.hypot(event.x - down.x, event.y - down.y) < 4;
    const box = at('view').getBoundingClientRect();
    if (isClick) act(() => pick((event.x - box.x) / box.width, 1 - (event.y - box.y) / box.height));
  });
}

await act(async () => {
  view = new View(at('view'));
  const module = await createVexmath();
  assembly = new module.Assembly();
  listen();
  window.checker = { assembly, view }; // for the console
  say('Ready. Drop files, or open the sample.');
  document.documentElement.dataset.ready = String(Math.round(performance.now()));
});
