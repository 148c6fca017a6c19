// The camera and what moves it.

import {MathUtils, MOUSE, PerspectiveCamera, Spherical, Vector3} from 'three';
import {OrbitControls} from 'three/addons/controls/OrbitControls.js';

const FIELD_OF_VIEW = 32;  // degrees, of the shorter side of the window
const MARGIN = 1.08;
const DURATION = 350;  // milliseconds of a move

/** Directions from the scene to the eye. */
export const VIEWS = {
  corner: [1, 0.75, 1.5],
  front: [0, 0, 1],
  back: [0, 0, -1],
  left: [-1, 0, 0],
  right: [1, 0, 0],
  top: [0, 1, 0],
  bottom: [0, -1, 0],
};

export class Navigator {
  constructor(canvas, request) {
    this.request = request;
    this.camera = new PerspectiveCamera(FIELD_OF_VIEW, 1, 0.01, 100);
    this.controls = new OrbitControls(this.camera, canvas);
    this.isStill = matchMedia('(prefers-reduced-motion: reduce)').matches;
    Object.assign(this.controls, {enableDamping: !this.isStill, dampingFactor: 0.15, zoomToCursor: true,
                                  minDistance: 1e-4, maxDistance: 40});
    this.controls.mouseButtons.MIDDLE = MOUSE.PAN;
    this.controls.addEventListener('change', request);
    this.controls.addEventListener('start', () => this.move = null);
    this.camera.position.set(...VIEWS.corner);
  }

  resize(width, height) {
    const {camera} = this;
    camera.aspect = width / height;
    const half = Math.tan(MathUtils.degToRad(FIELD_OF_VIEW / 2));
    camera.fov = MathUtils.radToDeg(2 * Math.atan(half / Math.min(camera.aspect, 1)));
    camera.updateProjectionMatrix();
  }

  /** Before each frame, at a time in milliseconds. The scene is within 1 of the origin. */
  update(time) {
    if (this.move) this.#goOn(time);
    this.controls.update();
    const {camera} = this;
    const distance = camera.position.length();
    const toTarget = camera.position.distanceTo(this.controls.target);
    camera.far = distance + 1.1;
    camera.near = Math.max(distance - 1.1, Math.min(toTarget / 50, camera.far / 200), camera.far * 1e-5);
    camera.updateProjectionMatrix();
    camera.updateMatrixWorld();
  }

  /** Has a box fill the window, seen from a direction or from where the eye is. */
  fit(box, direction = this.#fromTarget()) {
    const from = new Vector3(...direction).normalize();
    const target = box.getCenter(new Vector3());
    this.#moveTo(target, from, Math.max(MARGIN * this.#distanceFor(box, from), 1e-3));
  }

  /** Ends a move at once. */
  arrive() {
    if (this.move) this.#place(1);
  }

  orbit(right, up) {
    this.#change((offset) => {
      offset.theta -= right;
      offset.phi = MathUtils.clamp(offset.phi - up, 1e-6, Math.PI - 1e-6);
    });
  }

  zoom(factor) {
    this.#change((offset) => offset.radius = MathUtils.clamp(offset.radius * factor, 1e-4, 40));
  }

  /** Moves the eye by shares of the window's height. */
  pan(right, up) {
    const {camera, controls} = this;
    const height = 2 * Math.tan(MathUtils.degToRad(camera.fov / 2)) * camera.position.distanceTo(controls.target);
    const step = new Vector3(right * height, up * height, 0).applyQuaternion(camera.quaternion);
    camera.position.add(step);
    controls.target.add(step);
    this.request();
  }

  #fromTarget() {
    return this.camera.position.clone().sub(this.controls.target).toArray();
  }

  // The least distance from the middle of a box at which all corners are within the window.
  #distanceFor(box, from) {
    const right = new Vector3(0, 1, 0).cross(from);
    if (right.lengthSq() < 1e-9) right.set(1, 0, 0);
    right.normalize();
    const up = from.clone().cross(right);
    const upwards = Math.tan(MathUtils.degToRad(this.camera.fov / 2));
    const middle = box.getCenter(new Vector3());
    let distance = 0;
    for (let i = 0; i < 8; ++i) {
      const corner = new Vector3(...['x', 'y', 'z'].map((axis, bit) => box[i >> bit & 1 ? 'max' : 'min'][axis]));
      corner.sub(middle);
      const aside = Math.max(Math.abs(corner.dot(right)) / (upwards * this.camera.aspect),
                             Math.abs(corner.dot(up)) / upwards);
      distance = Math.max(distance, corner.dot(from) + aside);
    }
    return distance;
  }

  #change(alter) {
    this.move = null;
    const {camera, controls} = this;
    const offset = new Spherical().setFromVector3(camera.position.clone().sub(controls.target));
    alter(offset);
    camera.position.setFromSpherical(offset).add(controls.target);
    this.request();
  }

  #moveTo(target, from, distance) {
    const [start, end] = [this.#fromTarget(), from.toArray()].map(
        (direction) => new Spherical().setFromVector3(new Vector3(...direction)));
    // Seen from straight above or below, what is right stays right.
    if (end.phi < 1e-3 || end.phi > Math.PI - 1e-3) end.theta = 0;
    end.makeSafe();
    end.radius = distance;
    end.theta = start.theta + MathUtils.euclideanModulo(end.theta - start.theta + Math.PI, 2 * Math.PI) - Math.PI;
    this.move = {start, end, startTarget: this.controls.target.clone(), target, begun: null};
    if (this.isStill) this.arrive();
    this.request();
  }

  #goOn(time) {
    this.move.begun ??= time;
    const share = Math.min((time - this.move.begun) / DURATION, 1);
    this.#place(MathUtils.smoothstep(share, 0, 1));
    this.request();
  }

  #place(share) {
    const {start, end, startTarget, target} = this.move;
    const radius = Math.exp(MathUtils.lerp(Math.log(start.radius), Math.log(end.radius), share));
    const offset = new Spherical(radius, MathUtils.lerp(start.phi, end.phi, share),
                                 MathUtils.lerp(start.theta, end.theta, share));
    this.controls.target.lerpVectors(startTarget, target, share);
    this.camera.position.setFromSpherical(offset).add(this.controls.target);
    if (share === 1) this.move = null;
  }
}
