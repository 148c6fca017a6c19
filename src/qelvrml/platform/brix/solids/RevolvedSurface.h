#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <numbers>
#include <optional>

#include "qelvrml/platform/brix/brixBBox.h"
#include "qelvrml/platform/brix/brixBool.h"
#include "qelvrml/platform/brix/brixMatrix4x4.h"
#include "qelvrml/platform/brix/groups/brixEvaluation.h"

namespace qelvrml {

/// An angle's range, in radians; From isn't above To.
struct Turn {
  double From = 0.0;
  double To = 0.0;
};

inline constexpr Turn FullCircle = {0.0, 2.0 * std::numbers::pi};

/// Whether a range is a full circle or more.
bool IsWhole(const Turn& turn);

/// Whether an angle, or the same place some turns away, lies in the range.
bool Contains(const Turn& turn, double angle);

/// An arc of an ellipse: Centre + U * cos(t) + V * sin(t).
struct Arc {
  std::array<double, 3> Centre{};
  std::array<double, 3> U{};
  std::array<double, 3> V{};
};

/// A place on a surface, in local coordinates.
struct SurfacePoint {
  std::array<double, 3> Position{};
  std::array<double, 3> Normal{};
};

/// Adds the exact extent of the part of an arc within `turn`, placed by `matrix`.
void AddArc(brixBBox& box, const Arc& arc, const Turn& turn, const brixMatrix4x4& matrix);

/// Adds the exact extent of a whole ellipsoid with these half axes, which need not be at right angles, placed by
/// `matrix`: along a coordinate axis it reaches as far as the root of the sum of the squares of their shares.
void AddEllipsoid(brixBBox& box, const std::array<double, 3>& centre, const std::array<std::array<double, 3>, 3>& axes,
                  const brixMatrix4x4& matrix);

/// The arc of the radius `radius` about the Z axis at the height `z`, its angle measured from `start`.
Arc CircleAboutZ(double radius, double z, const brixFloatPoint& centre, const brixVector& start);

/// A surface of two parameters, both from 0 to 1.
using Surface = std::function<SurfacePoint(double, double)>;

/// The side of a frustum about the Z axis with its base in the plane z = 0; the first parameter goes round, the second
/// up, outward also for sizes below zero.
Surface FrustumSide(double bottomRadius, double topRadius, double height, const Turn& turn);

/// The tolerance in use: 0 or less stands for a hundredth of the radius.
double ChordTolerance(double radius, double chordTolerance);

/// Steps that keep the chords of a circle within the tolerance over an angle; from 1 to a bound of some thousands.
int ChordSteps(double radius, double angle, double chordTolerance);

/// A bound on the factor by which the matrix stretches any local length; the factor itself when its axes stay at right
/// angles.
double LargestStretch(const brixMatrix4x4& matrix);

/// Fills `result` with a grid of triangles over a surface, placed by `matrix`.
/// Triangles without area, as at a pole, are left out.
brixEReturn EvaluateSurface(const Surface& surface, int turnSteps, int alongSteps, const brixMatrix4x4& matrix,
                            brixEvaluation& result);

// How many triangles EvaluateSurface gives can be told from the shape, but for points that come together when they are
// rounded: then the counts below aren't given, and only the evaluation tells.

/// Whether the range is one of a few turns, so that what is computed from its angles is exact enough to count by.
bool IsModest(const Turn& turn);

/// A bound below the distance of two points on a circle of the radius 1, for angles up to a quarter of a turn.
double LeastChord(double angle);

/// Whether points that `matrix` places stay different in single precision: points that are at least `distance` from one
/// another and at most `reach` from the local origin.
bool StayApart(double distance, double reach, const brixMatrix4x4& matrix);

/// Triangles of FrustumSide, or of a ring if the height is 0, in so many steps of a turn.
std::optional<std::size_t> CountFrustumTriangles(double bottomRadius, double topRadius, double height, const Turn& turn,
                                                 int steps, const brixMatrix4x4& matrix);

}  // namespace qelvrml
