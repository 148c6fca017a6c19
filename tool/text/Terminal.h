#pragma once

#include <cstddef>
#include <string>

/// Colours for what is written to a file descriptor: none unless that is a terminal, and none if NO_COLOR is set and
/// not empty or TERM is "dumb" or not set.
class Colours {
public:
  explicit Colours(int descriptor);

  std::string Label(const std::string& text) const { return Paint(text, "2"); }     ///< dim
  std::string Failure(const std::string& text) const { return Paint(text, "31"); }  ///< red
  std::string Note(const std::string& text) const { return Paint(text, "33"); }     ///< yellow

private:
  std::string Paint(const std::string& text, const char* code) const;

  bool On;
};

/// How many characters a line of standard output has; 0 if that isn't a terminal.
std::size_t TerminalWidth();
