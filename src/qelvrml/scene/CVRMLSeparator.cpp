#include "qelvrml/scene/CVRMLSeparator.h"

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/shapes/PointBlocks.h"
#include "qelvrml/scene/Shininess.h"

namespace {

brixDoubleArray OneValue(double value) {
  brixDoubleArray values(1);
  values.Edit()[0] = value;
  return values;
}

brixDoubleArray ShininessOf(double value) { return OneValue(value > 1.0 ? value / qelvrml::ShininessScale : value); }

}  // namespace

void CVRMLSeparator::Initialize() {
  Group = nullptr;
  Parser = nullptr;
  Transformation.SetIdentity();
  MaterialBinding = VRMLBindingDefault;
  // Scopes share the values of these.
  static const brixDoubleArray defaultShininess = ShininessOf(qelvrml::DefaultShininess);
  static const brixDoubleArray opaque = OneValue(0.0);
  SetShininess(defaultShininess);
  SetTransparency(opaque);
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

void CVRMLSeparator::SetShininess(double value) { Shininess = ShininessOf(value); }
void CVRMLSeparator::SetTransparency(double value) { Transparency = OneValue(value); }

CKelTextureManager* CVRMLSeparator::GetTextureManager() const { return Parser ? Parser->GetTextureManager() : nullptr; }
