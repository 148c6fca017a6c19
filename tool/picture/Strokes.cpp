#include "picture/Strokes.h"

#include <algorithm>
#include <array>
#include <numbers>
#include <span>
#include <utility>

namespace {

// Thinner lines than this look broken, and a larger picture looks like a smaller one made larger.
constexpr double LeastLineWidth = 1.5;     // pixels
constexpr double LineShare = 1.0 / 800.0;  // of the longer side
constexpr double DotDiameter = 2.8;        // widths of a line
constexpr int DotCorners = 8;
constexpr double WidthsNearer = 2.0;  // what a line comes nearer by: enough on surfaces seen at an acute angle, too

class StrokeMaker {
public:
  StrokeMaker(const Camera& camera, const PictureSize& size)
      : Seen(camera), Width(std::max(LeastLineWidth, LineShare * std::max(size.Width, size.Height))) {}

  // A rectangle that is half a line's width longer at both ends, so that lines of a row meet without a gap.
  void AddLine(const brixFloatPoint& from, const brixFloatPoint& to) {
    const Vector3 a = Nearer(from);
    const Vector3 b = Nearer(to);
    const Vector3 along = DirectionInPicture(a, b);
    const Vector3 across{-along.Y, along.X, 0.0};
    const double halfAtA = 0.5 * Width * Seen.PixelAt(a);
    const double halfAtB = 0.5 * Width * Seen.PixelAt(b);
    AddFan(std::array{a + halfAtA * (across - along), a - halfAtA * (across + along), b + halfAtB * (along - across),
                      b + halfAtB * (along + across)});
  }

  void AddDot(const brixFloatPoint& at) {
    const Vector3 middle = Nearer(at);
    const double radius = 0.5 * DotDiameter * Width * Seen.PixelAt(middle);
    std::array<Vector3, DotCorners> corners;
    for (int i = 0; i < DotCorners; ++i) {
      const double angle = 2.0 * std::numbers::pi * (i + 0.5) / DotCorners;
      corners[static_cast<std::size_t>(i)] = middle + radius * Vector3{std::cos(angle), std::sin(angle), 0.0};
    }
    AddFan(corners);
  }

  Strokes Made;

private:
  Vector3 Nearer(const brixFloatPoint& point) const { return Seen.Nearer(Seen.ToEye(point), WidthsNearer * Width); }

  // Of length 1; any for a line that is seen as a dot.
  Vector3 DirectionInPicture(const Vector3& a, const Vector3& b) const {
    const double scaleOfA = 1.0 / Seen.PixelAt(a);
    const double scaleOfB = 1.0 / Seen.PixelAt(b);
    const Vector3 direction{scaleOfB * b.X - scaleOfA * a.X, scaleOfB * b.Y - scaleOfA * a.Y, 0.0};
    constexpr double AsADot = 1e-6;  // pixels
    return Length(direction) > AsADot ? UnitVector(direction) : Vector3{1.0, 0.0, 0.0};
  }

  void AddFan(std::span<const Vector3> corners) {
    const auto first = static_cast<std::uint32_t>(Made.Places.size());
    Made.Places.insert(Made.Places.end(), corners.begin(), corners.end());
    for (std::uint32_t i = 2; i < corners.size(); ++i) {
      Made.Corners.insert(Made.Corners.end(), {first, first + i - 1, first + i});
    }
  }

  const Camera& Seen;
  double Width;  // of lines, in pixels
};

}  // namespace

Strokes DrawStrokes(const Shape& form, const Camera& camera, const PictureSize& size) {
  StrokeMaker maker(camera, size);
  for (std::size_t i = 0; i < form.Segments.size(); i += 2) {
    maker.AddLine(form.Points[form.Segments[i]], form.Points[form.Segments[i + 1]]);
  }
  if (!form.Segments.empty()) return std::move(maker.Made);
  for (const brixFloatPoint& point : form.Points) maker.AddDot(point);
  return std::move(maker.Made);
}
