#pragma once

namespace qelvrml {

/// Shininess of a material without a value, on the scale of materials.
inline constexpr double DefaultShininess = 64.0;
/// From the scale of a separator, 0 to 1, to that of a material.
inline constexpr double ShininessScale = 128.0;

}  // namespace qelvrml
