// Finding the end of a block in the raw input.

#include <algorithm>
#include <array>

#include "qelvrml/platform/genparse/CGenericParser.h"
#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/platform/genparse/EightBytes.h"
#include "qelvrml/platform/genparse/TokenSource.h"

namespace {

using qelvrml::BytesAhead;
using qelvrml::FindByte;
using qelvrml::LoadEightBytes;

constexpr std::ptrdiff_t RememberedLength = 256;     // a shorter block is scanned again sooner than looked up
constexpr std::size_t RememberedBlocks = 1U << 20U;  // bounds the memory for a text of nothing but delimiters
constexpr std::size_t RememberedDepth = 1024;

char DelimiterOf(GenericTokenTypes type) {
  constexpr std::string_view Delimiters = "{}[]()";
  if (type < GenericTokenOpenBrace || type > GenericTokenCloseParen) return '\0';
  return Delimiters[type - GenericTokenOpenBrace];
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

// What a scan stops at: its two delimiters, and what they play no part in.
std::uint64_t FindStops(const char* p, char open, char close) {
  const std::uint64_t bytes = LoadEightBytes(p);
  return FindByte(bytes, open) | FindByte(bytes, close) | FindByte(bytes, '"') | FindByte(bytes, '#');
}

constexpr std::size_t Stride = 64;

// Whether the scan stops in one of so many bytes; without a branch, so that compilers look at many at a time.
bool StopsInStride(const char* p, char open, char close) {
  unsigned char any = 0;
  for (std::size_t i = 0; i < Stride; ++i) {
    const auto is = [c = p[i]](char stop) { return static_cast<unsigned char>(c == stop); };
    any = static_cast<unsigned char>(any | is(open) | is(close) | is('"') | is('#'));
  }
  return any != 0;
}

// The next stop at or behind `p`, or the end. Most are near; far ones are in lists of numbers.
const char* FindStop(const char* p, const char* end, char open, char close) {
  constexpr std::ptrdiff_t Near = 64;
  for (const char* begin = p; p < end; p += 8) {
    if (p - begin >= Near) {
      while (static_cast<std::size_t>(end - p) >= Stride && !StopsInStride(p, open, close)) p += Stride;
      begin = end;
    }
    if (const std::uint64_t stops = FindStops(p, open, close); stops != 0) {
      p += BytesAhead(stops);
      break;
    }
  }
  return std::min(p, end);
}

// The next of the two delimiters at or behind `p`, or the end.
const char* FindDelimiter(const char* p, const char* end, char open, char close) {
  for (p = FindStop(p, end, open, close); p != end; p = FindStop(p, end, open, close)) {
    if (*p == open || *p == close) break;
    p = *p == '"' ? SkipQuoted(p, end) : SkipComment(p, end);
  }
  return p;
}

}  // namespace

bool CGenericParser::FindBlockToken(GenericTokenTypes open, GenericTokenTypes close, GenericTokenTypes& found) {
  if (!Reading.Source) return false;
  const char* place = FindDelimiter(Reading.Position, Reading.Source->End, DelimiterOf(open), DelimiterOf(close));
  Reading.ScanFailed = place == Reading.Source->End;
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
  // Behind the block that opens at a place, if that is known; else null.
  const auto knownEnd = [&](const char* opener) {
    const auto block = matching && !known.empty() ? known.find(opener) : known.end();
    return block == known.end() ? nullptr : block->second;
  };
  const char* opener = nullptr;
  if (Reading.Next().DataType == open) {
    opener = Reading.Next().Begin;
  } else if (Reading.Current().DataType == open) {
    opener = Reading.Current().Begin;
  }
  Reading.ScanFailed = false;
  if (const char* end = knownEnd(opener)) {
    Reading.Position = end;
    return true;
  }

  std::array<const char*, RememberedDepth>
      openers;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled as it goes
  openers[0] = opener;
  std::size_t depth = 1;
  const char* p = Reading.Position;
  while (depth > 0) {
    p = FindDelimiter(p, Reading.Source->End, DelimiterOf(open), DelimiterOf(close));
    if (p == Reading.Source->End) {
      Reading.Position = p;
      Reading.ScanFailed = true;
      return false;
    }
    const char* place = p++;
    if (*place == DelimiterOf(open)) {
      if (const char* end = knownEnd(place)) {
        p = end;
      } else {
        if (depth < openers.size()) openers[depth] = place;
        ++depth;
      }
    } else if (--depth < openers.size()) {
      const char* begin = openers[depth];
      if (matching && begin && p - begin > RememberedLength && known.size() < RememberedBlocks) known.emplace(begin, p);
    }
  }
  Reading.Position = p;
  return true;
}

std::size_t CGenericParser::RememberStretch(const char* begin, std::uint64_t pass, bool result) {
  if (!Reading.Source || begin < Reading.Source->Text->begin() || begin > Reading.Position) return 0;
  Reading.Source->StretchesOf(pass).insert_or_assign(begin, qelvrml::PassedStretch{GetPlace(), result});
  return static_cast<std::size_t>(Reading.Position - begin);
}

bool CGenericParser::StepOverStretch(std::uint64_t pass, bool& result) {
  if (!Reading.Source) return false;
  const auto& stretches = Reading.Source->StretchesOf(pass);
  const auto stretch = stretches.find(Reading.Current().Begin);
  if (stretch == stretches.end()) return false;
  GoTo(stretch->second.End);
  result = stretch->second.Result;
  return true;
}

qelvrml::ReadingPlace CGenericParser::GetPlace() const {
  return {Reading.Source ? Reading.Source->Number : 0, Reading.Position, Reading.Current(), Reading.Next()};
}

bool CGenericParser::GoTo(const qelvrml::ReadingPlace& place) {
  if (!Reading.Source || place.Text != Reading.Source->Number) return false;
  Reading.Position = place.Position;
  Reading.Current() = place.Current;
  Reading.Next() = place.Next;
  return true;
}

void CGenericParser::NoteHowFarWasRead() {
  if (!Reading.Source || IsReadAgain()) return;
  Reading.Source->Furthest = GetPlace();
}

std::size_t CGenericParser::GetBytesReadAhead() const {
  const char* furthest = Reading.Source ? Reading.Source->Furthest.Position : nullptr;
  return furthest && Reading.Position < furthest ? static_cast<std::size_t>(furthest - Reading.Position) : 0;
}

void CGenericParser::GoBehindWhatWasRead() {
  if (IsReadAgain()) GoTo(Reading.Source->Furthest);
}
