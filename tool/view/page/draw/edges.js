// The edges of surfaces: where triangles meet at an angle, and where only one is.

import {HashIndex, NONE, hashOf} from './hashing.js';
import {placesOf} from './places.js';

const LEAST_COSINE = Math.cos(25 * Math.PI / 180);

/** The ends of a batch's edges, six numbers for each, and the part of each. */
export function edgesOf(batch, boxOf) {
  const sides = findSides(batch, placesOf(batch, boxOf), normalsOf(batch));
  const count = sides.isEdge.reduce((sum, is) => sum + is, 0);
  const ends = new Float32Array(6 * count);
  const parts = new Uint32Array(count);
  for (let i = 0, edge = 0; i < sides.count; ++i) {
    if (!sides.isEdge[i]) continue;
    for (let axis = 0; axis < 3; ++axis) {
      ends[6 * edge + axis] = batch.positions[3 * sides.from[i] + axis];
      ends[6 * edge + axis + 3] = batch.positions[3 * sides.to[i] + axis];
    }
    parts[edge++] = batch.pointParts[sides.from[i]];
  }
  return {ends, parts};
}

function normalsOf({positions, indices}) {
  const normals = new Float32Array(indices.length);
  const u = [0, 0, 0];
  const v = [0, 0, 0];
  for (let i = 0; i < indices.length; i += 3) {
    for (let axis = 0; axis < 3; ++axis) {
      u[axis] = positions[3 * indices[i + 1] + axis] - positions[3 * indices[i] + axis];
      v[axis] = positions[3 * indices[i + 2] + axis] - positions[3 * indices[i] + axis];
    }
    const normal = [u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]];
    const length = Math.hypot(...normal) || 1;
    for (let axis = 0; axis < 3; ++axis) normals[i + axis] = normal[axis] / length;
  }
  return normals;
}

// All sides of triangles, each once. A side is an edge unless the last two triangles that have it are nearly in one
// plane. `corner` is where the first of them has it.
function findSides({indices}, places, normals) {
  const most = indices.length;
  const index = new HashIndex(most);
  const sides = {
    count: 0, from: new Uint32Array(most), to: new Uint32Array(most), corner: new Uint32Array(most),
    isEdge: new Uint8Array(most),
  };
  for (let corner = 0; corner < most; ++corner) {
    const from = places[indices[corner]];
    const to = places[indices[corner % 3 === 2 ? corner - 2 : corner + 1]];
    if (from === to) continue;
    const hash = hashOf(Math.min(from, to), Math.max(from, to));
    const isSame = (i) => sides.from[i] === from && sides.to[i] === to || sides.from[i] === to && sides.to[i] === from;
    const found = index.find(hash, isSame);
    if (found === NONE) {
      index.add(hash, sides.count);
      addSide(sides, from, to, corner);
    } else {
      const turned = sides.from[found] === from ? -1 : 1;
      const cosine = turned * cosineBetween(normals, sides.corner[found], corner);
      sides.isEdge[found] = cosine < LEAST_COSINE ? 1 : 0;
    }
  }
  return sides;
}

function addSide(sides, from, to, corner) {
  sides.from[sides.count] = from;
  sides.to[sides.count] = to;
  sides.corner[sides.count] = corner;
  sides.isEdge[sides.count++] = 1;
}

function cosineBetween(normals, a, b) {
  const i = a - a % 3;
  const j = b - b % 3;
  return normals[i] * normals[j] + normals[i + 1] * normals[j + 1] + normals[i + 2] * normals[j + 2];
}
