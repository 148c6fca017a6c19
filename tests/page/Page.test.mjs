import assert from 'node:assert/strict';
import {copyFileSync} from 'node:fs';
import {join} from 'node:path';
import {after, before, test} from 'node:test';
import {fileURLToPath} from 'node:url';
import {BLUE, Browser, GREEN, ORANGE, RED, YELLOW} from './support.mjs';

let browser;
before(async () => browser = await Browser.start());
after(() => browser.stop());

const box = (name, colour, place, size = '20 20 20') => `DEF ${name} Transform { translation ${place} children Shape {
  appearance Appearance { material Material { diffuseColor ${colour} } } geometry Box { size ${size} } } }\n`;

const ARMS = `#VRML V2.0 utf8\n${box('red', '1 0 0', '40 0 0')}${box('green', '0 1 0', '0 40 0')}${
    box('blue', '0 0 1', '0 0 40')}`;

function where({count, x, y}) {
  return count > 500 ? `${x > 0.5 ? 'right' : 'left'} ${y > 0.5 ? 'below' : 'above'}` : 'nowhere';
}

// The middle of the scene is (20, 20, 20), so that each box is on one side of it along each axis.
test('shows each colour where it is from every side', async () => {
  const page = await browser.show(ARMS);
  const views = {
    1: ['right below', 'left above', 'left below'],
    2: ['left below', 'right above', 'right below'],
    3: ['left below', 'left above', 'right below'],
    4: ['right below', 'right above', 'left below'],
    5: ['right above', 'left above', 'left below'],
    6: ['right below', 'left below', 'left above'],
  };
  for (const [key, places] of Object.entries(views)) {
    await page.keyboard.press(key);
    const picture = await browser.look(page);
    assert.deepEqual([RED, GREEN, BLUE].map((colour) => where(picture.find(colour))), places, `view ${key}`);
  }
  assert.deepEqual(page.faults, []);
});

