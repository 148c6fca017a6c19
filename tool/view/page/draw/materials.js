// What surfaces, lines and dots are drawn with. Widths are in pixels of CSS.

import {Color, DoubleSide, ShaderMaterial, Vector2, Vector4} from 'three';
import {dotVertex, flatFragment, lineVertex, surfaceFragment, surfaceVertex, wireVertex} from './shaders.js';

const HIGHLIGHT = '#ff8a00';
const LINE_WIDTH = 1.75;
const DOT_WIDTH = 6;
const REACH = 6;  // how much wider lines and dots are to someone who points at them

export class Materials {
  constructor(partTexture, lookTexture) {
    const highlight = new Color(HIGHLIGHT);
    this.uniforms = {
      parts: {value: partTexture},
      looks: {value: lookTexture},
      highlight: {value: highlight},
      lineHighlight: {value: highlight.clone().convertLinearToSRGB()},
      viewport: {value: new Vector2(1, 1)},
      pixel: {value: 1},
    };
  }

  /** The size of what is drawn to, in its pixels, and how many of these a pixel of CSS has. */
  setViewport(width, height, pixel) {
    this.uniforms.viewport.value.set(width, height);
    this.uniforms.pixel.value = pixel;
  }

  /** To draw the triangles of a batch, and to find out which part is where. */
  ofTriangles(batch, image) {
    const defines = {NORMAL_STEPS: '2047.0'};
    if (batch.smooth) defines.SMOOTH = '';
    if (image) defines.TEXTURED = '';
    const uniforms = {image: {value: image}};
    const material = (more) => this.#make(surfaceVertex, surfaceFragment, {...defines, ...more}, uniforms);
    const draw = material({LEAST_OPACITY: '0.01'});
    const pick = material({LEAST_OPACITY: '0.5', PICK: ''});
    for (const either of [draw, pick]) {
      // Lines that lie in a surface are to be seen.
      Object.assign(either, {polygonOffset: true, polygonOffsetFactor: 1, polygonOffsetUnits: 1});
    }
    return {draw: transparentIf(batch.transparent, draw), pick};
  }

  ofSegments(batch) {
    return {
      draw: transparentIf(batch.transparent, this.#make(lineVertex, flatFragment, {WIDTH: LINE_WIDTH.toFixed(2)})),
      pick: this.#make(lineVertex, flatFragment, {WIDTH: (LINE_WIDTH + REACH).toFixed(2), PICK: ''}),
    };
  }

  ofDots(batch) {
    return {
      draw: transparentIf(batch.transparent,
                          this.#make(dotVertex, flatFragment, {WIDTH: DOT_WIDTH.toFixed(2), ROUND: ''})),
      pick: this.#make(dotVertex, flatFragment, {WIDTH: (DOT_WIDTH + REACH).toFixed(2), PICK: ''}),
    };
  }

  ofWires() {
    return this.#make(wireVertex, flatFragment, {});
  }

  /** Lines of one colour that are hidden with their parts. */
  painted(width) {
    const paint = {value: new Vector4(0, 0, 0, 1)};
    return transparentIf(true, this.#make(lineVertex, flatFragment, {WIDTH: width.toFixed(2), PAINTED: ''}, {paint}));
  }

  /** Lines of one colour in front of everything. */
  onTop(width, opacity) {
    const paint = {value: new Vector4(...this.uniforms.lineHighlight.value.toArray(), opacity)};
    const defines = {WIDTH: width.toFixed(2), PAINTED: '', FREE: ''};
    const material = transparentIf(true, this.#make(lineVertex, flatFragment, defines, {paint}));
    material.depthTest = false;
    return material;
  }

  #make(vertexShader, fragmentShader, defines, uniforms = {}) {
    return new ShaderMaterial({
      vertexShader, fragmentShader, defines, uniforms: {...this.uniforms, ...uniforms}, side: DoubleSide,
    });
  }
}

function transparentIf(transparent, material) {
  material.transparent = transparent;
  material.depthWrite = !transparent;
  return material;
}
