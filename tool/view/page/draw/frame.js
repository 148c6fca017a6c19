import {Box3, Matrix4, Vector3} from 'three';

/**
 * Where the model stands among what is drawn: its box is moved and scaled into a sphere of radius 1 about the origin,
 * so that cameras and lights know no units, and turned so that the axis that is up in it is Y. Points of the model are
 * arrays of three numbers.
 */
export class Frame {
  constructor(box) {
    this.centre = [0, 1, 2].map((axis) => (box[axis] + box[axis + 3]) / 2);
    const radius = Math.hypot(...[0, 1, 2].map((axis) => box[axis + 3] - box[axis])) / 2;
    this.scale = radius > 0 ? 1 / radius : 1;
    this.setUp('y');
  }

  /** The axis that is up, "y" or "z". */
  setUp(axis) {
    const turn = axis === 'z' ? new Matrix4().makeRotationX(-Math.PI / 2) : new Matrix4();
    this.matrix = turn.scale(new Vector3(this.scale, this.scale, this.scale))
                      .multiply(new Matrix4().makeTranslation(...this.centre.map((component) => -component)));
    this.inverse = this.matrix.clone().invert();
  }

  place(object) {
    object.matrixAutoUpdate = false;
    object.matrix.copy(this.matrix);
    object.matrixWorldNeedsUpdate = true;
  }

  toWorld(point) {
    return new Vector3(...point).applyMatrix4(this.matrix);
  }

  toModel(vector) {
    return vector.clone().applyMatrix4(this.inverse).toArray();
  }

  boxToWorld([...box]) {
    return new Box3(new Vector3(...box.slice(0, 3)), new Vector3(...box.slice(3))).applyMatrix4(this.matrix);
  }
}