test('selects, tells about, hides and fits what the tree lists', async () => {
  const page = await browser.show(ARMS);
  assert.deepEqual(await page.locator('.row:visible .name').allInnerTexts(), ['scene.wrl', 'red', 'green', 'blue']);
  await page.locator('.tree').focus();
  for (const key of ['ArrowDown', 'ArrowRight', 'ArrowDown', 'Enter']) await page.keyboard.press(key);
  assert.equal(await page.locator('.row[aria-selected=true] .name').innerText(), 'Box');
  const facts = (await page.locator('.facts').innerText()).replace(/\s+/g, ' ');
  // 6 sides of 20 x 20
  assert.match(facts, /brixBox Colour #ff0000 Size 20 × 20 × 20 m Area 2,400 m² of the triangles Triangles 12$/);
  const selected = await browser.look(page);
  assert.equal(selected.find(RED).count, 0);
  assert.ok(selected.find(ORANGE).count > 500);

  await page.keyboard.press('Space');
  const hidden = await browser.look(page);
  assert.ok(hidden.find(ORANGE).count < selected.find(ORANGE).count / 5);  // the box around it is left
  assert.ok(hidden.find(GREEN).count > 500);
  await page.getByRole('button', {name: 'Show all'}).click();
  await page.getByRole('button', {name: 'Fit selection'}).click();
  const fitted = (await browser.look(page)).find(ORANGE);
  assert.ok(fitted.bottom - fitted.top > 0.8 || fitted.right - fitted.left > 0.8);
  assert.ok(fitted.top > 0.01 && fitted.bottom < 0.99);

  await page.keyboard.press('1');
  const front = await browser.look(page);
  const green = front.find(GREEN);
  await page.mouse.click(...front.place(green.x, green.y));
  assert.equal(await page.locator('.row[aria-selected=true]').count(), 1);
  assert.match(await page.locator('.facts').innerText(), /#00ff00/);
  await page.mouse.click(...front.place(0.02, 0.5));
  assert.equal(await page.locator('.row[aria-selected=true]').count(), 0);
  assert.deepEqual(page.faults, []);
});

// The front of the box is 30 x 40 m, so its diagonal is 50 m.
test('measures between corners', async () => {
  const page = await browser.show(`#VRML V2.0 utf8\n${box('plate', '1 0 0', '700 0 0', '30 40 20')}`,
                                  {viewport: {width: 1400, height: 700}});
  await page.keyboard.press('1');
  await page.keyboard.press('m');
  const picture = await browser.look(page);
  const {bottom, left, right, top} = picture.find(RED);
  await page.mouse.click(...picture.place(right - 0.005, top + 0.005));
  await page.mouse.click(...picture.place(left + 0.005, bottom - 0.005));
  assert.match(await page.locator('.measuring-card').innerText(), /^50 m\s+X\s+30\s+Y\s+40\s+Z\s+0\s/);
  assert.equal(await page.locator('.distance-label').innerText(), '50 m');
  await page.getByRole('button', {name: 'Clear'}).click();
  assert.match(await page.locator('.measuring-card').innerText(), /^Pick a first point/);
  assert.equal(await page.locator('.distance-label').isVisible(), false);
});

// The first pixels of a PixelTexture are the lowest ones, those of a file the highest ones.
test('shows textures the right way up', async () => {
  const tile = fileURLToPath(new URL('../scenes/tile.png', import.meta.url));
  copyFileSync(tile, join(browser.folder, 'tile.png'));
  const look = async (texture) => {
    const page = await browser.show(`#VRML V2.0 utf8
      Shape { appearance Appearance { texture ${texture} repeatS FALSE repeatT FALSE } } geometry IndexedFaceSet {
      coord Coordinate { point [ 0 0 0, 40 0 0, 40 40 0, 0 40 0 ] } coordIndex [ 0 1 2 3 -1 ]
      texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1, 0 1 ] } } }`);
    await page.keyboard.press('1');
    assert.deepEqual(page.faults, []);
    return browser.look(page);
  };
  const pixels = await look('PixelTexture { image 2 2 3 0xFF0000 0x00FF00 0x0000FF 0xFFFF00');
  const {left, top} = pixels.find(BLUE);
  const {right, bottom} = pixels.find(GREEN);
  const isAt = (colour, picture, x, y) => colour(picture.at((left + x * (right - left)) * picture.width,
                                                            (top + y * (bottom - top)) * picture.height));
  assert.ok(right - left > 0.5 && bottom - top > 0.5);
  assert.ok(isAt(YELLOW, pixels, 0.9, 0.1) && isAt(RED, pixels, 0.1, 0.9));
  const file = await look('ImageTexture { url "tile.png"');
  assert.ok(isAt(RED, file, 0.1, 0.1) && isAt(GREEN, file, 0.5, 0.1));
});

test('takes nothing from a file for HTML', async () => {
  const name = '</script><img/src=x:/onerror=alert`1`>';
  const page = await browser.show(`#VRML V2.0 utf8\n${box(name, '1 0 0', '0 0 0')}`, {name: '<b>&amp;.wrl'});
  assert.deepEqual(await page.locator('.row:visible .name').allInnerTexts(), ['<b>&amp;.wrl', name, 'Box']);
  assert.equal(await page.title(), '<b>&amp;.wrl – qelvrml');
  assert.equal(await page.locator('img, b').count(), 0);
  assert.deepEqual(page.faults, []);
});

// Black and white, of which one hardly differs from each background.
test('has lines and dots seen on light and dark, on a phone', async () => {
  const appearance = (colour) => `appearance Appearance { material Material { emissiveColor ${colour} } }`;
  const line = (y, colour) => `Shape { ${appearance(colour)} geometry IndexedLineSet { coordIndex [ 0 1 -1 ]
    coord Coordinate { point [ 0 ${y} 0, 100 ${y} 0 ] } } }\n`;
  const dot = (y, colour) => `Shape { ${appearance(colour)} geometry PointSet {
    coord Coordinate { point [ 50 ${y} 0 ] } } }\n`;
  const scene = `#VRML V2.0 utf8\n${line(0, '0 0 0')}${line(40, '1 1 1')}${dot(80, '0 0 0')}${dot(120, '1 1 1')}`;
  for (const colorScheme of ['light', 'dark']) {
    const page = await browser.show(
        scene, {colorScheme, viewport: {width: 390, height: 800}, isMobile: true, hasTouch: true});
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 390);
    await page.keyboard.press('1');
    const picture = await browser.look(page);
    const luminance = ([r, g, b]) => (r + g + b) / 3;
    const background = luminance(picture.at(picture.width / 2, 5));
    assert.equal(background > 128, colorScheme === 'light');
    const seen = [];
    for (let row = 0; row < picture.height; ++row) {
      const isSeen = Math.abs(luminance(picture.at(picture.width / 2, row)) - background) > 40;
      if (isSeen && !(row - seen.at(-1) <= 12)) seen.push(row);
    }
    assert.equal(seen.length, 4, `${colorScheme}: ${seen}`);

    await page.touchscreen.tap(...picture.place(0.5, seen[2] / picture.height + 0.004));
    assert.match(await page.locator('.summary').innerText(), /^Polyline/);
    assert.equal(await page.locator('.tree').evaluate((tree) => tree.closest('[inert]') !== null), true);
    await page.getByRole('button', {name: 'Parts and details'}).tap();
    await page.waitForFunction(() => document.querySelector('#panel').getBoundingClientRect().left === 0);
    assert.equal(await page.locator('.row[aria-selected=true]').isVisible(), true);
    assert.deepEqual(page.faults, []);
  }
});

test('lists many parts and deep groups', async () => {
  const depth = 300;
  const groups = Array.from({length: depth}, (_, i) => `DEF level${i} Group { children [`).join(' ');
  const boxes = Array.from({length: 3000}, (_, i) => {
    return box(`part${i}`, '0 1 0', `${30 * (i % 50)} ${30 * Math.floor(i / 50)} 0`);
  });
  const page = await browser.show(`#VRML V2.0 utf8\n${boxes.join('')}${groups}${
      box('deepest', '1 0 0', '800 900 200')}${'] }'.repeat(depth)}`);
  await page.locator('.tree').focus();
  await page.keyboard.press('End');
  await page.keyboard.press('ArrowUp');
  assert.equal(await page.locator('.row.current .name').innerText(), 'part2999');
  assert.ok(await page.locator('.row').count() < 60);
  await page.keyboard.press('1');
  const picture = await browser.look(page);
  const {x, y} = picture.find(RED);
  await page.mouse.click(...picture.place(x, y));
  // The root, 300 groups, the transform and the box.
  assert.equal(await page.locator('.row[aria-selected=true]').getAttribute('aria-level'), String(depth + 3));
  assert.equal(await page.locator('.row[aria-selected=true]').isVisible(), true);
  assert.deepEqual(page.faults, []);
});
