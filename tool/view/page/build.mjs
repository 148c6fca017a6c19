// Makes the page around a scene, as C++:
//
//   node build.mjs PACKAGES OUTPUT
//
// PACKAGES is the folder whose node_modules hold what package.json names, OUTPUT the source that defines what
// PageFrame.h declares. Script and styles become one text each, which the page's policy names by their hashes: nothing
// else that stands in a page is ever run.

import {createHash} from 'node:crypto';
import {readFileSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {dirname, join} from 'node:path';
import {fileURLToPath} from 'node:url';

const here = dirname(fileURLToPath(import.meta.url));
const [packages, output] = process.argv.slice(2);
const {buildSync} = createRequire(join(packages, 'package.json'))('esbuild');

function bundle(file, options) {
  const result = buildSync({
    entryPoints: [join(here, file)],
    nodePaths: [join(packages, 'node_modules')],
    bundle: true,
    minify: true,
    write: false,
    legalComments: 'inline',
    target: ['chrome114', 'firefox125', 'safari17'],
    ...options,
  });
  return result.outputFiles[0].text.trim();
}

// Its license asks for the whole of it in every copy.
function licenseOf(name) {
  return `/*! ${name}\n\n${readFileSync(join(packages, 'node_modules', name, 'LICENSE'), 'utf8').trim()}\n*/`;
}

function policyFor(script, styles) {
  const hash = (text) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;
  return [
    `default-src 'none'`, `script-src ${hash(script)}`, `style-src ${hash(styles)}`, `img-src data: blob:`,
    `base-uri 'none'`, `form-action 'none'`,
  ].join('; ');
}

function makePage() {
  const script = bundle('main.js', {format: 'iife', banner: {js: licenseOf('three')}});
  const styles = bundle('styles/page.css', {});
  const parts = {POLICY: policyFor(script, styles), STYLES: styles, SCRIPT: script};
  const frame = readFileSync(join(here, 'page.html'), 'utf8').replace(/^ +/gm, '');
  const page = frame.replace(/%(POLICY|STYLES|SCRIPT)%/g, (_, name) => parts[name]);
  // Browsers change these, and then the hashes are those of other texts.
  if (/[\0\r]/.test(page)) throw new Error('the page has characters that browsers replace');
  return page.split('%SCENE%\n');
}

// Compilers take texts of 65,536 characters.
function asFunction(name, text) {
  const pieces = text.match(/[^]{1,60000}/gu).map((piece) => `R"qelvrml(${piece})qelvrml"`);
  return `std::string ${name}() { return Join({\n${pieces.join(',\n')}}); }\n`;
}

const [start, end, ...others] = makePage();
if (end === undefined || others.length > 0) throw new Error('page.html must have one line %SCENE%');
writeFileSync(output, `#include "view/PageFrame.h"

#include <initializer_list>

namespace {

std::string Join(std::initializer_list<const char*> pieces) {
  std::string text;
  for (const char* piece : pieces) text += piece;
  return text;
}

}  // namespace

${asFunction('PageStart', start)}
${asFunction('PageEnd', end)}`);
