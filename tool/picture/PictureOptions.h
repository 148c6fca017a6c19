#pragma once

#include <array>
#include <string>

// What a picture can be asked for. Nothing here needs the library.

/// Size in pixels, each side from 16 to 8,192.
struct PictureSize {
  int Width = 1200;
  int Height = 900;
};

/// How a picture is taken.
struct PictureOptions {
  PictureSize Size;
  std::array<double, 3> From{1.0, 0.75, 1.5};               ///< from the scene to the eye, in its axes; not zero
  std::array<float, 4> Background{1.0F, 1.0F, 1.0F, 1.0F};  ///< red, green, blue and opacity, from 0 to 1
};

// Each takes a word of the command line over; false, and nothing changed, for a word that means nothing.

/// Such as "800x600".
bool TakeSize(const std::string& word, PictureOptions& options);
/// Front, back, left, right, top, bottom or corner, or a direction such as "1,0.5,2".
bool TakeDirection(const std::string& word, PictureOptions& options);
/// White, black, transparent, or a colour such as "#20304f".
bool TakeBackground(const std::string& word, PictureOptions& options);
