// Finding the end of a block in the raw input.

#include <algorithm>
#include <array>
#include <vector>

#include "qelvrml/platform/genparse/CGenericParser.h"
#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/platform/genparse/TokenSource.h"

namespace {

constexpr std::ptrdiff_t RememberedLength = 256;     // a shorter block is scanned again sooner than looked up
constexpr std::size_t RememberedBlocks = 1U << 20U;  // bounds the memory for a text of nothing but delimiters
constexpr std::size_t RememberedDepth = 1024;

char DelimiterOf(GenericTokenTypes type) {
  constexpr std::string_view Delimiters = "{}[]()";
  if (type < GenericTokenOpenBrace || type > GenericTokenCloseParen) return '\0';
  return Delimiters[type - GenericTokenOpenBrace];
}

bool StopsScan(char c) {
  const auto kind = qelvrml::FileCharacters[static_cast<unsigned char>(c)];
  return kind != qelvrml::CharacterClass::Word && kind != qelvrml::CharacterClass::Space;
}

// Behind the quoted string that begins at `p`.
const char* SkipQuoted(const char* p, const char* end) {
  for (++p; p != end && *p != '"'; ++p) {
    if (*p == '\\' && (p[1] == '"' || p[1] == '\\')) ++p;
  }
  return p == end ? p : p + 1;
}

const char* SkipComment(const char* p, const char* end) {
  return std::find_if(p, end, [](char c) { return c == '\n' || c == '\r'; });
}

// The next of the two delimiters at or behind `p`, or the end.
const char* FindDelimiter(const char* p, const char* end, char open, char close) {
  while (p != end) {
    if (*p == '"') {
      p = SkipQuoted(p, end);
    } else if (*p == '#') {
      p = SkipComment(p, end);
    } else if (*p == open || *p == close) {
      break;
    } else {
      do ++p;
      while (p != end && !StopsScan(*p));
    }
  }
  return p;
}

}  // namespace

bool CGenericParser::FindBlockToken(GenericTokenTypes open, GenericTokenTypes close, GenericTokenTypes& found) {
  if (!Reading.Source) return false;
  const char* place = FindDelimiter(Reading.Position, GetEnd(), DelimiterOf(open), DelimiterOf(close));
  Reading.ScanFailed = place == GetEnd();
  Reading.Position = Reading.ScanFailed ? place : place + 1;
  if (Reading.ScanFailed) return false;
  found = *place == DelimiterOf(open) ? open : close;
  return true;
}

void CGenericParser::DecrementOffset() {
  if (Reading.Source && !Reading.ScanFailed && Reading.Position != Reading.Source->Text->begin()) --Reading.Position;
}

bool CGenericParser::FindBlockEnd(GenericTokenTypes open, GenericTokenTypes close) {
  if (!Reading.Source) return false;
  auto& known = Reading.Source->BlockEnds;
  const bool matching = close == open + 1;  // a block between other delimiters ends elsewhere
  const char* opener = nullptr;
  if (Reading.Next.DataType == open) {
    opener = Reading.Next.Begin;
  } else if (Reading.Current.DataType == open) {
    opener = Reading.Current.Begin;
  }
  if (const auto end = known.find(opener); matching && end != known.end()) {
    Reading.Position = end->second;
    Reading.ScanFailed = false;
    return true;
  }

  std::vector<const char*> openers = {opener};
  std::size_t deeper = 0;  // open blocks beyond the depth that is remembered
  GenericTokenTypes found = GenericTokenOther;
  while (!openers.empty()) {
    if (!FindBlockToken(open, close, found)) return false;
    if (found == open) {
      const auto inner = matching ? known.find(Reading.Position - 1) : known.end();
      if (inner != known.end()) {
        Reading.Position = inner->second;
      } else if (openers.size() < RememberedDepth) {
        openers.push_back(Reading.Position - 1);
      } else {
        ++deeper;
      }
    } else if (deeper > 0) {
      --deeper;
    } else {
      const char* begin = openers.back();
      openers.pop_back();
      if (matching && begin && Reading.Position - begin > RememberedLength && known.size() < RememberedBlocks) {
        known.emplace(begin, Reading.Position);
      }
    }
  }
  return true;
}

std::size_t CGenericParser::RememberStretch(const char* begin, std::uint64_t pass, bool result) {
  if (!Reading.Source || begin < Reading.Source->Text->begin() || begin > Reading.Position) return 0;
  Reading.Source->StretchesOf(pass).insert_or_assign(
      begin, qelvrml::PassedStretch{{Reading.Position, Reading.Current, Reading.Next}, result});
  return static_cast<std::size_t>(Reading.Position - begin);
}

bool CGenericParser::StepOverStretch(std::uint64_t pass, bool& result) {
  if (!Reading.Source) return false;
  const auto& stretches = Reading.Source->StretchesOf(pass);
  const auto stretch = stretches.find(Reading.Current.Begin);
  if (stretch == stretches.end()) return false;
  GoTo(stretch->second.End);
  result = stretch->second.Result;
  return true;
}

void CGenericParser::GoTo(const qelvrml::ReadingPlace& place) {
  Reading.Position = place.Position;
  Reading.Current = place.Current;
  Reading.Next = place.Next;
}

void CGenericParser::NoteHowFarWasRead() {
  if (!Reading.Source || IsReadAgain()) return;
  Reading.Source->Furthest = {Reading.Position, Reading.Current, Reading.Next};
}

std::size_t CGenericParser::GetBytesReadAhead() const {
  const char* furthest = Reading.Source ? Reading.Source->Furthest.Position : nullptr;
  return furthest && Reading.Position < furthest ? static_cast<std::size_t>(furthest - Reading.Position) : 0;
}

void CGenericParser::GoBehindWhatWasRead() {
  if (IsReadAgain()) GoTo(Reading.Source->Furthest);
}
