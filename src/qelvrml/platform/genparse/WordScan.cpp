// Words of the text by their place, for those who tell people about it.

#include <algorithm>
#include <cstring>

#include "qelvrml/platform/genparse/CGenericParser.h"
#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/platform/genparse/TokenSource.h"

namespace {

using qelvrml::CharacterClass;

constexpr std::ptrdiff_t FarthestWord = 512;  // in bytes; all of them may be looked through for a comment

CharacterClass ClassAt(const qelvrml::TokenSource& source, const char* p) {
  return source.Classes[static_cast<unsigned char>(*p)];
}

const char* FindCommentOfLine(const qelvrml::TokenSource& source, const char* p, const char* end) {
  for (bool quoted = false; p != end; ++p) {
    if (ClassAt(source, p) == CharacterClass::Quote) quoted = !quoted;
    if (ClassAt(source, p) == CharacterClass::Comment && !quoted) break;
  }
  return p;
}

}  // namespace

std::string_view CGenericParser::GetWordAt(const char* place) const {
  if (!Reading.Source || !place || place < Reading.Source->Text->begin() || place >= Reading.Source->End) return {};
  const char* end = place;  // the NUL behind the text ends a word
  while (ClassAt(*Reading.Source, end) == CharacterClass::Word) ++end;
  return {place, static_cast<std::size_t>(end - place)};
}

std::string_view CGenericParser::GetWordBefore() const {
  if (!IsCurrentTokenInText()) return {};
  const qelvrml::TokenSource& source = *Reading.Source;
  const char* end = GetCurrentPlace();
  const char* begin = end - std::min(end - source.Text->begin(), FarthestWord);
  // Without a comment the lines are as good as one.
  const bool hasComment = std::memchr(begin, '#', static_cast<std::size_t>(end - begin)) != nullptr;
  while (end != begin) {
    const char* line = hasComment ? end : begin;
    while (line != begin && line[-1] != '\n' && line[-1] != '\r') --line;
    const char* p = hasComment ? FindCommentOfLine(source, line, end) : end;
    while (p != line && ClassAt(source, p - 1) == CharacterClass::Space) --p;
    if (p != line) {
      const char* word = p;
      while (word != line && ClassAt(source, word - 1) == CharacterClass::Word) --word;
      return {word, static_cast<std::size_t>(p - word)};
    }
    end = line == begin ? begin : line - 1;
  }
  return {};
}
