#pragma once

#include <cmath>

#include "qelvrml/platform/brix/brixFloatPoint.h"

/// A point or a direction in double precision. No square of what single precision holds is too large.
struct Vector3 {
  double X = 0.0;
  double Y = 0.0;
  double Z = 0.0;
};

inline Vector3 ToVector(const brixFloatPoint& p) { return {p.x, p.y, p.z}; }
inline brixFloatPoint ToPoint(const Vector3& v) {
  return {static_cast<float>(v.X), static_cast<float>(v.Y), static_cast<float>(v.Z)};
}

constexpr Vector3 operator+(const Vector3& a, const Vector3& b) { return {a.X + b.X, a.Y + b.Y, a.Z + b.Z}; }
constexpr Vector3 operator-(const Vector3& a, const Vector3& b) { return {a.X - b.X, a.Y - b.Y, a.Z - b.Z}; }
constexpr Vector3 operator*(double factor, const Vector3& v) { return {factor * v.X, factor * v.Y, factor * v.Z}; }
constexpr double Dot(const Vector3& a, const Vector3& b) { return a.X * b.X + a.Y * b.Y + a.Z * b.Z; }
constexpr Vector3 Cross(const Vector3& a, const Vector3& b) {
  return {a.Y * b.Z - a.Z * b.Y, a.Z * b.X - a.X * b.Z, a.X * b.Y - a.Y * b.X};
}
inline double Length(const Vector3& v) { return std::sqrt(Dot(v, v)); }
/// Of length 1; the vector is not zero.
inline Vector3 UnitVector(const Vector3& v) { return (1.0 / Length(v)) * v; }
