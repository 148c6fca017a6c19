#pragma once

#include <array>

// Colours as a screen shows them (sRGB), and the light that they stand for. All numbers are from 0 to 1.

/// The light of a colour's share of red, green or blue.
float ToLight(float share);
/// The share that gives this light.
float ToShare(float light);

/// A colour for lines and dots that differs well from the background: the one given unless it is about as bright as the
/// background, else a darker one on a bright background and a brighter one on a dark background.
std::array<float, 3> StandOut(const std::array<float, 3>& colour, const std::array<float, 4>& background);
