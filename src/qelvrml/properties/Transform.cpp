// The Transform node of both versions.
//
//   point * move by -centre * rotation * scale orientation * scale * inverse scale orientation * move back *
//   translation

#include "qelvrml/dictionary/CVRMLDictionaryTransforms.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"

/// The fields of a node, with their defaults.
struct CVRMLParser::TransformFields {
  brixFloatPoint Translation;
  brixFloatPoint ScaleFactor{1.0F, 1.0F, 1.0F};
  brixMatrix4x4 Rotation;
  brixMatrix4x4 ScaleOrientation;
  brixFloatPoint Center;
};

bool CVRMLParser::ParseTransform() {
  if (!CurrentSeparator) return false;

  StepOver({VRMLTokenOpenBrace, VRMLTokenTRANSFORM});
  const bool opensScope = GetVersion() == VRMLVersion20;
  if (opensScope) DefineNodeSeparator();
  CGenericIOState children;
  const bool result = ReadAndDefineTransform(children);
  return opensScope ? ReadTransformChildren(children, result) : result;
}

bool CVRMLParser::ReadAndDefineTransform(CGenericIOState& children) {
  TransformFields fields;
  const auto takePoint = [this](brixFloatPoint& point) {
    Tokenize();
    ParsePoint(point);
  };
  WhileInNode([&](VRMLTokenTypes keyword) {
    switch (keyword) {
      case VRMLTokenTRANSLATION: takePoint(fields.Translation); break;
      case VRMLTokenSCALEFACTOR:
      case VRMLTokenSCALE: takePoint(fields.ScaleFactor); break;
      case VRMLTokenCENTER: takePoint(fields.Center); break;
      case VRMLTokenROTATION: fields.Rotation = TakeRotation(); break;
      case VRMLTokenSCALEORIENTATION: fields.ScaleOrientation = TakeRotation(); break;
      case VRMLTokenADDCHILDREN:
      case VRMLTokenREMOVECHILDREN:
        Tokenize();
        if (GetCurrentTokenType() != VRMLTokenNULL) SkipBlock(true);
        break;
      case VRMLTokenCHILDREN: PassOverChildren(children); break;
      default: Tokenize(); break;
    }
  });
  return DefineTransform(fields.Translation, fields.ScaleFactor, fields.Rotation, fields.ScaleOrientation,
                         fields.Center);
}

brixMatrix4x4 CVRMLParser::TakeRotation() {
  Tokenize();
  brixVector axis;
  double angle = 0.0;
  ParseRotationVector(axis, angle);
  return CreateRotationMatrixForNormalAngle(axis, angle);
}

// The children come last, whatever the order of the fields, so that all of the node's transformation acts on them.
void CVRMLParser::PassOverChildren(CGenericIOState& children) {
  Tokenize();
  SaveIOState(children);
  if (GetCurrentTokenType() == VRMLTokenOpenBracket) {
    SkipArray(true);
  } else {
    SkipBlock(true);
  }
  ClearDefinedName();
}

bool CVRMLParser::ReadTransformChildren(const CGenericIOState& children, bool result) {
  CGenericIOState end;
  SaveIOState(end);
  if (RestoreIOState(children)) ParseNodeOrList(result);
  RestoreIOState(end);
  PopSeparator();
  return result;
}

bool CVRMLParser::DefineTransform(const brixFloatPoint& translation, const brixFloatPoint& scaleFactor,
                                  const brixMatrix4x4& rotation, const brixMatrix4x4& scaleOrientation,
                                  const brixFloatPoint& center) {
  if (!CurrentSeparator) return false;
  const brixMatrix4x4 toCenter = GetDisplacementMatrix({-center.x, -center.y, -center.z});
  const brixMatrix4x4 matrix = toCenter * rotation * scaleOrientation * GetScaleMatrix(scaleFactor) *
                               GetInverseMatrix(scaleOrientation) * GetInverseMatrix(toCenter) *
                               GetDisplacementMatrix(translation);
  CurrentSeparator->MultiplyTransformation(matrix);
  Record<CVRMLDictionaryTransform>([&](auto& entry) {
    entry.SetTranslation(translation);
    entry.SetScaleFactor(scaleFactor);
    entry.SetRotation(rotation);
    entry.SetScaleOrientation(scaleOrientation);
    entry.SetCenter(center);
  });
  return true;
}
