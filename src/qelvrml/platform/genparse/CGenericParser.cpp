#include "qelvrml/platform/genparse/CGenericParser.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "qelvrml/platform/fileint/FileText.h"
#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/platform/genparse/KeywordIndex.h"
#include "qelvrml/platform/genparse/NumberText.h"
#include "qelvrml/platform/genparse/TokenSource.h"

namespace {

using qelvrml::BufferCharacters;
using qelvrml::CharacterClass;
using qelvrml::FileCharacters;
using qelvrml::FileText;
using qelvrml::TokenSource;

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

CharacterClass ClassOf(const qelvrml::CharacterTable& table, const char* p) {
  return table[static_cast<unsigned char>(*p)];
}

bool EndsLine(char c) { return c == '\n' || c == '\r'; }

const char* FindLineEnd(const char* p, const char* end) { return std::find_if(p, end, EndsLine); }

GenericTokenTypes DelimiterType(char c) {
  switch (c) {
    case '{': return GenericTokenOpenBrace;
    case '}': return GenericTokenCloseBrace;
    case '[': return GenericTokenOpenBracket;
    case ']': return GenericTokenCloseBracket;
    case '(': return GenericTokenOpenParen;
    case ')': return GenericTokenCloseParen;
    default: return GenericTokenOther;
  }
}

bool IsWord(std::string_view word, std::string_view upperCase) {
  const auto equal = [](char a, char b) { return qelvrml::ToUpperAscii(a) == b; };
  return word.size() == upperCase.size() && std::equal(word.begin(), word.end(), upperCase.begin(), equal);
}

int Saturate(std::size_t value) {
  return static_cast<int>(std::min<std::size_t>(value, std::numeric_limits<int>::max()));
}

CGenericToken EndToken() {
  CGenericToken token;
  token.SetDataType(GenericTokenEndOfFile);
  return token;
}

}  // namespace

CGenericParser::CGenericParser() {
  Reading.Filename = std::make_shared<const CBasicString>();
  EndInput();
}

const char* CGenericParser::GetEnd() const { return Reading.Source->Text->end(); }

void CGenericParser::SetKeywordTable(const ParserKeywordEntry* table) {
  KeywordTable = table;
  Keywords = qelvrml::KeywordIndex::ForTable(KeywordTable, KeywordTableSize);
}

void CGenericParser::SetKeywordTableSize(int rows) {
  KeywordTableSize = rows;
  Keywords = qelvrml::KeywordIndex::ForTable(KeywordTable, KeywordTableSize);
}

void CGenericParser::SetFilename(const CBasicString& name) {
  Reading.Filename = std::make_shared<const CBasicString>(name);
}

GenericLoadResultTypes CGenericParser::OpenAndInitialize() {
  CloseFile();
  if (!FileInterface.Open(GetFilename())) return GenericLoadOpenFailed;
  const bool accepted = ReadFileHeader();
  const bool readable = AdoptBlock() || (FileInterface.ReadNextBlockFromFile() && AdoptBlock());
  if (FileInterface.GetReadFailed() || !readable || !accepted) {
    const bool readFailed = FileInterface.GetReadFailed();
    CloseFile();
    return readFailed ? GenericLoadOpenFailed : GenericLoadHeaderFailed;
  }
  Reading.Current = CGenericToken();
  ReadToken(Reading.Next);
  return GenericLoadOK;
}

void CGenericParser::CloseFile() {
  FileInterface.Close();
  EndInput();
}

void CGenericParser::EndInput() {
  Reading.Source.reset();
  Reading.Position = nullptr;
  Reading.Current = Reading.Next = EndToken();
}

// The block that the file interface has read becomes the text to read from.
bool CGenericParser::AdoptBlock() {
  const std::shared_ptr<const FileText> block = FileInterface.GetBlock();
  if (!block) return false;
  if (Reading.Source && Reading.Source->Text == block) return true;
  auto source = std::make_shared<TokenSource>();
  source->Text = block;
  Reading.Source = std::move(source);
  Reading.Position = block->begin();
  return true;
}

bool CGenericParser::GetNextLineFromBuffer() {
  if (!AdoptBlock() || Reading.Position == GetEnd()) return false;
  const char* begin = Reading.Position;
  const auto left = static_cast<std::size_t>(GetEnd() - begin);
  if (begin == Reading.Source->Text->begin() && std::string_view(begin, left).starts_with(ByteOrderMark)) {
    begin += ByteOrderMark.size();
  }
  const char* end = FindLineEnd(begin, GetEnd());
  InputString.assign(begin, end);
  if (end != GetEnd() && *end == '\r' && end[1] == '\n') ++end;
  Reading.Position = end == GetEnd() ? end : end + 1;
  return true;
}

bool CGenericParser::Tokenize() {
  Reading.Current = Reading.Next;
  if (Reading.Current.DataType == GenericTokenEndOfFile) return false;
  ReadToken(Reading.Next);
  return true;
}

char* CGenericParser::GetCurrentTokenString() {
  CurrentText = GetCurrentTokenText();
  return CurrentText.data();
}

char* CGenericParser::GetNextTokenString() {
  NextText = GetNextTokenText();
  return NextText.data();
}

