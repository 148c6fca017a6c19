#include "picture/Drawing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <span>
#include <stdexcept>
#include <utility>

#include "picture/Colour.h"
#include "picture/Strokes.h"

namespace {

std::uint8_t ToByte(float share) { return static_cast<std::uint8_t>(std::lround(share * 255.0F)); }

std::array<std::uint8_t, 4> ToBytes(const std::array<float, 3>& colour, std::uint8_t fourth) {
  return {ToByte(colour[0]), ToByte(colour[1]), ToByte(colour[2]), fourth};
}

std::array<std::int16_t, 4> ToShorts(const Vector3& v) {
  const auto number = [](double n) {
    return static_cast<std::int16_t>(std::lround(std::clamp(n, -1.0, 1.0) * 32767.0));
  };
  return {number(v.X), number(v.Y), number(v.Z), 0};
}

// The colour that light makes on a surface. What is all but black is brighter, as its form couldn't be seen else; what
// shines needs no light for that.
std::array<float, 3> LitColour(const Look& look) {
  constexpr float Darkest = 0.2F;
  std::array<float, 3> colour = look.Diffuse;
  const float brightest = std::max({colour[0], colour[1], colour[2]});
  if (look.Emission != std::array<float, 3>{} || brightest >= Darkest) return colour;
  for (float& share : colour) share += Darkest - brightest;
  return colour;
}

/// A triangle that what is behind it is seen through.
struct ClearTriangle {
  float Depth;  // of its middle, less where it is farther
  TextureUse Use;
  std::array<std::uint32_t, 3> Corners;
};

class DrawingMaker {
public:
  DrawingMaker(const Scene& scene, const Camera& camera, const PictureOptions& options)
      : Shown(scene), Seen(camera), Options(options) {
    for (const Image& image : scene.Images) ClearImages.push_back(!IsOpaque(image));
  }

