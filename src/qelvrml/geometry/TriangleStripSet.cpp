// TriangleStripSet: strips that follow one another through the coordinates in force.

#include <cstdint>
#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/StripCoordinates.h"
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

namespace {

using Coordinates = std::shared_ptr<const qelvrml::StripCoordinates>;

// Those in force. Sets behind the same ones have them in common.
const Coordinates& CoordinatesInForce(CVRMLParser& parser) {
  CVRMLSeparator& separator = *parser.GetCurrentSeparator();
  Coordinates& last = qelvrml::ParserInternals::Load(parser).LastStrips;
  if (!last || !last->AreOf(separator.GetVertices(), separator.GetNormals()))
    last = std::make_shared<const qelvrml::StripCoordinates>(separator.GetVertices(), separator.GetNormals());
  return last;
}

qelvrml::Making MakingOf(const qelvrml::StripCoordinates& coordinates, const brixMatrix4x4& matrix,
                         const brixIntArray& counts) {
  qelvrml::Making making = {.Objects = 1, .Indices = counts.GetSize()};
  if (coordinates.FindMoved(matrix)) return making;
  making.Points = std::uint64_t{coordinates.GetPoints().GetSize()} + coordinates.GetNormals().GetSize();
  making.Steps = making.Points * qelvrml::StepsOfASweptPoint;
  return making;
}

}  // namespace

bool CVRMLParser::DefineTriangleStripSet(const brixIntArray& counts) {
  if (!CurrentSeparator || counts.IsEmpty()) return false;
  if (!CurrentSeparator->GetVertices().IsEmpty()) {
    const Coordinates& coordinates = CoordinatesInForce(*this);
    const brixMatrix4x4& matrix = CurrentSeparator->GetTransformation();
    if (!qelvrml::CanMake(*this, MakingOf(*coordinates, matrix, counts))) return false;
    std::unique_ptr<CKelMultipleTriangleStrip> strips(new (std::nothrow) CKelMultipleTriangleStrip);
    if (strips) {
      strips->ShareStrips(coordinates, counts);
      strips->ApplyMatrixToGeometry(matrix, brixTrue);
      AddObjectToSeparator(strips.release());
    }
  }
  qelvrml::Record<CVRMLDictionaryTriangleStripSet>(*this, [&](auto& entry) { entry.SetNumVertices(counts); });
  return true;
}
