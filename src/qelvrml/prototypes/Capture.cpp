// Capturing a stretch of tokens as text:
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

// A captured text that grows by one token after the other.
class CapturedText {
public:
  explicit CapturedText(std::string& text) : Text(text) { Text.clear(); }

  void Add(CVRMLIOManager& tokens) {
    const std::size_t before = Separate();
    tokens.AppendCapturedText(Text);
    Characters += Text.size() - before;
  }
  /// Blanks in the place of a token that ought to have been there.
  void AddMissing(std::size_t length) {
    Separate();
    Text.append(length, ' ');
    Characters += length;
  }
  bool IsEmpty() const { return Characters == 0; }
  /// A copy, which the caller frees; null if it is too long or finds no memory.
  CBasicAllocatedText Take(int& length, bool endsLine = true) {
    if (Count % TokensOfALine == 0) Text += endsLine ? '\n' : ' ';
    length = static_cast<int>(std::min<std::size_t>(Text.size(), std::numeric_limits<int>::max()));
    CBasicAllocatedText copy = AllocateBlanks(length == std::numeric_limits<int>::max() ? -1 : length);
    if (copy) std::copy(Text.begin(), Text.end(), copy.get());
    if (Text.capacity() > KeptCapacity) std::string().swap(Text);
    return copy;
  }

private:
  static constexpr std::size_t KeptCapacity = 65'536;

  std::size_t Separate() {
    if (Count > 0) Text += ' ';
    if (Count > 0 && Count % TokensOfALine == 0) Text += '\n';
    ++Count;
    return Text.size();
  }

  std::string& Text;
  std::size_t Characters = 0;  // of the tokens
  std::uint64_t Count = 0;     // tokens
};

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
  return CaptureValue([=, this] { return CaptureToken(out, sum, count, total); }, type, prototype);
}

template <class Take>
bool CVRMLIOManager::CaptureValue(Take take, VRMLFieldTypes type, const CVRMLPrototype* prototype) {
  if (type >= Forms.size()) return false;
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
  CapturedText captured(CaptureScratch);
  const auto take = [&] {
    if (GetCurrentTokenType() == VRMLTokenEndOfFile) return false;
    captured.Add(*this);
    CGenericParser::Tokenize();
    return true;
  };
  if (!CaptureValue(take, type, prototype)) return false;
  CBasicAllocatedText value = captured.Take(*length);
  *text = value.release();
  return *text != nullptr;
}

bool CVRMLIOManager::CaptureBlockText(char** text, int* length, bool fieldDefault) {
  if (!text || !length) return false;
  return fieldDefault ? CaptureDefault(text, length) : CaptureBlock(text, length);
}

// Text that ends inside a block in [ ] has blanks for what is missing.
bool CVRMLIOManager::CaptureBlock(char** text, int* length) {
  const bool opened = GetCurrentTokenBeginType();
  const bool square = GetCurrentTokenType() == VRMLTokenOpenBracket;
  CapturedText captured(CaptureScratch);
  if (square) captured.Add(*this);
  if (opened) CGenericParser::Tokenize();
  bool atEnd = false;
  for (int depth = 1; !atEnd;) {
    depth -= GetCurrentTokenEndType() ? 1 : 0;
    depth += GetCurrentTokenBeginType() ? 1 : 0;
    if (depth <= 0) break;
    captured.Add(*this);
    if (!opened) break;
    CGenericParser::Tokenize();
    atEnd = GetCurrentTokenType() == VRMLTokenEndOfFile;
  }
  if (square) atEnd ? captured.AddMissing(1) : captured.Add(*this);
  if (captured.IsEmpty()) return false;
  CBasicAllocatedText block = captured.Take(*length, !atEnd || !square);
  *text = block.release();
  if (!*text) return false;
  if (!opened || square) CGenericParser::Tokenize();
  return !atEnd || !square;
}

// Counts the tokens of a default and the length of their texts; ends on the last token that it looked at. Behind a
// block it may look at more, and count again in a further one.
void CVRMLIOManager::MeasureDefault(int& sum, int& count) {
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
    if (!opened || depth <= 0) done = GetNextTokenEndsField();
    if (!done) {
      CGenericParser::Tokenize();
      done = GetCurrentTokenType() == VRMLTokenEndOfFile;
    }
  }
}

// So many tokens from the beginning on, whichever were counted, as far as the space for these goes.
bool CVRMLIOManager::CaptureDefault(char** text, int* length) {
  CGenericIOState start;
  SaveIOState(start);
  const bool square = GetCurrentTokenType() == VRMLTokenOpenBracket;
  const bool leavesBrace = GetCurrentTokenBeginType() && !square;
  int sum = square ? 2 : 0;
  int total = square ? 2 : 0;
  MeasureDefault(sum, total);
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
