// Of transparent triangles, those that are further away have to be drawn first.

const MOST_TRIANGLES = 1_500_000;  // to sort more takes too long to do while a model is turned
const DEPTHS = 65_536;

export class TriangleSorter {
  constructor(batch, index) {
    this.index = index;
    this.indices = batch.indices;
    this.count = this.indices.length / 3;
    if (this.count > MOST_TRIANGLES) return;
    this.centres = centresOf(batch);
    this.depths = new Uint16Array(this.count);
    this.starts = new Uint32Array(DEPTHS + 1);
  }

  /** Sorts by how far triangles are in a direction, if it isn't that of the last time. */
  sort(direction) {
    if (!this.centres || this.last?.dot(direction) > 0.99999) return;
    this.last = direction.clone();
    this.#findDepths(direction);
    this.#place();
    this.index.needsUpdate = true;
  }

  #findDepths({x, y, z}) {
    const {centres, count, depths} = this;
    const depthOf = (i) => centres[3 * i] * x + centres[3 * i + 1] * y + centres[3 * i + 2] * z;
    let least = Infinity;
    let most = -Infinity;
    for (let i = 0; i < count; ++i) {
      const depth = depthOf(i);
      if (depth < least) least = depth;
      if (depth > most) most = depth;
    }
    const scale = (DEPTHS - 1) / Math.max(most - least, Number.MIN_VALUE);
    for (let i = 0; i < count; ++i) depths[i] = (most - depthOf(i)) * scale;
  }

  #place() {
    const {count, depths, indices, starts} = this;
    const sorted = this.index.array;
    starts.fill(0);
    for (let i = 0; i < count; ++i) ++starts[depths[i] + 1];
    for (let depth = 0; depth < DEPTHS; ++depth) starts[depth + 1] += starts[depth];
    for (let i = 0; i < count; ++i) {
      const to = 3 * starts[depths[i]]++;
      sorted[to] = indices[3 * i];
      sorted[to + 1] = indices[3 * i + 1];
      sorted[to + 2] = indices[3 * i + 2];
    }
  }
}

function centresOf({positions, indices}) {
  const centres = new Float32Array(indices.length);
  for (let i = 0; i < indices.length; i += 3) {
    for (let axis = 0; axis < 3; ++axis) {
      centres[i + axis] = (positions[3 * indices[i] + axis] + positions[3 * indices[i + 1] + axis] +
                           positions[3 * indices[i + 2] + axis]) / 3;
    }
  }
  return centres;
}
