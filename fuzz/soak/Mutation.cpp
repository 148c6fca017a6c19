#include "Mutation.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr std::size_t MostBytes = 1U << 20U;  // of a damaged scene: nesting and repeating end here

/// SplitMix64: a generator that costs nothing to start.
class Random {
public:
  explicit Random(std::uint64_t seed) : State(seed) {}

  std::uint64_t Next() {
    std::uint64_t z = State += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
  }
  std::size_t Below(std::size_t count) { return count == 0 ? 0 : Next() % count; }
  template <class Table>
  const auto& Of(const Table& table) {
    return table[Below(std::size(table))];
  }

private:
  std::uint64_t State;
};

/// What a mutation draws on.
struct Source {
  const std::vector<std::string>& Scenes;
  Random& Chance;
};

/// A stretch of a text.
struct Stretch {
  std::size_t Begin;
  std::size_t End;
  std::size_t Size() const { return End - Begin; }
};

bool IsSpace(char c) { return static_cast<unsigned char>(c) <= 0x20 || c == ','; }
bool IsDelimiter(char c) { return std::string_view("{}[]()").find(c) != std::string_view::npos; }

// The token at or behind a place, as far as a glance tells.
Stretch TokenAt(const std::string& text, std::size_t place) {
  while (place < text.size() && IsSpace(text[place])) ++place;
  std::size_t end = place;
  if (end < text.size() && text[end] == '"') {
    end = std::min(text.find('"', end + 1), text.size() - 1) + 1;
  } else if (end < text.size() && IsDelimiter(text[end])) {
    ++end;
  } else {
    while (end < text.size() && !IsSpace(text[end]) && !IsDelimiter(text[end]) && text[end] != '"') ++end;
  }
  return {place, end};
}

// The beginning of a word, most often.
std::size_t Place(const std::string& text, Random& chance) {
  std::size_t place = chance.Below(text.size());
  while (place > 0 && !IsSpace(text[place - 1]) && !IsDelimiter(text[place - 1])) --place;
  return place;
}

Stretch AnyToken(const std::string& text, Random& chance) { return TokenAt(text, Place(text, chance)); }

// Some tokens in a row.
Stretch AnyTokens(const std::string& text, Random& chance) {
  Stretch tokens = AnyToken(text, chance);
  for (std::size_t more = chance.Below(chance.Below(4) == 0 ? 200 : 12); more > 0; --more)
    tokens.End = TokenAt(text, tokens.End).End;
  return tokens;
}

// The block that opens behind a place, with the word in front of it.
Stretch AnyBlock(const std::string& text, Random& chance) {
  const std::size_t place = Place(text, chance);
  const std::size_t opening = text.find_first_of("{[", place);
  if (opening == std::string::npos) return AnyTokens(text, chance);
  int depth = 0;
  std::size_t end = opening;
  while (end < text.size()) {
    depth += text[end] == '{' || text[end] == '[' ? 1 : 0;
    depth -= text[end] == '}' || text[end] == ']' ? 1 : 0;
    ++end;
    if (depth == 0) break;
  }
  return {place, end};
}

std::string TextOf(const std::string& text, const Stretch& stretch) {
  return " " + text.substr(stretch.Begin, stretch.Size()) + " ";
}

void FlipBits(std::string& text, Source& source) {
  for (std::size_t i = 1 + source.Chance.Below(8); i > 0; --i) {
    char& byte = text[source.Chance.Below(text.size())];
    byte = static_cast<char>(static_cast<unsigned char>(byte) ^ (1U << source.Chance.Below(8)));
  }
}

void SetBytes(std::string& text, Source& source) {
  constexpr std::string_view Meaningful("{}[]()\"#\\-9. \0\n\xFF", 16);
  for (std::size_t i = 1 + source.Chance.Below(8); i > 0; --i)
    text[source.Chance.Below(text.size())] = source.Chance.Of(Meaningful);
}

void SwapTokens(std::string& text, Source& source) {
  Stretch first = AnyTokens(text, source.Chance);
  Stretch second = AnyTokens(text, source.Chance);
  if (second.Begin < first.Begin) std::swap(first, second);
  if (second.Begin < first.End) return;
  text = text.substr(0, first.Begin) + TextOf(text, second) + text.substr(first.End, second.Begin - first.End) +
         TextOf(text, first) + text.substr(second.End);
}

