#pragma once

#include <cstddef>

#include "info/Listing.h"
#include "text/Terminal.h"

/// A line for each file and one for all of them, for people.
class Summary : public Listing {
public:
  Summary();
  void Add(const LoadedFile& file, const Census& census) override;
  void End(const Total& total) override;

private:
  Colours Paint;
  std::size_t PathWidth;  ///< columns that a line leaves for the path; 0 for any number
};
