#pragma once

#include <vector>

#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixVector.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"
#include "qelvrml/platform/brixex/textures/CKelTextureCoordinate.h"
#include "scene/Resolution.h"

/// What is to be seen of an object: triangles, else segments, else dots. All numbers are finite, all points in use.
struct Shape {
  std::vector<brixFloatPoint> Points;                ///< in units of the model
  std::vector<brixVector> Normals;                   ///< of triangles one for each point, of length 1; else empty
  std::vector<brix2DFloatPoint> TextureCoordinates;  ///< one for each point, (0, 0) at the image's lower left; or empty
  std::vector<unsigned> Triangles;                   ///< three points each, counter-clockwise seen from outside
  std::vector<unsigned> Segments;                    ///< two points each

  bool IsEmpty() const { return Points.empty(); }
};

/// The shape of an object. `mapping` tells how a texture lies on it, rotation and scale are worked in; may be null.
Shape MakeShape(const brixBaseObject& object, const Resolution& resolution, const CKelTextureCoordinate* mapping);

/// Whether all components of a point are finite.
bool IsFinite(const brixFloatPoint& point);

/// Adds all of one shape to another of the same kind.
void Append(const Shape& shape, Shape& to);
