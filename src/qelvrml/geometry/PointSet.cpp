// PointSet: a dot for each of the coordinates in force, or for a range of them.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brix/solids/brixDot.h"

bool CVRMLParser::ParsePointSet() {
  if (!CurrentSeparator) return false;

  double startIndex = 0.0;
  double numPoints = -1.0;
  qelvrml::NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenPOINTSET});
  // A nested node ends its pass: ParseBlock has stepped behind it.
  for (bool more = true; more && !reader.Is(VRMLTokenCloseBrace);) {
    reader.LookForNode();
    switch (reader.Current()) {
      case VRMLTokenSTARTINDEX:
        reader.TakeNumber(startIndex);
        more = Tokenize();
        break;
      case VRMLTokenNUMPOINTS:
        reader.TakeNumber(numPoints);
        more = Tokenize();
        break;
      case VRMLTokenCOORD:
      case VRMLTokenCOLOR:
        Tokenize();
        ParseBlock();
        break;
      default: more = Tokenize(); break;
    }
  }
  if (numPoints < 0.0) numPoints = CurrentSeparator ? CurrentSeparator->GetVertices().GetSize() : 0.0;
  return DefinePointSet(qelvrml::CutToInt(startIndex), qelvrml::CutToInt(numPoints));
}

bool CVRMLParser::DefinePointSet(int startIndex, int numPoints) {
  if (!CurrentSeparator || numPoints <= 0 || CurrentSeparator->GetVertices().IsEmpty()) return false;
  const brixFloatPointArray points = CurrentSeparator->GetVertices();
  const int lastIndex = static_cast<int>(points.GetSize()) - 1;
  const int first = std::clamp(startIndex, 0, lastIndex);
  const auto last = static_cast<int>(std::min<std::int64_t>(std::int64_t{first} + numPoints - 1, lastIndex));
  const auto count = static_cast<std::uint64_t>(last - first) + 1;
  if (!qelvrml::CanMake(*this, {.Objects = count, .Points = count})) return false;
  for (int i = first; i <= last; ++i) {
    std::unique_ptr<brixDot> dot(new (std::nothrow) brixDot);
    if (!dot) continue;
    dot->SetDot(points[static_cast<std::size_t>(i)]);
    dot->ApplyMatrixToGeometry(CurrentSeparator->GetTransformation(), brixTrue);
    AddObjectToSeparator(dot.release());
  }
  qelvrml::Record<CVRMLDictionaryPointSet>(*this, [&](auto& entry) {
    entry.SetStartIndex(first);
    entry.SetNumPoints(last - first + 1);
  });
  return true;
}
