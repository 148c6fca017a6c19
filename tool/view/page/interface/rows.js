// Which rows the tree has: the nodes whose groups are all open, in order.

export class Rows {
  constructor(scene) {
    this.scene = scene;
    this.open = new Set();
    this.#openFirst();
    this.#list();
  }

  get count() {
    return this.nodes.length;
  }

  isOpen(node) {
    return this.open.has(node);
  }

  indexOf(node) {
    return this.nodes.indexOf(node);
  }

  setOpen(node, isOpen) {
    if (!this.scene.isGroup(node) || this.open.has(node) === isOpen) return;
    if (isOpen) this.open.add(node);
    else this.open.delete(node);
    this.#list();
  }

  /** Opens all groups around a node. */
  reveal(node) {
    for (let group = this.scene.parentOf(node); group >= 0; group = this.scene.parentOf(group)) this.open.add(group);
    this.#list();
  }

  // The root, and what is the only thing in a group that is open.
  #openFirst() {
    for (let group = this.scene.root; this.scene.isGroup(group);) {
      this.open.add(group);
      const children = this.scene.childrenOf(group);
      const {value: only} = children.next();
      if (!children.next().done) return;
      group = only;
    }
  }

  #list() {
    this.nodes = [];
    this.depths = [];
    const rest = [[this.scene.root].values()];
    while (rest.length > 0) {
      const {done, value: node} = rest.at(-1).next();
      if (done) {
        rest.pop();
        continue;
      }
      this.nodes.push(node);
      this.depths.push(rest.length);
      if (this.open.has(node)) rest.push(this.scene.childrenOf(node));
    }
  }
}
