// Measures the distance between two points that a person picks. A pick takes the corner that is near, else the place
// on the surface.

import {distance} from '../data/figures.js';

const SNAP = {mouse: 9, touch: 22, pen: 12};  // pixels of CSS
const SLOW = 60;                              // milliseconds; to point is not followed where a pick takes longer

export class Measuring {
  constructor(card, label, viewer, picker) {
    Object.assign(this, {card, label, viewer, picker});
    this.points = [];
    this.isOn = false;
    this.lineMaterial = viewer.materials.onTop(2, 1);
    card.querySelector('.clear').addEventListener('click', () => this.clear());
    viewer.addEventListener('drawn', () => this.#placeLabels());
    this.marks = [0, 1, 2].map(() => label.parentElement.appendChild(label.ownerDocument.createElement('i')));
    for (const mark of this.marks) mark.className = 'mark';
    this.clear();
  }

  setOn(isOn) {
    this.isOn = isOn;
    this.card.hidden = !isOn;
    this.viewer.canvas.classList.toggle('measuring', isOn);
    if (!isOn) this.clear();
  }

  clear() {
    this.points = [];
    this.pointed = null;
    this.#show();
  }

  /** Takes the point under a place of the window. */
  take(x, y, pointerType) {
    const point = this.#pointAt(x, y, pointerType);
    if (!point) return;
    if (this.points.length === 2) this.points = [];
    this.points.push(point);
    this.pointed = null;
    this.#show();
  }

  /** Shows which point would be taken. */
  pointAt(x, y) {
    if (this.lastTook > SLOW) return;
    const begun = performance.now();
    this.pointed = this.#pointAt(x, y, 'mouse');
    this.lastTook = performance.now() - begun;
    this.#show();
  }

  #pointAt(x, y, pointerType) {
    const reach = SNAP[pointerType] ?? SNAP.mouse;
    const hit = this.picker.pick(x, y, reach);
    if (!hit) return null;
    let best = hit.point;
    let least = reach;
    for (const corner of hit.corners) {
      const place = this.picker.placeOf(corner);
      const away = place ? Math.hypot(place.x - x, place.y - y) : Infinity;
      if (away <= least) [best, least] = [corner, away];
    }
    return best;
  }

  #show() {
    this.pair = this.#findPair();
    this.viewer.setOnTop('distance', this.pair && new Float32Array(this.pair.flat()), this.lineMaterial);
    const texts = this.#texts();
    for (const [name, text] of Object.entries(texts)) this.card.querySelector(`.${name}`).textContent = text;
    this.card.querySelector('.axes').hidden = !this.pair;
    this.card.querySelector('.clear').disabled = this.points.length === 0;
    this.#placeLabels();
    this.viewer.request();
  }

  // The two points that were taken, else the one and that which would be taken.
  #findPair() {
    const [first, second = this.pointed] = this.points;
    const isPair = first && second && second.some((component, axis) => component !== first[axis]);
    return isPair ? [first, second] : null;
  }

  #texts() {
    if (!this.pair) {
      return {distance: '', hint: this.points.length === 0 ? 'Pick a first point.' : 'Pick a second point.'};
    }
    const {text, steps: [dx, dy, dz]} = distance(this.pair, this.viewer.scene);
    return {distance: text, hint: '', dx, dy, dz};
  }

  #placeLabels() {
    const shown = [...this.points, this.pointed];
    this.marks.forEach((mark, i) => place(mark, shown[i] && i < shown.length ? this.picker.placeOf(shown[i]) : null));
    const middle = this.pair?.[0].map((component, axis) => (component + this.pair[1][axis]) / 2);
    place(this.label, middle ? this.picker.placeOf(middle) : null);
    if (middle) this.label.textContent = this.card.querySelector('.distance').textContent;
  }
}

function place(element, where) {
  element.hidden = !where;
  if (where) element.style.transform = `translate(${where.x}px, ${where.y}px) translate(-50%, -50%)`;
}
