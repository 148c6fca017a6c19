// Extrusion: sweeps a cross-section along a spine.
//
//   section(i) = crossSection * scale(i) * orientation(i) * shortest rotation of +Y onto tangent(i) * move to spine(i)
//   mesh row i = section(i); a cap closes the first and the last row

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/parser/Limits.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/PointBlocks.h"

namespace {

constexpr brixVector Up(0.0F, 1.0F, 0.0F);

// Cross-sections and scales hold pairs of numbers.
unsigned PairCount(const brixDoubleArray& values) { return values.GetSize() / 2; }

// A mesh, and the turning of each section.
std::uint64_t SweepSteps(std::uint64_t points) { return qelvrml::StepsOfASolid + points * qelvrml::StepsOfASweptPoint; }

brixFloatPoint ScaleOf(unsigned index, const brixDoubleArray& scale) {
  // One pair serves all sections; a longer list that ends early leaves the rest unscaled.
  const unsigned pair = scale.GetSize() == 2 && index > 0 ? 0 : index;
  if (std::uint64_t{2} * pair + 1 >= scale.GetSize()) return {1.0F, 1.0F, 1.0F};
  return {static_cast<float>(scale[2 * pair]), 1.0F, static_cast<float>(scale[2 * pair + 1])};
}

brixMatrix4x4 OrientationOf(unsigned index, const brixVectorArray& axes, const brixDoubleArray& angles) {
  const unsigned place = axes.GetSize() == 1 ? 0 : index;
  if (place >= axes.GetSize() || place >= angles.GetSize()) return {};
  return CreateRotationMatrixForNormalAngle(axes[place], angles[place]);
}

}  // namespace

bool CVRMLParser::ParseExtrusion() {
  if (!CurrentSeparator) return false;

  bool solid = true;
  bool beginCap = true;
  bool endCap = true;
  brixVectorArray axes;
  brixDoubleArray angles;
  brixDoubleArray scale;
  brixDoubleArray crossSection;
  brixFloatPointArray spine;
  const char* place = IOManager.GetCurrentPlace();
  qelvrml::NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenEXTRUSION});
  reader.WhileInNode([&](VRMLTokenTypes keyword) {
    switch (keyword) {
      case VRMLTokenSOLID: reader.TakeBoolean(solid); return;
      case VRMLTokenBEGINCAP: reader.TakeBoolean(beginCap); return;
      case VRMLTokenENDCAP: reader.TakeBoolean(endCap); return;
      default: Tokenize(); break;
    }
    if (keyword == VRMLTokenSCALE) ParseFloatArray(scale);
    if (keyword == VRMLTokenCROSSSECTION) ParseFloatArray(crossSection);
    if (keyword == VRMLTokenSPINE) ParsePointArray(spine);
    if (keyword == VRMLTokenORIENTATION) ParseRotationVectorArray(axes, angles);
  });
  if (scale.IsEmpty()) {
    scale.Append(1.0);
    scale.Append(1.0);
  }
  if (axes.IsEmpty() || angles.IsEmpty()) {
    axes = {};
    axes.Append({0.0F, 0.0F, 1.0F});
    angles = {};
    angles.Append(0.0);
  }
  if (crossSection.GetSize() % 2 != 0) crossSection = {};
  if ((spine.IsEmpty() || crossSection.IsEmpty()) && !SkippingBlock) {
    qelvrml::Note(*this, VRMLNoteExtrusionWithoutData, "Extrusion", place);
  }
  return DefineExtrusion(solid, beginCap, endCap, axes, angles, scale, crossSection, spine);
}

bool CVRMLParser::DefineExtrusion(bool solid, bool beginCap, bool endCap, const brixVectorArray& axes,
                                  const brixDoubleArray& angles, const brixDoubleArray& scale,
                                  const brixDoubleArray& crossSection, const brixFloatPointArray& spine) {
  if (!CurrentSeparator) return false;
  if (scale.IsEmpty() || spine.IsEmpty() || crossSection.IsEmpty() || axes.IsEmpty() || angles.IsEmpty()) {
    SetLastWarning(VRMLWarningExtrusionData);
    return false;
  }
  const std::uint64_t count = std::uint64_t{PairCount(crossSection)} * spine.GetSize();
  if (!qelvrml::CanMake(*this, {.Objects = 1, .Points = count, .Steps = SweepSteps(count)})) return false;
  if (count > qelvrml::MaximumMeshPoints) qelvrml::Note(*this, VRMLNoteLimit, qelvrml::limits::MeshPoints);
  brixFloatPointArray points;
  if (!GetExtrusionMesh(points, axes, angles, scale, crossSection, spine)) return false;
  CurrentSeparator->TransformPoints(points);

  bool result = false;
  const auto rows = static_cast<int>(spine.GetSize());
  const auto columns = static_cast<int>(PairCount(crossSection));
  std::unique_ptr<CKelPolyMesh> mesh(new (std::nothrow) CKelPolyMesh);
  if (mesh) {
    mesh->SetPoints(points, rows, columns, false, false);
    result = AddObjectToSeparator(mesh.release());
    if (beginCap) result = DefineExtrusionCap(0, columns, points);
    if (endCap) result = DefineExtrusionCap(rows - 1, columns, points);
  }
  qelvrml::Record<CVRMLDictionaryExtrusion>(*this, [&](auto& entry) {
    entry.SetSolid(solid);
    entry.SetBeginCap(beginCap);
    entry.SetEndCap(endCap);
    entry.SetOrientationAxes(axes);
    entry.SetOrientationAngles(angles);
    entry.SetScale(scale);
    entry.SetCrossSection(crossSection);
    entry.SetSpine(spine);
  });
  return result;
}

