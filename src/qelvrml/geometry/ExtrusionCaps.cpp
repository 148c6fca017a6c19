// Caps of an extrusion. The outline is one row of the mesh, which may run through a point twice and so hold several
// loops:
//
//   A B C D A        one loop
//   A B C A D E F D  two loops behind each other
//   A B C D E C F A  the loop C D E C, and A B F A around it
//
// The loops are moved into the plane z = 0, grouped into outlines with holes and triangulated there, and moved back.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>
#include <numeric>
#include <vector>

#include "qelvrml/geometry/CVRMLLoopIndexPair.h"
#include "qelvrml/geometry/TexturesInUse.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/platform/brix/polygons/brixComplexPolygon.h"
#include "qelvrml/platform/brixex/CKelCpGenerator.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/brixPointSorting.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/PointBlocks.h"

namespace {

constexpr std::size_t FewestLoopPoints = 3;

/// The indices of a row that no loop has taken yet. Stretches are asked for in the order of falling starts, so what is
/// free again at a start was never looked past from below it.
class FreeIndices {
public:
  explicit FreeIndices(std::size_t count) : Next(count + 1) { std::iota(Next.begin(), Next.end(), std::size_t{0}); }

  /// Takes the free indices from `first` to `last`.
  std::vector<std::size_t> Take(std::size_t first, std::size_t last) {
    std::vector<std::size_t> taken;
    for (std::size_t i = Find(first); i <= last; i = Find(i)) {
      taken.push_back(i);
      Next[i] = i + 1;
    }
    return taken;
  }
  void GiveBack(std::size_t index) { Next[index] = index; }

private:
  std::size_t Find(std::size_t index) {
    while (Next[index] != index) {
      Next[index] = Next[Next[index]];
      index = Next[index];
    }
    return index;
  }

  std::vector<std::size_t> Next;  ///< itself for a free index, else a later one
};

brixFloatPointArray PointsAt(const std::vector<std::size_t>& indices, const brixFloatPointArray& points) {
  brixFloatPointArray loop;
  for (const std::size_t index : indices) loop.Append(points.View()[index]);
  return loop;
}

template <class Item>
Item* ItemOf(CBasicListElement* element) {
  return static_cast<Item*>(element->Data);
}

/// A list of bare pointers whose items go with it.
template <class Item>
class OwningList : public CKelList {
public:
  OwningList() = default;
  OwningList(const OwningList&) = delete;
  OwningList& operator=(const OwningList&) = delete;
  ~OwningList() override {
    for (CBasicListElement* element = CBasicList::GoToFirst(); element; element = element->Next)
      delete ItemOf<Item>(element);
  }
};

// Adds one outline with its holes as triangles that share no points.
bool AddPiece(CVRMLParser& parser, const brixComplexPolygon& polygon, const brixMatrix4x4& toWorld) {
  std::unique_ptr<CKelPolyface> face(new (std::nothrow) CKelPolyface);
  if (!face) return false;
  brixComplexOutput output;
  polygon.Evaluate(&output);
  const std::uint64_t corners = output.Corners.GetSize();
  const qelvrml::Making making = {.Objects = 1, .Points = corners, .Indices = corners + corners / 3};
  if (!qelvrml::CanMake(parser, making)) return false;
  brixFloatPointArray points(static_cast<int>(output.Corners.GetSize()));
  brixIntArray runs;
  const std::span<brixFloatPoint> places = points.Edit();
  for (int i = 0; i < 3 * output.TriangleCount; ++i) {
    const auto place = static_cast<std::size_t>(i);
    if (i % 3 == 0) runs.Append(3);
    runs.Append(i);
    places[place] = output.Points.View()[static_cast<std::size_t>(output.Corners.View()[place])];
  }
  qelvrml::Transform(places, toWorld);
  face->SetPoints(points, runs, !qelvrml::HasTextures(parser));
  return parser.AddObjectToSeparator(face.release());
}

// Inner stretches come first; each stretch around them keeps the points that are still free.
void CollectLoops(const brixFloatPointArray& points, CKelList& pairs, CKelList& loops) {
  FreeIndices free(points.GetSize());
  for (CBasicListElement* element = pairs.GoToFirst(); element; element = element->Next) {
    const auto& pair = *ItemOf<CVRMLLoopIndexPair>(element);
    const auto start = static_cast<std::size_t>(pair.GetStart());
    const std::vector<std::size_t> taken = free.Take(start, static_cast<std::size_t>(pair.GetEnd()));
    if (taken.size() >= FewestLoopPoints) {
      auto loop = std::make_unique<brixFloatPointArray>(PointsAt(taken, points));
      if (loops.AddTail(loop.get())) loop.release();
    } else if (!taken.empty()) {
      free.GiveBack(start);
    }
  }
}

bool StartsLater(const CVRMLLoopIndexPair& a, const CVRMLLoopIndexPair& b) {
  return static_cast<unsigned>(a.GetStart()) > static_cast<unsigned>(b.GetStart());
}

// Splits the pairs from `first` to `last` by the start of the last one, and gives the place where that one then stands.
int Partition(std::vector<CVRMLLoopIndexPair>& pairs, int first, int last) {
  const auto at = [&pairs](int place) -> CVRMLLoopIndexPair& { return pairs[static_cast<std::size_t>(place)]; };
  const CVRMLLoopIndexPair pivot = at(last);
  int i = first - 1;
  int j = last;
  while (true) {
    do ++i;
    while (i < last && StartsLater(at(i), pivot));
    do --j;
    while (j > first && StartsLater(pivot, at(j)));
    if (j <= i) break;
    std::swap(at(i), at(j));
  }
  std::swap(at(i), at(last));
  return i;
}

// A quicksort whose steps are settled, for they decide the order of equal starts.
void SortBySteps(std::vector<CVRMLLoopIndexPair>& pairs) {
  std::vector<std::pair<int, int>> stretches = {{0, static_cast<int>(pairs.size()) - 1}};
  while (!stretches.empty()) {
    const auto [first, last] = stretches.back();
    stretches.pop_back();
    if (last <= first) continue;
    const int middle = Partition(pairs, first, last);
    stretches.emplace_back(middle + 1, last);
    stretches.emplace_back(first, middle - 1);
  }
}

void SortPairs(std::vector<CVRMLLoopIndexPair>& pairs) {
  std::vector<CVRMLLoopIndexPair> sorted = pairs;
  std::stable_sort(sorted.begin(), sorted.end(), StartsLater);
  const auto equalStarts = [](const auto& a, const auto& b) { return a.GetStart() == b.GetStart(); };
  const bool told = std::adjacent_find(sorted.begin(), sorted.end(), equalStarts) != sorted.end() &&
                    pairs.size() <= static_cast<std::size_t>(qelvrml::MaximumPairsSortedBySteps);
  if (told) {
    SortBySteps(pairs);
  } else {
    pairs = std::move(sorted);
  }
}

}  // namespace

