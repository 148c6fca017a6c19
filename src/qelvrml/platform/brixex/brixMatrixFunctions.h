#pragma once

#include <span>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixMatrix4x4.h"
#include "qelvrml/platform/brix/brixPlane.h"
#include "qelvrml/platform/brix/brixVector.h"

// Points are row vectors: the matrices act from the right.

/// Translation by `d`.
QELVRML_EXPORT brixMatrix4x4 GetDisplacementMatrix(const brixFloatPoint& d);
/// Scale by the three components about the origin.
QELVRML_EXPORT brixMatrix4x4 GetScaleMatrix(const brixFloatPoint& s);
/// Inverse of `m`, by Gauss-Jordan elimination in double precision; the identity if there is none.
QELVRML_EXPORT brixMatrix4x4 GetInverseMatrix(const brixMatrix4x4& m);
/// Right-handed rotation about `axis` by `angle` radians, by Rodrigues' formula; the identity for a zero axis. The axis
/// needs no unit length.
QELVRML_EXPORT brixMatrix4x4 CreateRotationMatrixForNormalAngle(const brixVector& axis, double angle);
/// The shortest rotation that turns `from` onto `to`; the identity for a zero vector. Where the two are opposite it
/// turns by half a turn about `*axis`, or, without one or with a zero one, about the coordinate axis least aligned with
/// `from`, made perpendicular to it.
QELVRML_EXPORT brixMatrix4x4 CreateRotationMatrixForVectors(const brixVector& from, const brixVector& to,
                                                            const brixVector* axis);
/// Places the local origin on the plane's point, and the local +Z along its normal by the shortest rotation.
QELVRML_EXPORT brixMatrix4x4 CreateMatrixFromPlane(const brixPlane& plane);
/// Whether every element is within brixFloatPoint::Tolerance of the identity's.
QELVRML_EXPORT bool IsIdentityMatrix(const brixMatrix4x4& m);
/// The angle in degrees, from 0 to 180; 0 with a zero vector.
QELVRML_EXPORT double CalculateAngleBetweenVectors(const brixVector& a, const brixVector& b);
/// Unit normal of the polygon through the points, by Newell's method: they run counter-clockwise seen from where it
/// points. Zero without area, and where that isn't finite.
/// @{
QELVRML_EXPORT brixVector ComputeNormalForPoints(const brixFloatPointArray& points);
QELVRML_EXPORT brixVector ComputeNormalForPoints(std::span<const brixFloatPoint> points);
/// @}
/// The angle in degrees.
QELVRML_EXPORT double RadiansToDegrees(double radians);
