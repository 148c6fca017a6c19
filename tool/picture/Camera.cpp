#include "picture/Camera.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double MarginShare = 0.04;       // of the shorter side
constexpr double LeastMargin = 2.0;        // pixels: room for the width of lines and dots
constexpr double HalfAngleTangent = 0.32;  // 35 degrees between the ends of the longer side
constexpr double LeastOpacity = 0.5 / 255.0;
constexpr double LeastNear = 0.05;  // of the depth of the scene, so that the depth buffer tells its surfaces apart

struct Range {
  double Least = std::numeric_limits<double>::infinity();
  double Most = -std::numeric_limits<double>::infinity();

  void Add(double value) {
    Least = std::min(Least, value);
    Most = std::max(Most, value);
  }
  double Middle() const { return Least + 0.5 * (Most - Least); }
  double Extent() const { return Most - Least; }
};

struct Ranges {
  Range X;
  Range Y;
  Range Z;

  void Add(const Vector3& v) {
    X.Add(v.X);
    Y.Add(v.Y);
    Z.Add(v.Z);
  }
};

/// The point that is seen farthest to one side of the middle.
struct Side {
  double Slope = -std::numeric_limits<double>::infinity();  // off the middle, for each unit of depth
  double Depth = 1.0;

  void Add(double across, double depth) {
    if (across <= Slope * depth) return;
    Slope = across / depth;
    Depth = depth;
  }
};

// Where the middle would have to be for opposite sides to be seen equally far from it.
double Between(const Side& right, const Side& left) {
  return (right.Slope - left.Slope) * right.Depth * left.Depth / (right.Depth + left.Depth);
}

template <class Function>
void ForEachVisiblePoint(const Scene& scene, Function function) {
  for (const Part& part : scene.Parts) {
    if (!IsVisible(part)) continue;
    for (const brixFloatPoint& point : part.Form.Points) function(point);
  }
}

// Half a side of the picture without its margin, in pixels.
double HalfRoom(int side, const PictureSize& size) {
  return 0.5 * side - std::max(LeastMargin, MarginShare * std::min(size.Width, size.Height));
}

bool IsAlongAxis(const Vector3& v) { return (v.X != 0.0) + (v.Y != 0.0) + (v.Z != 0.0) == 1; }

Vector3 BackOf(const std::array<double, 3>& from) {
  // In two steps, as a length can be beyond the range of numbers or below it.
  const double largest = std::max({std::abs(from[0]), std::abs(from[1]), std::abs(from[2])});
  return UnitVector({from[0] / largest, from[1] / largest, from[2] / largest});
}

// Y is up. Seen from the top or the bottom, where it isn't, X still points to the right.
Vector3 RightOf(const Vector3& back) {
  constexpr double StraightUp = 1e-6;
  const Vector3 right{back.Z, 0.0, -back.X};  // Y x back
  return Length(right) > StraightUp ? UnitVector(right) : Vector3{1.0, 0.0, 0.0};
}

}  // namespace

bool IsVisible(const Part& part) { return part.Surface.Opacity >= LeastOpacity; }

Camera::Camera(const Scene& scene, const PictureOptions& options)
    : Size(options.Size),
      Parallel(IsAlongAxis({options.From[0], options.From[1], options.From[2]})),
      Back(BackOf(options.From)) {
  Right = RightOf(Back);
  Up = Cross(Back, Right);
  SetBox(scene);
  Parallel ? FitParallel(scene) : FitPerspective(scene);
}

void Camera::SetBox(const Scene& scene) {
  Ranges box;
  ForEachVisiblePoint(scene, [&](const brixFloatPoint& p) { box.Add({p.x, p.y, p.z}); });
  Centre = {box.X.Middle(), box.Y.Middle(), box.Z.Middle()};
  const double extent = std::max({box.X.Extent(), box.Y.Extent(), box.Z.Extent()});
  if (extent > 0.0) Half = 0.5 * extent;
}

Vector3 Camera::Scaled(const brixFloatPoint& point) const {
  return {(point.x - Centre.X) / Half, (point.y - Centre.Y) / Half, (point.z - Centre.Z) / Half};
}

