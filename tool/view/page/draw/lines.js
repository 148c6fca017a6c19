import {
  BufferAttribute, InstancedBufferAttribute, InstancedBufferGeometry, InstancedInterleavedBuffer,
  InterleavedBufferAttribute,
} from 'three';

/** Segments to be drawn as strips. `ends` has six numbers for each; `parts`, where they belong to some, one. */
export function lineGeometry(ends, parts) {
  const geometry = new InstancedBufferGeometry();
  const corners = new Float32Array([0, -1, 0, 0, 1, 0, 1, -1, 0, 1, 1, 0]);
  geometry.setAttribute('position', new BufferAttribute(corners, 3));
  geometry.setIndex([0, 1, 2, 2, 1, 3]);
  const both = new InstancedInterleavedBuffer(ends, 6);
  geometry.setAttribute('start', new InterleavedBufferAttribute(both, 3, 0));
  geometry.setAttribute('end', new InterleavedBufferAttribute(both, 3, 3));
  if (parts) geometry.setAttribute('part', new InstancedBufferAttribute(parts, 1));
  geometry.instanceCount = ends.length / 6;
  return geometry;
}

/** The ends of segments between the points of a batch. */
export function endsOf({positions}, indices) {
  const ends = new Float32Array(3 * indices.length);
  for (let i = 0, to = 0; i < indices.length; ++i) {
    for (let at = 3 * indices[i], axis = 0; axis < 3; ++axis) ends[to++] = positions[at + axis];
  }
  return ends;
}

/** The twelve edges of a box. */
export function endsOfBox(box) {
  const corner = (i) => [box[i & 1 ? 3 : 0], box[i & 2 ? 4 : 1], box[i & 4 ? 5 : 2]];
  const ends = [];
  for (let i = 0; i < 8; ++i) {
    for (const step of [1, 2, 4]) {
      if (!(i & step)) ends.push(...corner(i), ...corner(i | step));
    }
  }
  return new Float32Array(ends);
}
