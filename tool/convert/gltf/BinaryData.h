#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "convert/gltf/JsonText.h"
#include "scene/Shape.h"

/// The numbers of a glTF file, and the JSON that tells where they are: all points stand in one view of the buffer, all
/// normals in another, and so on, with an accessor for those of each mesh. Lengths are multiplied by a factor.
class BinaryData {
public:
  explicit BinaryData(double factor) : Factor(factor) {}

  // Each of these adds numbers and gives the index of their accessor.

  std::size_t AddPoints(const std::vector<brixFloatPoint>& points);
  std::size_t AddNormals(const std::vector<brixVector>& normals);
  /// Turned over: glTF counts t from the top of an image on.
  std::size_t AddTextureCoordinates(const std::vector<brix2DFloatPoint>& coordinates);
  /// Indices of points, in two bytes each if there are few points.
  std::size_t AddIndices(const std::vector<unsigned>& indices, std::size_t pointCount);

  /// Adds a whole file, and gives the index of its view.
  std::size_t AddFile(std::string bytes);

  /// The accessors, and the views that they name.
  /// @{
  const JsonList& GetAccessors() const { return Accessors; }
  JsonList GetViews() const;
  /// @}
  /// All views laid end to end, which is the buffer.
  /// @{
  std::size_t GetBufferSize() const;
  /// Moves the buffer to the end of `file`.
  void MoveBufferTo(std::string& file);
  /// @}

private:
  struct View {
    std::string Bytes;
    std::size_t Stride = 0;  ///< of the values of one point; 0 for anything else
    std::size_t Target = 0;  ///< what a graphics card takes it for; 0 for nothing
  };
  using ViewIndex = std::optional<std::size_t>;

  template <class Number>
  std::size_t AddNumbers(ViewIndex& view, const View& kind, const std::vector<Number>& numbers, JsonObject accessor);

  double Factor;
  std::vector<View> Views;
  ViewIndex Points;
  ViewIndex Normals;
  ViewIndex Coordinates;
  ViewIndex ShortIndices;
  ViewIndex LongIndices;
  JsonList Accessors;
};
