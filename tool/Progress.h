#pragma once

#include <cstddef>

class CVRMLParser;

/// Shows the progress of a load on standard error while this object lives, if that is a terminal; else it is silent.
class ProgressBar {
public:
  explicit ProgressBar(CVRMLParser& parser);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

private:
  bool Shown;
};

/// Shows how many of a number of files are done on standard error while this object lives, if that is a terminal.
class CountBar {
public:
  explicit CountBar(std::size_t total);
  CountBar(const CountBar&) = delete;
  CountBar& operator=(const CountBar&) = delete;
  ~CountBar();

  void CountOne();
  /// Clears the line for something else; the next count brings the bar back.
  void Hide() const;

private:
  std::size_t Total;
  std::size_t Done = 0;
  bool Shown;
};
