// TriangleStripSet: strips that follow one another through the coordinates in force.

#include <cstdint>
#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/scene/Scopes.h"

bool CVRMLParser::ParseTriangleStripSet() {
  if (!CurrentSeparator) return false;

  bool result = false;
  brixIntArray counts;
  qelvrml::NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenTRIANGLESTRIPSET});
  while (!reader.Is(VRMLTokenCloseBrace)) {
    if (reader.Is(VRMLTokenNUMVERTICES)) {
      Tokenize();
      result = reader.TakeIndices(counts);
    }
    if (!Tokenize()) break;
    qelvrml::LeaveObjectsUnnamed(*this);
  }
  return counts.IsEmpty() ? result : DefineTriangleStripSet(counts);
}

bool CVRMLParser::DefineTriangleStripSet(const brixIntArray& counts) {
  if (!CurrentSeparator || counts.IsEmpty()) return false;
  const bool hasPoints = !CurrentSeparator->GetVertices().IsEmpty();
  const std::uint64_t points =
      std::uint64_t{CurrentSeparator->GetVertices().GetSize()} + CurrentSeparator->GetNormals().GetSize();
  const qelvrml::Making making = {
      .Objects = 1, .Points = points, .Indices = counts.GetSize(), .Steps = points * qelvrml::StepsOfASweptPoint};
  if (hasPoints && !qelvrml::CanMake(*this, making)) return false;
  std::unique_ptr<CKelMultipleTriangleStrip> strips(hasPoints ? new (std::nothrow) CKelMultipleTriangleStrip : nullptr);
  if (strips) {
    strips->SetStrips(CurrentSeparator->GetVertices(), CurrentSeparator->GetNormals(), counts);
    strips->ApplyMatrixToGeometry(CurrentSeparator->GetTransformation(), brixTrue);
    AddObjectToSeparator(strips.release());
  }
  qelvrml::Record<CVRMLDictionaryTriangleStripSet>(*this, [&](auto& entry) { entry.SetNumVertices(counts); });
  return true;
}
