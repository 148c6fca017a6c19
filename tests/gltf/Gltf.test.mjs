import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {tmpdir} from 'node:os';
import {dirname, join} from 'node:path';
import {after, before, test} from 'node:test';
import {fileURLToPath} from 'node:url';

const {PACKAGES, QELVRML_TOOL} = process.env;
const {validateBytes} = createRequire(join(PACKAGES, 'package.json'))('gltf-validator');

let folder;
before(() => folder = mkdtempSync(join(tmpdir(), 'qelvrml-gltf-')));
after(() => rmSync(folder, {recursive: true}));

/** Where the validator finds an error in a file, and what. */
async function errorsOf(path) {
  const beside = (uri) => new Uint8Array(readFileSync(join(dirname(path), decodeURIComponent(uri))));
  const {issues} = await validateBytes(new Uint8Array(readFileSync(path)), {
    maxIssues: 10,
    externalResourceFunction: async (uri) => beside(uri),
  });
  return issues.messages.filter(({severity}) => severity === 0).map(({code, pointer}) => `${path}: ${code} ${pointer}`);
}

// Faces without area and on points beyond all numbers, names that are no UTF-8, more points than two bytes count.
const hostile = `#VRML V2.0 utf8
DEF a\xFF Shape { geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1e39 0 0, 0 1 0, 1 0 0, 2 0 0 ] }
  coordIndex [ 0 1 2 -1 0 3 4 -1 0 3 2 -1 0 0 0 -1 ] } }
Transform { scale 1e-30 1e-30 0 children Shape { geometry Cone {} } }
Shape { geometry ElevationGrid { xDimension 300 zDimension 300 xSpacing 1 zSpacing 1 height 0 } }`;

for (const format of ['glb', 'gltf']) {
  test(`a .${format} file has no errors`, async () => {
    const scenes = join(folder, 'hostile #1.wrl');
    writeFileSync(scenes, hostile, 'latin1');
    const source = (path) => fileURLToPath(new URL(path, import.meta.url));
    const inputs = [scenes, source('../../examples/scenes'), source('../scenes/every-class.wrl'),
                    source('../scenes/rich-1.0.wrl'), source('../scenes/rich-2.0.wrl')];
    execFileSync(QELVRML_TOOL, ['convert', ...inputs, '--to', format, '--into', join(folder, format)]);
    const files = readdirSync(join(folder, format)).filter((name) => name.endsWith(`.${format}`));
    assert.equal(files.length, 10);
    const errors = await Promise.all(files.map((name) => errorsOf(join(folder, format, name))));
    assert.deepEqual(errors.flat(), []);
  });
}