const char* CGenericParser::SkipSpace(const char* p) const {
  const auto& classes = Reading.Source->IsBuffer ? BufferCharacters : FileCharacters;
  const char* end = GetEnd();
  for (; p != end; ++p) {
    const CharacterClass kind = ClassOf(classes, p);
    if (kind == CharacterClass::Comment) {
      p = FindLineEnd(p, end);
      if (p == end) break;
    } else if (kind != CharacterClass::Space) {
      break;
    }
  }
  return p;
}

void CGenericParser::ReadToken(CGenericToken& token) {
  if (!Reading.Source) {
    token = EndToken();
    return;
  }
  Reading.ScanFailed = false;
  Reading.Position = SkipSpace(Reading.Position);
  token = CGenericToken();
  token.Begin = token.Raw = Reading.Position;
  if (Reading.Position == GetEnd()) {
    token.DataType = GenericTokenEndOfFile;
    return;
  }
  switch (ClassOf(FileCharacters, Reading.Position)) {
    case CharacterClass::Delimiter:
      token.DataType = DelimiterType(*Reading.Position++);
      token.RawLength = token.TextLength = 1;
      break;
    case CharacterClass::Quote: ReadQuoted(token); break;
    default: ReadWord(token); break;
  }
}

void CGenericParser::ReadQuoted(CGenericToken& token) {
  const char* end = GetEnd();
  const char* p = Reading.Position + 1;
  token.Raw = p;
  std::size_t escapes = 0;
  for (; p != end && *p != '"'; ++p) {
    if (*p == '\\' && (p[1] == '"' || p[1] == '\\')) ++p, ++escapes;
  }
  token.DataType = GenericTokenString;
  token.RawLength = static_cast<std::size_t>(p - token.Raw);
  token.TextLength = token.RawLength - escapes;
  if (escapes > 0) token.Encoding = CGenericToken::Encodings::Escaped;
  Reading.Position = p == end ? p : p + 1;
}

void CGenericParser::ReadWord(CGenericToken& token) {
  // The NUL behind the text is white space and so ends a word.
  const auto& classes = Reading.Source->IsBuffer ? BufferCharacters : FileCharacters;
  const char* p = Reading.Position;
  while (ClassOf(classes, p) == CharacterClass::Word) ++p;
  token.RawLength = token.TextLength = static_cast<std::size_t>(p - token.Raw);
  Reading.Position = p;
  ClassifyWord(token);
}

void CGenericParser::ClassifyWord(CGenericToken& token) const {
  const std::string_view word(token.Raw, token.RawLength);
  const auto shifted = [](char c) { return qelvrml::IsShiftCode(static_cast<unsigned char>(c)); };
  if (Reading.Source->IsBuffer && std::any_of(word.begin(), word.end(), shifted)) {
    token.DataType = GenericTokenString;
    token.Encoding = CGenericToken::Encodings::Shifted;
    return;
  }
  if (word.front() < 'A' && qelvrml::ReadNumber(word, token.NumericValue)) {
    token.DataType = GenericTokenNumber;
  } else if (const ParserKeywordEntry* row = Keywords ? Keywords->Find(word) : nullptr) {
    token.DataType = GenericTokenUserDefined;
    token.UserDefinedType = row->Value;
  } else if (IsWord(word, "TRUE") || IsWord(word, "FALSE")) {
    token.DataType = GenericTokenBoolean;
    token.BooleanValue = IsWord(word, "TRUE");
  }
}

int CGenericParser::GetCurrentFileOffset() const {
  if (!Reading.Source) return 0;
  if (Reading.Source->IsBuffer) return Saturate(Reading.Source->OffsetBelow);
  return Saturate(static_cast<std::size_t>(Reading.Position - Reading.Source->Text->begin()));
}

int CGenericParser::GetTotalFileSize() const {
  if (!Reading.Source) return 0;
  return Saturate(Reading.Source->IsBuffer ? Reading.Source->SizeBelow : Reading.Source->Text->GetSize());
}

bool CGenericParser::SaveIOState(CGenericIOState& state) const {
  state.Reading = Reading;
  return Reading.Source != nullptr;
}

bool CGenericParser::RestoreIOState(const CGenericIOState& state) {
  if (!state.Reading.Source) return false;
  Reading = state.Reading;
  return true;
}

bool CGenericParser::StartBufferReading(const char* text, int length) {
  if (!text || length < 0) return false;
  auto source = std::make_shared<TokenSource>();
  source->Text = std::make_shared<const FileText>(std::string_view(text, static_cast<std::size_t>(length)));
  source->IsBuffer = true;
  source->OffsetBelow = static_cast<std::size_t>(GetCurrentFileOffset());
  source->SizeBelow = static_cast<std::size_t>(GetTotalFileSize());
  Reading.Source = std::move(source);
  return SetToStartOfBuffer();
}

bool CGenericParser::StopBufferReading() {
  if (!Reading.Source || !Reading.Source->IsBuffer) return false;
  EndInput();
  return true;
}

bool CGenericParser::SetToStartOfBuffer() {
  if (!Reading.Source || !Reading.Source->IsBuffer) return false;
  Reading.Position = Reading.Source->Text->begin();
  ReadToken(Reading.Current);
  ReadToken(Reading.Next);
  return true;
}
