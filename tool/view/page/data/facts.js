// What can be told about nodes of a scene.

import {rangesOf} from './batches.js';

/** Box around parts, least corner first. */
export function boxAround(scene, [first, end]) {
  const box = emptyBox();
  for (let part = first; part < end; ++part) grow(box, scene, part);
  return box;
}

/** The same for parts that don't stand in one row. */
export function boxAroundAll(scene, parts) {
  const box = emptyBox();
  for (const part of parts) grow(box, scene, part);
  return box;
}

function emptyBox() {
  return [Infinity, Infinity, Infinity, -Infinity, -Infinity, -Infinity];
}

function grow(box, {boxes}, part) {
  for (let axis = 0; axis < 3; ++axis) {
    box[axis] = Math.min(box[axis], boxes[axis][part]);
    box[axis + 3] = Math.max(box[axis + 3], boxes[axis + 3][part]);
  }
}

/** Numbers of parts, objects, triangles, segments and dots. */
export function countsOf(scene, [first, end]) {
  const counts = {parts: end - first, objects: 0, triangles: 0, segments: 0, dots: 0};
  const {partObjects, partPoints, partIndices} = scene.columns;
  for (let part = first; part < end; ++part) {
    counts.objects += partObjects[part];
    const {kind} = scene.batchOf(part);
    if (kind === 'dots') counts.dots += partPoints[part];
    else counts[kind] += partIndices[part] / (kind === 'triangles' ? 3 : 2);
  }
  return counts;
}

/** Area of all triangles of parts. */
export function areaOf(scene, [first, end]) {
  let area = 0;
  for (let part = first; part < end; ++part) {
    const batch = scene.batchOf(part);
    if (batch.kind === 'triangles') area += areaOfTriangles(batch, rangesOf(batch, part).indices);
  }
  return area;
}

function areaOfTriangles({positions, indices}, [from, to]) {
  let area = 0;
  for (let i = from; i < to; i += 3) {
    const a = 3 * indices[i];
    const b = 3 * indices[i + 1];
    const c = 3 * indices[i + 2];
    const ux = positions[b] - positions[a];
    const uy = positions[b + 1] - positions[a + 1];
    const uz = positions[b + 2] - positions[a + 2];
    const vx = positions[c] - positions[a];
    const vy = positions[c + 1] - positions[a + 1];
    const vz = positions[c + 2] - positions[a + 2];
    area += Math.sqrt((uy * vz - uz * vy) ** 2 + (uz * vx - ux * vz) ** 2 + (ux * vy - uy * vx) ** 2) / 2;
  }
  return area;
}

/** What a node is called: its name, else what it is. Long names are cut, for they are shown in one line. */
export function labelOf(scene, node) {
  const longest = 200;
  const name = scene.nameOf(node);
  if (name !== '') return name.length > longest ? `${name.slice(0, longest)}\u2026` : name;
  if (node === scene.root) return scene.file;
  return scene.isGroup(node) ? 'Group' : kindOf(scene, scene.partOf(node));
}

/** "Cone" for a brixCone. */
export function kindOf(scene, part) {
  return scene.classOf(part).replace(/^(brix|CKel)/, '').replace(/\B([A-Z])/g, (letter) => ` ${letter.toLowerCase()}`);
}

/** A colour as CSS writes it. */
export function hexOf(colour) {
  return `#${colour.map((share) => Math.round(share * 255).toString(16).padStart(2, '0')).join('')}`;
}
