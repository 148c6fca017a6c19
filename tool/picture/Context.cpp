#include "picture/Context.h"

#include <EGL/eglext.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

#include "picture/Gl.h"

namespace {

[[noreturn]] void FailForLack(const std::string& lacking) {
  throw std::runtime_error("can't make a picture: no OpenGL without a display (" + lacking + ")");
}

// Whether a name stands in a list of names with spaces between them; null is an empty list.
bool IsListed(const char* list, std::string_view name) {
  std::string_view rest = list ? list : "";
  while (!rest.empty()) {
    const std::string_view word = rest.substr(0, rest.find(' '));
    if (word == name) return true;
    rest.remove_prefix(std::min(rest.size(), word.size() + 1));
  }
  return false;
}

// Mesa has lines of its own for standard error: that it lacks a driver, which the exception tells, and that it can't
// keep shaders for the next time, where there is no home to keep them in.
void SilenceMesa() {
  setenv("EGL_LOG_LEVEL", "fatal", 0);
  const char* home = std::getenv("HOME");
  if (!home || access(home, W_OK) != 0) setenv("MESA_SHADER_CACHE_DISABLE", "true", 0);
}

EGLDisplay FindDisplay() {
  SilenceMesa();
  if (!IsListed(eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS), "EGL_MESA_platform_surfaceless")) {
    FailForLack("EGL has no surfaceless platform");
  }
  const EGLDisplay display = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
  if (display == EGL_NO_DISPLAY) FailForLack("EGL's surfaceless platform isn't there");
  return display;
}

EGLContext MakeContext(EGLDisplay display) {
  constexpr std::array<EGLint, 7> Attributes = {
      EGL_CONTEXT_MAJOR_VERSION,           3,       EGL_CONTEXT_MINOR_VERSION, 3, EGL_CONTEXT_OPENGL_PROFILE_MASK,
      EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT, EGL_NONE};
  const char* extensions = eglQueryString(display, EGL_EXTENSIONS);
  for (const char* needed : {"EGL_KHR_create_context", "EGL_KHR_no_config_context", "EGL_KHR_surfaceless_context"}) {
    if (!IsListed(extensions, needed)) FailForLack(std::string("EGL lacks ") + needed);
  }
  if (eglBindAPI(EGL_OPENGL_API) == EGL_FALSE) FailForLack("EGL has no OpenGL");
  const EGLContext context = eglCreateContext(display, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, Attributes.data());
  if (context == EGL_NO_CONTEXT) FailForLack("there is no OpenGL 3.3");
  return context;
}

}  // namespace

Context::Display::Display() : Handle(FindDisplay()) {
  if (eglInitialize(Handle, nullptr, nullptr) == EGL_FALSE) FailForLack("EGL finds no driver");
}

Context::Display::~Display() { eglTerminate(Handle); }

Context::Context() : Handle(MakeContext(Shown.Handle)) {
  if (eglMakeCurrent(Shown.Handle, EGL_NO_SURFACE, EGL_NO_SURFACE, Handle) == EGL_TRUE) return;
  eglDestroyContext(Shown.Handle, Handle);
  FailForLack("EGL can't use a context without a surface");
}

Context::~Context() {
  eglMakeCurrent(Shown.Handle, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  eglDestroyContext(Shown.Handle, Handle);
  eglReleaseThread();
}

void CheckGl() {
  const GLenum error = glGetError();
  if (error == GL_OUT_OF_MEMORY) throw std::bad_alloc();
  if (error != GL_NO_ERROR) {
    throw std::runtime_error("can't make a picture: OpenGL fails with error " + std::to_string(error));
  }
}
