#include "qelvrml/platform/genparse/CGenericToken.h"

#include <algorithm>
#include <limits>

#include "qelvrml/platform/genparse/Characters.h"

int CGenericToken::GetTokenLength() const {
  return static_cast<int>(std::min<std::size_t>(TextLength, std::numeric_limits<int>::max()));
}

std::string_view CGenericToken::GetText(std::string& scratch) const {
  const std::string_view raw(Raw, RawLength);
  if (Encoding == Encodings::Plain) return raw;

  scratch.clear();
  for (std::size_t i = 0; i < raw.size(); ++i) {
    const char c = raw[i];
    if (Encoding == Encodings::Shifted) {
      scratch += qelvrml::IsShiftCode(static_cast<unsigned char>(c))
                     ? qelvrml::FromShiftCode(static_cast<unsigned char>(c))
                     : c;
      continue;
    }
    const bool escape = c == '\\' && i + 1 < raw.size() && (raw[i + 1] == '"' || raw[i + 1] == '\\');
    scratch += escape ? raw[++i] : c;
  }
  return scratch;
}
