// TriangleStripSet: strips that follow one another through the coordinates in force.

#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"

bool CVRMLParser::ParseTriangleStripSet() {
  if (!CurrentSeparator) return false;

  bool result = false;
  brixIntArray counts;
  StepOver({VRMLTokenOpenBrace, VRMLTokenTRIANGLESTRIPSET});
  while (GetCurrentTokenType() != VRMLTokenCloseBrace) {
    if (GetCurrentTokenType() == VRMLTokenNUMVERTICES) {
      Tokenize();
      result = ParseIndices(counts);
    }
    if (!Tokenize()) break;
    EntityName.Empty();
  }
  return counts.IsEmpty() ? result : DefineTriangleStripSet(counts);
}

bool CVRMLParser::DefineTriangleStripSet(const brixIntArray& counts) {
  if (!CurrentSeparator || counts.IsEmpty()) return false;
  const bool hasPoints = !CurrentSeparator->GetVertices().IsEmpty();
  std::unique_ptr<CKelMultipleTriangleStrip> strips(hasPoints ? new (std::nothrow) CKelMultipleTriangleStrip : nullptr);
  if (strips) {
    strips->SetStrips(CurrentSeparator->GetVertices(), CurrentSeparator->GetNormals(), counts);
    strips->ApplyMatrixToGeometry(CurrentSeparator->GetTransformation(), brixTrue);
    AddObjectToSeparator(strips.release());
  }
  Record<CVRMLDictionaryTriangleStripSet>([&](auto& entry) { entry.SetNumVertices(counts); });
  return true;
}
