#include "picture/Renderer.h"

#include <algorithm>
#include <cstddef>

#include "picture/Canvas.h"
#include "picture/Colour.h"

namespace {

// Between 254 and 255 of 255.
constexpr float AsGoodAsOpaque = 0.998F;

// What OpenGL takes for the place of bytes in the buffer that is bound.
const void* InBuffer(std::size_t offset) {
  return reinterpret_cast<const void*>(offset);  // NOLINT(performance-no-int-to-ptr)
}

template <class Element>
void FillBuffer(GLenum target, const GlBuffer& buffer, const std::vector<Element>& elements) {
  glBindBuffer(target, buffer.Get());
  glBufferData(target, static_cast<GLsizeiptr>(elements.size() * sizeof(Element)), elements.data(), GL_STATIC_DRAW);
  CheckGl();
}

// In the order of the inputs of the shader.
void DescribeVertices() {
  const auto describe = [](GLuint input, GLint numbers, GLenum type, std::size_t offset) {
    const GLboolean shares = type == GL_FLOAT ? GL_FALSE : GL_TRUE;
    glVertexAttribPointer(input, numbers, type, shares, sizeof(DrawnVertex), InBuffer(offset));
    glEnableVertexAttribArray(input);
  };
  describe(0, 3, GL_FLOAT, offsetof(DrawnVertex, Position));
  describe(1, 3, GL_SHORT, offsetof(DrawnVertex, Normal));
  describe(2, 2, GL_FLOAT, offsetof(DrawnVertex, TextureCoordinate));
  describe(3, 4, GL_UNSIGNED_BYTE, offsetof(DrawnVertex, Diffuse));
  describe(4, 4, GL_UNSIGNED_BYTE, offsetof(DrawnVertex, Specular));
  describe(5, 4, GL_UNSIGNED_BYTE, offsetof(DrawnVertex, Emission));
}

// Waits behind each hundred thousand triangles: software has queues of them that take far more memory than the scene.
void DrawTriangles(const DrawnBatch& batch) {
  constexpr std::size_t AtOnce = 300000;  // indices
  for (std::size_t done = 0; done < batch.Count; done += AtOnce) {
    const std::size_t count = std::min(AtOnce, batch.Count - done);
    glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(count), GL_UNSIGNED_INT,
                   InBuffer((batch.First + done) * sizeof(std::uint32_t)));
    if (count == AtOnce) glFinish();
  }
}

std::array<float, 4> LightTimesOpacity(const std::array<float, 4>& colour) {
  const float opacity = colour[3];
  return {opacity * ToLight(colour[0]), opacity * ToLight(colour[1]), opacity * ToLight(colour[2]), opacity};
}

}  // namespace

Renderer::Renderer(const Drawing& drawing, const std::vector<Image>& images)
    : Solid(drawing.Solid), Clear(drawing.Clear), Painted(images) {
  glBindVertexArray(Layout.Get());
  FillBuffer(GL_ARRAY_BUFFER, Vertices, drawing.Vertices);
  FillBuffer(GL_ELEMENT_ARRAY_BUFFER, Indices, drawing.Indices);
  DescribeVertices();
}

Image Renderer::Draw(const Camera& camera, const PictureOptions& options) const {
  const auto [width, height] = options.Size;
  Image picture;
  picture.Width = width;
  picture.Height = height;
  picture.Pixels.resize(4 * static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  const Canvas canvas(options.Size);
  for (int top = 0; top < height; top += canvas.TileHeight()) {
    for (int left = 0; left < width; left += canvas.TileWidth()) {
      const Tile tile{left, top, canvas.TileWidth(), canvas.TileHeight()};
      canvas.Begin(LightTimesOpacity(options.Background));
      DrawTile(camera, tile);
      canvas.Finish(tile, picture);
    }
  }
  return picture;
}

void Renderer::DrawTile(const Camera& camera, const Tile& tile) const {
  const std::array<float, 16> matrix = camera.ClipFromEye(tile);
  for (const SurfaceProgram* program : {&Plain, &Textured}) {
    program->Use();
    glUniformMatrix4fv(program->ClipFromEye, 1, GL_FALSE, matrix.data());
    glUniform1i(program->Parallel, camera.IsParallel() ? 1 : 0);
  }
  glBindVertexArray(Layout.Get());
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LESS);
  DrawBatches(Solid, AsGoodAsOpaque);
  // What lets light through hides nothing. Pixels of its textures that don't are there already.
  glDepthMask(GL_FALSE);
  glEnable(GL_BLEND);
  glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  DrawBatches(Clear, 0.0F);
  glDisable(GL_BLEND);
}

void Renderer::DrawBatches(const std::vector<DrawnBatch>& batches, float leastOpacity) const {
  Textured.Use();
  glUniform1f(Textured.LeastOpacity, leastOpacity);
  for (const DrawnBatch& batch : batches) {
    if (batch.Use.Texture == Look::NoTexture) {
      Plain.Use();
    } else {
      Textured.Use();
      Painted.Bind(batch.Use);
    }
    DrawTriangles(batch);
  }
}
