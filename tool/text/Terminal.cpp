#include "text/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace {

std::string_view Variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

Colours::Colours(int descriptor)
    : On(Variable("NO_COLOR").empty() && !Variable("TERM").empty() && Variable("TERM") != "dumb" &&
         isatty(descriptor) != 0) {}

std::string Colours::Paint(const std::string& text, const char* code) const {
  return On ? std::string("\x1b[") + code + "m" + text + "\x1b[0m" : text;
}

std::size_t TerminalWidth() {
  if (isatty(STDOUT_FILENO) == 0) return 0;
  winsize size{};
  const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : 80;
}
