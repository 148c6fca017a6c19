// What a person has done to a scene: which parts are hidden, and which node is selected.

/** Tells "visibility" and "selection" when they have changed. */
export class State extends EventTarget {
  constructor(scene) {
    super();
    this.scene = scene;
    this.hidden = new Uint8Array(scene.partCount);
    this.selected = null;
  }

  select(node) {
    if (node === this.selected) return;
    this.selected = node;
    this.dispatchEvent(new Event('selection'));
  }

  /** "shown", "hidden" or "some" of it. */
  visibilityOf(node) {
    const [first, end] = this.scene.partsOf(node);
    const parts = this.hidden.subarray(first, end);
    const hidden = parts[0] === 1;
    if (parts.includes(hidden ? 0 : 1)) return 'some';
    return hidden ? 'hidden' : 'shown';
  }

  /** Hides a node of which something is to be seen, else shows it. */
  toggle(node) {
    this.hidden.fill(this.visibilityOf(node) === 'hidden' ? 0 : 1, ...this.scene.partsOf(node));
    this.dispatchEvent(new Event('visibility'));
  }

  showAll() {
    this.hidden.fill(0);
    this.dispatchEvent(new Event('visibility'));
  }

  showOnly(node) {
    this.hidden.fill(1).fill(0, ...this.scene.partsOf(node));
    this.dispatchEvent(new Event('visibility'));
  }
}
