#include "Progress.h"

#include <unistd.h>

#include <cstdio>
#include <string>

#include "qelvrml/parser/CVRMLParser.h"

namespace {

constexpr int Width = 40;  // characters of a full bar

void Show(int percentage) {
  const auto filled = static_cast<std::size_t>(percentage * Width / 100);
  const std::string bar = std::string(filled, '#') + std::string(Width - filled, '.');
  std::fprintf(stderr, "\r[%s] %2d%%", bar.c_str(), percentage);
  std::fflush(stderr);
}

}  // namespace

ProgressBar::ProgressBar(CVRMLParser& parser) : Shown(isatty(STDERR_FILENO) != 0) {
  if (Shown) parser.SetLoaderPtr(Show);
}

ProgressBar::~ProgressBar() {
  if (Shown) std::fprintf(stderr, "\r\x1b[K");  // back to an empty line
}
