// The scene as the tree shows it: groups and parts, together called nodes and known by numbers. Groups come first,
// each ahead of the groups in it; parts follow, in the order of their groups. So the parts of a group and of all groups
// in it stand in one row.

import {batchesOf} from './batches.js';
import {floatsOf} from './numbers.js';

export class Scene {
  constructor(tables, columns) {
    Object.assign(this, {
      file: tables.file,
      origin: tables.origin,
      unit: tables.unit === 'um' ? '\u00b5m' : tables.unit,
      unitMeaning: tables.unitMeaning,
      notes: tables.notes,
      unlistedNotes: tables.unlistedNotes,
      looks: tables.looks,
      images: tables.images,
    });
    this.names = tables.names;
    this.classes = tables.classes;
    this.columns = columns;
    this.groupCount = columns.groupName.length;
    this.partCount = columns.partName.length;
    this.batches = batchesOf(tables.batches, columns);
    this.boxes = ['MinimumX', 'MinimumY', 'MinimumZ', 'MaximumX', 'MaximumY', 'MaximumZ'].map(
        (name) => floatsOf(columns[`part${name}`]));
    this.#layGroupsOut();
  }

  // Where each group's parts begin, which group it is in, and which group follows behind all that are in it.
  #layGroupsOut() {
    const {groupDepth, groupParts} = this.columns;
    this.groupFirst = new Uint32Array(this.groupCount + 1);
    this.groupParent = new Int32Array(this.groupCount).fill(-1);
    this.groupEnd = new Uint32Array(this.groupCount).fill(this.groupCount);
    const open = [];
    for (let group = 0; group < this.groupCount; ++group) {
      this.groupFirst[group + 1] = this.groupFirst[group] + groupParts[group];
      while (open.length > groupDepth[group]) this.groupEnd[open.pop()] = group;
      if (open.length > 0) this.groupParent[group] = open.at(-1);
      open.push(group);
    }
  }

  get root() {
    return 0;
  }

  isGroup(node) {
    return node < this.groupCount;
  }

  nodeOfPart(part) {
    return this.groupCount + part;
  }

  partOf(node) {
    return node - this.groupCount;
  }

  /** The first of a node's parts, and the one behind its last. */
  partsOf(node) {
    if (!this.isGroup(node)) return [this.partOf(node), this.partOf(node) + 1];
    return [this.groupFirst[node], this.groupFirst[this.groupEnd[node]]];
  }

  /** Nodes that are directly in a group. */
  *childrenOf(group) {
    for (let part = this.groupFirst[group]; part < this.groupFirst[group + 1]; ++part) yield this.nodeOfPart(part);
    for (let inner = group + 1; inner < this.groupEnd[group]; inner = this.groupEnd[inner]) yield inner;
  }

  /** The group that a node is in; -1 for the root. */
  parentOf(node) {
    if (this.isGroup(node)) return this.groupParent[node];
    const part = this.partOf(node);
    let from = 0;
    let to = this.groupCount;
    while (to - from > 1) {
      const middle = from + to >>> 1;
      if (this.groupFirst[middle] <= part) from = middle;
      else to = middle;
    }
    return from;
  }

  nameOf(node) {
    const {groupName, partName} = this.columns;
    return this.names[this.isGroup(node) ? groupName[node] : partName[this.partOf(node)]];
  }

  classOf(part) {
    return this.classes[this.columns.partClass[part]];
  }

  lookOf(part) {
    return this.looks[this.columns.partLook[part]];
  }

  batchOf(part) {
    return this.batches[this.columns.partBatch[part]];
  }

  boxOf(part) {
    return this.boxes.map((component) => component[part]);
  }
}
