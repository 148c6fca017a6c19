// The transformations of VRML 1.0 that have one field each.

#include "qelvrml/dictionary/CVRMLDictionaryTransforms.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"

using qelvrml::NodeReader;
using qelvrml::Record;

namespace {

// Up to three numbers behind the keywords; a missing one keeps its default. Ends on the node's }.
void ReadPointField(CVRMLParser& parser, std::initializer_list<VRMLTokenTypes> keywords, brixFloatPoint& point) {
  NodeReader reader(parser);
  reader.StepOver(keywords);
  for (float* component : {&point.x, &point.y, &point.z}) reader.TakeNumberAndStep(*component);
  while (!reader.Is(VRMLTokenCloseBrace)) {
    if (!parser.Tokenize()) break;
  }
}

}  // namespace

bool CVRMLParser::ParseMatrixTransform() {
  if (!CurrentSeparator) return false;

  brixMatrix4x4 matrix;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenMATRIX, VRMLTokenMATRIXTRANSFORM});
  for (std::size_t row = 0; row < 4; ++row) {
    for (float& element : matrix[row]) reader.TakeNumberAndStep(element);
  }
  return DefineMatrixTransform(matrix);
}

bool CVRMLParser::DefineMatrixTransform(const brixMatrix4x4& matrix) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->MultiplyTransformation(matrix);
  Record<CVRMLDictionaryMatrix>(*this, [&](auto& entry) { entry.SetMatrix(matrix); });
  return true;
}

bool CVRMLParser::ParseRotation() {
  if (!CurrentSeparator) return false;

  brixVector axis;
  double angle = 0.0;
  NodeReader(*this).StepOver({VRMLTokenOpenBrace, VRMLTokenROTATION});
  return ParseRotationVector(axis, angle) && DefineRotation(CreateRotationMatrixForNormalAngle(axis, angle));
}

bool CVRMLParser::DefineRotation(const brixMatrix4x4& matrix) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->Rotate(matrix);
  Record<CVRMLDictionaryRotation>(*this, [&](auto& entry) { entry.SetMatrix(matrix); });
  return true;
}

bool CVRMLParser::ParseScale() {
  if (!CurrentSeparator) return false;

  brixFloatPoint scaleFactor(1.0F, 1.0F, 1.0F);
  ReadPointField(*this, {VRMLTokenOpenBrace, VRMLTokenOpenBracket, VRMLTokenSCALEFACTOR, VRMLTokenSCALE}, scaleFactor);
  return DefineScale(scaleFactor);
}

bool CVRMLParser::DefineScale(const brixFloatPoint& scaleFactor) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->Scale(scaleFactor);
  Record<CVRMLDictionaryScale>(*this, [&](auto& entry) { entry.SetScaleFactor(scaleFactor); });
  return true;
}

bool CVRMLParser::ParseTranslation() {
  if (!CurrentSeparator) return false;

  brixFloatPoint translation;
  ReadPointField(*this, {VRMLTokenOpenBrace, VRMLTokenOpenBracket, VRMLTokenTRANSLATION}, translation);
  return DefineTranslation(translation);
}

bool CVRMLParser::DefineTranslation(const brixFloatPoint& translation) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->Translate(translation);
  Record<CVRMLDictionaryTranslation>(*this, [&](auto& entry) { entry.SetTranslation(translation); });
  return true;
}