void RepeatTokens(std::string& text, Source& source) {
  const Stretch tokens = source.Chance.Below(2) == 0 ? AnyTokens(text, source.Chance) : AnyBlock(text, source.Chance);
  const std::string copy = TextOf(text, tokens);
  const std::size_t times = source.Chance.Below(8) == 0 ? source.Chance.Below(200) : 1;
  std::string copies;
  for (std::size_t i = 0; i < times && copies.size() < MostBytes / 4; ++i) copies += copy;
  text.insert(tokens.End, copies);
}

void MoveTokens(std::string& text, Source& source) {
  const std::string copy = TextOf(text, AnyBlock(text, source.Chance));
  text.insert(Place(text, source.Chance), copy);
}

void DeleteTokens(std::string& text, Source& source) {
  const Stretch tokens = source.Chance.Below(2) == 0 ? AnyTokens(text, source.Chance) : AnyBlock(text, source.Chance);
  text.erase(tokens.Begin, tokens.Size());
}

void CutOff(std::string& text, Source& source) { text.resize(1 + source.Chance.Below(text.size())); }

void Splice(std::string& text, Source& source) {
  const std::string& other = source.Chance.Of(source.Scenes);
  text = text.substr(0, Place(text, source.Chance)) + " " + other.substr(Place(other, source.Chance));
}

void InsertOther(std::string& text, Source& source) {
  const std::string& other = source.Chance.Of(source.Scenes);
  text.insert(Place(text, source.Chance), TextOf(other, AnyBlock(other, source.Chance)));
}

void MakeExtreme(std::string& text, Source& source) {
  constexpr std::array<const char*, 20> Numbers = {"0",           "-1",         "-0",         "1",      "2147483647",
                                                   "-2147483648", "4294967296", "1e308",      "-1e308", "1e999",
                                                   "1e-40",       "3.4028e38",  "0xFFFFFFFF", "nan",    "inf",
                                                   "1e10",        "65536",      "1000000",    ".5",     "-9e99"};
  for (std::size_t i = 1 + source.Chance.Below(6); i > 0; --i) {
    const std::size_t digit = text.find_first_of("0123456789", source.Chance.Below(text.size()));
    if (digit == std::string::npos) return;
    const Stretch number = TokenAt(text, digit);
    text.replace(number.Begin, number.Size(), source.Chance.Of(Numbers));
  }
}

void Nest(std::string& text, Source& source) {
  constexpr std::array<const char*, 12> Openings = {" Transform { children [ ",
                                                    " Separator { ",
                                                    " Group { children ",
                                                    " DEF n Group { children [ ",
                                                    " Shape { geometry ",
                                                    " LOD { level [ ",
                                                    " Switch { whichChoice 0 choice [ ",
                                                    " Collision { proxy ",
                                                    " { ",
                                                    " [ ",
                                                    " Appearance { material ",
                                                    " PROTO N [ ] { "};
  const Stretch block = AnyBlock(text, source.Chance);
  const std::string opening = source.Chance.Of(Openings);
  const std::size_t depth = 1 + source.Chance.Below(source.Chance.Below(8) == 0 ? 800 : 6);
  std::string before;
  std::string behind;
  for (std::size_t i = 0; i < depth; ++i) {
    before += opening;
    for (const char c : std::string(opening.rbegin(), opening.rend())) {
      if (c == '{' || c == '[') behind += c == '{' ? " }" : " ]";
    }
  }
  text.insert(block.End, behind);
  text.insert(block.Begin, before);
}

void Reuse(std::string& text, Source& source) {
  const Stretch block = AnyBlock(text, source.Chance);
  text.insert(block.End, " USE reused ");
  text.insert(block.Begin, " DEF reused ");
}

constexpr std::array Kinds = {FlipBits, SetBytes,    SwapTokens,  RepeatTokens, MoveTokens, DeleteTokens, CutOff,
                              Splice,   InsertOther, MakeExtreme, MakeExtreme,  Nest,       Reuse};

}  // namespace

std::string Mutation::Make(std::uint64_t number) const {
  if (number < Scenes.size()) return Scenes[number];
  Random chance(Random(Seed).Next() ^ Random(number).Next());
  Source source{Scenes, chance};
  std::string text = chance.Of(Scenes);
  // The header stays as it is, most often, for nothing is read behind a damaged one.
  std::string header;
  if (const std::size_t line = text.find('\n'); line != std::string::npos && chance.Below(32) != 0) {
    header = text.substr(0, line + 1);
    text.erase(0, line + 1);
  }
  for (std::size_t i = 1 + chance.Below(4); i > 0 && !text.empty(); --i) chance.Of(Kinds)(text, source);
  text.resize(std::min(text.size(), MostBytes));
  return header + text;
}
