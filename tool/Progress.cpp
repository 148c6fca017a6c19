#include "Progress.h"

#include <unistd.h>

#include <cstdio>
#include <string>

#include "qelvrml/parser/CVRMLParser.h"

namespace {

constexpr std::size_t Width = 40;  // characters of a full bar

std::string Bar(std::size_t done, std::size_t total) {
  const std::size_t filled = total > 0 ? done * Width / total : 0;
  return "\r[" + std::string(filled, '#') + std::string(Width - filled, '.') + "] ";
}

void Show(int percentage) {
  std::fprintf(stderr, "%s%2d%%", Bar(static_cast<std::size_t>(percentage), 100).c_str(), percentage);
  std::fflush(stderr);
}

void ClearLine() { std::fprintf(stderr, "\r\x1b[K"); }

}  // namespace

ProgressBar::ProgressBar(CVRMLParser& parser) : Shown(isatty(STDERR_FILENO) != 0) {
  if (Shown) parser.SetLoaderPtr(Show);
}

ProgressBar::~ProgressBar() {
  if (Shown) ClearLine();
}

CountBar::CountBar(std::size_t total) : Total(total), Shown(isatty(STDERR_FILENO) != 0) {}

CountBar::~CountBar() { Hide(); }

void CountBar::CountOne() {
  ++Done;
  if (!Shown) return;
  std::fprintf(stderr, "%s%zu of %zu", Bar(Done, Total).c_str(), Done, Total);
  std::fflush(stderr);
}

void CountBar::Hide() const {
  if (Shown) ClearLine();
}
