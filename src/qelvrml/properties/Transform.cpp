// The Transform node of both versions.
//
//   point * move by -centre * rotation * scale orientation * scale * inverse scale orientation * move back *
//   translation

#include <optional>

#include "qelvrml/dictionary/CVRMLDictionaryTransforms.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/parser/reading/PassingOver.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/scene/Scopes.h"

using qelvrml::NodeReader;
using qelvrml::ReadingMark;

namespace {

/// The fields of a node, with their defaults.
struct TransformFields {
  brixFloatPoint Translation;
  brixFloatPoint ScaleFactor{1.0F, 1.0F, 1.0F};
  brixMatrix4x4 Rotation;
  brixMatrix4x4 ScaleOrientation;
  brixFloatPoint Center;
};

bool IsOrigin(const brixFloatPoint& p) { return p.x == 0.0F && p.y == 0.0F && p.z == 0.0F; }

bool IsIdentity(const brixMatrix4x4& matrix) {
  const brixMatrix4x4 identity;
  for (std::size_t row = 0; row < 4; ++row) {
    if (matrix[row] != identity[row]) return false;
  }
  return true;
}

bool IsFinite(const brixMatrix4x4& matrix) {
  double sum = 0.0;
  for (std::size_t row = 0; row < 4; ++row) {
    for (const float element : matrix[row]) sum += element * 0.0;
  }
  return sum == 0.0;
}

brixMatrix4x4 WholeTransformation(const brixFloatPoint& translation, const brixFloatPoint& scaleFactor,
                                  const brixMatrix4x4& rotation, const brixMatrix4x4& scaleOrientation,
                                  const brixFloatPoint& center) {
  // Most nodes have neither a centre nor an orientation of the scale. The matrices of these change nothing then, but
  // for what isn't finite, which they spread.
  if (IsOrigin(center) && IsIdentity(scaleOrientation)) {
    const brixMatrix4x4 matrix = rotation * GetScaleMatrix(scaleFactor) * GetDisplacementMatrix(translation);
    if (IsFinite(matrix)) return matrix;
  }
  const brixMatrix4x4 toCenter = GetDisplacementMatrix({-center.x, -center.y, -center.z});
  return toCenter * rotation * scaleOrientation * GetScaleMatrix(scaleFactor) * GetInverseMatrix(scaleOrientation) *
         GetInverseMatrix(toCenter) * GetDisplacementMatrix(translation);
}

void TakePoint(CVRMLParser& parser, brixFloatPoint& point) {
  parser.Tokenize();
  parser.ParsePoint(point);
}

brixMatrix4x4 TakeRotation(CVRMLParser& parser) {
  parser.Tokenize();
  brixVector axis;
  double angle = 0.0;
  parser.ParseRotationVector(axis, angle);
  return CreateRotationMatrixForNormalAngle(axis, angle);
}

// The children come last, whatever the order of the fields, so that all of the node's transformation acts on them.
void PassOverChildren(CVRMLParser& parser, std::optional<ReadingMark>& children) {
  parser.Tokenize();
  children.emplace(parser);
  if (NodeReader(parser).Is(VRMLTokenOpenBracket)) {
    parser.SkipArray(true);
  } else {
    parser.SkipBlock(true);
  }
  qelvrml::ForgetDefinedName(parser);
}

TransformFields ReadFields(CVRMLParser& parser, std::optional<ReadingMark>& children) {
  TransformFields fields;
  NodeReader reader(parser);
  reader.WhileInNode([&](VRMLTokenTypes keyword) {
    switch (keyword) {
      case VRMLTokenTRANSLATION: TakePoint(parser, fields.Translation); break;
      case VRMLTokenSCALEFACTOR:
      case VRMLTokenSCALE: TakePoint(parser, fields.ScaleFactor); break;
      case VRMLTokenCENTER: TakePoint(parser, fields.Center); break;
      case VRMLTokenROTATION: fields.Rotation = TakeRotation(parser); break;
      case VRMLTokenSCALEORIENTATION: fields.ScaleOrientation = TakeRotation(parser); break;
      case VRMLTokenADDCHILDREN:
      case VRMLTokenREMOVECHILDREN:
        parser.Tokenize();
        if (!reader.Is(VRMLTokenNULL)) parser.SkipBlock(true);
        break;
      case VRMLTokenCHILDREN: PassOverChildren(parser, children); break;
      default: parser.Tokenize(); break;
    }
  });
  return fields;
}

// Goes back to the children, and on from the node's end behind them.
bool ReadChildren(CVRMLParser& parser, const std::optional<ReadingMark>& children, bool result) {
  const ReadingMark end(parser);
  if (children && children->GoBackTo(parser)) NodeReader(parser).ParseNodeOrList(result);
  qelvrml::GoBack(parser, end);
  parser.PopSeparator();
  return result;
}

}  // namespace

bool CVRMLParser::ParseTransform() {
  if (!CurrentSeparator) return false;

  NodeReader(*this).StepOver({VRMLTokenOpenBrace, VRMLTokenTRANSFORM});
  const bool opensScope = GetVersion() == VRMLVersion20;
  if (opensScope) qelvrml::OpenNodeScope(*this);
  std::optional<ReadingMark> children;
  const TransformFields fields = ReadFields(*this, children);
  const bool result =
      DefineTransform(fields.Translation, fields.ScaleFactor, fields.Rotation, fields.ScaleOrientation, fields.Center);
  return opensScope ? ReadChildren(*this, children, result) : result;
}

bool CVRMLParser::DefineTransform(const brixFloatPoint& translation, const brixFloatPoint& scaleFactor,
                                  const brixMatrix4x4& rotation, const brixMatrix4x4& scaleOrientation,
                                  const brixFloatPoint& center) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->MultiplyTransformation(
      WholeTransformation(translation, scaleFactor, rotation, scaleOrientation, center));
  qelvrml::Record<CVRMLDictionaryTransform>(*this, [&](auto& entry) {
    entry.SetTranslation(translation);
    entry.SetScaleFactor(scaleFactor);
    entry.SetRotation(rotation);
    entry.SetScaleOrientation(scaleOrientation);
    entry.SetCenter(center);
  });
  return true;
}
