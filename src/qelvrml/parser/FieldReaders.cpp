// Readers of field values. They differ in what opens and closes a list and in the token that they end on; the nodes'
// next steps depend on that.

#include <algorithm>

#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/CutToInt.h"
#include "qelvrml/parser/CVRMLParser.h"

bool CVRMLParser::TakeNumberHere(double& value) {
  if (GetCurrentTokenType() != VRMLTokenNumber) return false;
  value = GetCurrentTokenNumericValue();
  return true;
}

void CVRMLParser::TakeNumber(double& value) {
  Tokenize();
  TakeNumberHere(value);
}

void CVRMLParser::TakeBoolean(bool& value) {
  Tokenize();
  if (GetCurrentTokenType() == VRMLTokenBoolean) value = GetCurrentTokenBooleanValue();
}

bool CVRMLParser::TakeNumberAndStep(float& value) {
  double number = 0.0;
  if (!TakeNumberHere(number)) return false;
  value = static_cast<float>(number);
  Tokenize();
  return true;
}

// Numbers one behind the other; ends on the last one, or on the token that isn't a number.
bool CVRMLParser::ReadNumbers(std::initializer_list<float*> values) {
  const float* last = *(values.end() - 1);
  for (float* value : values) {
    double number = 0.0;
    if (!TakeNumberHere(number)) return false;
    *value = static_cast<float>(number);
    if (value != last) Tokenize();
  }
  return true;
}

bool CVRMLParser::ParsePoint(brixFloatPoint& point) { return ReadNumbers({&point.x, &point.y, &point.z}); }
bool CVRMLParser::Parse2DPoint(brix2DFloatPoint& point) { return ReadNumbers({&point.x, &point.y}); }

bool CVRMLParser::ParseColor(brixChroma& colour) {
  if (GetCurrentTokenType() == VRMLTokenOpenBracket) Tokenize();
  brixChroma read;
  if (!ReadNumbers({&read.red, &read.green, &read.blue})) return false;
  colour = read;
  return true;
}

bool CVRMLParser::ParseRotationVector(brixVector& axis, double& angle) {
  StepOver({VRMLTokenOpenBrace, VRMLTokenOpenBracket});
  axis = {};
  angle = 0.0;
  bool found = false;
  for (float* component : {&axis.x, &axis.y, &axis.z}) found = TakeNumberAndStep(*component) || found;
  if (TakeNumberHere(angle)) {
    Tokenize();
    found = true;
  }
  return found;
}

template <class Point, class Array>
bool CVRMLParser::ParsePoints(Array& array, bool (CVRMLParser::*parseOne)(Point&)) {
  if (!GetCurrentTokenBeginType()) {
    array.Realloc(1, brixFalse);
    return (this->*parseOne)(array.Edit()[0]);
  }
  Array list;
  for (bool more = Tokenize(); more && !GetCurrentTokenEndType(); more = Tokenize()) {
    Point point;
    if ((this->*parseOne)(point)) list.Append(point);
  }
  const bool found = !list.IsEmpty();
  if (found) array = std::move(list);
  if (GetCurrentTokenType() == VRMLTokenCloseBracket) Tokenize();
  return found;
}

bool CVRMLParser::ParsePointArray(brixFloatPointArray& points) { return ParsePoints(points, &CVRMLParser::ParsePoint); }
bool CVRMLParser::Parse2DPointArray(brix2DFloatPointArray& points) {
  return ParsePoints(points, &CVRMLParser::Parse2DPoint);
}

bool CVRMLParser::ParseFloatArray(brixDoubleArray& values) {
  const auto valueHere = [this] {
    double value = 0.0;
    TakeNumberHere(value);
    return value;
  };
  brixDoubleArray list;
  if (GetCurrentTokenType() != VRMLTokenOpenBracket) {
    list.Append(valueHere());
  } else {
    Tokenize();
    while (GetCurrentTokenType() != VRMLTokenCloseBracket) {
      list.Append(valueHere());
      if (!Tokenize()) break;
    }
  }
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
      if (ParseColor(colour)) list.Append(colour);
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

// Numbers up to the first token that isn't one: `takeIndex` for each index, `endRun` with a run's length at its end.
template <class TakeIndex, class EndRun>
bool CVRMLParser::ReadIndices(TakeIndex takeIndex, EndRun endRun) {
  constexpr double RunEnd = -1.0;
  if (GetCurrentTokenType() == VRMLTokenOpenBracket) Tokenize();
  bool found = false;
  int length = 0;
  double value = 0.0;
  for (bool more = true; more && TakeNumberHere(value); more = Tokenize()) {
    if (value != RunEnd) {
      takeIndex(qelvrml::CutToInt(value));
      ++length;
      found = true;
    } else if (length > 0) {
      endRun(length);
      length = 0;
    }
  }
  if (length > 0) endRun(length);
  return found;
}

bool CVRMLParser::ParseIndexArray(CKelList& values, CKelList& counts) {
  ReadIndices([&values](int index) { values.AddTailValue(&index); },
              [&counts](int length) { counts.AddTailValue(&length); });
  return values.GetCount() > 0;
}

bool CVRMLParser::MergeIndexLists(brixIntArray& out, CKelList& values, CKelList& counts) {
  brixIntArray runs(values.GetCount() + std::max(counts.GetCount(), 1));
  const std::span<int> places = runs.Edit();
  std::size_t place = 0;
  CBasicListIterator value(&values);
  const auto addRun = [&](int count) {
    if (place < places.size()) places[place++] = count;
    for (int left = count; left > 0 && value.GetData() && place < places.size(); --left) {
      places[place++] = *static_cast<const int*>(value.GetData());
      value.Next();
    }
  };
  CBasicListIterator count(&counts);
  if (!count.GetData()) addRun(values.GetCount());
  for (; count.GetData(); count.Next()) addRun(*static_cast<const int*>(count.GetData()));
  out = std::move(runs);
  return true;
}

// What ParseIndexArray and MergeIndexLists make together, without the lists between them.
bool CVRMLParser::ParseRunList(brixIntArray& runs) {
  brixIntArray list;
  unsigned place = 0;  // of the count of the run at hand
  list.Append(0);
  const auto endRun = [&](int length) {
    list.Edit()[place] = length;
    place = list.GetSize();
    list.Append(0);
  };
  const bool found = ReadIndices([&list](int index) { list.Append(index); }, endRun);
  if (found) list.Realloc(static_cast<int>(place), brixTrue);
  runs = std::move(list);
  return found;
}

// The indices alone, without their runs.
bool CVRMLParser::ParseIndices(brixIntArray& indices) {
  indices = {};
  return ReadIndices([&indices](int index) { indices.Append(index); }, [](int /*length*/) {});
}
