#pragma once

#include <array>

#include "picture/PictureOptions.h"
#include "scene/Scene.h"
#include "scene/Vector3.h"

/// A rectangle of a picture, in pixels from its upper left corner.
struct Tile {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
};

/// Whether a part is there to be looked at, which one that lets all light through isn't.
bool IsVisible(const Part& part);

/// Looks at the visible parts of a scene so that they just fit the picture, with a margin. Along an axis of the scene
/// its view is parallel, else in perspective.
///
/// The eye is the origin and looks down -Z; X points to the right, Y up. Lengths there are shares of the scene's size,
/// so that single precision does for any scene.
class Camera {
public:
  /// At least one part has to be visible.
  Camera(const Scene& scene, const PictureOptions& options);

  /// A point of the scene as the eye sees it.
  Vector3 ToEye(const brixFloatPoint& point) const { return Turned(Scaled(point)) - Eye; }
  /// A direction of the scene as the eye sees it, as long as before.
  Vector3 ToEye(const brixVector& direction) const { return Turned({direction.x, direction.y, direction.z}); }
  bool IsParallel() const { return Parallel; }
  /// Side of a pixel of the picture at a place that the eye sees.
  double PixelAt(const Vector3& place) const { return Parallel ? Pixel : -place.Z * Pixel; }
  /// The place nearer to the eye by so many pixels, where it is seen in front of the same place of the picture.
  Vector3 Nearer(const Vector3& place, double pixels) const;
  /// Matrix from the eye's space to the clip space of a tile, column by column.
  std::array<float, 16> ClipFromEye(const Tile& tile) const;

private:
  void SetBox(const Scene& scene);
  void FitPerspective(const Scene& scene);
  void CentrePerspective(const Scene& scene);
  void FitParallel(const Scene& scene);
  Vector3 Scaled(const brixFloatPoint& point) const;
  Vector3 Turned(const Vector3& v) const { return {Dot(v, Right), Dot(v, Up), Dot(v, Back)}; }

  PictureSize Size;
  bool Parallel;
  Vector3 Right;
  Vector3 Up;
  Vector3 Back;        // towards the eye
  Vector3 Centre;      // of the scene's box, in its own unit
  double Half = 1.0;   // the longest half side of that box
  Vector3 Eye;         // in turned axes
  double Pixel = 1.0;  // side of a pixel, in perspective at a distance of 1
  double Near = 1.0;   // distances between which all is seen
  double Far = 2.0;
};
