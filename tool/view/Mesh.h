#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "scene/Shape.h"

/// A point of a mesh, with what belongs to it: the bits of its floating-point numbers, and its normal as two steps.
struct MeshPoint {
  std::array<std::uint32_t, 3> Place{};
  std::array<std::uint32_t, 2> Normal{};
  std::array<std::uint32_t, 2> Texture{};

  bool operator==(const MeshPoint&) const = default;
};

/// A shape as a page holds it.
struct Mesh {
  std::vector<MeshPoint> Points;
  std::vector<unsigned> Indices;  ///< of triangles or segments; none for dots
};

/// Whether the normals of all triangles are those of their planes, so that nobody needs to write them.
bool IsFacetted(const Shape& shape);

/// The mesh of a shape, counted from `origin`; points that are the same in everything become one. Normals are left out
/// unless they are asked for.
///
/// A normal lies on the octahedron |x| + |y| + |z| = 1, whose lower half is folded over the upper one; x and y count
/// in steps of 1/NormalSteps from -1 on.
Mesh MakeMesh(const Shape& shape, const brixFloatPoint& origin, bool withNormals);

constexpr int NormalSteps = 2047;
