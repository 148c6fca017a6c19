#pragma once

#include <initializer_list>

#include "picture/Gl.h"

/// A program of OpenGL, which goes with this object.
class GlProgram {
public:
  /// Of the sources of a vertex shader and of a fragment shader, each in pieces. Raises an exception with the
  /// compiler's first line if they are wrong.
  GlProgram(std::initializer_list<const char*> vertexShader, std::initializer_list<const char*> fragmentShader);
  GlProgram(const GlProgram&) = delete;
  GlProgram& operator=(const GlProgram&) = delete;
  ~GlProgram();

  /// Where the uniform of that name is set.
  GLint At(const char* uniform) const { return glGetUniformLocation(Name, uniform); }
  void Use() const { glUseProgram(Name); }

private:
  GLuint Name;
};

/// Draws triangles in the light of a lamp at the eye's upper left, as light times opacity.
struct SurfaceProgram : GlProgram {
  enum class Kind { Plain, Textured };

  explicit SurfaceProgram(Kind kind);

  GLint ClipFromEye;   ///< matrix
  GLint Parallel;      ///< whether the view is
  GLint LeastOpacity;  ///< pixels with less are left out; of textured ones
};

/// Makes the pixels of a picture of a drawing that is finer and has several samples for each of its own pixels.
struct PixelProgram : GlProgram {
  PixelProgram();

  GLint Samples;   ///< of a pixel of the drawing
  GLint Fineness;  ///< pixels of the drawing along the side of one of the picture
  GLint Height;    ///< of the picture, in its pixels
};
