// Programs for the graphics card. With PICK defined, each draws the number of a part instead of its colours.

import {ROW, TEXELS_OF_LOOK} from './tables.js';

// How a vertex learns about its part. Nothing is seen of a primitive whose vertices are all in nowhere().
const part = `
  uniform sampler2D parts;
  uniform sampler2D looks;
  attribute uint part;
  flat varying vec4 number;
  flat varying float selected;
  int look;
  int state;

  vec4 lookAt(int place) {
    int texel = ${TEXELS_OF_LOOK} * look + place;
    return texelFetch(looks, ivec2(texel % ${ROW}, texel / ${ROW}), 0);
  }
  void findPart() {
    vec4 found = 255.0 * texelFetch(parts, ivec2(int(part) % ${ROW}, int(part) / ${ROW}), 0) + 0.5;
    look = int(found.r) + 256 * int(found.g) + 65536 * int(found.b);
    state = int(found.a);
    selected = (state & 2) != 0 ? 1.0 : 0.0;
    uint next = part + 1u;
    number = vec4(next & 255u, next >> 8u & 255u, next >> 16u & 255u, 255.0) / 255.0;
  }
  bool isHidden() {
  #ifdef PICK
    if (lookAt(0).a < 0.05 && selected == 0.0) return true;
  #endif
    return (state & 1) != 0;
  }
  vec4 nowhere() { return vec4(0.0, 0.0, 2.0, 1.0); }
`;

// Light falls from above the left shoulder of the person who looks, and a little from above and from below.
const light = `
  uniform vec3 highlight;
  flat varying float selected;
  flat varying vec4 diffuse;
  flat varying vec4 emission;
  flat varying vec3 specular;

  vec3 lit(vec3 colour, vec3 normal, vec3 toEye) {
    vec3 n = dot(normal, toEye) < 0.0 ? -normal : normal;
    vec3 toLight = normalize(vec3(-0.35, 0.5, 1.0));
    float share = 0.68 * max(dot(n, toLight), 0.0) + 0.24 + 0.12 * n.y;
    float mirrored = pow(max(dot(n, normalize(toLight + toEye)), 0.0), emission.a);
    vec3 own = colour * share * 1.1 + specular * mirrored * 0.5 + emission.rgb;
    return mix(own, highlight * (0.3 + share * 0.8), 0.8 * selected);
  }
`;

export const surfaceVertex = `
  ${part}
  flat varying vec4 diffuse;
  flat varying vec4 emission;
  flat varying vec3 specular;
  varying vec3 place;
  #ifdef SMOOTH
  attribute vec2 octahedral;
  varying vec3 direction;
  #endif
  #ifdef TEXTURED
  attribute vec2 coordinate;
  varying vec2 texel;
  #endif

  void main() {
    findPart();
    diffuse = lookAt(0);
    emission = lookAt(1);
    specular = lookAt(2).rgb;
    vec4 seen = modelViewMatrix * vec4(position, 1.0);
    place = seen.xyz;
  #ifdef SMOOTH
    vec2 flatPlace = octahedral / NORMAL_STEPS - 1.0;
    vec3 folded = vec3(flatPlace, 1.0 - abs(flatPlace.x) - abs(flatPlace.y));
    float below = max(-folded.z, 0.0);
    folded.x += folded.x >= 0.0 ? -below : below;
    folded.y += folded.y >= 0.0 ? -below : below;
    direction = normalize(normalMatrix * normalize(folded));
  #endif
  #ifdef TEXTURED
    texel = coordinate;
  #endif
    gl_Position = isHidden() ? nowhere() : projectionMatrix * seen;
  }
`;

