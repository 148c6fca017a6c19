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
    reader.LookForNode();
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

// Those of the last set, if they are still in force: then the sets have them in common. Else null.
Coordinates& CoordinatesInCommon(CVRMLParser& parser) {
  CVRMLSeparator& separator = *parser.GetCurrentSeparator();
  Coordinates& last = qelvrml::ParserInternals::Load(parser).LastStrips;
  if (last && !last->AreOf(separator.GetVertices(), separator.GetNormals())) last.reset();
  return last;
}

qelvrml::Making MakingOf(CVRMLSeparator& separator, const Coordinates& inCommon, const brixIntArray& counts) {
  qelvrml::Making making = {.Objects = 1, .Indices = counts.GetSize()};
  if (inCommon && inCommon->FindMoved(separator.GetTransformation())) return making;
  making.Points = std::uint64_t{separator.GetVertices().GetSize()} + separator.GetNormals().GetSize();
  making.Steps = making.Points * qelvrml::StepsOfASweptPoint;
  return making;
}

}  // namespace

bool CVRMLParser::DefineTriangleStripSet(const brixIntArray& counts) {
  if (!CurrentSeparator || counts.IsEmpty()) return false;
  if (!CurrentSeparator->GetVertices().IsEmpty()) {
    Coordinates& coordinates = CoordinatesInCommon(*this);
    if (!qelvrml::CanMake(*this, MakingOf(*CurrentSeparator, coordinates, counts))) return false;
    if (!coordinates)
      coordinates = std::make_shared<const qelvrml::StripCoordinates>(CurrentSeparator->GetVertices(),
                                                                      CurrentSeparator->GetNormals());
    std::unique_ptr<CKelMultipleTriangleStrip> strips(new (std::nothrow) CKelMultipleTriangleStrip);
    if (strips) {
      strips->ShareStrips(coordinates, counts);
      strips->ApplyMatrixToGeometry(CurrentSeparator->GetTransformation(), brixTrue);
      AddObjectToSeparator(strips.release());
    }
  }
  qelvrml::Record<CVRMLDictionaryTriangleStripSet>(*this, [&](auto& entry) { entry.SetNumVertices(counts); });
  return true;
}
