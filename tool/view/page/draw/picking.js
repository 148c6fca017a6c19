// Finds what is under a place of the window: which part by drawing parts' numbers instead of colours, and the exact
// point from the part's own numbers.

import {Vector3, WebGLRenderTarget} from 'three';
import {rangesOf} from '../data/batches.js';
import {nearestDot, nearestOnSegments, nearestOnTriangles} from './nearest.js';

const nearestOf = {triangles: nearestOnTriangles, segments: nearestOnSegments, dots: nearestDot};

export class Picker {
  constructor(viewer) {
    this.viewer = viewer;
  }

  /**
   * What is nearest to (x, y) and at most `reach` pixels of CSS away; null for nothing. A hit has the part, the point
   * of it in the model, and the corners around that point.
   */
  pick(x, y, reach) {
    const found = this.#findPart(Math.round(x), Math.round(y), reach);
    if (!found) return null;
    const {scene} = this.viewer;
    const batch = scene.batchOf(found.part);
    return {part: found.part, ...nearestOf[batch.kind](batch, rangesOf(batch, found.part), this.#rayAt(found))};
  }

  /** Where a point of the model is in the window; null behind the eye. */
  placeOf(point) {
    const {frame, height, navigator: {camera}, width} = this.viewer;
    const seen = frame.toWorld(point).applyMatrix4(camera.matrixWorldInverse);
    if (seen.z > -camera.near) return null;
    seen.applyMatrix4(camera.projectionMatrix);
    return {x: (seen.x + 1) / 2 * width, y: (1 - seen.y) / 2 * height};
  }

  #findPart(x, y, reach) {
    const size = 2 * reach + 1;
    const pixels = this.#drawNumbers(x - reach, y - reach, size);
    let best = null;
    let least = Infinity;
    for (let row = 0; row < size; ++row) {
      for (let column = 0; column < size; ++column) {
        const at = 4 * (row * size + column);
        const away = Math.hypot(column - reach, row - reach);
        if (pixels[at + 3] === 0 || away >= least || away > reach + 0.5) continue;
        least = away;
        const number = pixels[at] | pixels[at + 1] << 8 | pixels[at + 2] << 16;
        best = {part: number - 1, x: x + column - reach, y: y - row + reach};
      }
    }
    return best;
  }

  // Rows stand from the bottom up.
  #drawNumbers(left, top, size) {
    const {drawings, height, materials, navigator: {camera}, renderer, stage, width} = this.viewer;
    if (this.target?.width !== size) {
      this.target?.dispose();
      this.target = new WebGLRenderTarget(size, size);
    }
    const {edges, wires} = this.viewer;
    const extras = [edges, wires].filter((extra) => extra?.visible);
    const shown = drawings.map(({object}) => object.visible);
    for (const drawing of drawings) Object.assign(drawing.object, {material: drawing.pick, visible: true});
    for (const extra of extras) extra.visible = false;
    camera.setViewOffset(width, height, left, top, size, size);
    materials.setViewport(size, size, 1);
    renderer.setRenderTarget(this.target);
    renderer.clear();
    renderer.render(stage, camera);
    const pixels = new Uint8Array(4 * size * size);
    renderer.readRenderTargetPixels(this.target, 0, 0, size, size, pixels);
    renderer.setRenderTarget(null);
    camera.clearViewOffset();
    drawings.forEach((drawing, i) => Object.assign(drawing.object, {material: drawing.draw, visible: shown[i]}));
    for (const extra of extras) extra.visible = true;
    return pixels;
  }

  // The ray through the middle of a pixel, in the model.
  #rayAt({x, y}) {
    const {frame, height, navigator: {camera}, width} = this.viewer;
    const far = new Vector3((x + 0.5) / width * 2 - 1, 1 - (y + 0.5) / height * 2, 0.5).unproject(camera);
    const direction = far.sub(camera.position).transformDirection(frame.inverse).toArray();
    return {origin: frame.toModel(camera.position), direction};
  }
}
