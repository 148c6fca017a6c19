// What the panel tells about the selected node, else about the scene.

import {areaOf, boxAround, countsOf, hexOf} from '../data/facts.js';
import {counted, extent, grouped, measure, percent} from '../data/figures.js';
import {element} from './elements.js';

export class Details {
  constructor(panel, scene, state) {
    Object.assign(this, {panel, scene, state});
    state.addEventListener('selection', () => this.#fill());
    state.addEventListener('visibility', () => this.#fillActions());
    this.#fill();
  }

  #fillActions() {
    const {selected} = this.state;
    this.panel.querySelector('.actions').hidden = selected === null;
    if (selected === null) return;
    const isHidden = this.state.visibilityOf(selected) === 'hidden';
    this.panel.querySelector('[data-command=toggleSelection]').textContent = isHidden ? 'Show' : 'Hide';
  }

  #fill() {
    const {panel, scene, state} = this;
    const node = state.selected ?? scene.root;
    const isScene = node === scene.root;
    panel.querySelector('h2').textContent = isScene ? 'Scene' : scene.isGroup(node) ? 'Group' : 'Object';
    this.#fillActions();
    const rows = isScene ? this.#sceneRows() : [['Name', scene.nameOf(node) || small('none')]];
    if (!scene.isGroup(node)) rows.push(...this.#partRows(scene.partOf(node)));
    const list = element('dl');
    for (const [label, ...value] of [...rows, ...this.#figureRows(node)]) {
      list.append(element('dt', {textContent: label}), element('dd', {}, ...value));
    }
    panel.querySelector('.facts').replaceChildren(list, ...(isScene ? this.#notes() : []));
    panel.scrollTop = 0;
  }

  #sceneRows() {
    const {file, unit, unitMeaning} = this.scene;
    return [['File', file], ['Unit', unit, small(unitMeaning)]];
  }

  #figureRows(node) {
    const {scene} = this;
    const parts = scene.partsOf(node);
    const counts = countsOf(scene, parts);
    const rows = [['Size', extent(boxAround(scene, parts), scene)]];
    if (counts.objects > 1) rows.push(['Objects', grouped(counts.objects)]);
    if (counts.triangles > 0) {
      rows.push(['Area', `${measure(areaOf(scene, parts))} ${scene.unit}\u00b2`, small('of the triangles')]);
      rows.push(['Triangles', grouped(counts.triangles)]);
    }
    if (counts.segments > 0) rows.push(['Lines', grouped(counts.segments)]);
    if (counts.dots > 0) rows.push(['Dots', grouped(counts.dots)]);
    return rows;
  }

  #partRows(part) {
    const {scene} = this;
    const look = scene.lookOf(part);
    const isSurface = scene.batchOf(part).kind === 'triangles';
    const rows = [['Class', scene.classOf(part)]];
    const colours = isSurface ? {Colour: look.diffuse, Specular: look.specular, Emission: look.emission}
                              : {Colour: look.line};
    for (const [label, colour] of Object.entries(colours)) {
      if (label === 'Colour' || colour.some((share) => share > 0)) rows.push([label, ...swatch(colour)]);
    }
    if (look.opacity < 1) rows.push(['Transparency', percent(1 - look.opacity)]);
    if (look.image !== undefined) rows.push(['Texture', ...picture(scene.images[look.image])]);
    return rows;
  }

  #notes() {
    const {notes, unlistedNotes} = this.scene;
    if (notes.length === 0) return [];
    const list = element('ul', {className: 'notes'}, ...notes.map((note) => element('li', {textContent: note})));
    if (unlistedNotes > 0) list.append(element('li', {textContent: `and ${grouped(unlistedNotes)} more that differ`}));
    return [element('h3', {textContent: counted(notes.length + unlistedNotes, 'note')}), list];
  }
}

const small = (text) => element('small', {textContent: text});

function swatch(colour) {
  const square = element('span', {className: 'swatch'});
  square.style.background = hexOf(colour);
  return [square, hexOf(colour)];
}

function picture({data, file, height, width}) {
  return [
    element('img', {src: data, alt: ''}),
    element('span', {textContent: file || 'pixels of the scene'}),
    small(`${grouped(width)} \u00d7 ${grouped(height)} pixels`),
  ];
}
