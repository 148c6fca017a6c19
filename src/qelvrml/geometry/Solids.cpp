// Cube, Box and Sphere.

#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionarySolids.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brix/solids/brixBox.h"
#include "qelvrml/platform/brix/solids/brixSphere.h"

bool CVRMLParser::ParseCube() {
  if (!CurrentSeparator) return false;

  double width = 2.0;
  double height = 2.0;
  double depth = 2.0;
  StepOver({VRMLTokenOpenBrace, VRMLTokenCUBE});
  ForEachField([&](VRMLTokenTypes keyword) {
    if (keyword == VRMLTokenWIDTH) TakeNumber(width);
    if (keyword == VRMLTokenHEIGHT) TakeNumber(height);
    if (keyword == VRMLTokenDEPTH) TakeNumber(depth);
  });
  return DefineCube(width, height, depth);
}

bool CVRMLParser::ParseBox() {
  if (!CurrentSeparator) return false;

  double width = 2.0;
  double height = 2.0;
  double depth = 2.0;
  StepOver({VRMLTokenOpenBrace, VRMLTokenBOX});
  ForEachField([&](VRMLTokenTypes keyword) {
    if (keyword != VRMLTokenSIZE) return;
    TakeNumber(width);
    TakeNumber(height);
    TakeNumber(depth);
  });
  return DefineCube(width, height, depth);
}

bool CVRMLParser::DefineCube(double width, double height, double depth) {
  if (!CurrentSeparator) return false;
  const auto w = static_cast<float>(width / 2.0);
  const auto h = static_cast<float>(height / 2.0);
  const auto d = static_cast<float>(depth / 2.0);
  brixFloatPointArray corners;
  for (const float z : {-d, d}) {
    corners.Append({-w, -h, z});
    corners.Append({w, -h, z});
    corners.Append({w, h, z});
    corners.Append({-w, h, z});
  }
  CurrentSeparator->TransformPoints(corners);

  std::unique_ptr<brixBox> box(new (std::nothrow) brixBox);
  if (!box) return false;
  box->SetBox(corners);
  const bool placed = AddObjectToSeparator(box.release());
  Record<CVRMLDictionaryCube>([&](auto& entry) {
    entry.SetWidth(width);
    entry.SetHeight(height);
    entry.SetDepth(depth);
  });
  return placed;
}

bool CVRMLParser::ParseSphere() {
  if (!CurrentSeparator) return false;

  double radius = 1.0;
  StepOver({VRMLTokenOpenBrace, VRMLTokenSPHERE});
  ForEachField([&](VRMLTokenTypes keyword) {
    if (keyword == VRMLTokenRADIUS) TakeNumber(radius);
  });
  return DefineSphere(radius);
}

bool CVRMLParser::DefineSphere(double radius) {
  constexpr float WholeTurn = 6.283186F;
  constexpr float HalfTurn = 3.141593F;
  if (!CurrentSeparator) return false;

  std::unique_ptr<brixSphere> sphere(new (std::nothrow) brixSphere);
  if (!sphere) return false;
  sphere->SetSphere({}, {1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}, static_cast<float>(radius), 0.0F, WholeTurn, 0.0F,
                    HalfTurn);
  sphere->SetXformation(CurrentSeparator->GetTransformation());
  const bool placed = AddObjectToSeparator(sphere.release());
  Record<CVRMLDictionarySphere>([&](auto& entry) { entry.SetRadius(radius); });
  return placed;
}
