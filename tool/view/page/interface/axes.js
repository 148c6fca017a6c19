// The little cross in the corner that tells where the axes point.

import {Vector3} from 'three';

const LENGTH = 24;
const AXES = [['x', 1, 0, 0], ['y', 0, 1, 0], ['z', 0, 0, 1]];

export function followAxes(picture, viewer) {
  const arms = AXES.map(([name, ...direction]) => {
    const group = picture.querySelector(`.${name}`);
    return {group, line: group.querySelector('line'), text: group.querySelector('text'), direction};
  });
  viewer.addEventListener('drawn', () => {
    const {frame, navigator: {camera}} = viewer;
    for (const arm of arms) {
      const seen = new Vector3(...arm.direction).transformDirection(frame.matrix);
      seen.transformDirection(camera.matrixWorldInverse);
      arm.depth = seen.z;
      const [x, y] = [seen.x * LENGTH, -seen.y * LENGTH];
      set(arm.line, {x2: x, y2: y});
      set(arm.text, {x: x * 1.35, y: y * 1.35});
      arm.group.style.opacity = seen.z < -0.3 ? 0.55 : 1;
    }
    const order = [...arms].sort((a, b) => a.depth - b.depth).map(({group}) => group);
    if (order.some((group, i) => picture.children[i] !== group)) picture.append(...order);
  });
}

function set(element, attributes) {
  for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, value.toFixed(2));
}
