// Cube, Box and Sphere.

#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionarySolids.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brix/solids/brixBox.h"
#include "qelvrml/platform/brix/solids/brixSphere.h"

using qelvrml::NodeReader;

bool CVRMLParser::ParseCube() {
  if (!CurrentSeparator) return false;

  double width = 2.0;
  double height = 2.0;
  double depth = 2.0;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenCUBE});
  reader.ForEachField([&](VRMLTokenTypes keyword) {
    if (keyword == VRMLTokenWIDTH) reader.TakeNumber(width);
    if (keyword == VRMLTokenHEIGHT) reader.TakeNumber(height);
    if (keyword == VRMLTokenDEPTH) reader.TakeNumber(depth);
  });
  return DefineCube(width, height, depth);
}

bool CVRMLParser::ParseBox() {
  if (!CurrentSeparator) return false;

  double width = 2.0;
  double height = 2.0;
  double depth = 2.0;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenBOX});
  reader.ForEachField([&](VRMLTokenTypes keyword) {
    if (keyword != VRMLTokenSIZE) return;
    reader.TakeNumber(width);
    reader.TakeNumber(height);
    reader.TakeNumber(depth);
  });
  return DefineCube(width, height, depth);
}

bool CVRMLParser::DefineCube(double width, double height, double depth) {
  if (!CurrentSeparator || !qelvrml::CanMake(*this, {.Objects = 1, .Solids = 1, .Points = brixBox::CornerCount}))
    return false;
  const auto w = static_cast<float>(width / 2.0);
  const auto h = static_cast<float>(height / 2.0);
  const auto d = static_cast<float>(depth / 2.0);
  brixFloatPointArray corners(static_cast<int>(brixBox::CornerCount));
  auto place = corners.Edit().begin();
  for (const float z : {-d, d}) {
    for (const brixFloatPoint& corner : {brixFloatPoint(-w, -h, z), {w, -h, z}, {w, h, z}, {-w, h, z}})
      *place++ = corner;
  }
  CurrentSeparator->TransformPoints(corners);

  std::unique_ptr<brixBox> box(new (std::nothrow) brixBox);
  if (!box) return false;
  box->SetBox(corners);
  const bool placed = AddObjectToSeparator(box.release());
  qelvrml::Record<CVRMLDictionaryCube>(*this, [&](auto& entry) {
    entry.SetWidth(width);
    entry.SetHeight(height);
    entry.SetDepth(depth);
  });
  return placed;
}

bool CVRMLParser::ParseSphere() {
  if (!CurrentSeparator) return false;

  double radius = 1.0;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenSPHERE});
  reader.ForEachField([&](VRMLTokenTypes keyword) {
    if (keyword == VRMLTokenRADIUS) reader.TakeNumber(radius);
  });
  return DefineSphere(radius);
}

bool CVRMLParser::DefineSphere(double radius) {
  if (!CurrentSeparator || !qelvrml::CanMake(*this, {.Objects = 1, .Solids = 2})) return false;

  std::unique_ptr<brixSphere> sphere(new (std::nothrow) brixSphere);
  if (!sphere) return false;
  sphere->SetSphere({}, {1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}, static_cast<float>(radius), 0.0F, brixSphere::WholeTurn,
                    0.0F, brixSphere::HalfTurn);
  sphere->SetXformation(CurrentSeparator->GetTransformation());
  const bool placed = AddObjectToSeparator(sphere.release());
  qelvrml::Record<CVRMLDictionarySphere>(*this, [&](auto& entry) { entry.SetRadius(radius); });
  return placed;
}
