// Cone and Cylinder. Their axis is +Y and their middle the origin, while the model's surfaces stand on z = 0 along +Z:
//
//   point * turn +Z to +Y * move down by half the height * the scope's transformation

#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionarySolids.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brix/brixPlane.h"
#include "qelvrml/platform/brix/solids/brixCone.h"
#include "qelvrml/platform/brix/solids/brixCylinder.h"
#include "qelvrml/platform/brix/solids/brixDisk.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"

using qelvrml::NodeReader;

namespace {

brixMatrix4x4 AxisPlacement(double height, const brixMatrix4x4& transformation) {
  return CVRMLParser::CreateBaseTranslationMatrix() *
         GetDisplacementMatrix({0.0F, static_cast<float>(-height / 2.0), 0.0F}) * transformation;
}

// The end disks stay circles under any scale; their radius follows the local X axis.
void AddDisks(CVRMLParser& parser, double radius, double height, const brixMatrix4x4& placement) {
  const VRMLBindingTypes binding = parser.GetCurrentSeparator()->GetMaterialBinding();
  const bool perPart = binding == VRMLBindingPerPart || binding == VRMLBindingPerPartIndexed;
  const brixFloatPoint bottom = brixFloatPoint(0.0F, 0.0F, 0.0F) * placement;
  const brixFloatPoint rim = brixFloatPoint(static_cast<float>(radius), 0.0F, 0.0F) * placement;
  const double worldRadius = brixVector(bottom, rim).Length();
  brixVector axis = brixVector(0.0F, 0.0F, 1.0F) * placement;
  parser.AddDiskToModel(bottom, worldRadius, axis, perPart ? 1 : 0);
  axis = brixVector(0.0F, 0.0F, static_cast<float>(height)) * placement;
  const brixFloatPoint top = bottom + brixFloatPoint(axis);
  axis.Normalize();
  parser.AddDiskToModel(top, worldRadius, axis, perPart ? 2 : 0);
}

}  // namespace

bool CVRMLParser::ParseCone() {
  if (!CurrentSeparator) return false;

  double bottomRadius = 1.0;
  double height = 2.0;
  bool side = true;
  bool bottom = true;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenCONE});
  reader.ForEachField([&](VRMLTokenTypes keyword) {
    if (keyword == VRMLTokenBOTTOMRADIUS) reader.TakeNumber(bottomRadius);
    if (keyword == VRMLTokenHEIGHT) reader.TakeNumber(height);
    if (keyword == VRMLTokenSIDE) reader.TakeBoolean(side);
    if (keyword == VRMLTokenBOTTOM) reader.TakeBoolean(bottom);
  });
  return DefineCone(bottomRadius, height, side, bottom);
}

bool CVRMLParser::DefineCone(double bottomRadius, double height, bool side, bool bottom) {
  if (!CurrentSeparator) return false;
  const bool closed = bottom || GetVersion() == VRMLVersion10;
  if (!qelvrml::CanMake(*this, {.Objects = (side ? 1U : 0U) + (closed ? 1U : 0U), .Solids = 1})) return false;

  const brixMatrix4x4 placement = AxisPlacement(height, CurrentSeparator->GetTransformation());
  bool result = false;
  std::unique_ptr<brixCone> cone(side ? new (std::nothrow) brixCone : nullptr);
  if (cone) {
    cone->SetCone(static_cast<float>(height), static_cast<float>(bottomRadius), 0.0F);
    cone->SetXformation(placement);
    result = AddObjectToSeparator(cone.release());
  }
  std::unique_ptr<brixDisk> disk(closed ? new (std::nothrow) brixDisk : nullptr);
  if (disk) {
    disk->SetDisk(0.0F, static_cast<float>(bottomRadius), placement, brixTrue);
    result = AddObjectToSeparator(disk.release());
  }
  qelvrml::Record<CVRMLDictionaryCone>(*this, [&](auto& entry) {
    entry.SetBottomRadius(bottomRadius);
    entry.SetHeight(height);
    entry.SetSide(side);
    entry.SetBottom(bottom);
  });
  return result;
}

bool CVRMLParser::ParseCylinder() {
  if (!CurrentSeparator) return false;

  double radius = 1.0;
  double height = 2.0;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenCYLINDER});
  reader.ForEachField([&](VRMLTokenTypes keyword) {
    if (keyword == VRMLTokenRADIUS) reader.TakeNumber(radius);
    if (keyword == VRMLTokenHEIGHT) reader.TakeNumber(height);
    if (keyword == VRMLTokenPARTS) Tokenize();
  });
  return DefineCylinder(radius, height);
}

bool CVRMLParser::DefineCylinder(double radius, double height) {
  if (!CurrentSeparator) return false;
  if (qelvrml::IsNearZero(radius) || qelvrml::IsNearZero(height)) return false;
  constexpr qelvrml::Making SideAndDisks = {.Objects = 3, .Solids = 1};
  if (!qelvrml::CanMake(*this, SideAndDisks)) return false;

  std::unique_ptr<brixCylinder> cylinder(new (std::nothrow) brixCylinder);
  if (!cylinder) return false;
  const brixMatrix4x4 placement = AxisPlacement(height, CurrentSeparator->GetTransformation());
  cylinder->SetCylinder(static_cast<float>(height), static_cast<float>(radius), 1.0F, {1.0F, 0.0F, 0.0F}, 0.0F,
                        brixCylinder::WholeTurn);
  cylinder->SetXformation(placement);
  if (!AddObjectToSeparator(cylinder.release())) return false;
  AddDisks(*this, radius, height, placement);
  qelvrml::Record<CVRMLDictionaryCylinder>(*this, [&](auto& entry) {
    entry.SetRadius(radius);
    entry.SetHeight(height);
  });
  return true;
}

bool CVRMLParser::AddDiskToModel(const brixFloatPoint& centre, double radius, const brixVector& normal,
                                 int materialIndex) {
  if (!CanAddObjectToSeparator()) return true;
  std::unique_ptr<brixDisk> disk(new (std::nothrow) brixDisk);
  if (!disk) return false;
  disk->SetDisk(0.0F, static_cast<float>(radius), CreateMatrixFromPlane(brixPlane(centre, normal)), brixTrue);
  return AddObjectToSeparator(disk.release(), materialIndex);
}
