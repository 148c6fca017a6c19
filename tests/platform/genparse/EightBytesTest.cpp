// What is read eight bytes at a time, against plainer ways of reading it.

#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "qelvrml/parser/KeywordTable.h"
#include "qelvrml/platform/fileint/FileText.h"
#include "qelvrml/platform/genparse/CGenericParser.h"
#include "qelvrml/platform/genparse/KeywordIndex.h"
#include "qelvrml/platform/genparse/NumberCursor.h"
#include "qelvrml/platform/genparse/NumberText.h"

namespace {

using qelvrml::FileText;
using qelvrml::NumberCursor;

std::mt19937& Random() {
  static std::mt19937 random(20);
  return random;
}
std::size_t Below(std::size_t bound) { return Random()() % bound; }
char OneOf(std::string_view characters) { return characters[Below(characters.size())]; }

// Mostly any digits, sometimes mostly zeros or nines.
std::string Digits(std::size_t count) {
  const std::string_view from = std::vector<std::string_view>{"0123456789", "0123456789", "00005", "99998"}[Below(4)];
  std::string digits;
  while (digits.size() < count) digits += OneOf(from);
  return digits;
}

constexpr char ShiftCode = 0x0E;  // a blank of a quoted string in captured text

auto Bits(double value) { return std::bit_cast<std::uint64_t>(value); }

// Holds all ways of reading a word against strtod; what stands behind it decides whether it is one.
void CheckNumber(const std::string& word, char behind) {
  SCOPED_TRACE(testing::Message() << word << " in front of " << int{behind});
  const FileText text(word + behind);
  const char* begin = text.begin();
  char* end = nullptr;
  double expected = std::strtod(begin, &end);
  double value = 0.0;
  if (const char* plain = qelvrml::ReadPlainNumber(begin, value)) {
    EXPECT_EQ(plain, end);
    EXPECT_EQ(Bits(value), Bits(expected));
  }
  expected = std::strtod(word.c_str(), &end);
  const bool isNumber = !word.empty() && *end == '\0';
  EXPECT_EQ(qelvrml::ReadNumber(word, value), isNumber);
  if (isNumber) {
    EXPECT_EQ(Bits(value), Bits(expected));
  }
  const bool inFile = Below(2) == 0;
  const qelvrml::CharacterTable& classes = inFile ? qelvrml::FileCharacters : qelvrml::BufferCharacters;
  const bool ends =
      std::string_view(" ,#]\"\t\0", 7).find(behind) != std::string_view::npos || (inFile && behind == ShiftCode);
  NumberCursor cursor(classes, begin, text.end());
  EXPECT_EQ(cursor.Take(value), isNumber && ends);
  EXPECT_EQ(cursor.GetLast(), isNumber && ends ? begin : nullptr);
  if (isNumber && ends) {
    EXPECT_EQ(Bits(value), Bits(expected));
  }
  const std::size_t digits = word.size() - (word.starts_with('-') ? 1 : 0);
  const bool isInteger = isNumber && digits <= 8 && word.find_first_of(".+") == std::string::npos;
  NumberCursor integers(classes, begin, text.end());
  int integer = 0;
  EXPECT_EQ(integers.Take(integer), isInteger && ends);
  if (isInteger && ends) {
    EXPECT_EQ(integer, expected);
  }
  NumberCursor none(classes, begin, begin + word.size());
  EXPECT_FALSE(none.Take(integer) || none.Take(value)) << "it doesn't end ahead of the limit";
}

TEST(EightBytes, NumbersOfAllLengths) {
  const std::string_view behind(" ,#]\"\t\0e/:x.-\x0E\xB5", 15);
  for (std::size_t whole = 0; whole <= 30; ++whole) {
    for (std::size_t decimals = 0; decimals <= 30; ++decimals) {
      for (int i = 0; i < 16 && !testing::Test::HasFailure(); ++i) {
        const std::string sign = std::vector<std::string>{"", "", "-", "+"}[Below(4)];
        const std::string point = decimals > 0 || i % 2 == 0 ? "." : "";
        CheckNumber(sign + Digits(whole) + point + Digits(decimals), OneOf(behind));
      }
    }
  }
  for (int i = 0; i < 20'000 && !HasFailure(); ++i) {  // some have a mantissa that 64 bits don't hold
    CheckNumber(Digits(5 + Below(3)) + '.' + Digits(13 + Below(3)), ' ');
  }
  for (int i = 0; i < 8'000 && !HasFailure(); ++i) {  // exponents up to those of the powers that a double doesn't hold
    const std::string word =
        Digits(1 + Below(21)) + '.' + Digits(Below(6)) + 'e' + std::to_string(static_cast<int>(Below(53)) - 26);
    double value = 0.0;
    EXPECT_TRUE(qelvrml::ReadNumber(word, value));
    EXPECT_EQ(value, std::strtod(word.c_str(), nullptr)) << word;
  }
  for (std::size_t places = 0; places <= 16; ++places) {  // about 2^53, the last mantissa that counts
    for (const std::string_view border : {"9007199254740991", "9007199254740992", "9007199254740993"}) {
      std::string word(border);
      CheckNumber(word.insert(border.size() - places, "."), ' ');
      CheckNumber("-0" + word, ' ');
    }
  }
}

TEST(EightBytes, AllNumbersOrNone) {
  const FileText text("1 2.5,-3 4 5 x");
  NumberCursor cursor(qelvrml::FileCharacters, text.begin(), text.end());
  float x = 0.0F;
  float y = 0.0F;
  double z = 0.0;
  ASSERT_TRUE(cursor.TakeAll(x, y, z));
  EXPECT_TRUE(x == 1.0F && y == 2.5F && z == -3.0);
  EXPECT_FALSE(cursor.TakeAll(x, y, z));
  EXPECT_EQ(cursor.GetLast(), text.begin() + 6);
  EXPECT_TRUE(cursor.Take(z) && z == 4.0);
}

// Behind the word stands more of the same kind, which doesn't count.
const ParserKeywordEntry* Find(const qelvrml::KeywordIndex& index, const std::string& word) {
  const FileText text(word + word);
  return index.Find({text.begin(), word.size()});
}

TEST(EightBytes, WordsNextToKeywords) {
  const auto& table = GetKeywordTable();
  const qelvrml::KeywordIndex index(table.data(), static_cast<int>(table.size()));
  const auto upper = [](std::string word) {
    for (char& c : word) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return word;
  };
  std::map<std::string, std::uint32_t> values;
  for (const ParserKeywordEntry& row : table) values.emplace(row.Name, row.Value);
  const auto check = [&](const std::string& word) {
    const ParserKeywordEntry* found = Find(index, word);
    const auto expected = values.find(upper(word));
    ASSERT_EQ(found != nullptr, expected != values.end()) << word;
    if (found) {
      EXPECT_EQ(found->Value, expected->second) << word;
    }
  };
  for (const ParserKeywordEntry& row : table) {
    std::string word = row.Name;
    for (char& c : word) c = Below(2) == 0 && c >= 'A' && c <= 'Z' ? static_cast<char>(c ^ 0x20) : c;
    for (std::size_t i = 0; i < word.size(); ++i) {
      std::string other = word;
      for (int c = 0; c < 256; ++c) {
        other[i] = static_cast<char>(c);
        check(other);
      }
      check(word.substr(0, i));
      check(word.substr(i));
    }
    for (const char c : {'\0', ' ', 'S', 's', '_'}) check(word + c);
    check(word + std::string(row.Name));
  }
  // Of characters that aren't letters, a pair that differs like the two cases of one.
  std::vector<ParserKeywordEntry> odd = {{"A@[\\]^_", 1}, {"12345678A", 2}, {"12345678", 3}, {"A\xC1", 4}};
  const qelvrml::KeywordIndex own(odd.data(), static_cast<int>(odd.size()));
  for (const auto& [word, expected] : {std::pair("a@[\\]^_", 1U),
                                       {"A`[\\]^_", 0U},
                                       {"A@{\\]^_", 0U},
                                       {"A@[|]^_", 0U},
                                       {"A@[\\}^_", 0U},
                                       {"A@[\\]~_", 0U},
                                       {"A@[\\]^\x7F", 0U},
                                       {"12345678a", 2U},
                                       {"12345678", 3U},
                                       {"1234567", 0U},
                                       {"12345678!", 0U},
                                       {"\x11\x32", 0U},
                                       {"a\xC1", 4U},
                                       {"A\xE1", 0U}}) {
    const ParserKeywordEntry* found = Find(own, word);
    EXPECT_EQ(found ? found->Value : 0, expected) << word;
  }
}

// All begin with the same eight bytes, which aren't a keyword themselves.
TEST(EightBytes, KeywordsThatDifferInLength) {
  for (char c = 'A'; c <= 'Z'; ++c) {
    const std::string longest = std::string("LONGWOR") + c + std::string(44, 'X');
    std::vector<ParserKeywordEntry> table(44);
    for (std::size_t i = 0; i < table.size(); ++i) longest.copy(table[i].Name, 9 + i);
    const qelvrml::KeywordIndex index(table.data(), static_cast<int>(table.size()));
    EXPECT_EQ(Find(index, longest.substr(0, 8)), nullptr) << c;
    for (std::size_t i = 0; i < table.size(); ++i) EXPECT_EQ(Find(index, longest.substr(0, 9 + i)), &table[i]);
  }
}

// Places of a text's delimiters outside quoted strings and comments.
std::vector<std::size_t> Delimiters(const std::string& text, std::size_t from, char open, char close) {
  std::vector<std::size_t> places;
  char within = '\0';
  for (std::size_t i = from; i < text.size(); ++i) {
    const char c = text[i];
    if (within == '"') {
      if (c == '\\' && (text[i + 1] == '"' || text[i + 1] == '\\')) ++i;
      if (c == '"') within = '\0';
    } else if (within == '#') {
      if (c == '\n' || c == '\r') within = '\0';
    } else if (c == '"' || c == '#') {
      within = c;
    } else if (c == open || c == close) {
      places.push_back(i);
    }
  }
  return places;
}

TEST(EightBytes, BlocksOfAllLengths) {
  struct Kind {
    GenericTokenTypes Open;
    char Opening;
    char Closing;
  };
  const Kind kinds[] = {{GenericTokenOpenBrace, '{', '}'},  // NOLINT(*-avoid-c-arrays)
                        {GenericTokenOpenBracket, '[', ']'},
                        {GenericTokenOpenParen, '(', ')'}};
  for (std::size_t i = 0; i < 12'000 && !HasFailure(); ++i) {
    const auto& [open, opening, closing] = kinds[i % 3];
    const auto close = static_cast<GenericTokenTypes>(open + 1);
    std::string text = std::string("x ") + opening;
    const std::size_t rarity = 1 + Below(120);
    for (std::size_t length = i / 32; length > 0; --length) {
      text += Below(rarity) == 0 ? OneOf("{}[]()}])\"\"\\#\n\r") : OneOf("yz|\\!$Z|\xFB\xFD\xA2\xA3\x01 ");
    }
    CGenericParser parser;
    parser.StartBufferReading(text.data(), static_cast<int>(text.size()));
    const auto place = [&] { return text.size() - parser.GetBytesLeft(); };
    CGenericIOState start;
    parser.SaveIOState(start);
    const std::vector<std::size_t> expected = Delimiters(text, 3, opening, closing);
    std::size_t end = text.size();
    bool closes = false;
    int depth = 1;
    for (const std::size_t p : expected) {
      GenericTokenTypes found = GenericTokenOther;
      ASSERT_TRUE(parser.FindBlockToken(open, close, found)) << text;
      ASSERT_EQ(place(), p + 1) << text;
      ASSERT_EQ(found, text[p] == opening ? open : close);
      depth += found == open ? 1 : -1;
      if (depth == 0 && !closes) end = p + 1;
      closes = closes || depth == 0;
    }
    GenericTokenTypes found = GenericTokenOther;
    EXPECT_FALSE(parser.FindBlockToken(open, close, found)) << text;
    for (int again = 0; again < 2; ++again) {
      parser.RestoreIOState(start);
      EXPECT_EQ(parser.FindBlockEnd(open, close), closes) << text;
      EXPECT_EQ(place(), end) << text;
    }
  }
}

}  // namespace