// For each of the four planes around the view, with tangent t of its angle to the middle, all points p have to be on
// the inner side of the one through the eye e:
//
//   right:  p.x - e.x <= t * (e.z - p.z)   that is   p.x + t * p.z <= e.x + t * e.z
//   left:   e.x - p.x <= t * (e.z - p.z)   that is   t * p.z - p.x <= t * e.z - e.x
//
// With the largest left sides r and l, the least e.z is (r + l) / (2 t) and there e.x is (r - l) / 2. The same goes for
// top and bottom; the larger e.z counts.
void Camera::FitPerspective(const Scene& scene) {
  Pixel = 2.0 * HalfAngleTangent / std::max(Size.Width, Size.Height);
  const double tx = Pixel * HalfRoom(Size.Width, Size);
  const double ty = Pixel * HalfRoom(Size.Height, Size);
  Range right;
  Range left;
  Range top;
  Range bottom;
  Range depth;
  ForEachVisiblePoint(scene, [&](const brixFloatPoint& point) {
    const Vector3 p = Turned(Scaled(point));
    right.Add(tx * p.Z + p.X);
    left.Add(tx * p.Z - p.X);
    top.Add(ty * p.Z + p.Y);
    bottom.Add(ty * p.Z - p.Y);
    depth.Add(p.Z);
  });
  const double nearest = std::max(LeastNear * depth.Extent(), 0.01);
  Eye.X = 0.5 * (right.Most - left.Most);
  Eye.Y = 0.5 * (top.Most - bottom.Most);
  Eye.Z =
      std::max({(right.Most + left.Most) / (2.0 * tx), (top.Most + bottom.Most) / (2.0 * ty), depth.Most + nearest});
  Near = 0.7 * (Eye.Z - depth.Most);
  Far = 1.1 * (Eye.Z - depth.Least);
  CentrePerspective(scene);
}

// The eye moves sideways until the outermost points are seen equally far from the middle. For points a and b at depths
// d, (a.x - e.x) / a.d = (e.x - b.x) / b.d gives e.x; from there others may be the outermost ones.
void Camera::CentrePerspective(const Scene& scene) {
  constexpr int MostSteps = 8;
  constexpr double NearEnough = 0.1;  // pixels
  bool isCentred = false;
  for (int step = 0; step < MostSteps && !isCentred; ++step) {
    Side right;
    Side left;
    Side top;
    Side bottom;
    ForEachVisiblePoint(scene, [&](const brixFloatPoint& point) {
      const Vector3 p = ToEye(point);
      right.Add(p.X, -p.Z);
      left.Add(-p.X, -p.Z);
      top.Add(p.Y, -p.Z);
      bottom.Add(-p.Y, -p.Z);
    });
    isCentred = std::max(std::abs(right.Slope - left.Slope), std::abs(top.Slope - bottom.Slope)) < NearEnough * Pixel;
    Eye.X += Between(right, left);
    Eye.Y += Between(top, bottom);
  }
}

void Camera::FitParallel(const Scene& scene) {
  Ranges seen;
  ForEachVisiblePoint(scene, [&](const brixFloatPoint& point) { seen.Add(Turned(Scaled(point))); });
  Pixel =
      std::max(0.5 * seen.X.Extent() / HalfRoom(Size.Width, Size), 0.5 * seen.Y.Extent() / HalfRoom(Size.Height, Size));
  if (Pixel == 0.0) Pixel = 1.0 / std::min(Size.Width, Size.Height);
  Eye = {seen.X.Middle(), seen.Y.Middle(), seen.Z.Most + 2.0};
  Near = 1.0;
  Far = seen.Z.Extent() + 3.0;
}

Vector3 Camera::Nearer(const Vector3& place, double pixels) const {
  if (Parallel) return place + Vector3{0.0, 0.0, pixels * Pixel};
  return (1.0 - pixels * Pixel) * place;
}

std::array<float, 16> Camera::ClipFromEye(const Tile& tile) const {
  const double left = (tile.Left - 0.5 * Size.Width) * Pixel;
  const double top = (0.5 * Size.Height - tile.Top) * Pixel;
  const double width = tile.Width * Pixel;
  const double height = tile.Height * Pixel;
  const double depth = Far - Near;
  const double x = (2.0 * left + width) / width;  // of the tile's middle, in halves of its width
  const double y = (2.0 * top - height) / height;
  std::array<double, 16> matrix{};
  matrix[0] = 2.0 / width;
  matrix[5] = 2.0 / height;
  if (Parallel) {
    matrix[10] = -2.0 / depth;
    matrix[12] = -x;
    matrix[13] = -y;
    matrix[14] = -(Far + Near) / depth;
    matrix[15] = 1.0;
  } else {
    matrix[8] = x;
    matrix[9] = y;
    matrix[10] = -(Far + Near) / depth;
    matrix[11] = -1.0;
    matrix[14] = -2.0 * Far * Near / depth;
  }
  std::array<float, 16> rounded{};
  std::transform(matrix.begin(), matrix.end(), rounded.begin(), [](double m) { return static_cast<float>(m); });
  return rounded;
}
