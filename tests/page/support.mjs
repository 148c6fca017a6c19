// Makes pages by the command, opens them in a browser without a window, and looks at what is drawn.

import {execFileSync} from 'node:child_process';
import {mkdtempSync, rmSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {pathToFileURL} from 'node:url';

const {CHROMIUM, PACKAGES, QELVRML_TOOL} = process.env;
const {chromium} = createRequire(join(PACKAGES, 'package.json'))('playwright-core');

const ARGUMENTS = [
  '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
  '--disable-component-update', '--disable-sync', '--use-gl=angle', '--use-angle=swiftshader',
  '--enable-unsafe-swiftshader',
];

export class Browser {
  static async start() {
    const started = new Browser();
    started.folder = mkdtempSync(join(tmpdir(), 'qelvrml-page-'));
    started.browser = await chromium.launch({executablePath: CHROMIUM, args: ARGUMENTS});
    started.decoder = await started.browser.newPage();
    return started;
  }

  async stop() {
    await this.browser.close();
    rmSync(this.folder, {recursive: true});
  }

  /** Opens the page of a scene's text, and gives it when the scene is there. Its faults are what it complains of. */
  async show(text, {name = 'scene.wrl', ...options} = {}) {
    writeFileSync(join(this.folder, name), text);
    const path = join(this.folder, 'page.html');
    execFileSync(QELVRML_TOOL, ['view', join(this.folder, name), '-o', path, '--force']);
    const context = await this.browser.newContext(
        {viewport: {width: 1000, height: 700}, reducedMotion: 'reduce', ...options});
    const page = await context.newPage();
    page.faults = [];
    page.on('console', (message) => {
      // That pixels are looked at takes time without a graphics card.
      if (!message.text().includes('GL Driver Message')) page.faults.push(message.text());
    });
    page.on('pageerror', (error) => page.faults.push(error.message));
    page.on('dialog', (dialog) => page.faults.push(dialog.message()));
    page.on('request', (request) => {
      if (/^(file|data|blob):/.test(request.url()) === false) page.faults.push(request.url());
    });
    await page.goto(pathToFileURL(path).href);
    await page.waitForSelector('body[data-state=ready]');
    return page;
  }

  /** What is drawn of the model, once all of it is. */
  async look(page) {
    await page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));
    const canvas = await page.locator('canvas').boundingBox();
    const showOthers = (visibility) => page.evaluate((value) => {
      for (const other of document.querySelectorAll('main > :not(canvas)')) other.style.visibility = value;
    }, visibility);
    await showOthers('hidden');
    const png = (await page.screenshot({clip: canvas, scale: 'css'})).toString('base64');
    await showOthers('');
    const pixels = await this.decoder.evaluate(async (data) => {
      const image = await createImageBitmap(await (await fetch(`data:image/png;base64,${data}`)).blob());
      const surface = new OffscreenCanvas(image.width, image.height).getContext('2d');
      surface.drawImage(image, 0, 0);
      const bytes = surface.getImageData(0, 0, image.width, image.height).data;
      let characters = '';
      for (let i = 0; i < bytes.length; i += 8192) characters += String.fromCharCode(...bytes.subarray(i, i + 8192));
      return btoa(characters);
    }, png);
    return new Picture(Buffer.from(pixels, 'base64'), canvas);
  }
}

export const RED = ([r, g, b]) => r > 100 && g < r / 4 && b < r / 4;
export const GREEN = ([r, g, b]) => g > 100 && r < g / 4 && b < g / 4;
export const BLUE = ([r, g, b]) => b > 100 && r < b / 4 && g < b / 4;
export const YELLOW = ([r, g, b]) => r > 100 && g > 0.9 * r && b < r / 4;
export const ORANGE = ([r, g, b]) => r > 120 && g > r / 3 && g < 0.8 * r && b < r / 2;  // what is selected

class Picture {
  constructor(pixels, canvas) {
    Object.assign(this, {pixels, canvas, width: Math.round(canvas.width), height: Math.round(canvas.height)});
  }

  at(x, y) {
    const first = 4 * (Math.round(y) * this.width + Math.round(x));
    return this.pixels.subarray(first, first + 3);
  }

  /** Where pixels of a colour are: how many, their middle and the box around them, as shares of the picture. */
  find(isColour) {
    const found = {count: 0, x: 0, y: 0, left: 1, top: 1, right: 0, bottom: 0};
    for (let row = 0; row < this.height; ++row) {
      for (let column = 0; column < this.width; ++column) {
        if (!isColour(this.at(column, row))) continue;
        const [x, y] = [column / this.width, row / this.height];
        ++found.count;
        found.x += x;
        found.y += y;
        found.left = Math.min(found.left, x);
        found.right = Math.max(found.right, x);
        found.top = Math.min(found.top, y);
        found.bottom = Math.max(found.bottom, y);
      }
    }
    return {...found, x: found.x / found.count, y: found.y / found.count};
  }

  /** A place of the window, from shares of the picture. */
  place(x, y) {
    return [this.canvas.x + x * this.width, this.canvas.y + y * this.height];
  }
}
