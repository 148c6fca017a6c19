// Coordinates, normals and bindings.

#include "qelvrml/dictionary/CVRMLDictionaryProperties.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/parser/reading/PassingOver.h"

using qelvrml::NodeReader;
using qelvrml::Record;

bool CVRMLParser::ParseCoordinate3() {
  brixFloatPointArray points;
  NodeReader(*this).StepOver({VRMLTokenPOINT, VRMLTokenCOORDINATE, VRMLTokenOpenBrace});
  return ParsePointArray(points) && DefineCoordinate3(points);
}

bool CVRMLParser::DefineCoordinate3(const brixFloatPointArray& points) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->SetVertices(points);
  Record<CVRMLDictionaryCoordinate>(*this, [&](auto& entry) { entry.SetPoints(CurrentSeparator->GetVertices()); });
  return true;
}

bool CVRMLParser::ParseNormal() { return qelvrml::PassOverNode(*this); }

bool CVRMLParser::DefineNormal(const brixVectorArray& vectors) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->SetNormals(vectors);
  Record<CVRMLDictionaryNormal>(*this, [&](auto& entry) { entry.SetVectors(vectors); });
  return true;
}

bool CVRMLParser::ParseBinding() {
  if (!CurrentSeparator) return false;

  VRMLBindingTypes binding = VRMLBindingOverall;
  const bool isMaterial = GetCurrentTokenType() == VRMLTokenMATERIALBINDING;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenVALUE, VRMLTokenMATERIALBINDING, VRMLTokenNORMALBINDING});
  reader.ForEachField([&](VRMLTokenTypes keyword) {
    static_assert(VRMLTokenPER_VERTEX_INDEXED - VRMLTokenOVERALL == VRMLBindingPerVertexIndexed - VRMLBindingOverall);
    if (keyword < VRMLTokenOVERALL || keyword > VRMLTokenPER_VERTEX_INDEXED) return;
    binding = static_cast<VRMLBindingTypes>(keyword - VRMLTokenOVERALL + VRMLBindingOverall);
  });
  return DefineBinding(isMaterial, binding);
}

bool CVRMLParser::DefineBinding(bool isMaterial, VRMLBindingTypes binding) {
  if (!CurrentSeparator) return false;
  const auto fill = [binding](auto& entry) { entry.SetBinding(binding); };
  if (isMaterial) {
    CurrentSeparator->SetMaterialBinding(binding);
    Record<CVRMLDictionaryMaterialBinding>(*this, fill);
  } else {
    CurrentSeparator->SetNormalBinding(binding);
    Record<CVRMLDictionaryNormalBinding>(*this, fill);
  }
  return true;
}