bool CVRMLParser::DefineExtrusionCap(int row, int pointsInRow, const brixFloatPointArray& mesh) {
  const std::int64_t first = std::int64_t{row} * pointsInRow;
  if (pointsInRow <= 0 || row < 0 || first + pointsInRow > static_cast<std::int64_t>(mesh.GetSize())) return false;
  const std::uint64_t steps = static_cast<std::uint64_t>(pointsInRow) * qelvrml::StepsOfACapCorner;
  if (!qelvrml::CanMake(*this, {.Steps = steps})) return false;
  brixFloatPointArray outline;
  outline.Assign(mesh.View().subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(pointsInRow)));

  OwningList<brixFloatPointArray> loops;
  DetermineLoopsFromPoints(outline, loops);
  if (loops.GetCount() == 0) return false;
  const brixMatrix4x4 toPlane = GenerateCapTransform(*static_cast<brixFloatPointArray*>(loops.GetHead()));
  CKelCpGenerator generator;
  for (CBasicListElement* element = loops.GoToFirst(); element; element = element->Next) {
    auto& loop = *ItemOf<brixFloatPointArray>(element);
    qelvrml::Transform(loop.Edit(), toPlane);
    generator.AddLoop(loop);
  }
  generator.DetermineInteriorExteriorLoops();
  if (!qelvrml::PayForSteps(*this, generator.GetCuttingSteps())) return false;
  OwningList<brixComplexPolygon> polygons;
  generator.CreateCompPolyList(polygons);
  const brixMatrix4x4 toWorld = GetInverseMatrix(toPlane);
  bool result = false;
  for (CBasicListElement* element = polygons.GoToFirst(); element; element = element->Next) {
    result = AddPiece(*this, *ItemOf<brixComplexPolygon>(element), toWorld) || result;
  }
  return result;
}

bool CVRMLParser::DetermineLoopsFromPoints(brixFloatPointArray& points, CKelList& loops) {
  brixIntArray order;
  if (points.IsEmpty() || !SortPointArrayForProximity(points, order)) return false;
  OwningList<CVRMLLoopIndexPair> pairs;
  const auto at = [&points](int index) { return points.View()[static_cast<std::size_t>(index)]; };
  for (unsigned p = 1; p < order.GetSize(); ++p) {
    const int one = order.View()[p - 1];
    const int other = order.View()[p];
    if (at(one) == at(other)) CreateIndexPair(pairs, one, other);
  }
  if (pairs.GetCount() == 0) {  // an open row is closed
    points.Append(points.View()[0]);
    CreateIndexPair(pairs, 0, static_cast<int>(points.GetSize()) - 1);
  }
  SortIndexPairList(pairs, 0, pairs.GetCount() - 1);
  CollectLoops(points, pairs, loops);
  return loops.GetCount() > 0;
}

bool CVRMLParser::CreateIndexPair(CKelList& pairs, int first, int second) {
  if (first == second) return false;
  std::unique_ptr<CVRMLLoopIndexPair> pair(new (std::nothrow) CVRMLLoopIndexPair);
  if (!pair) return false;
  pair->SetStart(std::min(first, second));
  pair->SetEnd(std::max(first, second));
  if (!pairs.AddTail(pair.get())) return false;
  pair.release();
  return true;
}

// From the largest start to the smallest. The values of the pairs move, not the elements of the list.
void CVRMLParser::SortIndexPairList(CKelList& pairs, int first, int last) {
  std::vector<CVRMLLoopIndexPair*> places;
  std::vector<CVRMLLoopIndexPair> values;
  int position = 0;
  for (CBasicListElement* element = pairs.GoToFirst(); element; element = element->Next, ++position) {
    if (position < first || position > last) continue;
    places.push_back(ItemOf<CVRMLLoopIndexPair>(element));
    values.push_back(*places.back());
  }
  SortPairs(values);
  for (std::size_t i = 0; i < places.size(); ++i) *places[i] = values[i];
}

brixMatrix4x4 CVRMLParser::GenerateCapTransform(const brixFloatPointArray& loop) {
  brixFloatPoint centre;
  for (const brixFloatPoint& point : loop.View()) centre = centre + point;
  if (!loop.IsEmpty()) centre /= static_cast<float>(loop.GetSize());
  return GetDisplacementMatrix({-centre.x, -centre.y, -centre.z}) *
         CreateRotationMatrixForVectors(ComputeNormalForPoints(loop), {0.0F, 0.0F, 1.0F}, nullptr);
}
