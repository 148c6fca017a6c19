// IndexedFaceSet and IndexedLineSet, over the coordinates in force. Index lists are run lists:
//
//   file  0 1 2 -1 3 4 5 6 -1    run list  3 0 1 2 4 3 4 5 6

#include <algorithm>
#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/geometry/TexturesInUse.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brix/brixRunList.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyline.h"
#include "qelvrml/scene/Scopes.h"

using qelvrml::NodeReader;

namespace {

// Whether a binding gives the whole set one material.
bool IsWholeSet(VRMLBindingTypes binding) {
  return binding == VRMLBindingDefault || binding == VRMLBindingOverall || binding == VRMLBindingPerPart;
}

bool IsInside(std::span<const int> indices, unsigned pointCount) {
  unsigned largest = 0;  // one below zero is larger than any point's
  for (const int index : indices) largest = std::max(largest, static_cast<unsigned>(index));
  return indices.empty() || largest < pointCount;
}

brixFloatPointArray PointsOf(std::span<const int> indices, const brixFloatPointArray& points) {
  brixFloatPointArray result(static_cast<int>(indices.size()));
  const auto pointAt = [&points](int index) { return points[static_cast<std::size_t>(index)]; };
  std::transform(indices.begin(), indices.end(), result.Edit().begin(), pointAt);
  return result;
}

// The runs that name points only.
brixIntArray SoundRuns(CVRMLParser& parser, const brixIntArray& runs, unsigned pointCount) {
  if (IsInside(runs.View(), pointCount)) return runs;  // as a rule even the counts would name points
  bool sound = true;
  for (const brixRun& run : brixRunList(runs)) sound = sound && IsInside(run.Indices, pointCount);
  if (sound) return runs;
  qelvrml::ParserInternals::Load(parser).PartsLeftOut = true;

  brixIntArray result;
  for (const brixRun& run : brixRunList(runs)) {
    if (!IsInside(run.Indices, pointCount)) continue;
    result.Append(static_cast<int>(run.Indices.size()));
    for (const int index : run.Indices) result.Append(index);
  }
  return result;
}

// All faces as one object.
bool AddFaces(CVRMLParser& parser, const brixFloatPointArray& points, const brixIntArray& runs) {
  constexpr unsigned FewestPoints = 3;
  if (points.GetSize() < FewestPoints) return false;
  if (!qelvrml::CanMake(parser, {.Objects = 1, .Solids = 1, .Points = points.GetSize()})) return false;
  std::unique_ptr<CKelPolyface> face(new (std::nothrow) CKelPolyface);
  if (!face) return false;
  face->SetPoints(points, SoundRuns(parser, runs, points.GetSize()), !qelvrml::HasTextures(parser));
  face->ApplyMatrixToGeometry(parser.GetCurrentSeparator()->GetTransformation(), brixTrue, true);
  return parser.AddObjectToSeparator(face.release());
}

// An object for each run: a polygon or a line, with the set's material or the one of its part.
bool AddParts(CVRMLParser& parser, bool isFaceSet, bool perPart, const brixFloatPointArray& points,
              const brixIntArray& runs) {
  std::uint64_t parts = 0;
  for (const brixRun& run : brixRunList(runs)) parts += IsInside(run.Indices, points.GetSize()) ? 1 : 0;
  if (!qelvrml::CanMake(parser, {.Objects = parts, .Points = runs.GetSize() - parts})) return false;

  bool result = false;
  int part = -1;
  for (const brixRun& run : brixRunList(runs)) {
    ++part;
    if (perPart && run.Indices.empty()) continue;
    if (!IsInside(run.Indices, points.GetSize())) {
      qelvrml::ParserInternals::Load(parser).PartsLeftOut = true;
      continue;
    }
    std::unique_ptr<CKelPolyline> line(isFaceSet ? new (std::nothrow) CKelPolygon : new (std::nothrow) CKelPolyline);
    if (!line) continue;
    line->SetPolyline(PointsOf(run.Indices, points), isFaceSet);
    line->ApplyMatrixToGeometry(parser.GetCurrentSeparator()->GetTransformation(), brixTrue);
    const auto count = static_cast<int>(run.Indices.size());
    result = perPart ? parser.AddObjectToSeparator(line.release(), part, run.First, count)
                     : parser.AddObjectToSeparator(line.release());
  }
  return result;
}

}  // namespace

bool CVRMLParser::ParseIndexedSet() {
  if (!CurrentSeparator) return false;

  bool result = false;
  const bool isFaceSet = GetCurrentTokenType() == VRMLTokenINDEXEDFACESET;
  brixIntArray coordIndex;
  brixIntArray materialIndex;
  const brixChromaArray earlierColours = CurrentSeparator->GetDiffuseColor();
  bool hasColours = false;
  const auto parseNode = [this] {
    Tokenize();
    return ParseBlock();
  };
  CurrentSeparator->ClearMaterialIndex();
  CurrentSeparator->ClearVertexIndex();
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenINDEXEDFACESET, VRMLTokenINDEXEDLINESET});
  reader.WhileInNode([&](VRMLTokenTypes keyword) {
    switch (keyword) {
      case VRMLTokenCOORDINDEX:
      case VRMLTokenMATERIALINDEX:
        Tokenize();
        result = reader.TakeRunList(keyword == VRMLTokenCOORDINDEX ? coordIndex : materialIndex);
        break;
      case VRMLTokenNORMALINDEX:
        Tokenize();
        SkipArray(true);
        result = true;
        break;
      case VRMLTokenTEXTURECOORDINDEX:
      case VRMLTokenNORMAL:
      case VRMLTokenCOORD: result = parseNode(); break;
      case VRMLTokenCOLOR:
        result = parseNode();
        hasColours = true;
        break;
      default: Tokenize(); break;
    }
    qelvrml::LeaveObjectsUnnamed(*this);
  });
  if (result) result = DefineIndexedSet(isFaceSet, coordIndex, materialIndex, brixIntArray());
  if (!CurrentSeparator) return result;  // a nested node may have closed the scope
  CurrentSeparator->ClearMaterialIndex();
  CurrentSeparator->ClearVertexIndex();
  if (hasColours) CurrentSeparator->SetDiffuseColor(earlierColours);
  return result;
}

bool CVRMLParser::DefineIndexedSet(bool isFaceSet, const brixIntArray& coordIndex, const brixIntArray& materialIndex,
                                   const brixIntArray& normalIndex) {
  if (!CurrentSeparator) return false;
  if (!qelvrml::CanMake(*this, {.Indices = coordIndex.GetSize()})) return false;
  brixFloatPointArray points = CurrentSeparator->GetVertices();
  brixIntArray runs = coordIndex;
  CVRMLSeparator::CompactVertices(points, runs);
  CurrentSeparator->SetVertexIndex(runs);
  CurrentSeparator->SetMaterialIndex(materialIndex);
  CurrentSeparator->SetNormalIndex(normalIndex);

  const bool whole = IsWholeSet(CurrentSeparator->GetMaterialBinding());
  const bool result =
      whole && isFaceSet ? AddFaces(*this, points, runs) : AddParts(*this, isFaceSet, !whole, points, runs);
  if (!result) return false;
  qelvrml::Record<CVRMLDictionaryIndexedSet>(*this, [&](auto& entry) {
    entry.SetCoordIndex(coordIndex);
    entry.SetMaterialIndex(materialIndex);
    entry.SetNormalIndex(normalIndex);
    entry.SetIsFaceSet(isFaceSet);
  });
  return true;
}
