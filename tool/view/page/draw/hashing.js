export const NONE = -1;

/** Finds entries, known by numbers from 0 on, by their hashes. */
export class HashIndex {
  constructor(most) {
    this.slots = new Int32Array(1 << Math.ceil(Math.log2(2 * most + 2))).fill(NONE);
  }

  /** The entry of that hash for which `isSame` is true; NONE if there isn't one. */
  find(hash, isSame) {
    const {slots} = this;
    let slot = hash & slots.length - 1;
    while (slots[slot] !== NONE && !isSame(slots[slot])) slot = slot + 1 & slots.length - 1;
    return slots[slot];
  }

  add(hash, entry) {
    const {slots} = this;
    let slot = hash & slots.length - 1;
    while (slots[slot] !== NONE) slot = slot + 1 & slots.length - 1;
    slots[slot] = entry;
  }
}

export function hashOf(...words) {
  let hash = 0;
  for (const word of words) {
    hash = Math.imul(hash ^ word, 0x9e3779b1);
    hash ^= hash >>> 15;
  }
  return hash;
}