  Drawing Make() {
    for (const Part* part : FromTheFront()) {
      if (Made.IsWhole) Add(*part);
    }
    for (auto& [use, indices] : SolidTriangles) AddBatch(use, std::exchange(indices, {}), Made.Solid);
    AddClearTriangles();
    return std::move(Made);
  }

private:
  // The visible parts, roughly the nearest first, which spares lighting most of what others hide.
  std::vector<const Part*> FromTheFront() const {
    std::vector<std::pair<double, const Part*>> parts;
    for (const Part& part : Shown.Parts) {
      if (IsVisible(part)) parts.emplace_back(-Seen.ToEye(part.Form.Points.front()).Z, &part);
    }
    std::stable_sort(parts.begin(), parts.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<const Part*> sorted(parts.size());
    std::transform(parts.begin(), parts.end(), sorted.begin(), [](const auto& part) { return part.second; });
    return sorted;
  }

  void Add(const Part& part) {
    const auto first = static_cast<std::uint32_t>(Made.Vertices.size());
    std::vector<std::uint32_t> corners;
    if (part.Form.Triangles.empty()) {
      Strokes strokes = DrawStrokes(part.Form, Seen, Options.Size);
      AddStrokeVertices(strokes.Places, part.Surface);
      corners = std::move(strokes.Corners);
    } else {
      AddSurfaceVertices(part);
      corners = part.Form.Triangles;
    }
    if (Made.Vertices.size() > std::numeric_limits<std::uint32_t>::max()) {
      throw std::runtime_error("can't make a picture: the scene has too many points");
    }
    for (std::uint32_t& corner : corners) corner += first;
    Cut(corners);
    AddTriangles(part.Surface, corners);
  }

  // Leaves as many triangles as may still be drawn.
  void Cut(std::vector<std::uint32_t>& corners) {
    constexpr double MostLayers = 400.0;  // some twenty seconds at the usual size
    const double most = MostLayers * Options.Size.Width * Options.Size.Height;
    for (std::size_t i = 0; i < corners.size(); i += 3) {
      Covered += PixelsOf(corners[i], corners[i + 1], corners[i + 2]);
      if (Covered <= most) continue;
      Made.IsWhole = false;
      corners.resize(i);
    }
  }

  double PixelsOf(std::uint32_t a, std::uint32_t b, std::uint32_t c) const {
    const auto seen = [this](std::uint32_t corner) {
      const auto& [x, y, z] = Made.Vertices[corner].Position;
      const double pixel = Seen.PixelAt({x, y, z});
      return Vector3{x / pixel, y / pixel, 0.0};
    };
    const Vector3 first = seen(a);
    return 0.5 * std::abs(Cross(seen(b) - first, seen(c) - first).Z);
  }

  void AddStrokeVertices(const std::vector<Vector3>& places, const Look& look) {
    DrawnVertex vertex{};
    vertex.Normal = ToShorts({0.0, 0.0, 1.0});
    vertex.Diffuse[3] = ToByte(look.Opacity);
    vertex.Emission = ToBytes(StandOut(LineColour(look), Options.Background), 0);
    for (const Vector3& place : places) AddAt(place, vertex);
  }

  void AddSurfaceVertices(const Part& part) {
    const Look& look = part.Surface;
    DrawnVertex vertex{};
    vertex.Diffuse = ToBytes(LitColour(look), ToByte(look.Opacity));
    vertex.Specular = ToBytes(look.Specular, static_cast<std::uint8_t>(std::lround(look.Shininess)));
    vertex.Emission = ToBytes(look.Emission, 0);
    const Shape& form = part.Form;
    for (std::size_t i = 0; i < form.Points.size(); ++i) {
      vertex.Normal = ToShorts(Seen.ToEye(form.Normals[i]));
      if (!form.TextureCoordinates.empty()) {
        vertex.TextureCoordinate = {form.TextureCoordinates[i].x, 1.0F - form.TextureCoordinates[i].y};
      }
      AddAt(Seen.ToEye(form.Points[i]), vertex);
    }
  }

  void AddAt(const Vector3& place, DrawnVertex& vertex) {
    vertex.Position = {static_cast<float>(place.X), static_cast<float>(place.Y), static_cast<float>(place.Z)};
    Made.Vertices.push_back(vertex);
  }

  void AddTriangles(const Look& look, const std::vector<std::uint32_t>& corners) {
    TextureUse use;
    if (look.Texture != Look::NoTexture) use = {look.Texture, look.WrapS, look.WrapT};
    const bool isClear = ToByte(look.Opacity) < 255;
    const bool hasClearPixels = use.Texture != Look::NoTexture && ClearImages[static_cast<std::size_t>(use.Texture)];
    if (!isClear) {
      std::vector<std::uint32_t>& solid = SolidTriangles[use];
      solid.insert(solid.end(), corners.begin(), corners.end());
    }
    if (!isClear && !hasClearPixels) return;
    for (std::size_t i = 0; i < corners.size(); i += 3) {
      const auto z = [&](std::size_t corner) { return Made.Vertices[corners[i + corner]].Position[2]; };
      ClearTriangles.push_back({z(0) + z(1) + z(2), use, {corners[i], corners[i + 1], corners[i + 2]}});
    }
  }

  void AddBatch(const TextureUse& use, std::span<const std::uint32_t> indices, std::vector<DrawnBatch>& batches) {
    if (batches.empty() || batches.back().Use != use) batches.push_back({use, Made.Indices.size(), 0});
    batches.back().Count += indices.size();
    Made.Indices.insert(Made.Indices.end(), indices.begin(), indices.end());
  }

  void AddClearTriangles() {
    std::stable_sort(ClearTriangles.begin(), ClearTriangles.end(),
                     [](const ClearTriangle& a, const ClearTriangle& b) { return a.Depth < b.Depth; });
    for (const ClearTriangle& triangle : ClearTriangles) AddBatch(triangle.Use, triangle.Corners, Made.Clear);
  }

  const Scene& Shown;
  const Camera& Seen;
  const PictureOptions& Options;
  std::vector<bool> ClearImages;
  Drawing Made;
  double Covered = 0.0;  // pixels, each as often as a triangle covers it
  std::map<TextureUse, std::vector<std::uint32_t>> SolidTriangles;
  std::vector<ClearTriangle> ClearTriangles;
};

}  // namespace

Drawing MakeDrawing(const Scene& scene, const Camera& camera, const PictureOptions& options) {
  return DrawingMaker(scene, camera, options).Make();
}
