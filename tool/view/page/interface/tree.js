// The tree of groups and parts. Only those rows exist that are within its window.

import {hexOf, kindOf, labelOf} from '../data/facts.js';
import {grouped} from '../data/figures.js';
import {Rows} from './rows.js';

const DEEPEST_INDENT = 12;  // deeper rows tell their level in figures

/** Tells "fit" with a node that is to fill the window. */
export class Tree extends EventTarget {
  constructor(panel, template, scene, state) {
    super();
    Object.assign(this, {panel, template, scene, state});
    this.rows = new Rows(scene);
    this.current = scene.root;
    this.list = panel.querySelector('.rows');
    this.pool = [];
    panel.addEventListener('scroll', () => this.#draw(), {passive: true});
    panel.addEventListener('keydown', (event) => this.#obey(event));
    panel.addEventListener('focus', () => this.#draw());
    this.list.addEventListener('click', (event) => this.#click(event));
    this.list.addEventListener('dblclick', (event) => this.#fit(event));
    new ResizeObserver(() => this.#resize()).observe(panel);
    state.addEventListener('visibility', () => this.#draw());
    state.addEventListener('selection', () => this.#follow());
  }

  get rowHeight() {
    return parseFloat(getComputedStyle(this.panel).getPropertyValue('--row-height'));
  }

  #follow() {
    if (this.state.selected !== null) {
      this.current = this.state.selected;
      this.rows.reveal(this.current);
      this.#scrollToCurrent();
    }
    this.#draw();
  }

  // What was selected while there was no window has to be scrolled to.
  #resize() {
    const {clientHeight} = this.panel;
    if (clientHeight > 0 && !this.hadWindow) this.#scrollToCurrent();
    this.hadWindow = clientHeight > 0;
    this.#draw();
  }

  #scrollToCurrent() {
    const {panel, rowHeight} = this;
    const top = this.rows.indexOf(this.current) * rowHeight;
    this.list.style.height = `${this.rows.count * rowHeight}px`;
    if (top < panel.scrollTop) panel.scrollTop = top;
    if (top + rowHeight > panel.scrollTop + panel.clientHeight) panel.scrollTop = top + rowHeight - panel.clientHeight;
  }

  #draw() {
    const {list, panel, pool, rowHeight, rows} = this;
    list.style.height = `${rows.count * rowHeight}px`;
    const first = Math.floor(panel.scrollTop / rowHeight);
    const count = Math.max(Math.min(Math.ceil(panel.clientHeight / rowHeight) + 1, rows.count - first), 0);
    while (pool.length < count) pool.push(list.appendChild(this.template.content.firstElementChild.cloneNode(true)));
    pool.forEach((row, i) => {
      row.hidden = i >= count;
      if (row.hidden) row.removeAttribute('id');
      else this.#fill(row, first + i, rowHeight);
    });
    const isHere = pool.some((row) => row.id === `row-${this.current}`);
    if (isHere) panel.setAttribute('aria-activedescendant', `row-${this.current}`);
    else panel.removeAttribute('aria-activedescendant');
  }

  #fill(row, index, rowHeight) {
    const {rows, scene, state} = this;
    const node = rows.nodes[index];
    const isGroup = scene.isGroup(node);
    const depth = rows.depths[index];
    const visibility = state.visibilityOf(node);
    row.id = `row-${node}`;
    row.node = node;
    row.style.transform = `translateY(${index * rowHeight}px)`;
    row.style.setProperty('--depth', Math.min(depth - 1, DEEPEST_INDENT));
    row.classList.toggle('current', node === this.current);
    row.dataset.visibility = visibility;
    const attributes = {'aria-level': depth, 'aria-selected': node === state.selected};
    if (isGroup) attributes['aria-expanded'] = rows.isOpen(node);
    else row.removeAttribute('aria-expanded');
    for (const [name, value] of Object.entries(attributes)) row.setAttribute(name, value);
    this.#fillTexts(row, node, depth, visibility);
  }

  #fillTexts(row, node, depth, visibility) {
    const {scene} = this;
    const label = labelOf(scene, node);
    const [first, end] = scene.partsOf(node);
    const objects = scene.isGroup(node) ? end - first : scene.columns.partObjects[first];
    row.setAttribute('aria-label', visibility === 'hidden' ? `${label}, hidden` : label);
    row.querySelector('.level').textContent = depth - 1 > DEEPEST_INDENT ? depth : '';
    const name = row.querySelector('.name');
    name.textContent = label;
    name.classList.toggle('unnamed', scene.nameOf(node) === '' && node !== scene.root);
    row.querySelector('.count').textContent = objects > 1 ? grouped(objects) : '';
    const swatch = row.querySelector('.swatch');
    swatch.hidden = scene.isGroup(node);
    if (!swatch.hidden) this.#fillSwatch(swatch, scene.partOf(node));
    const eye = row.querySelector('.eye');
    eye.setAttribute('aria-label', `${visibility === 'hidden' ? 'Show' : 'Hide'} ${label}`);
  }

  #fillSwatch(swatch, part) {
    const look = this.scene.lookOf(part);
    const kind = this.scene.batchOf(part).kind;
    const image = look.image === undefined ? null : this.scene.images[look.image].data;
    swatch.dataset.kind = kind;
    swatch.title = kindOf(this.scene, part);
    const colour = kind === 'triangles' ? shown(look) : look.line;
    swatch.style.background = image ? `center / cover url("${image}")` : hexOf(colour);
  }

  #click(event) {
    const row = event.target.closest('.row');
    if (!row) return;
    this.current = row.node;
    if (event.target.closest('.eye')) this.state.toggle(row.node);
    else if (event.target.closest('.twist') && this.scene.isGroup(row.node)) this.#open(!this.rows.isOpen(row.node));
    else this.state.select(row.node);
    this.#draw();
  }

