// Capturing a stretch of tokens as text. A first pass measures, a second one writes into a buffer of exactly that size:
//
//   each token's text, a blank behind every token but the last, a line feed behind every fifth token
//
// The text of a quoted string keeps to one token by shift codes.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>

#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/parser/CVRMLIOManager.h"
#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/prototypes/CVRMLPrototypeField.h"

namespace {

constexpr int TokensOfALine = 5;

/// Which tokens a value of a type consists of.
enum class ValueForms : unsigned char { None, List, Single, Tuple, Image, Nodes };

struct ValueForm {
  ValueForms Form;
  int Numbers = 0;  ///< of a tuple
};

// By field type.
constexpr std::array<ValueForm, 20> Forms = {{
    {ValueForms::None},       // unknown
    {ValueForms::List},       // SFBITMASK
    {ValueForms::Single},     // SFBOOL
    {ValueForms::Tuple, 3},   // SFCOLOR
    {ValueForms::List},       // MFCOLOR
    {ValueForms::Single},     // SFENUM
    {ValueForms::Single},     // SFFLOAT
    {ValueForms::List},       // MFFLOAT
    {ValueForms::Image},      // SFIMAGE
    {ValueForms::Single},     // SFLONG
    {ValueForms::List},       // MFLONG
    {ValueForms::Tuple, 16},  // SFMATRIX
    {ValueForms::Tuple, 4},   // SFROTATION
    {ValueForms::Single},     // SFSTRING
    {ValueForms::List},       // MFSTRING
    {ValueForms::Tuple, 2},   // SFVEC2F
    {ValueForms::List},       // MFVEC2F
    {ValueForms::Tuple, 3},   // SFVEC3F
    {ValueForms::List},       // MFVEC3F
    {ValueForms::Nodes},      // MFNODE
}};
static_assert(Forms[VRMLFieldSFMATRIX].Numbers == 16 && Forms[VRMLFieldMFNODE].Form == ValueForms::Nodes);

// Length of a captured text; none when it doesn't fit.
int CapturedLength(int sum, int count) {
  const std::int64_t length = std::int64_t{sum} + count - 1 + count / TokensOfALine;
  return length <= std::numeric_limits<int>::max() ? static_cast<int>(length) : -1;
}

CBasicAllocatedText AllocateBlanks(int length) {
  CBasicAllocatedText text(length < 0 ? nullptr
                                      : static_cast<char*>(std::malloc(static_cast<std::size_t>(length) + 1)));
  if (text) std::memset(text.get(), ' ', static_cast<std::size_t>(length));
  return text;
}

}  // namespace

void CVRMLIOManager::AppendCapturedText(std::string& text) {
  const std::string_view token = GetCurrentTokenText();
  const std::size_t start = text.size();
  text += token;
  if (GetCurrentTokenDataType() != GenericTokenString) return;
  std::transform(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(),
                 text.begin() + static_cast<std::ptrdiff_t>(start), qelvrml::ToShiftCode);
}

bool CVRMLIOManager::CaptureToken(char** out, int* sum, int* count, int total) {
  if (GetCurrentTokenType() == VRMLTokenEndOfFile) return false;
  const int length = GetCurrentToken().GetTokenLength();
  *sum += std::min(length, std::numeric_limits<int>::max() - *sum);
  ++*count;
  if (out && *out) {
    std::string text;
    AppendCapturedText(text);
    *out = std::copy(text.begin(), text.end(), *out);
    if (*count < total) ++*out;
    if (*count % TokensOfALine == 0) *(*out)++ = '\n';
  }
  CGenericParser::Tokenize();
  return true;
}

bool CVRMLIOManager::CaptureFieldValue(char** out, int* sum, int* count, int total, VRMLFieldTypes type,
                                       const CVRMLPrototype* prototype) {
  if (type >= Forms.size()) return false;
  const auto take = [=, this] { return CaptureToken(out, sum, count, total); };
  switch (Forms[type].Form) {
    case ValueForms::None: return false;
    case ValueForms::Single: return take();
    case ValueForms::List: return CaptureList(take);
    case ValueForms::Tuple: return CaptureTuple(take, Forms[type].Numbers);
    case ValueForms::Image: return CaptureImage(take);
    case ValueForms::Nodes: return prototype && CaptureNodes(take);
  }
  return false;
}

// From an opening token to the first closing one.
template <class Take>
bool CVRMLIOManager::CaptureList(Take take) {
  if (!GetCurrentTokenBeginType()) return false;
  take();
  while (!GetCurrentTokenEndType() && take()) {
  }
  take();
  return true;
}

