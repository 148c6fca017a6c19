#include "qelvrml/scene/CVRMLSeparator.h"

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/shapes/PointRange.h"
#include "qelvrml/scene/Shininess.h"

namespace {

brixDoubleArray OneValue(double value) {
  brixDoubleArray values;
  values.Append(value);
  return values;
}

}  // namespace

void CVRMLSeparator::Initialize() {
  Group = nullptr;
  Parser = nullptr;
  Transformation.SetIdentity();
  MaterialBinding = VRMLBindingDefault;
  SetShininess(qelvrml::DefaultShininess);
  SetTransparency(0.0);
  NormalBinding = VRMLBindingDefault;
  DictionaryEntry = nullptr;
  CreatedGroup = false;
}

CVRMLSeparator& CVRMLSeparator::operator=(const CVRMLSeparator& parent) {
  if (this == &parent) return *this;
  if (CreatedGroup) delete Group;
  CreatedGroup = false;
  Group = parent.Group;
  Transformation = parent.Transformation;
  MaterialBinding = parent.MaterialBinding;
  Shininess = parent.Shininess;
  Transparency = parent.Transparency;
  NormalBinding = parent.NormalBinding;
  Vertices = parent.Vertices;
  Normals = parent.Normals;
  VertexIndex = parent.VertexIndex;
  NormalIndex = parent.NormalIndex;
  MaterialIndex = parent.MaterialIndex;
  AmbientColor = parent.AmbientColor;
  DiffuseColor = parent.DiffuseColor;
  SpecularColor = parent.SpecularColor;
  EmissiveColor = parent.EmissiveColor;
  TextureState.Copy(parent.TextureState);
  return *this;
}

void CVRMLSeparator::MultiplyTransformation(const brixMatrix4x4& matrix) { Transformation = matrix * Transformation; }
void CVRMLSeparator::Translate(const brixFloatPoint& by) { MultiplyTransformation(GetDisplacementMatrix(by)); }
void CVRMLSeparator::Scale(const brixFloatPoint& by) { MultiplyTransformation(GetScaleMatrix(by)); }

void CVRMLSeparator::TransformPoints(brixFloatPointArray& points) const {
  qelvrml::Transform(points.Edit(), Transformation);
}

void CVRMLSeparator::SetShininess(double value) {
  Shininess = OneValue(value > 1.0 ? value / qelvrml::ShininessScale : value);
}
void CVRMLSeparator::SetTransparency(double value) { Transparency = OneValue(value); }

CKelTextureManager* CVRMLSeparator::GetTextureManager() const { return Parser ? Parser->GetTextureManager() : nullptr; }
