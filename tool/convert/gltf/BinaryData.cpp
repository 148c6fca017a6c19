#include "convert/gltf/BinaryData.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <utility>

static_assert(std::endian::native == std::endian::little, "glTF has the bytes of numbers in this order");

namespace {

// Values of glTF, as its section 5 (Properties Reference) has them.
constexpr std::size_t VertexTarget = 34962;
constexpr std::size_t IndexTarget = 34963;
constexpr std::size_t TypeShort = 5123;
constexpr std::size_t TypeLong = 5125;
constexpr std::size_t TypeFloat = 5126;

constexpr std::size_t Alignment = 4;
constexpr std::size_t MostShortPoints = 65535;  // the largest number in two bytes isn't an index

JsonObject Accessor(std::size_t componentType, const char* type, std::size_t count) {
  return std::move(JsonObject().Add("componentType", componentType).Add("type", Quoted(type)).Add("count", count));
}

std::vector<float> ScaledPoints(const std::vector<brixFloatPoint>& points, double factor) {
  const auto scaled = [factor](float length) { return static_cast<float>(length * factor); };
  std::vector<float> numbers;
  numbers.reserve(3 * points.size());
  for (const brixFloatPoint& p : points) numbers.insert(numbers.end(), {scaled(p.x), scaled(p.y), scaled(p.z)});
  return numbers;
}

std::size_t Padded(std::size_t size) { return (size + Alignment - 1) / Alignment * Alignment; }

}  // namespace

template <class Number>
std::size_t BinaryData::AddNumbers(ViewIndex& view, const View& kind, const std::vector<Number>& numbers,
                                   JsonObject accessor) {
  if (!view) {
    view = Views.size();
    Views.push_back(kind);
  }
  std::string& bytes = Views[*view].Bytes;
  accessor.Add("bufferView", *view).Add("byteOffset", bytes.size());
  bytes.append(reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(Number));
  return Accessors.Add(accessor.Text());
}

std::size_t BinaryData::AddPoints(const std::vector<brixFloatPoint>& points) {
  const std::vector<float> numbers = ScaledPoints(points, Factor);
  std::array<float, 3> least = {numbers[0], numbers[1], numbers[2]};
  std::array<float, 3> most = least;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    least[i % 3] = std::min(least[i % 3], numbers[i]);
    most[i % 3] = std::max(most[i % 3], numbers[i]);
  }
  JsonObject accessor = Accessor(TypeFloat, "VEC3", points.size());
  accessor.Add("min", NumberList(least)).Add("max", NumberList(most));
  return AddNumbers(Points, {"", 3 * sizeof(float), VertexTarget}, numbers, std::move(accessor));
}

std::size_t BinaryData::AddNormals(const std::vector<brixVector>& normals) {
  std::vector<float> numbers;
  numbers.reserve(3 * normals.size());
  for (const brixVector& n : normals) numbers.insert(numbers.end(), {n.x, n.y, n.z});
  return AddNumbers(Normals, {"", 3 * sizeof(float), VertexTarget}, numbers,
                    Accessor(TypeFloat, "VEC3", normals.size()));
}

std::size_t BinaryData::AddTextureCoordinates(const std::vector<brix2DFloatPoint>& coordinates) {
  std::vector<float> numbers;
  numbers.reserve(2 * coordinates.size());
  for (const brix2DFloatPoint& c : coordinates) numbers.insert(numbers.end(), {c.x, 1.0F - c.y});
  return AddNumbers(Coordinates, {"", 2 * sizeof(float), VertexTarget}, numbers,
                    Accessor(TypeFloat, "VEC2", coordinates.size()));
}

std::size_t BinaryData::AddIndices(const std::vector<unsigned>& indices, std::size_t pointCount) {
  if (pointCount > MostShortPoints) {
    return AddNumbers(LongIndices, {"", 0, IndexTarget}, indices, Accessor(TypeLong, "SCALAR", indices.size()));
  }
  const std::vector<std::uint16_t> numbers(indices.begin(), indices.end());
  return AddNumbers(ShortIndices, {"", 0, IndexTarget}, numbers, Accessor(TypeShort, "SCALAR", indices.size()));
}

std::size_t BinaryData::AddFile(std::string bytes) {
  Views.push_back({std::move(bytes), 0, 0});
  return Views.size() - 1;
}

JsonList BinaryData::GetViews() const {
  JsonList list;
  std::size_t offset = 0;
  for (const View& view : Views) {
    JsonObject object;
    object.Add("buffer", std::size_t{0}).Add("byteOffset", offset).Add("byteLength", view.Bytes.size());
    if (view.Stride > 0) object.Add("byteStride", view.Stride);
    if (view.Target > 0) object.Add("target", view.Target);
    list.Add(object.Text());
    offset += Padded(view.Bytes.size());
  }
  return list;
}

std::size_t BinaryData::GetBufferSize() const {
  std::size_t size = 0;
  for (const View& view : Views) size += Padded(view.Bytes.size());
  return size;
}

void BinaryData::MoveBufferTo(std::string& file) {
  file.reserve(file.size() + GetBufferSize());
  for (View& view : Views) {
    const std::string bytes = std::exchange(view.Bytes, "");
    file += bytes;
    file.append(Padded(bytes.size()) - bytes.size(), '\0');
  }
}