template <class Take>
bool CVRMLIOManager::CaptureTuple(Take take, int numbers) {
  bool taken = GetCurrentTokenBeginType() && take();
  for (int i = 0; i < numbers; ++i) {
    if (GetCurrentTokenType() == VRMLTokenNumber) taken = take() || taken;
  }
  if (GetCurrentTokenEndType()) taken = take() || taken;
  return taken;
}

// Width, height, the number of components, and a number for each pixel.
template <class Take>
bool CVRMLIOManager::CaptureImage(Take take) {
  if (GetCurrentTokenType() != VRMLTokenNumber) return false;
  const std::int64_t width = qelvrml::CutToInt(GetCurrentTokenNumericValue());
  take();
  const std::int64_t height = qelvrml::CutToInt(GetCurrentTokenNumericValue());
  take();
  take();
  for (std::int64_t left = width * height; left > 0 && take(); --left) {
  }
  return true;
}

// USE and a name, or everything up to the closing token that balances the first opening one.
template <class Take>
bool CVRMLIOManager::CaptureNodes(Take take) {
  if (GetCurrentTokenType() == VRMLTokenUSE) {
    take();
    return take();
  }
  while (!GetCurrentTokenBeginType()) {
    if (!take()) return false;
  }
  int depth = 0;
  do {
    depth += GetCurrentTokenBeginType() ? 1 : 0;
    depth -= GetCurrentTokenEndType() ? 1 : 0;
  } while (take() && depth > 0);
  return true;
}

bool CVRMLIOManager::CaptureFieldText(char** text, int* length, VRMLFieldTypes type, const CVRMLPrototype* prototype) {
  if (!text || !length) return false;
  CGenericIOState start;
  SaveIOState(start);
  int sum = 0;
  int total = 0;
  if (!CaptureFieldValue(nullptr, &sum, &total, 0, type, prototype)) return false;
  const int captured = CapturedLength(sum, total);
  CBasicAllocatedText buffer = AllocateBlanks(captured);
  if (!buffer) return false;
  RestoreIOState(start);
  *text = buffer.release();
  *length = captured;
  char* out = *text;
  sum = 0;
  int count = 0;
  return CaptureFieldValue(&out, &sum, &count, total, type, prototype);
}

// Counts the tokens of a block or a default and the length of their texts; ends on the last token that it looked at.
void CVRMLIOManager::MeasureBlock(bool fieldDefault, int& sum, int& count) {
  const bool opened = GetCurrentTokenBeginType();
  if (opened) CGenericParser::Tokenize();
  int depth = 1;
  for (bool done = false; !done;) {
    depth -= GetCurrentTokenEndType() ? 1 : 0;
    depth += GetCurrentTokenBeginType() ? 1 : 0;
    if (depth > 0) {
      ++count;
      sum += std::min(GetCurrentToken().GetTokenLength(), std::numeric_limits<int>::max() - sum);
    }
    if (!opened || depth <= 0) done = !fieldDefault || GetNextTokenEndsField();
    if (!done) {
      CGenericParser::Tokenize();
      done = GetCurrentTokenType() == VRMLTokenEndOfFile;
    }
  }
}

bool CVRMLIOManager::CaptureBlockText(char** text, int* length, bool fieldDefault) {
  if (!text || !length) return false;
  CGenericIOState start;
  SaveIOState(start);
  const bool square = GetCurrentTokenType() == VRMLTokenOpenBracket;
  const bool leavesBrace = GetCurrentTokenBeginType() && !square;
  int sum = square ? 2 : 0;
  int total = square ? 2 : 0;
  MeasureBlock(fieldDefault, sum, total);
  const int captured = CapturedLength(sum, total);
  CBasicAllocatedText buffer = sum > 0 ? AllocateBlanks(captured) : nullptr;
  if (!buffer) return false;
  RestoreIOState(start);
  if (leavesBrace) CGenericParser::Tokenize();
  *text = buffer.release();
  *length = captured;
  return WriteTokens(*text, captured, total);
}

// Writes the tokens from here on, as many as were measured and no more than fit.
bool CVRMLIOManager::WriteTokens(char* out, int length, int total) {
  const char* end = out + length;
  int sum = 0;
  for (int count = 0; count < total;) {
    const std::int64_t separators = (count + 1 < total ? 1 : 0) + ((count + 1) % TokensOfALine == 0 ? 1 : 0);
    if (GetCurrentToken().GetTokenLength() + separators > end - out) return false;
    if (!CaptureToken(&out, &sum, &count, total)) return false;
  }
  return true;
}
