// Readers of field values. They differ in what opens and closes a list and in the token that they end on; the nodes'
// next steps depend on that.

#include <algorithm>

#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/parser/reading/NumbersAhead.h"
#include "qelvrml/platform/brix/ArrayWriter.h"

using qelvrml::ArrayWriter;
using qelvrml::NodeReader;
using qelvrml::NumberCursor;
using qelvrml::TakeAhead;

namespace {

bool TakeValue(NumberCursor& numbers, brixFloatPoint& point) { return numbers.TakeAll(point.x, point.y, point.z); }
bool TakeValue(NumberCursor& numbers, brix2DFloatPoint& point) { return numbers.TakeAll(point.x, point.y); }
bool TakeValue(NumberCursor& numbers, brixChroma& c) { return numbers.TakeAll(c.red, c.green, c.blue); }
bool TakeValue(NumberCursor& numbers, double& value) { return numbers.Take(value); }

// The same for values of a list, each of as many numbers as it has components.
template <class Value>
bool AppendAhead(CVRMLParser& parser, brixArray1D<Value>& list) {
  return TakeAhead(parser, [&list](NumberCursor& numbers) {
    ArrayWriter<Value> writer(list);
    for (Value value; TakeValue(numbers, value);) writer.Add(value);
  });
}

// Numbers one behind the other; ends on the last one, or on the token that isn't a number.
bool ReadNumbers(CVRMLParser& parser, std::initializer_list<float*> values) {
  const float* last = *(values.end() - 1);
  NodeReader reader(parser);
  for (float* value : values) {
    double number = 0.0;
    if (!reader.TakeNumberHere(number)) return false;
    *value = static_cast<float>(number);
    if (value != last) parser.Tokenize();
  }
  return true;
}

template <class Point, class Array>
bool ParsePoints(CVRMLParser& parser, Array& array, bool (CVRMLParser::*parseOne)(Point&)) {
  if (!parser.GetCurrentTokenBeginType()) {
    array.Realloc(1, brixFalse);
    return (parser.*parseOne)(array.Edit()[0]);
  }
  Array list;
  for (bool more = parser.Tokenize(); more && !parser.GetCurrentTokenEndType(); more = parser.Tokenize()) {
    Point point;
    if (AppendAhead(parser, list)) continue;
    if ((parser.*parseOne)(point)) list.Append(point);
  }
  list.Trim();
  const bool found = !list.IsEmpty();
  if (found) array = std::move(list);
  if (parser.GetCurrentTokenType() == VRMLTokenCloseBracket) parser.Tokenize();
  return found;
}

constexpr int RunEnd = -1;

// Numbers up to the first token that isn't one: `take` for each.
template <class Take>
void ReadIndices(CVRMLParser& parser, Take take) {
  const auto takeAll = [&take](NumberCursor& numbers) {
    for (int value = 0; numbers.Take(value);) take(value);
  };
  NodeReader reader(parser);
  if (reader.Is(VRMLTokenOpenBracket)) parser.Tokenize();
  double value = 0.0;
  for (bool more = true; more && reader.TakeNumberHere(value); more = parser.Tokenize()) {
    if (!TakeAhead(parser, takeAll)) take(value);
  }
}

constexpr bool EndsRun(int value) { return value == RunEnd; }
constexpr bool EndsRun(double value) { return value == RunEnd; }

// Indices as a run list, whose counts are known at the end of each run.
class RunListWriter {
public:
  explicit RunListWriter(brixIntArray& list) : List(list) { List.Add(0); }
  // A run without an index isn't one.
  template <class Number>
  void Take(Number value) {
    if (!EndsRun(value)) {
      List.Add(qelvrml::CutToInt(value));
    } else if (RunLength() > 0) {
      EndRun();
    }
  }
  // How many places the list has.
  int Finish() {
    if (RunLength() > 0) EndRun();
    return static_cast<int>(CountPlace);
  }

private:
  unsigned RunLength() const { return List.GetCount() - CountPlace - 1; }
  void EndRun() {
    List[CountPlace] = static_cast<int>(RunLength());
    CountPlace = List.GetCount();
    List.Add(0);
  }

  ArrayWriter<int> List;
  unsigned CountPlace = 0;  // of the run at hand
};

}  // namespace

bool CVRMLParser::ParsePoint(brixFloatPoint& point) { return ReadNumbers(*this, {&point.x, &point.y, &point.z}); }
bool CVRMLParser::Parse2DPoint(brix2DFloatPoint& point) { return ReadNumbers(*this, {&point.x, &point.y}); }

bool CVRMLParser::ParseColor(brixChroma& colour) {
  if (GetCurrentTokenType() == VRMLTokenOpenBracket) Tokenize();
  brixChroma read;
  if (!ReadNumbers(*this, {&read.red, &read.green, &read.blue})) return false;
  colour = read;
  return true;
}

bool CVRMLParser::ParseRotationVector(brixVector& axis, double& angle) {
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenOpenBracket});
  axis = {};
  angle = 0.0;
  bool found = false;
  for (float* component : {&axis.x, &axis.y, &axis.z}) found = reader.TakeNumberAndStep(*component) || found;
  if (reader.TakeNumberHere(angle)) {
    Tokenize();
    found = true;
  }
  return found;
}

