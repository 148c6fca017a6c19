// Parts that are drawn at once. Their points and indices stand part after part, and each point knows its part.

import {floatsOf, interleave} from './numbers.js';

/**
 * Batches with their share of the columns. Each has
 * - positions, and where it has them octahedral normals and texture coordinates;
 * - indices of its own points, three a triangle or two a segment;
 * - pointParts, the part of each point;
 * - parts, and for each of these in firstPoint and firstIndex where it begins, with one number more for the end.
 */
export function batchesOf(kinds, columns) {
  const positions = interleave([columns.x, columns.y, columns.z].map(floatsOf), Float32Array);
  const normals = interleave([columns.normalX, columns.normalY], Uint16Array);
  const coordinates = interleave([columns.s, columns.t].map(floatsOf), Float32Array);
  const indices = columns.indices;
  for (const name of ['x', 'y', 'z', 'normalX', 'normalY', 's', 't', 'indices']) delete columns[name];

  const batches = kinds.map((kind) => ({...kind, parts: []}));
  for (let part = 0; part < columns.partBatch.length; ++part) batches[columns.partBatch[part]].parts.push(part);
  const taken = {points: 0, normals: 0, coordinates: 0, indices: 0};
  const take = (array, width, what, count) =>
      array.subarray(width * taken[what], width * (taken[what] += count));
  for (const batch of batches) {
    layPartsOut(batch, columns);
    const count = batch.firstPoint.at(-1);
    batch.positions = take(positions, 3, 'points', count);
    if (batch.smooth) batch.normals = take(normals, 2, 'normals', count);
    if (batch.image !== undefined) batch.coordinates = take(coordinates, 2, 'coordinates', count);
    batch.indices = take(indices, 1, 'indices', batch.firstIndex.at(-1));
  }
  return batches;
}

function layPartsOut(batch, {partPoints, partIndices}) {
  const count = batch.parts.length;
  batch.firstPoint = new Uint32Array(count + 1);
  batch.firstIndex = new Uint32Array(count + 1);
  batch.parts.forEach((part, i) => {
    batch.firstPoint[i + 1] = batch.firstPoint[i] + partPoints[part];
    batch.firstIndex[i + 1] = batch.firstIndex[i] + partIndices[part];
  });
  batch.pointParts = new Uint32Array(batch.firstPoint[count]);
  batch.parts.forEach((part, i) => batch.pointParts.fill(part, batch.firstPoint[i], batch.firstPoint[i + 1]));
}

/** Where a part begins and ends in its batch. */
export function rangesOf(batch, part) {
  let from = 0;
  let to = batch.parts.length;
  while (to - from > 1) {
    const middle = from + to >>> 1;
    if (batch.parts[middle] <= part) from = middle;
    else to = middle;
  }
  return {
    points: [batch.firstPoint[from], batch.firstPoint[from + 1]],
    indices: [batch.firstIndex[from], batch.firstIndex[from + 1]],
  };
}
