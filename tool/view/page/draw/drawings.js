// Batches as three.js draws them. Each is an object with the materials to draw it and to pick parts of it.

import {BufferAttribute, BufferGeometry, LineSegments, Mesh, Points, Sphere, Vector3} from 'three';
import {boxAroundAll} from '../data/facts.js';
import {endsOf, lineGeometry} from './lines.js';
import {TriangleSorter} from './sorting.js';

export function makeDrawings(scene, materials, textures) {
  return scene.batches.map((batch) => {
    const drawing = make[batch.kind](batch, materials, textures);
    drawing.batch = batch;
    // Nearly all batches are in sight nearly always. The sphere tells which transparent one is further away.
    drawing.object.frustumCulled = false;
    drawing.object.geometry.boundingSphere = sphereAround(scene, batch.parts);
    return drawing;
  });
}

const make = {
  triangles(batch, materials, textures) {
    const geometry = pointGeometry(batch);
    const {draw, pick} = materials.ofTriangles(batch, textures.of(batch));
    const indices = batch.transparent ? batch.indices.slice() : batch.indices;
    geometry.setIndex(new BufferAttribute(indices, 1));
    const sorter = batch.transparent ? new TriangleSorter(batch, geometry.index) : null;
    return {object: new Mesh(geometry, draw), draw, pick, sorter};
  },
  segments(batch, materials) {
    const parts = new Uint32Array(batch.indices.length / 2);
    for (let i = 0; i < parts.length; ++i) parts[i] = batch.pointParts[batch.indices[2 * i]];
    const {draw, pick} = materials.ofSegments(batch);
    return {object: new Mesh(lineGeometry(endsOf(batch, batch.indices), parts), draw), draw, pick};
  },
  dots(batch, materials) {
    const {draw, pick} = materials.ofDots(batch);
    return {object: new Points(pointGeometry(batch), draw), draw, pick};
  },
};

function pointGeometry(batch) {
  const geometry = new BufferGeometry();
  geometry.setAttribute('position', new BufferAttribute(batch.positions, 3));
  geometry.setAttribute('part', new BufferAttribute(batch.pointParts, 1));
  if (batch.normals) geometry.setAttribute('octahedral', new BufferAttribute(batch.normals, 2));
  if (batch.coordinates) geometry.setAttribute('coordinate', new BufferAttribute(batch.coordinates, 2));
  return geometry;
}

/** The edges of a drawing's triangles. */
export function makeWires({batch, object}, material) {
  const geometry = new BufferGeometry();
  for (const name of ['position', 'part']) geometry.setAttribute(name, object.geometry.getAttribute(name));
  const {indices} = batch;
  const wires = new Uint32Array(2 * indices.length);
  for (let i = 0; i < indices.length; i += 3) {
    wires.set([indices[i], indices[i + 1], indices[i + 1], indices[i + 2], indices[i + 2], indices[i]], 2 * i);
  }
  geometry.setIndex(new BufferAttribute(wires, 1));
  const lines = new LineSegments(geometry, material);
  lines.frustumCulled = false;
  return lines;
}

function sphereAround(scene, parts) {
  const box = boxAroundAll(scene, parts);
  const [centre, half] = [1, -1].map((sign) => [0, 1, 2].map((axis) => (box[axis + 3] + sign * box[axis]) / 2));
  return new Sphere(new Vector3(...centre), Math.hypot(...half));
}
