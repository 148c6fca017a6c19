// Draws the scene whenever something about it has changed.

import {Group, Mesh, Scene as Stage, Vector3, WebGLRenderer} from 'three';
import {boxAround} from '../data/facts.js';
import {Navigator} from './camera.js';
import {makeDrawings, makeWires} from './drawings.js';
import {edgesOf} from './edges.js';
import {Frame} from './frame.js';
import {endsOfBox, lineGeometry} from './lines.js';
import {Materials} from './materials.js';
import {LookTable, PartTable} from './tables.js';
import {Textures} from './textures.js';

/** Tells "drawn" behind each frame. */
export class Viewer extends EventTarget {
  constructor(canvas, scene, state) {
    super();
    this.canvas = canvas;
    this.scene = scene;
    this.renderer = new WebGLRenderer({canvas, antialias: true, alpha: true, powerPreference: 'high-performance'});
    this.renderer.setClearColor(0, 0);
    this.renderer.autoClear = false;
    this.request = this.request.bind(this);
    this.navigator = new Navigator(canvas, this.request);
    this.#fillStages();
    new ResizeObserver(() => this.#resize()).observe(canvas.parentElement);
    canvas.addEventListener('webglcontextrestored', this.request);
    for (const type of ['selection', 'visibility']) state.addEventListener(type, () => this.#show(state));
    this.#resize();
  }

  /** Has a frame drawn soon. */
  request() {
    this.asked ??= requestAnimationFrame((time) => this.#draw(time));
  }

  fit(parts, direction) {
    this.navigator.fit(this.frame.boxToWorld(boxAround(this.scene, parts)), direction);
  }

  setBackground({background, edges}) {
    this.lookTable.update(background);
    this.edgeMaterial.uniforms.paint.value.set(...edges);
    this.request();
  }

  setWireframe(isOn) {
    this.wires ??= this.#add(this.drawings.filter(({batch}) => batch.kind === 'triangles')
                                 .map((drawing) => makeWires(drawing, this.wireMaterial)));
    this.wires.visible = isOn;
    for (const {batch, object} of this.drawings) object.visible = !isOn || batch.kind !== 'triangles';
    this.request();
  }

  setEdges(isOn) {
    this.edges ??= this.#add(this.drawings.filter(({batch}) => batch.kind === 'triangles').map(({batch}) => {
      const {ends, parts} = edgesOf(batch, (part) => this.scene.boxOf(part));
      const lines = new Mesh(lineGeometry(ends, parts), this.edgeMaterial);
      lines.frustumCulled = false;
      lines.renderOrder = 1;
      return lines;
    }));
    this.edges.visible = isOn;
    this.request();
  }

  /** The axis of the model that is up, "y" or "z". */
  setUp(axis) {
    this.frame.setUp(axis);
    this.#place();
  }

  /** Puts lines in front of everything; null takes them away. */
  setOnTop(name, ends, material) {
    this.onTop.getObjectByName(name)?.removeFromParent();
    if (ends) {
      const lines = new Mesh(lineGeometry(ends), material);
      lines.name = name;
      lines.frustumCulled = false;
      this.onTop.add(lines);
    }
    this.request();
  }

  #fillStages() {
    const {scene} = this;
    this.frame = new Frame(boxAround(scene, [0, scene.partCount]));
    this.partTable = new PartTable(scene);
    this.lookTable = new LookTable(scene);
    this.materials = new Materials(this.partTable.texture, this.lookTable.texture);
    this.wireMaterial = this.materials.ofWires();
    this.edgeMaterial = this.materials.painted(1.1);
    this.boxMaterial = this.materials.onTop(1.1, 0.8);
    this.textures = new Textures(scene.images, this.renderer.capabilities.getMaxAnisotropy());
    this.drawings = makeDrawings(scene, this.materials, this.textures);
    [this.stage, this.topStage] = [new Stage(), new Stage()];
    [this.model, this.onTop] = [new Group(), new Group()];
    this.stage.add(this.model);
    this.topStage.add(this.onTop);
    this.#place();
    this.model.add(...this.drawings.map(({object}) => object));
  }

  #place() {
    for (const group of [this.model, this.onTop]) this.frame.place(group);
    this.request();
  }

  #add(objects) {
    const group = new Group();
    if (objects.length > 0) group.add(...objects);
    this.model.add(group);
    return group;
  }

  #show(state) {
    this.partTable.update(state);
    const box = state.selected === null ? null : boxAround(this.scene, this.scene.partsOf(state.selected));
    this.setOnTop('selection', box && endsOfBox(box), this.boxMaterial);
  }

  #resize() {
    const {clientWidth, clientHeight} = this.canvas.parentElement;
    if (clientWidth === 0 || clientHeight === 0) return;
    this.width = clientWidth;
    this.height = clientHeight;
    this.renderer.setPixelRatio(Math.min(devicePixelRatio, 2));
    this.renderer.setSize(clientWidth, clientHeight);
    this.navigator.resize(clientWidth, clientHeight);
    this.#draw(performance.now());
  }

  #draw(time) {
    if (this.asked) cancelAnimationFrame(this.asked);
    this.asked = null;
    this.navigator.update(time);
    const {camera} = this.navigator;
    const direction = camera.getWorldDirection(new Vector3()).transformDirection(this.frame.inverse);
    for (const {sorter} of this.drawings) sorter?.sort(direction);
    const ratio = this.renderer.getPixelRatio();
    this.materials.setViewport(this.width * ratio, this.height * ratio, ratio);
    this.renderer.clear();
    this.renderer.render(this.stage, camera);
    this.renderer.render(this.topStage, camera);
    this.dispatchEvent(new Event('drawn'));
  }
}
