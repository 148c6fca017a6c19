#pragma once

#include <utility>

// OpenGL 3.3. Its functions are those of libOpenGL; none is looked up when the command runs.
#define GL_GLEXT_PROTOTYPES
#include <GL/glcorearb.h>

/// A name of an OpenGL object, which goes with this one. A context has to be current as long as it lives.
template <auto Generate, auto Delete>
class GlName {
public:
  GlName() { Generate(1, &Name); }
  GlName(GlName&& other) noexcept : Name(std::exchange(other.Name, 0)) {}
  GlName(const GlName&) = delete;
  GlName& operator=(const GlName&) = delete;
  GlName& operator=(GlName&&) = delete;
  ~GlName() { Delete(1, &Name); }

  GLuint Get() const { return Name; }

private:
  GLuint Name = 0;
};

using GlBuffer = GlName<glGenBuffers, glDeleteBuffers>;
using GlFramebuffer = GlName<glGenFramebuffers, glDeleteFramebuffers>;
using GlRenderbuffer = GlName<glGenRenderbuffers, glDeleteRenderbuffers>;
using GlTexture = GlName<glGenTextures, glDeleteTextures>;
using GlVertexArray = GlName<glGenVertexArrays, glDeleteVertexArrays>;

/// Raises an exception if OpenGL has met an error since it was asked last.
void CheckGl();