bool CVRMLParser::ParsePointArray(brixFloatPointArray& points) {
  return ParsePoints(*this, points, &CVRMLParser::ParsePoint);
}
bool CVRMLParser::Parse2DPointArray(brix2DFloatPointArray& points) {
  return ParsePoints(*this, points, &CVRMLParser::Parse2DPoint);
}

bool CVRMLParser::ParseFloatArray(brixDoubleArray& values) {
  const auto valueHere = [this] {
    double value = 0.0;
    NodeReader(*this).TakeNumberHere(value);
    return value;
  };
  brixDoubleArray list;
  if (GetCurrentTokenType() != VRMLTokenOpenBracket) {
    list.Append(valueHere());
  } else {
    Tokenize();
    while (GetCurrentTokenType() != VRMLTokenCloseBracket) {
      if (!AppendAhead(*this, list)) list.Append(valueHere());
      if (!Tokenize()) break;
    }
  }
  list.Trim();
  const bool found = !list.IsEmpty();
  if (found) values = std::move(list);
  return found;
}

bool CVRMLParser::ParseColorArray(brixChromaArray& colours) {
  const auto atEnd = [this] { return GetCurrentTokenType() == VRMLTokenCloseBracket; };
  brixChromaArray list;
  brixChroma colour;
  if (GetCurrentTokenType() != VRMLTokenOpenBracket) {
    if (ParseColor(colour)) list.Append(colour);
  } else {
    Tokenize();
    while (!atEnd() && GetCurrentTokenType() != VRMLTokenEndOfFile) {
      if (!AppendAhead(*this, list) && ParseColor(colour)) list.Append(colour);
      if (!atEnd()) Tokenize();
    }
  }
  const bool found = !list.IsEmpty();
  if (found) colours = std::move(list);
  return found;
}

bool CVRMLParser::ParseRotationVectorArray(brixVectorArray& axes, brixDoubleArray& angles) {
  if (!GetCurrentTokenBeginType()) {
    axes.Realloc(1, brixFalse);
    angles.Realloc(1, brixFalse);
    return ParseRotationVector(axes.Edit()[0], angles.Edit()[0]);
  }
  brixVectorArray axisList;
  brixDoubleArray angleList;
  Tokenize();
  while (!GetCurrentTokenEndType() && GetCurrentTokenType() != VRMLTokenEndOfFile) {
    brixVector axis;
    double angle = 0.0;
    if (ParseRotationVector(axis, angle)) {
      axisList.Append(axis);
      angleList.Append(angle);
    } else {
      Tokenize();
    }
  }
  const bool found = !axisList.IsEmpty();
  if (found) {
    axes = std::move(axisList);
    angles = std::move(angleList);
  }
  return found;
}

bool CVRMLParser::ParseIndexArray(CKelList& values, CKelList& counts) {
  int length = 0;
  const auto endRun = [&] {
    if (length > 0) counts.AddTailValue(&length);
    length = 0;
  };
  ReadIndices(*this, [&](auto value) {
    if (EndsRun(value)) {
      endRun();
      return;
    }
    int index = qelvrml::CutToInt(value);
    values.AddTailValue(&index);
    ++length;
  });
  endRun();
  return values.GetCount() > 0;
}

bool CVRMLParser::MergeIndexLists(brixIntArray& out, CKelList& values, CKelList& counts) {
  brixIntArray runs(values.GetCount() + std::max(counts.GetCount(), 1));
  const std::span<int> places = runs.Edit();
  std::size_t place = 0;
  CBasicListIterator value(&values);
  // A run whose values run out keeps its zeros: the next count stands behind the whole of it.
  const auto addRun = [&](int count) {
    if (place >= places.size()) return;
    places[place++] = count;
    const std::size_t end = place + static_cast<std::size_t>(std::max(count, 0));
    for (; place < std::min(end, places.size()) && value.GetData(); value.Next()) {
      places[place++] = *static_cast<const int*>(value.GetData());
    }
    place = end;
  };
  CBasicListIterator count(&counts);
  if (!count.GetData()) addRun(values.GetCount());
  for (; count.GetData(); count.Next()) addRun(*static_cast<const int*>(count.GetData()));
  out = std::move(runs);
  return true;
}

// What ParseIndexArray and MergeIndexLists make together, without the lists between them.
bool NodeReader::TakeRunList(brixIntArray& runs) {
  brixIntArray list;
  int places = 0;
  {
    RunListWriter writer(list);
    ReadIndices(Parser, [&writer](auto value) { writer.Take(value); });
    places = writer.Finish();
  }
  const bool found = places > 0;
  if (found) list.Realloc(places, brixTrue);
  list.Trim();
  runs = std::move(list);
  return found;
}

bool NodeReader::TakeIndices(brixIntArray& indices) {
  indices = {};
  ReadIndices(Parser, [&indices](auto value) {
    if (!EndsRun(value)) indices.Append(qelvrml::CutToInt(value));
  });
  return !indices.IsEmpty();
}
