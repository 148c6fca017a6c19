#include "view/Batches.h"

#include <map>
#include <tuple>
#include <utility>

#include "view/Mesh.h"

namespace {

BatchKind BatchKindOf(const Part& part, const std::vector<bool>& opaqueImages) {
  BatchKind kind;
  kind.Transparent = part.Surface.Opacity < 1.0F;
  if (part.Form.Triangles.empty()) {
    kind.Kind = part.Form.Segments.empty() ? ShapeKind::Dots : ShapeKind::Segments;
    return kind;
  }
  kind.Smooth = !IsFacetted(part.Form);
  if (part.Surface.Texture == Look::NoTexture) return kind;
  kind.Texture = part.Surface.Texture;
  kind.WrapS = part.Surface.WrapS;
  kind.WrapT = part.Surface.WrapT;
  if (!opaqueImages[static_cast<std::size_t>(kind.Texture)]) kind.Transparent = true;
  return kind;
}

auto AllOfKind(const BatchKind& kind) {
  return std::tie(kind.Kind, kind.Smooth, kind.Transparent, kind.Texture, kind.WrapS, kind.WrapT);
}

}  // namespace

bool operator<(const BatchKind& a, const BatchKind& b) { return AllOfKind(a) < AllOfKind(b); }

std::vector<Batch> MakeBatches(const Scene& scene) {
  std::vector<bool> opaqueImages;
  for (const Image& image : scene.Images) opaqueImages.push_back(IsOpaque(image));
  std::map<BatchKind, std::vector<std::size_t>> parts;
  for (std::size_t i = 0; i < scene.Parts.size(); ++i) parts[BatchKindOf(scene.Parts[i], opaqueImages)].push_back(i);
  std::vector<Batch> batches;
  batches.reserve(parts.size());
  for (auto& [kind, those] : parts) batches.push_back({kind, std::move(those)});
  return batches;
}
