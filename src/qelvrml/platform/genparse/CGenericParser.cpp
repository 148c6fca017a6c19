#include "qelvrml/platform/genparse/CGenericParser.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "qelvrml/platform/fileint/FileText.h"
#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/platform/genparse/KeywordIndex.h"
#include "qelvrml/platform/genparse/NumberCursor.h"
#include "qelvrml/platform/genparse/NumberText.h"
#include "qelvrml/platform/genparse/TokenSource.h"

namespace {

using qelvrml::CharacterClass;
using qelvrml::FileText;
using qelvrml::TokenSource;

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

CharacterClass ClassOf(const qelvrml::CharacterTable& table, const char* p) {
  return table[static_cast<unsigned char>(*p)];
}

bool EndsLine(char c) { return c == '\n' || c == '\r'; }

const char* FindLineEnd(const char* p, const char* end) { return std::find_if(p, end, EndsLine); }

// The text's end is white space like all that stands behind it.
const char* SkipSpace(const char* p, const TokenSource& source) {
  while (true) {
    while (ClassOf(source.Classes, p) == CharacterClass::Space && p != source.End) ++p;
    if (ClassOf(source.Classes, p) != CharacterClass::Comment) return p;
    p = FindLineEnd(p, source.End);
  }
}

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

CGenericParser::CGenericParser(const ParserKeywordEntry* table, int rows,
                               std::shared_ptr<const qelvrml::KeywordIndex> index)
    : CGenericParser() {
  KeywordTable = table;
  KeywordTableSize = rows;
  Keywords = std::move(index);
}

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
  Reading.Current() = CGenericToken();
  ReadToken(Reading.Next());
  return GenericLoadOK;
}

void CGenericParser::CloseFile() {
  FileInterface.Close();
  EndInput();
}

void CGenericParser::EndInput() {
  Reading.Source.reset();
  Reading.Position = nullptr;
  ClearMilestone();
  Reading.Current() = Reading.Next() = EndToken();
}

// The block that the file interface has read becomes the text to read from.
bool CGenericParser::AdoptBlock() {
  const std::shared_ptr<const FileText> block = FileInterface.GetBlock();
  if (!block) return false;
  if (Reading.Source && Reading.Source->Text == block) return true;
  Reading.Source = std::make_shared<TokenSource>(block);
  Reading.Position = block->begin();
  ClearMilestone();
  return true;
}

bool CGenericParser::GetNextLineFromBuffer() {
  if (!AdoptBlock() || Reading.Position == Reading.Source->End) return false;
  const char* begin = Reading.Position;
  const char* last = Reading.Source->End;
  const auto left = static_cast<std::size_t>(last - begin);
  if (begin == Reading.Source->Text->begin() && std::string_view(begin, left).starts_with(ByteOrderMark)) {
    begin += ByteOrderMark.size();
  }
  const char* end = FindLineEnd(begin, last);
  InputString.assign(begin, end);
  if (end != last && *end == '\r' && end[1] == '\n') ++end;
  Reading.Position = end == last ? end : end + 1;
  return true;
}

