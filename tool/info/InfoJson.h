#pragma once

#include "info/Listing.h"

/// Prints as a JSON object what a report tells about a file.
void PrintInfoJson(const LoadedFile& file, const Census& census);

/// {"files": [FILE...], "total": {...}}
class JsonListing : public Listing {
public:
  void Add(const LoadedFile& file, const Census& census) override;
  void End(const Total& total) override;

private:
  const char* Before = "{\"files\":[";  ///< what the next file, or the end, is to be written behind
};
