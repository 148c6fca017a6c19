// For builds with the address sanitizer: lets its leak check get along with drivers of OpenGL, so that it stays on.

#include <dlfcn.h>

// Drivers stay loaded to the end. What their variables point to would count as lost once they are unloaded, with no
// name to tell such memory from what the command has lost itself.
extern "C" int dlclose(void* /*handle*/) noexcept { return 0; }

// The sanitizer takes variables of a thread in a loaded library for something else where they happen to stand 16 bytes
// behind the start of a page, and then reads where no memory is. It needn't look at them: none holds our memory.
extern "C" const char* __asan_default_options() {  // NOLINT(bugprone-reserved-identifier): the sanitizer's name
  return "intercept_tls_get_addr=0";
}
