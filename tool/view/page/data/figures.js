// Figures for people, as the command writes them: the same in every locale.

export function grouped(count) {
  return withCommas(String(count));
}

/** "1 object", "1,234 objects". */
export function counted(count, noun) {
  return `${grouped(count)} ${noun}${count === 1 ? '' : 's'}`;
}

/** A measure with six significant digits. */
export function measure(value) {
  if (value === 0) return '0';
  const magnitude = Math.floor(Math.log10(Math.abs(value)));
  if (!Number.isFinite(value) || magnitude < -4 || magnitude >= 10) return String(Number(value.toPrecision(6)));
  const text = value.toFixed(Math.max(5 - magnitude, 0));
  return withCommas(text.includes('.') ? text.replace(/\.?0+$/, '') : text);
}

/** A length between coordinates, with those digits that single precision gives them. */
function lengthBetween(value, coordinates) {
  const error = Math.max(...coordinates.map(Math.abs)) * 2 ** -22;
  const decimals = error > 0 ? Math.floor(-Math.log10(error)) : 20;
  return measure(Number(value.toFixed(Math.min(Math.max(decimals, 0), 20))));
}

/** The size of a box, such as "60 x 400 x 60 cm". */
export function extent(box, {origin, unit}) {
  const sides = [0, 1, 2].map((axis) => {
    const ends = [box[axis], box[axis + 3]];
    return lengthBetween(ends[1] - ends[0], ends.map((end) => end + origin[axis]));
  });
  return `${sides.join(' \u00d7 ')} ${unit}`;
}

/** The distance of two points, and how far they are apart along each axis. */
export function distance([a, b], {origin, unit}) {
  const steps = a.map((component, axis) => Math.abs(b[axis] - component));
  const coordinates = [a, b].map((point) => point.map((component, axis) => component + origin[axis]));
  return {
    text: `${lengthBetween(Math.hypot(...steps), coordinates.flat())} ${unit}`,
    steps: steps.map((step, axis) => lengthBetween(step, coordinates.map((point) => point[axis]))),
  };
}

export function percent(share) {
  return `${Number((share * 100).toPrecision(3))} %`;
}

function withCommas(number) {
  const [whole, fraction] = number.split('.');
  const marked = whole.replace(/\B(?=(\d{3})+$)/g, ',');
  return fraction === undefined ? marked : `${marked}.${fraction}`;
}