bool CVRMLParser::GetExtrusionMesh(brixFloatPointArray& mesh, const brixVectorArray& axes,
                                   const brixDoubleArray& angles, const brixDoubleArray& scale,
                                   const brixDoubleArray& crossSection, const brixFloatPointArray& spine) {
  const std::uint64_t columns = PairCount(crossSection);
  const std::uint64_t count = columns * spine.GetSize();
  if (count > qelvrml::MaximumMeshPoints) return false;

  bool result = true;
  brixFloatPointArray section;
  mesh = brixFloatPointArray(static_cast<int>(count));
  const std::span<brixFloatPoint> points = mesh.Edit();
  for (unsigned i = 0; i < spine.GetSize(); ++i) {
    if (GetExtrusionCrossSectionPoints(static_cast<int>(i), section, axes, angles, scale, crossSection, spine)) {
      std::copy(section.View().begin(), section.View().end(),
                points.begin() + static_cast<std::ptrdiff_t>(i * columns));
    } else {
      result = false;
    }
  }
  return result;
}

bool CVRMLParser::GetExtrusionCrossSectionPoints(int index, brixFloatPointArray& points, const brixVectorArray& axes,
                                                 const brixDoubleArray& angles, const brixDoubleArray& scale,
                                                 const brixDoubleArray& crossSection,
                                                 const brixFloatPointArray& spine) {
  points.Realloc(static_cast<int>(PairCount(crossSection)), brixFalse);
  if (points.IsEmpty()) return false;
  std::size_t place = 0;
  for (brixFloatPoint& point : points.Edit()) {
    point = {static_cast<float>(crossSection[place]), 0.0F, static_cast<float>(crossSection[place + 1])};
    place += 2;
  }
  const brixMatrix4x4 placement = CreateExtrusionCrossSectionTransform(index, axes, angles, scale, spine);
  if (!IsIdentityMatrix(placement)) qelvrml::Transform(points.Edit(), placement);
  return true;
}

// A closed spine's last tangent is its first; no other tangent looks across the seam.
brixVector CVRMLParser::GetExtrusionTangentVector(int index, const brixFloatPointArray& spine) {
  const auto size = static_cast<int>(spine.GetSize());
  if (index < 0 || index >= size || size < 2) return Up;
  const auto at = [&spine](int i) { return spine[static_cast<std::size_t>(i)]; };
  const int last = size - 1;
  const bool atSeam = index == last && (at(0) == at(last)) != 0;
  const int from = index == 0 || atSeam ? 0 : index - 1;
  const int to = index == 0 || atSeam ? 1 : std::min(index + 1, last);
  brixVector tangent(at(from), at(to));
  tangent.Normalize();
  return tangent;
}

brixMatrix4x4 CVRMLParser::CreateExtrusionCrossSectionTransform(int index, const brixVectorArray& axes,
                                                                const brixDoubleArray& angles,
                                                                const brixDoubleArray& scale,
                                                                const brixFloatPointArray& spine) {
  if (index < 0 || static_cast<unsigned>(index) >= spine.GetSize()) return {};
  constexpr double Opposite = 180.0;
  constexpr double OppositeTolerance = 0.000001;
  const auto place = static_cast<unsigned>(index);
  const brixVector tangent = GetExtrusionTangentVector(index, spine);
  brixMatrix4x4 rotation;
  if (brixFabs(CalculateAngleBetweenVectors(Up, tangent) - Opposite) <= OppositeTolerance) {
    const int neighbour = index > 0 ? index - 1 : index + 1;
    brixVector axis = CrossProduct(GetExtrusionTangentVector(neighbour, spine), tangent);
    axis.Normalize();
    rotation = CreateRotationMatrixForVectors(Up, tangent, &axis);
  } else {
    rotation = CreateRotationMatrixForVectors(Up, tangent, nullptr);
  }
  return GetScaleMatrix(ScaleOf(place, scale)) * OrientationOf(place, axes, angles) * rotation *
         GetDisplacementMatrix(spine[place]);
}
