#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "qelvrml/platform/brixex/CKelWorld.h"
#include "scene/Resolution.h"

/// What an object or a group measures, in units of the model.
///
/// A body is a closed surface: each edge has an even number of faces, as a rule two. A closed object is one body. What
/// is open in other objects is put together along open edges that coincide, as soon as that closes it: within an
/// object, then within its group, then with what else is open in the group around that.
struct Measures {
  brixBBox Box;  ///< of what is to be seen; of surfaces of revolution that of the surface itself
  double Area = 0.0;
  std::uint64_t Points = 0;  ///< as the model holds them; of surfaces of revolution those of their triangles
  std::uint64_t Faces = 0;   ///< likewise
  std::uint64_t Bodies = 0;
  std::uint64_t BodiesWithVolume = 0;  ///< those whose inside can be told
  double BodiesVolume = 0.0;           ///< of these together
  std::uint64_t OpenSurfaces = 0;      ///< pieces that aren't bodies
  std::uint64_t OpenEdges = 0;         ///< edges that have one face
  std::uint64_t NonManifoldEdges = 0;  ///< edges that have more than two

  /// Whether there are bodies, and nothing else that has faces.
  bool IsClosed() const { return Bodies > 0 && OpenSurfaces == 0; }
  /// The volume of something that is closed, if it has one.
  std::optional<double> Volume() const {
    if (!IsClosed() || BodiesWithVolume < Bodies) return std::nullopt;
    return BodiesVolume;
  }
  void AddBody(const std::optional<double>& volume, std::uint64_t nonManifoldEdges);
  /// Adds up two parts that have no edges in common.
  void Add(const Measures& part);
};

struct MeasuredObject {
  const brixBaseObject* Object;
  Measures Sum;
};

/// A group, its objects and its groups, in the order of the model.
struct MeasuredGroup {
  const brixBaseGroup* Group;
  Measures Sum;
  std::vector<MeasuredObject> Objects;
  std::vector<MeasuredGroup> Groups;
};

/// Measures a model, which has to live as long as the result.
MeasuredGroup MeasureModel(const CKelWorld& world, const Resolution& resolution);
