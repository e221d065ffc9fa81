// SPDX-License-Identifier: MIT
// The page in a browser without a window: files are dropped, parts are moved, and the lists are
// compared with the command line's. Screenshots are left in build/web/.

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { createServer } from 'node:http';
import { createRequire } from 'node:module';
import { extname, join, normalize } from 'node:path';
import { after, before, describe, test } from 'node:test';

import puppeteer from 'puppeteer-core';
import { commandLine, ply, root, sample, sampleMeshes } from './common.js';

const TYPES = { '.html': 'text/html', '.js': 'text/javascript', '.css': 'text/css' };

const dropped = new Map(); // the files that the page gets next: bytes by names

const server = createServer((request, response) => {
  const path = normalize(new URL(request.url, 'http://page').pathname).replace(/\/$/, '/index.html');
  try {
    const bytes = dropped.get(path.slice('/dropped/'.length)) ?? readFileSync(join(root, 'build/web/page', path));
    response.writeHead(200, { 'content-type': TYPES[extname(path)] ?? 'application/octet-stream' }).end(bytes);
  } catch {
    response.writeHead(404).end();
  }
});

let browser;
let page;
let session;
const errors = [];

before(async () => {
  await new Promise((resolve) => { server.listen(0, '127.0.0.1', resolve); });
  browser = await puppeteer.launch({
    executablePath: '/usr/bin/chromium', protocolTimeout: 600000,
    args: ['--no-sandbox', '--disable-dev-shm-usage', '--enable-unsafe-swiftshader'],
  });
  page = await browser.newPage();
  page.setDefaultTimeout(120000);
  session = await page.createCDPSession();
  await session.send('Performance.enable', { timeDomain: 'threadTicks' });
  page.on('pageerror', (error) => errors.push(error.message));
  page.on('console', (message) => message.type() === 'error' && errors.push(message.text()));
  await page.setViewport({ width: 1400, height: 950 });
  await open();
});

after(async () => {
  await browser?.close();
  server.close();
});

async function open() {
  await page.goto(`http://127.0.0.1:${server.address().port}/`);
  await page.waitForSelector('html[data-ready]');
}

/** Seconds of processor time that the page used since it was opened. */
async function processorTime() {
  const { metrics } = await session.send('Performance.getMetrics');
  return metrics.find(({ name }) => name === 'TaskDuration').value;
}

/**
 * Drops files, as [name, bytes], and waits for the status that tells the clashes, or the failure.
 * Returns the seconds that this took.
 */
async function drop(files) {
  for (const [name, bytes] of files) dropped.set(name, bytes);
  return page.evaluate(async (names) => {
    const transfer = new DataTransfer();
    for (const name of names) {
      transfer.items.add(new File([await (await fetch(`/dropped/${name}`)).blob()], name));
    }
    const began = performance.now();
    document.body.dispatchEvent(new DragEvent('drop', { dataTransfer: transfer, bubbles: true, cancelable: true }));
    const status = document.getElementById('status');
    while (/…$/.test(status.textContent)) await new Promise(requestAnimationFrame);
    return (performance.now() - began) / 1000;
  }, files.map(([name]) => name));
}

const status = () => page.$eval('#status', (node) => node.textContent);
const list = (id) => page.$$eval(`#${id} li`, (items) => items.map((item) => item.textContent));
const sampleFiles = [['assembly.json', JSON.stringify(sample)], ...sampleMeshes];

/** Stores the document by the page's button. */
async function stored() {
  await page.evaluate(() => {
    URL.createObjectURL = (blob) => { window.stored = blob.arrayBuffer(); return '#'; };
    document.getElementById('store').click();
  });
  return Buffer.from(await page.evaluate(async () => Array.from(new Uint8Array(await window.stored))));
}

