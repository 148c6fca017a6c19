#pragma once

#include <array>
#include <cstdint>
#include <tuple>
#include <vector>

#include "picture/Camera.h"
#include "scene/Scene.h"

/// A corner of triangles, as the buffers of OpenGL hold it. Colours are shares of 255.
struct DrawnVertex {
  std::array<float, 3> Position;           ///< as the eye sees it
  std::array<std::int16_t, 4> Normal;      ///< shares of 32,767; the fourth is not in use
  std::array<float, 2> TextureCoordinate;  ///< (0, 0) at the image's upper left
  std::array<std::uint8_t, 4> Diffuse;     ///< and opacity
  std::array<std::uint8_t, 4> Specular;    ///< and the exponent, which is no share
  std::array<std::uint8_t, 4> Emission;    ///< the fourth is not in use
};

/// How a texture is laid on triangles.
struct TextureUse {
  int Texture = Look::NoTexture;  ///< index of an image of the scene
  TextureWrapTypes WrapS = TextureWrapRepeat;
  TextureWrapTypes WrapT = TextureWrapRepeat;

  bool operator==(const TextureUse&) const = default;
  bool operator<(const TextureUse& other) const {
    return std::tie(Texture, WrapS, WrapT) < std::tie(other.Texture, other.WrapS, other.WrapT);
  }
};

/// Triangles that are drawn at once.
struct DrawnBatch {
  TextureUse Use;
  std::size_t First = 0;  ///< in the indices
  std::size_t Count = 0;
};

/// All that is seen of a scene, as triangles: lines and dots are narrow ones that face the eye. A part's colours stand
/// in its vertices, so that only textures part the batches.
struct Drawing {
  std::vector<DrawnVertex> Vertices;
  std::vector<std::uint32_t> Indices;
  std::vector<DrawnBatch>
      Solid;  ///< what hides what is behind it; where a texture lets light through, only its opaque pixels
  std::vector<DrawnBatch> Clear;  ///< what lets light through, from the back to the front
  /// Whether all is there. What would cover the picture some hundred times over isn't drawn further back.
  bool IsWhole = true;
};

Drawing MakeDrawing(const Scene& scene, const Camera& camera, const PictureOptions& options);
