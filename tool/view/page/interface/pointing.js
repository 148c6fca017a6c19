// Clicks and taps on the model, which are no turns of it.

const STILL = {mouse: 4, touch: 10, pen: 6};  // pixels that a pointer may move during a click
const REACH = {mouse: 3, touch: 12, pen: 6};  // and that a line may be away
const TWICE = {time: 400, distance: 16};      // milliseconds and pixels between clicks that are one double click

export function followPointer(viewer, {picker, state, measuring, fit}) {
  const {canvas, scene} = viewer;
  const down = new Map();
  let isGesture = false;
  let last = null;

  const select = ({x, y}, type) => {
    const hit = picker.pick(x, y, REACH[type] ?? REACH.mouse);
    state.select(hit ? scene.nodeOfPart(hit.part) : null);
  };
  const click = (place, type, time) => {
    const isSecond = last && time - last.time < TWICE.time && distance(last.place, place) < TWICE.distance;
    last = isSecond ? null : {place, time};
    if (measuring.isOn) measuring.take(place.x, place.y, type);
    else if (isSecond && state.selected !== null) fit(state.selected);
    else select(place, type);
  };

  canvas.addEventListener('pointerdown', (event) => {
    if (down.size === 0) isGesture = false;
    down.set(event.pointerId, placeIn(canvas, event));
    if (down.size > 1 || event.button !== 0) isGesture = true;
  });
  canvas.addEventListener('pointercancel', (event) => down.delete(event.pointerId));
  canvas.addEventListener('pointerup', (event) => {
    const from = down.get(event.pointerId);
    down.delete(event.pointerId);
    const place = placeIn(canvas, event);
    const type = event.pointerType;
    if (!from || isGesture || distance(from, place) > (STILL[type] ?? STILL.mouse)) return;
    click(place, type, event.timeStamp);
  });
  followHover(canvas, measuring, down);
}

// Once a frame is enough.
function followHover(canvas, measuring, down) {
  let last = null;
  canvas.addEventListener('pointermove', (event) => {
    if (!measuring.isOn || event.pointerType !== 'mouse' || down.size > 0) return;
    if (!last) {
      requestAnimationFrame(() => {
        if (measuring.isOn) measuring.pointAt(last.x, last.y);
        last = null;
      });
    }
    last = placeIn(canvas, event);
  });
}

function distance(a, b) {
  return Math.hypot(a.x - b.x, a.y - b.y);
}

function placeIn(canvas, event) {
  const box = canvas.getBoundingClientRect();
  return {x: event.clientX - box.left, y: event.clientY - box.top};
}
