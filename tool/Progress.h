#pragma once

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
