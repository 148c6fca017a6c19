// Changes a text as the bytes say, and a standard string in the same way.
//
//   first byte     length of the narrow text that is to survive the way to 16-bit code units and back
//   these bytes    that text
//   the rest       operations with their arguments

#include <algorithm>
#include <array>
#include <cstring>

#include "Support.h"
#include "qelvrml/foundation/CBasicString.h"

namespace {

using Text = std::u16string;

constexpr std::size_t LongText = 1000;  // from there on a text starts anew, for it can double

// Few units, so that searches find something.
constexpr std::u16string_view Units = u"aAbB \t.\u00E4\u20AC\xD83D\xDE00\xDCFF";
constexpr std::u16string_view Spaces = u" \t\n\v\f\r";

char16_t Unit(Choices& choices) { return choices.Of(Units); }

Text Some(Choices& choices) {
  Text text;
  for (std::size_t i = choices.Below(5); i > 0; --i) text += Unit(choices);
  return text;
}

char16_t Lower(char16_t unit) { return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit; }
char16_t Upper(char16_t unit) { return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit; }

int Place(std::size_t position) { return position == Text::npos ? -1 : static_cast<int>(position); }

Text Replaced(const Text& text, const Text& what, const Text& with) {
  Text result;
  std::size_t start = 0;
  for (std::size_t at = text.find(what); at != Text::npos; at = text.find(what, start)) {
    result += text.substr(start, at - start) + with;
    start = at + what.size();
  }
  return result + text.substr(start);
}

class Strings {
public:
  void Do(Choices& choices) {
    switch (choices.Below(3)) {
      case 0: Grow(choices); break;
      case 1: Change(choices); break;
      default: Ask(choices); break;
    }
    Require(Real.GetView() == Expected, "another text");
    if (Expected.size() > LongText) Real.Truncate(1), Expected.resize(1);
  }

private:
  void Grow(Choices& choices);
  void Change(Choices& choices);
  void Ask(Choices& choices) const;
  std::size_t Index(Choices& choices) const { return choices.Below(Expected.size() + 2); }

  CBasicString Real;
  Text Expected;
};

void Strings::Grow(Choices& choices) {
  const Text text = Some(choices);
  const std::size_t part = std::min(Index(choices), Expected.size());
  switch (choices.Below(6)) {
    case 0: Real += text.c_str(), Expected += text; break;
    case 1: Real = Real + CBasicString(text.c_str()), Expected += text; break;
    case 2: Real = text.c_str(), Expected = text; break;
    case 3: Real += Real.GetWideText() + part, Expected += Expected.substr(part); break;
    case 4: Real = Real.GetWideText() + part, Expected = Expected.substr(part); break;
    default: Real.Append(Real), Expected += Text(Expected); break;
  }
}

void Strings::Change(Choices& choices) {
  const std::size_t index = Index(choices);
  const auto place = static_cast<int>(index);
  const bool inside = index < Expected.size();
  const Text before = Expected;
  switch (choices.Below(9)) {
    case 0:
      Require(Real.SetAt(place, u'x') == inside, "a unit set");
      if (inside) Expected[index] = u'x';
      break;
    case 1:
      Require(Real.RemoveAt(place) == inside, "a unit removed");
      if (inside) Expected.erase(index, 1);
      break;
    case 2:
      Require(Real.Truncate(place) == inside, "a text cut");
      if (inside) Expected.resize(index);
      break;
    case 3: Require(Real.Empty() != Expected.empty(), "a text emptied"), Expected.clear(); break;
    case 4: Real.MakeLower(), std::transform(before.begin(), before.end(), Expected.begin(), Lower); break;
    case 5: Real.MakeUpper(), std::transform(before.begin(), before.end(), Expected.begin(), Upper); break;
    case 6:
      Expected.erase(0, std::min(Expected.find_first_not_of(Spaces), Expected.size()));
      Require(Real.TrimLeft() == (before != Expected), "a text trimmed in front");
      break;
    case 7:
      Expected.resize(Expected.find_last_not_of(Spaces) + 1);
      Require(Real.TrimRight() == (before != Expected), "a text trimmed behind");
      break;
    default: {
      const Text what = Some(choices);
      const Text with = Some(choices);
      const bool found = !what.empty() && before.find(what) != Text::npos;
      if (found) Expected = Replaced(before, what, with);
      Require(Real.Replace(what.c_str(), with.c_str()) == found, "a text replaced");
    }
  }
}

void Strings::Ask(Choices& choices) const {
  const std::size_t first = Index(choices);
  const std::size_t last = Index(choices);
  const Text text = Some(choices);
  const CBasicString other(text.c_str());
  const bool inside = first < Expected.size();
  Require((Real < other) == (Expected < text) && (Real == other) == (Expected == text), "another order");
  Require(Real.GetAt(static_cast<int>(first)) == (inside ? Expected[first] : u'\0'), "another unit");
  Require(Real.Find(other, static_cast<int>(first)) == (inside ? Place(Expected.find(text, first)) : -1), "a search");
  const char16_t unit = Unit(choices);
  const int backwards = inside ? Place(Expected.rfind(unit, first == 0 ? Text::npos : first)) : -1;
  Require(Real.ReverseFind(unit, static_cast<int>(first)) == backwards, "a search backwards");
  const bool both = inside && last < Expected.size();
  const std::size_t count = last + 1 < first ? Text::npos : last + 1 - first;
  const Text middle = both ? Expected.substr(first, count) : Text();
  Require(Real.Mid(static_cast<int>(first), static_cast<int>(last)).GetView() == middle, "another middle");
  Require(CBasicString(Real).GetHash() == Real.GetHash(), "a copy with another hash");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choices(data, size);
  std::string narrow;
  for (unsigned left = choices.Byte(); left > 0; --left) narrow += static_cast<char>(std::max(1U, choices.Byte()));
  const CBasicString wide(narrow.c_str());
  const char* back = wide.GetNarrowText();
  Require(back && back == narrow, "a narrow text that doesn't survive");

  Strings strings;
  while (choices.Left()) strings.Do(choices);
  return 0;
}