export const surfaceFragment = `
  ${light}
  flat varying vec4 number;
  varying vec3 place;
  #ifdef SMOOTH
  varying vec3 direction;
  #endif
  #ifdef TEXTURED
  uniform sampler2D image;
  varying vec2 texel;
  #endif

  void main() {
    vec4 colour = diffuse;
  #ifdef TEXTURED
    colour *= texture2D(image, texel);
    if (colour.a < LEAST_OPACITY) discard;
  #endif
  #ifdef PICK
    gl_FragColor = number;
  #else
    vec3 toEye = normalize(-place);
  #ifdef SMOOTH
    vec3 normal = normalize(direction);
  #else
    vec3 normal = normalize(cross(dFdx(place), dFdy(place)));
  #endif
    gl_FragColor = vec4(lit(colour.rgb, normal, toEye), max(colour.a, 0.4 * selected));
    #include <colorspace_fragment>
  #endif
  }
`;

// A segment is drawn as a strip of some width. Position says where a corner of the strip is: x is 0 at the start and 1
// at the end, y is -1 on one side and 1 on the other. What is behind the eye has no place on the screen, so a segment
// is cut where it leaves what the eye sees. Lines with paint have that colour; those without parts are always there.
export const lineVertex = `
  #ifndef FREE
  ${part}
  flat varying vec4 colour;
  #endif
  uniform vec2 viewport;
  uniform float pixel;
  attribute vec3 start;
  attribute vec3 end;

  void cut(inout vec4 a, vec4 b) {
    float nearest = -projectionMatrix[3][2] / (projectionMatrix[2][2] - 1.0);
    if (a.z > nearest && b.z < nearest) a = mix(a, b, (nearest - a.z) / (b.z - a.z));
  }
  vec4 cornerOfStrip() {
    vec4 a = modelViewMatrix * vec4(start, 1.0);
    vec4 b = modelViewMatrix * vec4(end, 1.0);
    cut(a, b);
    cut(b, a);
    a = projectionMatrix * a;
    b = projectionMatrix * b;
    vec2 along = (b.xy / b.w - a.xy / a.w) * viewport;
    along = length(along) > 0.0 ? normalize(along) : vec2(1.0, 0.0);
    vec2 off = vec2(-along.y, along.x) * position.y + along * (2.0 * position.x - 1.0);
    vec4 corner = position.x < 0.5 ? a : b;
    corner.xy += off * WIDTH * pixel / viewport * corner.w;
    return corner;
  }
  void main() {
    gl_Position = cornerOfStrip();
  #ifndef FREE
    findPart();
    colour = vec4(lookAt(3).rgb, lookAt(0).a);
    if (isHidden()) gl_Position = nowhere();
  #endif
  }
`;

export const dotVertex = `
  ${part}
  uniform float pixel;
  flat varying vec4 colour;

  void main() {
    findPart();
    colour = vec4(lookAt(3).rgb, lookAt(0).a);
    gl_Position = isHidden() ? nowhere() : projectionMatrix * modelViewMatrix * vec4(position, 1.0);
    gl_PointSize = WIDTH * pixel;
  }
`;

// The edges of triangles, in the colours of lines.
export const wireVertex = `
  ${part}
  flat varying vec4 colour;

  void main() {
    findPart();
    colour = vec4(lookAt(3).rgb, 1.0);
    gl_Position = isHidden() ? nowhere() : projectionMatrix * modelViewMatrix * vec4(position, 1.0);
  }
`;

// Of lines and dots, which no light falls on.
export const flatFragment = `
  #ifdef PAINTED
  uniform vec4 paint;
  #else
  flat varying vec4 colour;
  flat varying vec4 number;
  flat varying float selected;
  uniform vec3 lineHighlight;
  #endif

  void main() {
  #ifdef ROUND
    if (length(gl_PointCoord - 0.5) > 0.5) discard;
  #endif
  #if defined(PAINTED)
    gl_FragColor = paint;
  #elif defined(PICK)
    gl_FragColor = number;
  #else
    gl_FragColor = selected > 0.0 ? vec4(lineHighlight, 1.0) : colour;
  #endif
  }
`;
