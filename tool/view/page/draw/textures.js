import {ClampToEdgeWrapping, RepeatWrapping, SRGBColorSpace, Texture} from 'three';

/** The images of a scene as textures. `loaded` is kept when all that were asked for are there. */
export class Textures {
  constructor(images, anisotropy) {
    this.images = images;
    this.anisotropy = anisotropy;
    this.elements = new Map();
    this.decodings = [];
  }

  get loaded() {
    return Promise.all(this.decodings);
  }

  /** The texture of a batch, with the image's lower left at (0, 0); null for a batch without one. */
  of(batch) {
    if (batch.image === undefined) return null;
    const wrap = (repeats) => repeats ? RepeatWrapping : ClampToEdgeWrapping;
    const texture = new Texture(this.#elementOf(batch.image), undefined, wrap(batch.repeatS), wrap(batch.repeatT));
    texture.colorSpace = SRGBColorSpace;
    texture.anisotropy = this.anisotropy;
    this.decodings.push(texture.image.decode().then(() => texture.needsUpdate = true));
    return texture;
  }

  #elementOf(image) {
    if (!this.elements.has(image)) {
      const element = new Image();
      element.src = this.images[image].data;
      this.elements.set(image, element);
    }
    return this.elements.get(image);
  }
}
