// Textures that shaders look up what they need in: the looks, and for each part its look and what was done to it. So
// parts of any colours are drawn at once, and to hide or to mark one changes a single number.

import {DataTexture, FloatType, NearestFilter, RGBAFormat, SRGBColorSpace, Color, UnsignedByteType} from 'three';

export const ROW = 1024;  // texels; all graphics can do twice as many
export const TEXELS_OF_LOOK = 4;

const HIDDEN = 1;
const SELECTED = 2;

export class PartTable {
  constructor(scene) {
    this.scene = scene;
    this.texture = makeTexture(Uint8Array, UnsignedByteType, scene.partCount);
    const {data} = this.texture.image;
    scene.columns.partLook.forEach((look, part) => {
      data[4 * part] = look & 0xff;
      data[4 * part + 1] = look >> 8 & 0xff;
      data[4 * part + 2] = look >> 16 & 0xff;
    });
  }

  update(state) {
    const {data} = this.texture.image;
    const [first, end] = state.selected === null ? [0, 0] : this.scene.partsOf(state.selected);
    state.hidden.forEach((hidden, part) => {
      data[4 * part + 3] = (hidden ? HIDDEN : 0) | (part >= first && part < end ? SELECTED : 0);
    });
    this.texture.needsUpdate = true;
  }
}

export class LookTable {
  constructor(scene) {
    this.looks = scene.looks;
    this.images = scene.images;
    this.texture = makeTexture(Float32Array, FloatType, TEXELS_OF_LOOK * this.looks.length);
  }

  /** Colours of surfaces are linear, those of lines sRGB: lines are told apart from the background. */
  update(background) {
    const {data} = this.texture.image;
    this.looks.forEach((look, i) => {
      const texels = [
        ...this.#surfaceColour(look), look.opacity,
        ...linear(look.emission), Math.max(look.shininess, 1),
        ...linear(look.specular), 0,
        ...readableOn(background, look.line), 0,
      ];
      data.set(texels, 4 * TEXELS_OF_LOOK * i);
    });
    this.texture.needsUpdate = true;
  }

  // An image takes the place of the colour unless it is grey. Without one, what is black would have no shape.
  #surfaceColour({diffuse, emission, image}) {
    const darkest = 0.02;
    if (image !== undefined) return this.images[image].grey ? linear(diffuse) : [1, 1, 1];
    return [diffuse, emission].every((colour) => Math.max(...linear(colour)) < darkest)
        ? [darkest, darkest, darkest] : linear(diffuse);
  }
}

function makeTexture(ArrayType, type, texels) {
  const rows = Math.max(Math.ceil(texels / ROW), 1);
  const texture = new DataTexture(new ArrayType(4 * ROW * rows), ROW, rows, RGBAFormat, type);
  texture.minFilter = texture.magFilter = NearestFilter;
  texture.needsUpdate = true;
  return texture;
}

function linear(colour) {
  return new Color().setRGB(...colour, SRGBColorSpace).toArray();
}

// Relative luminance and contrast as the Web Content Accessibility Guidelines define them.
function luminanceOf(colour) {
  const [red, green, blue] = linear(colour);
  return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

function contrastOf(a, b) {
  const [less, more] = [luminanceOf(a), luminanceOf(b)].sort((x, y) => x - y);
  return (more + 0.05) / (less + 0.05);
}

/** The colour, moved towards black or white as far as it needs to be seen on a background. */
function readableOn(background, colour) {
  const leastContrast = 2.5;
  const end = luminanceOf(background) > 0.18 ? 0 : 1;
  for (let share = 0; share < 1; share += 0.05) {
    const moved = colour.map((component) => component + (end - component) * share);
    if (contrastOf(moved, background) >= leastContrast) return moved;
  }
  return [end, end, end];
}