/** Compares the lists and the stored document with those of the command line. */
async function compare(assembly) {
  const { report, document } = commandLine(assembly);
  for (const [id, heading] of [['clashing', 'clashing pairs'], ['touching', 'touching pairs'], ['containing', 'containments']]) {
    const lines = new RegExp(`${heading}: .*\\n((?:  .*\\n)*)`).exec(report)[1].match(/\S.*/g) ?? [];
    assert.deepEqual(await list(id), lines.map((line) => line.replace(' - ', ' – ')));
  }
  assert.ok((await stored()).equals(document), 'another document');
}

describe('the page', () => {
  test('starts in under a second of processor time', async (t) => {
    const times = [];
    for (let i = 0; i < 5; ++i) {
      await open();
      times.push(await processorTime());
      t.diagnostic(`ready after ${await page.$eval('html', (node) => node.dataset.ready)} ms, processor ${times[i]} s`);
    }
    assert.ok(Math.min(...times) < 1, `${times}`);
    await page.waitForFunction(() => window.checker.view.isWhole);
    const corner = await page.$eval('#view', (canvas) => [...canvas.getContext('2d').getImageData(0, 0, 1, 1).data]);
    assert.deepEqual(corner, [0, 0, 0, 0], 'the empty view is transparent');
  });

  test('lists the contacts of the dropped assembly, and stores its document', async () => {
    await drop(sampleFiles);
    assert.match(await status(), /loaded\. \d+ clashes\.$/);
    await compare(sample);
  });

  test('moves a part by its field, and follows the command line', async () => {
    await page.select('#parts', 'pinion');
    await page.evaluate(() => {
      const field = document.getElementById('place-y');
      field.value = 60;
      field.dispatchEvent(new Event('change'));
    });
    const moved = structuredClone(sample);
    moved.parts.find(({ name }) => name === 'pinion').placement.translation = [0, 60, 45];
    assert.match(await status(), /^pinion moved\./);
    await compare(moved);
  });

  test('works by keyboard alone', async () => {
    await page.evaluate(() => document.getElementById('parts').focus());
    await page.keyboard.press('Home');
    await page.keyboard.press('ArrowDown');
    assert.equal(await page.$eval('#parts', (node) => node.value), 'bracket left');
    await page.focus('#view');
    await page.keyboard.press('ArrowRight');
    assert.match(await status(), /^bracket left moved\./);
    assert.equal(await page.$eval('#place-x', (node) => node.value), '-39');
    await page.focus('#pick');
    await page.keyboard.press('Enter');
    assert.match(await status(), /^Picked /);
    assert.ok((await list('hits')).length > 1);
    await page.focus('#section');
    await page.keyboard.press('Space');
    assert.match(await page.$eval('#section-value', (node) => node.textContent), /^y = /);
    const reached = new Set();
    await page.focus('#files');
    for (let i = 0; i < 40; ++i) {
      reached.add(await page.evaluate(() => document.activeElement.id || document.activeElement.textContent));
      await page.keyboard.press('Tab');
    }
    for (const id of ['sample', 'view', 'Front', 'parts', 'place-x', 'show-boxes', 'section-at', 'pick']) assert.ok(reached.has(id), id);
  });

  test('reads its document again', async () => {
    const { document } = commandLine(sample);
    await drop([['assembly.vxa', document]]);
    await compare(sample);
    await open();
    await drop([['assembly.vxa', document]]);
    await compare(sample);
  });

  test('picks by a click', async () => {
    await open();
    await drop(sampleFiles);
    const box = await (await page.$('#view')).boundingBox();
    await page.mouse.click(box.x + box.width / 2, box.y + box.height / 2);
    assert.match(await status(), /^Picked /);
  });

  test('says what is wrong', async () => {
    await drop([['lid.stl', sampleMeshes.get('lid.stl').subarray(0, 999)]]);
    assert.match(await status(), /lid.stl: is cut short/);
    await drop([['key.stl', sampleMeshes.get('key.stl')]]);
    assert.match(await status(), /^Dropped meshes loaded/);
    await drop([['notes.txt', '']]);
    assert.match(await status(), /notes.txt: the page opens meshes/);
  });

  test('waits for the meshes of an assembly file', async () => {
    await open();
    await drop(sampleFiles.filter(([name]) => name !== 'lid.stl'));
    assert.equal(await status(), 'mesh files are missing: lid.stl. Drop them too.');
    await drop([]);
    await drop([['lid.stl', sampleMeshes.get('lid.stl')]]);
    assert.match(await status(), /^Gear drive .* loaded/);
    await compare(sample);
  });

  test('fits wide and narrow screens, without accessibility faults that a tool finds', async () => {
    for (const [scheme, width, height] of [
      ['light', 1400, 950], ['dark', 1400, 950], ['light', 390, 844], ['dark', 390, 844],
    ]) {
      await page.emulateMediaFeatures([{ name: 'prefers-color-scheme', value: scheme }]);
      await page.setViewport({ width, height });
      await open();
      await drop(sampleFiles);
      await page.evaluate(() => document.getElementById('section').click());
      await page.waitForFunction(() => window.checker.view.cut.children.length && window.checker.view.isWhole);
      await page.screenshot({ path: join(root, `build/web/${scheme}-${width}.png`), fullPage: true });
      assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), `${width}`);
      await page.addScriptTag({ path: createRequire(import.meta.url).resolve('axe-core') });
      const { violations } = await page.evaluate(() => window.axe.run());
      assert.deepEqual(violations.map(({ id, nodes }) => [id, nodes.map((node) => node.html)]), []);
    }
  });

  test('is fluid with many vertices; VEXMATH_WEB_SIDE=1000 for a million', async (t) => {
    await page.setViewport({ width: 1400, height: 950 });
    const side = Number(process.env.VEXMATH_WEB_SIDE ?? 300);
    await open();
    const seconds = await drop([['wave.ply', wave(side)]]);
    t.diagnostic(`${side * side} vertices dropped and checked after ${seconds} s, processor ${await processorTime()} s`);
    assert.match(await status(), /No clashes\.$/);
    const times = await page.evaluate(async (middle) => {
      const { assembly, view } = window.checker;
      const timeOf = (action) => {
        const began = performance.now();
        action();
        return performance.now() - began;
      };
      const times = {
        move: timeOf(() => assembly.movePart(0, 1, 0, 0)),
        section: timeOf(() => assembly.section([0, middle, 0], [0, 1, 0], 20)),
        moving: [], piece: [],
      };
      view.isMoving = true;
      for (let i = 0; i < 30; ++i) {
        view.zoom(i % 2 ? 1.1 : 1 / 1.1);
        await new Promise(requestAnimationFrame);
        times.moving.push(view.took);
      }
      view.isMoving = false;
      const began = performance.now();
      view.redraw();
      while (!view.isWhole) {
        await new Promise(requestAnimationFrame);
        times.piece.push(view.took);
      }
      return { ...times, whole: performance.now() - began };
    }, side / 2 + 0.3);
    const median = (numbers) => numbers.sort((a, b) => a - b)[Math.floor(numbers.length / 2)];
    for (const kind of ['moving', 'piece']) times[kind] = median(times[kind].slice(-20));
    t.diagnostic(`ms, frames by software: ${JSON.stringify(times)}`);
    assert.ok(times.move < 50);
    assert.ok(times.moving < 150 && times.piece < 150); // 40 is aimed at; the machine may be busy
  });

  test('has no errors in its console', () => assert.deepEqual(errors, []));
});

/** A wavy sheet. */
function wave(side) {
  const across = Array.from({ length: side }, (_, i) => i);
  const points = across.flatMap((y) => across.map((x) => [x, y, 20 * Math.sin(x / 50) * Math.cos(y / 70)]));
  const faces = across.slice(1).flatMap((y) => across.slice(1).flatMap((x) => {
    const d = y * side + x;
    return [[d - side - 1, d - side, d - 1], [d - side, d, d - 1]];
  }));
  return ply(points, faces);
}
