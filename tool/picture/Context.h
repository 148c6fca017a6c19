#pragma once

#include <EGL/egl.h>

/// OpenGL 3.3 without a display, current in this thread while this object lives. Raises an exception that tells what is
/// missing.
class Context {
public:
  Context();
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;
  ~Context();

private:
  /// The connection to EGL, a member of its own so that it ends also where a context can't be made.
  class Display {
  public:
    Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;
    ~Display();
    EGLDisplay Handle;
  };

  Display Shown;
  EGLContext Handle = EGL_NO_CONTEXT;
};