bool CGenericParser::Tokenize() {
  Reading.CurrentPlace = 1 - Reading.CurrentPlace;
  if (Reading.Current().DataType == GenericTokenEndOfFile) {
    Reading.Next() = Reading.Current();
    return false;
  }
  ReadToken(Reading.Next());
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

void CGenericParser::ReadToken(CGenericToken& token) {
  if (!Reading.Source) {
    token = EndToken();
    return;
  }
  const TokenSource& source = *Reading.Source;
  const char* p = SkipSpace(Reading.Position, source);
  Reading.ScanFailed = false;
  Reading.Position = p;
  token = CGenericToken();
  token.Begin = p;
  switch (ClassOf(source.Classes, p)) {
    case CharacterClass::Delimiter:
      token.DataType = DelimiterType(*Reading.Position++);
      token.RawLength = 1;
      break;
    case CharacterClass::Quote: ReadQuoted(token); break;
    case CharacterClass::Word: ReadWord(token); break;
    default: token.DataType = GenericTokenEndOfFile; break;
  }
}

void CGenericParser::ReadQuoted(CGenericToken& token) {
  const char* end = Reading.Source->End;
  const char* begin = Reading.Position + 1;
  const char* p = begin;
  token.Encoding = CGenericToken::Encodings::Quoted;
  for (; p != end && *p != '"'; ++p) {
    if (*p != '\\' || (p[1] != '"' && p[1] != '\\')) continue;
    token.Encoding = CGenericToken::Encodings::Escaped;
    ++p;
  }
  token.DataType = GenericTokenString;
  token.RawLength = static_cast<std::size_t>(p - begin);
  Reading.Position = p == end ? p : p + 1;
}

void CGenericParser::ReadWord(CGenericToken& token) {
  const auto& classes = Reading.Source->Classes;
  const char* end = *token.Begin < 'A' ? qelvrml::ReadPlainNumber(token.Begin, token.NumericValue) : nullptr;
  const bool isNumber = end && ClassOf(classes, end) != CharacterClass::Word;
  if (!isNumber) {
    // The NUL behind the text is white space and so ends a word.
    for (end = token.Begin + 1; ClassOf(classes, end) == CharacterClass::Word;) ++end;
  }
  token.RawLength = static_cast<std::size_t>(end - token.Begin);
  Reading.Position = end;
  if (isNumber) {
    token.DataType = GenericTokenNumber;
  } else {
    token.NumericValue = 0.0;
    ClassifyWord(token);
  }
}

void CGenericParser::ClassifyWord(CGenericToken& token) const {
  const std::string_view word(token.Begin, token.RawLength);
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

std::size_t CGenericParser::GetBytesLeft() const {
  return Reading.Source ? static_cast<std::size_t>(Reading.Source->End - Reading.Position) : 0;
}

int CGenericParser::GetFileLineOf(const char* place) const {
  const TokenSource* file = Reading.Source.get();
  if (file && file->IsBuffer) {
    place = file->PlaceBelow;
    file = file->Below.get();
  }
  if (!file || !place || place < file->Text->begin() || place > file->End) return 0;
  return Saturate(static_cast<std::size_t>(file->Lines.GetLineOf(place)));
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

void CGenericParser::SetMilestone(int offset) {
  if (!Reading.Source) return;
  const bool reached = offset >= 0 && !Reading.Source->IsBuffer;
  Milestone = reached ? Reading.Source->Text->begin() + offset : Reading.Source->End + 1;
}

bool CGenericParser::IsCurrentTokenInText() const {
  const char* begin = Reading.Current().Begin;
  return Reading.Source && begin && begin >= Reading.Source->Text->begin() && begin < Reading.Source->End;
}

qelvrml::NumberCursor CGenericParser::GetNumbersAhead(bool toEnd) const {
  const char* begin = Reading.Current().Begin;
  const char* end = Reading.Source->End;
  if (!toEnd) end = Milestone ? std::min(Milestone, end) : begin;
  return {Reading.Source->Classes, begin, end};
}

void CGenericParser::GoToToken(const char* place) {
  Reading.Position = place;
  ReadToken(Reading.Current());
  ReadToken(Reading.Next());
}

bool CGenericParser::SaveIOState(CGenericIOState& state) const {
  state.Reading = Reading;
  return Reading.Source != nullptr;
}

bool CGenericParser::RestoreIOState(const CGenericIOState& state) {
  if (!state.Reading.Source) return false;
  if (state.Reading.Source != Reading.Source) ClearMilestone();
  Reading = state.Reading;
  return true;
}

bool CGenericParser::StartBufferReading(const char* text, int length) {
  return StartBufferReading(text, length, nullptr);
}

bool CGenericParser::StartBufferReading(const char* text, int length, const char* place) {
  if (!text || length < 0) return false;
  auto block = std::make_shared<const FileText>(std::string_view(text, static_cast<std::size_t>(length)));
  auto source = std::make_shared<TokenSource>(std::move(block), true);
  source->OffsetBelow = static_cast<std::size_t>(GetCurrentFileOffset());
  source->SizeBelow = static_cast<std::size_t>(GetTotalFileSize());
  if (Reading.Source && Reading.Source->IsBuffer) {
    source->Below = Reading.Source->Below;
    source->PlaceBelow = Reading.Source->PlaceBelow;
  } else {
    source->Below = Reading.Source;
    source->PlaceBelow = place ? place : GetCurrentPlace();
  }
  Reading.Source = std::move(source);
  ClearMilestone();
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
  ReadToken(Reading.Current());
  ReadToken(Reading.Next());
  return true;
}
