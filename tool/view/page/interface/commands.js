// What buttons and keys do.

import {VIEWS} from '../draw/camera.js';
import {counted} from '../data/figures.js';
import {setPressed} from './elements.js';

const MOST_TRIANGLES_FOR_EDGES = 3_000_000;
const TURN = Math.PI / 24;  // of a key that turns
const STEP = 0.05;          // of one that moves, as a share of the window

const KEYS = {
  f: 'fitAll', s: 'fitSelection', z: 'zUp', w: 'wireframe', e: 'edges', m: 'measure',
  h: 'toggleSelection', o: 'showOnly', a: 'showAll', Escape: 'leave', '?': 'help',
  0: 'corner', 1: 'front', 2: 'back', 3: 'left', 4: 'right', 5: 'top', 6: 'bottom',
};

// To the right and up, of the eye.
const MOVES = {
  ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, 1], ArrowDown: [0, -1],
};
const ZOOMS = {'+': 0.9, '=': 0.9, '-': 1 / 0.9};

export function makeCommands({viewer, state, measuring, page}) {
  const {scene} = viewer;
  const all = scene.partsOf(scene.root);
  const toggles = {wireframe: false, edges: false, measure: false, zUp: false};
  const toggle = (name, apply) => () => {
    toggles[name] = !toggles[name];
    setPressed(page.querySelector(`[data-command=${name}][aria-pressed]`), toggles[name]);
    apply(toggles[name]);
  };
  const ofSelection = (act) => () => state.selected !== null && act(state.selected);
  const commands = {
    fitAll: () => viewer.fit(all),
    fitSelection: ofSelection((node) => viewer.fit(scene.partsOf(node))),
    toggleSelection: ofSelection((node) => state.toggle(node)),
    showOnly: ofSelection((node) => state.showOnly(node)),
    showAll: () => state.showAll(),
    wireframe: toggle('wireframe', (isOn) => viewer.setWireframe(isOn)),
    edges: toggle('edges', (isOn) => viewer.setEdges(isOn)),
    measure: toggle('measure', (isOn) => measuring.setOn(isOn)),
    zUp: toggle('zUp', (isOn) => {
      viewer.setUp(isOn ? 'z' : 'y');
      viewer.fit(all);
    }),
    help: () => page.getElementById('help').showModal(),
    leave: () => toggles.measure ? commands.measure() : state.select(null),
  };
  for (const [name, direction] of Object.entries(VIEWS)) {
    commands[name] = () => viewer.fit(all, direction);
  }
  return commands;
}

/** Edges of large scenes take too much time and memory. */
export function limitEdges(page, triangles) {
  if (triangles <= MOST_TRIANGLES_FOR_EDGES) return;
  const button = page.querySelector('[data-command=edges]');
  button.disabled = true;
  button.title = `${counted(triangles, 'triangle')} are too many for edges`;
}

export function followButtons(page, commands, state) {
  const ofSelection = page.querySelectorAll('[data-command=fitSelection]');
  const enable = () => ofSelection.forEach((button) => button.disabled = state.selected === null);
  state.addEventListener('selection', enable);
  enable();
  page.addEventListener('click', (event) => {
    const button = event.target.closest('[data-command]');
    if (!button) return;
    commands[button.dataset.command]();
    button.closest('[popover]')?.hidePopover();
  });
}

export function followKeys(page, commands, navigator) {
  page.addEventListener('keydown', (event) => {
    const isElsewhere = page.querySelector('dialog[open], :popover-open');
    if (event.ctrlKey || event.altKey || event.metaKey || isElsewhere) return;
    const command = KEYS[event.key.length === 1 ? event.key.toLowerCase() : event.key];
    if (command) {
      if (!page.querySelector(`[data-command=${command}]`)?.disabled) commands[command]();
    } else if (!event.target.matches('body, canvas') || !moveBy(event, navigator)) {
      return;
    }
    event.preventDefault();
  });
}

function moveBy({key, shiftKey}, navigator) {
  if (ZOOMS[key]) navigator.zoom(ZOOMS[key]);
  else if (!MOVES[key]) return false;
  else if (shiftKey) navigator.pan(...MOVES[key].map((step) => step * STEP));
  else navigator.orbit(...MOVES[key].map((step) => step * TURN));
  return true;
}
