#include "qelvrml/platform/genparse/CGenericToken.h"

#include <algorithm>
#include <limits>

#include "qelvrml/platform/genparse/Characters.h"

namespace {

// Whether a backslash there stands for the character behind it.
bool IsEscape(std::string_view raw, std::size_t i) {
  return raw[i] == '\\' && i + 1 < raw.size() && (raw[i + 1] == '"' || raw[i + 1] == '\\');
}

}  // namespace

int CGenericToken::GetTokenLength() const {
  const std::string_view raw = GetRawText();
  std::size_t length = raw.size();
  if (Encoding == Encodings::Escaped) {
    for (std::size_t i = 0; i < raw.size(); ++i) {
      if (IsEscape(raw, i)) --length, ++i;
    }
  }
  return static_cast<int>(std::min<std::size_t>(length, std::numeric_limits<int>::max()));
}

std::string_view CGenericToken::GetText(std::string& scratch) const {
  const std::string_view raw = GetRawText();
  if (Encoding == Encodings::Plain || Encoding == Encodings::Quoted) return raw;

  scratch.clear();
  for (std::size_t i = 0; i < raw.size(); ++i) {
    const char c = raw[i];
    if (Encoding == Encodings::Shifted) {
      const auto code = static_cast<unsigned char>(c);
      scratch += qelvrml::IsShiftCode(code) ? qelvrml::FromShiftCode(code) : c;
    } else {
      scratch += IsEscape(raw, i) ? raw[++i] : c;
    }
  }
  return scratch;
}
