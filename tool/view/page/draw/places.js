// Points at the same place.

import {HashIndex, NONE, hashOf} from './hashing.js';

const ROUNDING = 1e-6;  // of the largest component
const CLOSENESS = 1e-5;  // of the largest extent

/**
 * For each point of a batch the first one of its part that is at the same place but for rounding, as the two ends of a
 * surface that goes all round are. `boxOf` gives the box of a part.
 */
export function placesOf({firstPoint, parts, positions}, boxOf) {
  const count = positions.length / 3;
  const places = new Uint32Array(count);
  const index = new HashIndex(count);
  const cells = new Int32Array(positions.length);
  parts.forEach((part, place) => {
    const size = cellSize(boxOf(part));
    const first = firstPoint[place];
    for (let i = first; i < firstPoint[place + 1]; ++i) {
      const near = [0, 1, 2].map((axis) => cellsNear(positions[3 * i + axis] / size));
      const isIn = (cell) => (j) => j >= first && cell.every((component, axis) => cells[3 * j + axis] === component);
      const found = findNear(near, (cell) => index.find(hashOf(part, ...cell), isIn(cell)));
      places[i] = found === NONE ? i : found;
      if (found !== NONE) continue;
      const own = near.map(([cell]) => cell);
      cells.set(own, 3 * i);
      index.add(hashOf(part, ...own), i);
    }
  });
  return places;
}

function cellSize(box) {
  const largest = Math.max(...box.map(Math.abs));
  const extent = Math.max(...[0, 1, 2].map((axis) => box[axis + 3] - box[axis]));
  return Math.max(ROUNDING * largest, CLOSENESS * extent, Number.MIN_VALUE);
}

// The cell that a component is in, and the one that it nearly is in.
function cellsNear(component) {
  const cell = Math.round(component);
  const aside = component - cell;
  return Math.abs(aside) < 0.4 ? [cell] : [cell, cell + Math.sign(aside)];
}

function findNear([xs, ys, zs], find) {
  for (const x of xs) {
    for (const y of ys) {
      for (const z of zs) {
        const found = find([x, y, z]);
        if (found !== NONE) return found;
      }
    }
  }
  return NONE;
}
