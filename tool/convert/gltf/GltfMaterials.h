#pragma once

#include <map>
#include <utility>
#include <vector>

#include "convert/gltf/JsonText.h"
#include "scene/Look.h"

/// The materials of a glTF file, with the textures and samplers that they name.
class GltfMaterials {
public:
  /// `transparentImages` tells of each image of the scene whether something shines through it.
  explicit GltfMaterials(std::vector<bool> transparentImages) : TransparentImages(std::move(transparentImages)) {}

  // Each gives the index of a material, the same for looks that are the same.

  std::size_t OfSurface(const Look& look);
  /// Of lines and dots, which no light falls on.
  std::size_t OfLines(const Look& look);

  const JsonList& GetMaterials() const { return Materials; }
  const JsonList& GetTextures() const { return Textures; }
  const JsonList& GetSamplers() const { return Samplers; }
  bool HasUnlit() const { return !LineIndices.empty(); }

private:
  std::size_t Add(const Look& look, const JsonObject& reflection, JsonObject material);
  std::size_t TextureOf(const Look& look);
  std::size_t SamplerOf(TextureWrapTypes wrapS, TextureWrapTypes wrapT);

  std::vector<bool> TransparentImages;
  JsonList Materials;
  JsonList Textures;
  JsonList Samplers;
  std::map<Look, std::size_t> SurfaceIndices;
  std::map<Look, std::size_t> LineIndices;
  std::map<std::pair<int, std::size_t>, std::size_t> TextureIndices;  // by image and sampler
  std::map<std::pair<TextureWrapTypes, TextureWrapTypes>, std::size_t> SamplerIndices;
};
