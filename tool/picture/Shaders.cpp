#include "picture/Shaders.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr const char* GlslVersion = "#version 330 core\n";
constexpr const char* Texturing = "#define TEXTURED\n";

// Colours come as shares of what a screen shows, and are light from here on.
constexpr const char* SurfaceVertices = R"(
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in vec2 textureCoordinate;
layout(location = 3) in vec4 diffuse;
layout(location = 4) in vec4 specular;
layout(location = 5) in vec4 emission;
uniform mat4 clipFromEye;
out vec3 place;
out vec3 direction;
out vec2 inTexture;
flat out vec4 diffuseLight;
flat out vec4 specularLight;
flat out vec3 emittedLight;

vec3 toLight(vec3 share) {
  return mix(share / 12.92, pow((share + 0.055) / 1.055, vec3(2.4)), greaterThan(share, vec3(0.04045)));
}

void main() {
  place = position;
  direction = normal;
  inTexture = textureCoordinate;
  diffuseLight = vec4(toLight(diffuse.rgb), diffuse.a);
  specularLight = vec4(toLight(specular.rgb), specular.a * 255.0);
  emittedLight = toLight(emission.rgb);
  gl_Position = clipFromEye * vec4(position, 1.0);
}
)";

constexpr const char* SurfacePixels = R"(
in vec3 place;
in vec3 direction;
in vec2 inTexture;
flat in vec4 diffuseLight;
flat in vec4 specularLight;
flat in vec3 emittedLight;
uniform bool parallel;
uniform float leastOpacity;
uniform sampler2D image;
out vec4 light;

// Directions to the lamps, of length 1; X is to the right of the eye, Y up, Z towards it.
const vec3 key = vec3(-0.4243, 0.5657, 0.7071);
const vec3 fill = vec3(0.8018, -0.2673, 0.5345);
const float keyStrength = 0.68;
const float fillStrength = 0.16;
const float skyStrength = 0.30;
const float groundStrength = 0.16;

void main() {
  vec3 n = direction * inversesqrt(max(dot(direction, direction), 1e-12));
  // Both sides of a surface are lit: the normal is turned to the side that is seen, by the triangle's own.
  vec3 face = cross(dFdx(place), dFdy(place));
  face *= inversesqrt(max(dot(face, face), 1e-30));
  float agreement = dot(n, face);
  if (agreement < 0.0) n = -n;
  // A normal across the triangle's own says nothing about it.
  if (abs(agreement) < 0.1) n = face;
  vec3 toEye = parallel ? vec3(0.0, 0.0, 1.0) : normalize(-place);

  float ambient = mix(groundStrength, skyStrength, 0.5 + 0.5 * n.y);
  float lit = keyStrength * max(dot(n, key), 0.0) + fillStrength * max(dot(n, fill), 0.0) + ambient;
  float towardsGlance = max(dot(n, normalize(key + toEye)), 0.0);
  float glance = dot(n, key) > 0.0 ? keyStrength * pow(towardsGlance, max(specularLight.a, 1.0)) : 0.0;

#ifdef TEXTURED
  vec4 pixel = texture(image, inTexture);
  if (pixel.a < leastOpacity) discard;
#else
  const vec4 pixel = vec4(1.0);
#endif
  vec3 colour = lit * diffuseLight.rgb * pixel.rgb + (glance * specularLight.rgb + emittedLight) * pixel.a;
  light = vec4(min(colour, vec3(pixel.a)), pixel.a) * diffuseLight.a;
}
)";

// A triangle that covers the picture.
constexpr const char* PictureVertices = R"(
void main() {
  gl_Position = vec4(gl_VertexID == 1 ? 3.0 : -1.0, gl_VertexID == 2 ? 3.0 : -1.0, 0.0, 1.0);
}
)";

// Rows of a picture come from the top, those of a drawing from the bottom.
constexpr const char* PicturePixels = R"(
uniform sampler2DMS drawing;
uniform int samples;
uniform int fineness;
uniform int height;
out vec4 pixel;

vec3 toShare(vec3 light) {
  return mix(light * 12.92, 1.055 * pow(light, vec3(1.0 / 2.4)) - 0.055, greaterThan(light, vec3(0.0031308)));
}

void main() {
  ivec2 from = fineness * ivec2(int(gl_FragCoord.x), height - 1 - int(gl_FragCoord.y));
  vec4 sum = vec4(0.0);
  for (int y = 0; y < fineness; ++y)
    for (int x = 0; x < fineness; ++x)
      for (int i = 0; i < samples; ++i) sum += texelFetch(drawing, from + ivec2(x, y), i);
  float opacity = sum.a / float(fineness * fineness * samples);
  pixel = sum.a > 0.0 ? vec4(toShare(min(sum.rgb / sum.a, vec3(1.0))), opacity) : vec4(0.0);
}
)";

class Shader {
public:
  Shader(GLenum kind, std::initializer_list<const char*> pieces) : Name(glCreateShader(kind)) {
    std::vector<const char*> sources = {GlslVersion};
    sources.insert(sources.end(), pieces);
    glShaderSource(Name, static_cast<GLsizei>(sources.size()), sources.data(), nullptr);
    glCompileShader(Name);
  }
  Shader(const Shader&) = delete;
  Shader& operator=(const Shader&) = delete;
  ~Shader() { glDeleteShader(Name); }

  void AttachTo(GLuint program) const { glAttachShader(program, Name); }

private:
  GLuint Name;
};

}  // namespace

GlProgram::GlProgram(std::initializer_list<const char*> vertexShader, std::initializer_list<const char*> fragmentShader)
    : Name(glCreateProgram()) {
  const Shader vertices(GL_VERTEX_SHADER, vertexShader);
  const Shader fragments(GL_FRAGMENT_SHADER, fragmentShader);
  vertices.AttachTo(Name);
  fragments.AttachTo(Name);
  glLinkProgram(Name);
  GLint linked = GL_FALSE;
  glGetProgramiv(Name, GL_LINK_STATUS, &linked);
  if (linked == GL_TRUE) return;
  std::string log(1000, '\0');
  glGetProgramInfoLog(Name, static_cast<GLsizei>(log.size()), nullptr, log.data());
  glDeleteProgram(Name);
  throw std::runtime_error("can't make a picture: OpenGL doesn't take a shader: " + log.substr(0, log.find('\n')));
}

GlProgram::~GlProgram() { glDeleteProgram(Name); }

SurfaceProgram::SurfaceProgram(Kind kind)
    : GlProgram({SurfaceVertices}, {kind == Kind::Textured ? Texturing : "", SurfacePixels}),
      ClipFromEye(At("clipFromEye")),
      Parallel(At("parallel")),
      LeastOpacity(At("leastOpacity")) {}

PixelProgram::PixelProgram()
    : GlProgram({PictureVertices}, {PicturePixels}),
      Samples(At("samples")),
      Fineness(At("fineness")),
      Height(At("height")) {}
