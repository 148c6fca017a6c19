// Points of a part that a ray meets, or comes nearest to. A ray has an origin and a direction of length 1. Each result
// has the point and the corners around it.

const minus = (a, b) => [a[0] - b[0], a[1] - b[1], a[2] - b[2]];
const dot = (a, b) => a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
const cross = (a, b) => [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]];
const along = (a, direction, t) => a.map((component, axis) => component + t * direction[axis]);
const pointAt = ({positions}, i) => Array.from(positions.subarray(3 * i, 3 * i + 3));

export function nearestOnTriangles(batch, ranges, ray) {
  const {indices, positions} = batch;
  const [from, to] = ranges.indices;
  let least = Infinity;
  let nearest = null;
  for (let i = from; i < to; i += 3) {
    const distance = distanceTo(positions, 3 * indices[i], 3 * indices[i + 1], 3 * indices[i + 2], ray);
    if (distance >= least) continue;
    least = distance;
    nearest = i;
  }
  // The pixel may be at the rim of the part, and its middle beside it.
  if (nearest === null) return nearestDot(batch, ranges, ray);
  const corners = [0, 1, 2].map((corner) => pointAt(batch, indices[nearest + corner]));
  return {point: along(ray.origin, ray.direction, least), corners};
}

// How far along a ray it meets the triangle whose corners begin at a, b and c; infinity if it doesn't. By Moeller and
// Trumbore, without arrays, since parts can have millions of triangles.
function distanceTo(positions, a, b, c, {origin: [ox, oy, oz], direction: [dx, dy, dz]}) {
  const ux = positions[b] - positions[a];
  const uy = positions[b + 1] - positions[a + 1];
  const uz = positions[b + 2] - positions[a + 2];
  const vx = positions[c] - positions[a];
  const vy = positions[c + 1] - positions[a + 1];
  const vz = positions[c + 2] - positions[a + 2];
  const px = dy * vz - dz * vy;
  const py = dz * vx - dx * vz;
  const pz = dx * vy - dy * vx;
  const determinant = ux * px + uy * py + uz * pz;
  const wx = ox - positions[a];
  const wy = oy - positions[a + 1];
  const wz = oz - positions[a + 2];
  const s = (wx * px + wy * py + wz * pz) / determinant;
  if (!(s >= 0 && s <= 1)) return Infinity;
  const qx = wy * uz - wz * uy;
  const qy = wz * ux - wx * uz;
  const qz = wx * uy - wy * ux;
  const t = (dx * qx + dy * qy + dz * qz) / determinant;
  if (!(t >= 0 && s + t <= 1)) return Infinity;
  const distance = (vx * qx + vy * qy + vz * qz) / determinant;
  return distance > 0 ? distance : Infinity;
}

export function nearestOnSegments(batch, ranges, ray) {
  const [from, to] = ranges.indices;
  let best = null;
  for (let i = from; i < to; i += 2) {
    const corners = [pointAt(batch, batch.indices[i]), pointAt(batch, batch.indices[i + 1])];
    const point = nearestOnSegment(ray, corners);
    const angle = angleTo(ray, point);
    if (!best || angle < best.angle) best = {point, corners, angle};
  }
  return best;
}

function nearestOnSegment({origin, direction}, [a, b]) {
  const u = minus(b, a);
  const lean = dot(u, direction);
  const squared = dot(u, u) - lean * lean;
  const toOrigin = minus(origin, a);
  const share = squared > 0 ? (dot(toOrigin, u) - lean * dot(toOrigin, direction)) / squared : 0;
  return along(a, u, Math.min(Math.max(share, 0), 1));
}

export function nearestDot(batch, {points: [from, to]}, ray) {
  let best = null;
  for (let i = from; i < to; ++i) {
    const point = pointAt(batch, i);
    const angle = angleTo(ray, point);
    if (!best || angle < best.angle) best = {point, corners: [point], angle};
  }
  return best;
}

// Grows with the angle at the origin between the ray and a point.
function angleTo({origin, direction}, point) {
  const to = minus(point, origin);
  return Math.atan2(Math.hypot(...cross(direction, to)), dot(direction, to));
}
