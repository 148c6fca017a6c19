import {readBlocks} from './data/blocks.js';
import {boxAround, countsOf, labelOf} from './data/facts.js';
import {counted, extent} from './data/figures.js';
import {Scene} from './data/scene.js';
import {State} from './data/state.js';
import {Picker} from './draw/picking.js';
import {Viewer} from './draw/viewer.js';
import {followAxes} from './interface/axes.js';
import {followButtons, followKeys, limitEdges, makeCommands} from './interface/commands.js';
import {Details} from './interface/details.js';
import {followDrawer} from './interface/drawer.js';
import {Measuring} from './interface/measuring.js';
import {followMenus} from './interface/menus.js';
import {followPointer} from './interface/pointing.js';
import {followTheme} from './interface/theme.js';
import {Tree} from './interface/tree.js';

const find = (selector) => document.querySelector(selector);

// The line in the corner, of the selected node or of the scene.
function tellSize(scene, state) {
  const node = state.selected ?? scene.root;
  const parts = scene.partsOf(node);
  const size = extent(boxAround(scene, parts), scene);
  const {notes, unlistedNotes} = scene;
  const noteCount = notes.length + unlistedNotes;
  find('.summary .what').textContent = state.selected === null ? '' : labelOf(scene, node);
  find('.summary .size').textContent = size;
  find('.summary .note-count').textContent = noteCount > 0 && state.selected === null ? counted(noteCount, 'note') : '';
}

function makeViewer(scene, state) {
  try {
    return new Viewer(find('canvas'), scene, state);
  } catch {
    throw new Error('this browser or its graphics card has no WebGL 2');
  }
}

async function start() {
  const {tables, columns} = await readBlocks(document);
  const scene = new Scene(tables, columns);
  const state = new State(scene);
  document.title = `${scene.file} \u2013 qelvrml`;
  find('.file').textContent = scene.file;
  const tree = new Tree(find('.tree'), find('#row'), scene, state);
  new Details(find('.details'), scene, state);
  const summarize = () => tellSize(scene, state);
  state.addEventListener('selection', summarize);
  summarize();
  const drawer = followDrawer(document);

  const viewer = makeViewer(scene, state);
  const picker = new Picker(viewer);
  const measuring = new Measuring(find('.measuring-card'), find('.distance-label'), viewer, picker);
  const commands = makeCommands({viewer, state, measuring, page: document});
  const fit = (node) => viewer.fit(scene.partsOf(node));
  followButtons(document, {...commands, ...drawer}, state);
  followKeys(document, commands, viewer.navigator);
  followMenus(document);
  followTheme(find('.theme'), viewer);
  followAxes(find('.axes-picture'), viewer);
  followPointer(viewer, {picker, state, measuring, fit});
  tree.addEventListener('fit', ({detail}) => fit(detail));
  limitEdges(document, countsOf(scene, scene.partsOf(scene.root)).triangles);
  await viewer.textures.loaded;
  fit(scene.root);
  viewer.navigator.arrive();
  viewer.addEventListener('drawn', () => document.body.dataset.state = 'ready', {once: true});
}

start().catch((error) => {
  document.body.dataset.state = 'failed';
  find('.curtain').textContent = `The scene can't be shown: ${error.message}.`;
  console.error(error);
});
