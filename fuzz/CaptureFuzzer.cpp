// Captures tokens of a scene as text and reads the text again: the same tokens come back.
//
//   first byte    what is captured: a block, a default, or a value of a field type
//   second byte   from which token on
//   the rest      the scene behind its header
//
// A quoted string whose text would be a word comes back as that word, an empty one not at all, and control characters
// in a string without a meaning of their own as blanks.

#include <algorithm>
#include <optional>
#include <vector>

#include "Support.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"

namespace {

struct Token {
  std::string Text;
  VRMLTokenTypes Type;
  bool Quoted;  ///< or held with shift codes
};

using Tokens = std::vector<Token>;

Tokens ReadAll(CVRMLIOManager& manager) {
  Tokens tokens;
  while (manager.GetCurrentTokenType() != VRMLTokenEndOfFile) {
    const bool quoted = manager.GetCurrentTokenDataType() == GenericTokenString;
    tokens.push_back({std::string(manager.GetCurrentTokenText()), manager.GetCurrentTokenType(), quoted});
    manager.CGenericParser::Tokenize();
  }
  return tokens;
}

Tokens ReadText(const std::string& text) {
  CVRMLIOManager manager;
  Require(manager.StartBufferReading(text.c_str(), static_cast<int>(text.size())), "a text that can't be read");
  return ReadAll(manager);
}

std::string CapturedString(std::string text) {
  const auto captured = [](char c) {
    const bool blank = static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
    return blank ? ' ' : c;
  };
  std::transform(text.begin(), text.end(), text.begin(), captured);
  return text;
}

bool Opens(const Token& token) {
  return token.Type == VRMLTokenOpenBrace || token.Type == VRMLTokenOpenBracket || token.Type == VRMLTokenOpenParen;
}

bool Closes(const Token& token) {
  return token.Type == VRMLTokenCloseBrace || token.Type == VRMLTokenCloseBracket || token.Type == VRMLTokenCloseParen;
}

// Whether `read` is what a captured text of `written` gives, from its beginning on.
bool ComesBack(const Tokens& read, const Tokens& written, bool whole) {
  auto next = read.begin();
  for (const Token& token : written) {
    const std::string text = token.Quoted ? CapturedString(token.Text) : token.Text;
    if (text.empty()) continue;
    if (next == read.end()) return !whole;
    if (next->Text != text || (!token.Quoted && next->Type != token.Type)) return false;
    ++next;
  }
  return next == read.end();
}

std::size_t LengthOf(const Tokens& tokens) {
  std::size_t length = tokens.size() - 1 + tokens.size() / 5;
  for (const Token& token : tokens) length += token.Text.size();
  return length;
}

// The tokens of the block that opens the stretch, without the delimiters; up to the end for one that isn't closed.
Tokens InsideOfBlock(const Tokens& tokens) {
  int depth = 0;
  std::size_t end = 0;
  for (; end < tokens.size(); ++end) {
    depth += Opens(tokens[end]) ? 1 : 0;
    depth -= Closes(tokens[end]) ? 1 : 0;
    if (depth == 0) break;
  }
  return {tokens.begin() + 1, tokens.begin() + static_cast<std::ptrdiff_t>(end)};
}

// All tokens, each by itself, through a text and through a text of that text.
void CheckAllTokens(CVRMLIOManager& manager, const Tokens& tokens) {
  const auto capture = [](CVRMLIOManager& from) {
    std::string text;
    while (from.GetCurrentTokenType() != VRMLTokenEndOfFile) {
      from.AppendCapturedText(text);
      text += ' ';
      from.CGenericParser::Tokenize();
    }
    return text;
  };
  const std::string text = capture(manager);
  Require(ComesBack(ReadText(text), tokens, true), "tokens that don't come back");
  CVRMLIOManager again;
  again.StartBufferReading(text.c_str(), static_cast<int>(text.size()));
  Require(ComesBack(ReadText(capture(again)), ReadText(text), true), "tokens that don't come back twice");
}

std::string Take(char* text, int length) {
  const CBasicAllocatedText owned(text);
  return text ? std::string(text, static_cast<std::size_t>(length)) : std::string();
}

void CheckBlock(CVRMLIOManager& manager, const Tokens& tokens, bool isDefault) {
  char* captured = nullptr;
  int length = 0;
  const bool found = manager.CaptureBlockText(&captured, &length, isDefault);
  Require(!found || captured, "a block without a text");
  const std::string text = Take(captured, length);
  if (text.empty()) return;
  const bool square = tokens.front().Type == VRMLTokenOpenBracket;
  const bool enclosed = Opens(tokens.front()) && !square;
  const Tokens behind(tokens.begin() + (enclosed ? 1 : 0), tokens.end());
  const Tokens read = ReadText(text);
  Require(ComesBack(read, behind, false), "a block's text with other tokens");
  if (enclosed && !isDefault) {
    const Tokens inside = InsideOfBlock(tokens);
    Require(ComesBack(read, inside, true), "a block's text without all of its tokens");
    Require(text.size() == LengthOf(inside), "a block's text of another length");
  }
}

void CheckField(CVRMLIOManager& manager, const Tokens& tokens, VRMLFieldTypes type) {
  const CVRMLPrototype prototype;
  char* captured = nullptr;
  int length = 0;
  const bool found = manager.CaptureFieldText(&captured, &length, type, &prototype);
  Require(found == (captured != nullptr), "a value without a text");
  const std::string text = Take(captured, length);
  if (!found) return;
  const std::size_t left = ReadAll(manager).size();
  const Tokens taken(tokens.begin(), tokens.end() - static_cast<std::ptrdiff_t>(left));
  Require(ComesBack(ReadText(text), taken, true), "a value's text with other tokens");
  Require(text.size() == LengthOf(taken), "a value's text of another length");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  constexpr unsigned FieldTypes = 20;
  const unsigned kind = data[0] % (FieldTypes + 2);
  const std::string scene = "#VRML V2.0 utf8\n" + std::string(reinterpret_cast<const char*>(data) + 2, size - 2);
  CVRMLIOManager manager;
  manager.SetFilename(Scratch::Get().Write("scene.wrl", scene).c_str());
  Require(manager.OpenFile() == VRMLLoadOK, "a scene that can't be opened");
  manager.CGenericParser::Tokenize();
  for (unsigned i = data[1]; i > 0; --i) manager.CGenericParser::Tokenize();

  CGenericIOState start;
  manager.SaveIOState(start);
  const Tokens tokens = ReadAll(manager);
  manager.RestoreIOState(start);
  CheckAllTokens(manager, tokens);
  manager.RestoreIOState(start);
  if (tokens.empty()) return 0;
  if (kind < FieldTypes) {
    CheckField(manager, tokens, static_cast<VRMLFieldTypes>(kind));
  } else {
    CheckBlock(manager, tokens, kind == FieldTypes);
  }
  return 0;
}
