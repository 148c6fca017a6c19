#include "picture/Canvas.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr int MostSamples = 8;
constexpr int FewSamples = 4;
// Of pixels that are drawn, with several samples each: what memory and the caches of a processor take well.
constexpr int LargestTile = 2400;

GLint Limit(GLenum name) {
  GLint limit = 0;
  glGetIntegerv(name, &limit);
  return limit;
}

int FindSamples() { return std::min({MostSamples, Limit(GL_MAX_SAMPLES), Limit(GL_MAX_COLOR_TEXTURE_SAMPLES)}); }

int FindTile(int side, int fineness) {
  const int largest = std::min({LargestTile, Limit(GL_MAX_TEXTURE_SIZE), Limit(GL_MAX_RENDERBUFFER_SIZE)});
  return std::min(side, largest / fineness);
}

void RequireComplete() {
  CheckGl();
  if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
    throw std::runtime_error("can't make a picture: OpenGL gives no room to draw in");
  }
}

}  // namespace

Canvas::Canvas(const PictureSize& picture)
    : Samples(FindSamples()),
      Fineness(Samples >= FewSamples ? 2 : 4),
      Width(FindTile(picture.Width, Fineness)),
      Height(FindTile(picture.Height, Fineness)) {
  glBindFramebuffer(GL_FRAMEBUFFER, Fine.Get());
  glBindTexture(GL_TEXTURE_2D_MULTISAMPLE, Drawn.Get());
  glTexImage2DMultisample(GL_TEXTURE_2D_MULTISAMPLE, Samples, GL_RGBA16F, Fineness * Width, Fineness * Height, GL_TRUE);
  glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D_MULTISAMPLE, Drawn.Get(), 0);
  glBindRenderbuffer(GL_RENDERBUFFER, Depth.Get());
  glRenderbufferStorageMultisample(GL_RENDERBUFFER, Samples, GL_DEPTH_COMPONENT24, Fineness * Width, Fineness * Height);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, Depth.Get());
  RequireComplete();

  glBindFramebuffer(GL_FRAMEBUFFER, Coarse.Get());
  glBindRenderbuffer(GL_RENDERBUFFER, Pixels.Get());
  glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, Width, Height);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, Pixels.Get());
  RequireComplete();
}

void Canvas::Begin(const std::array<float, 4>& background) const {
  glBindFramebuffer(GL_FRAMEBUFFER, Fine.Get());
  glViewport(0, 0, Fineness * Width, Fineness * Height);
  glClearColor(background[0], background[1], background[2], background[3]);
  glDepthMask(GL_TRUE);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void Canvas::Finish(const Tile& tile, Image& picture) const {
  glBindFramebuffer(GL_FRAMEBUFFER, Coarse.Get());
  glViewport(0, 0, Width, Height);
  glDisable(GL_DEPTH_TEST);
  glDisable(GL_BLEND);
  Program.Use();
  glUniform1i(Program.Samples, Samples);
  glUniform1i(Program.Fineness, Fineness);
  glUniform1i(Program.Height, Height);
  glBindTexture(GL_TEXTURE_2D_MULTISAMPLE, Drawn.Get());
  glBindVertexArray(NoVertices.Get());
  glDrawArrays(GL_TRIANGLES, 0, 3);

  const int width = std::min(tile.Width, picture.Width - tile.Left);
  const int height = std::min(tile.Height, picture.Height - tile.Top);
  const auto offset = static_cast<std::size_t>(tile.Top) * static_cast<std::size_t>(picture.Width) +
                      static_cast<std::size_t>(tile.Left);
  glPixelStorei(GL_PACK_ROW_LENGTH, picture.Width);
  glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, picture.Pixels.data() + 4 * offset);
  CheckGl();
}