  #fit(event) {
    const row = event.target.closest('.row');
    if (row && !event.target.closest('button, .twist')) this.#tellFit(row.node);
  }

  #tellFit(node) {
    this.dispatchEvent(new CustomEvent('fit', {detail: node}));
  }

  #open(isOpen) {
    this.rows.setOpen(this.current, isOpen);
    this.#draw();
  }

  #moveTo(index) {
    this.current = this.rows.nodes[Math.min(Math.max(index, 0), this.rows.count - 1)];
    this.#scrollToCurrent();
    this.#draw();
  }

  #obey(event) {
    const act = this.#actionFor(event.key);
    if (!act || event.ctrlKey || event.altKey || event.metaKey) return;
    event.preventDefault();
    event.stopPropagation();
    act();
  }

  // Keys as trees of the web have them.
  #actionFor(key) {
    const {current, rows, scene, state} = this;
    const at = rows.indexOf(current);
    const page = Math.max(Math.floor(this.panel.clientHeight / this.rowHeight) - 1, 1);
    const isOpen = rows.isOpen(current);
    return {
      ArrowDown: () => this.#moveTo(at + 1),
      ArrowUp: () => this.#moveTo(at - 1),
      PageDown: () => this.#moveTo(at + page),
      PageUp: () => this.#moveTo(at - page),
      Home: () => this.#moveTo(0),
      End: () => this.#moveTo(rows.count - 1),
      ArrowRight: () => isOpen ? this.#moveTo(at + 1) : this.#open(true),
      ArrowLeft: () => isOpen ? this.#open(false) : this.#moveTo(rows.indexOf(Math.max(scene.parentOf(current), 0))),
      Enter: () => state.select(current),
      ' ': () => state.toggle(current),
    }[key];
  }
}

// What emits light by itself looks like that.
function shown({diffuse, emission}) {
  return diffuse.map((share, i) => Math.min(share + emission[i], 1));
}
