#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <iomanip>
#include <iterator>
#include <random>
#include <sstream>

#include "qelvrml/parser/reading/NodeReader.h"
#include "support/Model.h"

namespace {

// A parser that stands on the first token of a file. Far from its end there is no progress to be reported on the way.
class Reader {
public:
  explicit Reader(const std::string& text, std::size_t bytesBehind = 20'000) {
    static const TemporaryFolder folder;
    const std::string file = "#VRML V2.0 utf8\n" + text + "\n#" + std::string(bytesBehind, 'x');
    Parser.GetIOManager()->SetFilename(folder.Write("list.wrl", file).c_str());
    Parser.GetIOManager()->OpenFile();
    Parser.Tokenize();
  }
  std::string Current() { return Parser.GetCurrentTokenString(); }
  CVRMLParser Parser;
};

// All numbers of an array, one behind the other.
template <class Value>
std::vector<double> Flat(const brixArray1D<Value>& array) {
  if constexpr (std::is_arithmetic_v<Value>) {
    return {array.View().begin(), array.View().end()};
  } else {
    std::vector<float> numbers(array.View().size_bytes() / sizeof(float));
    if (!numbers.empty()) std::memcpy(numbers.data(), array.View().data(), array.View().size_bytes());
    return {numbers.begin(), numbers.end()};
  }
}

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

// Whether a reader found anything, what it found, and the two tokens that it left, as a text with all digits.
template <class Array, class Read>
std::string Reading(const std::string& list, std::size_t bytesBehind, Read read) {
  Reader reader(list, bytesBehind);
  CVRMLParser& parser = reader.Parser;
  Array array;
  std::ostringstream text;
  text << std::setprecision(17) << std::invoke(read, parser, array);
  for (const double value : Flat(array)) text << ' ' << value;
  return text.str() + " | " + parser.GetCurrentTokenString() + ' ' + parser.GetNextTokenString();
}

enum Kind { AsPoints, AsPlane, AsFloats, AsColours, AsIndices, AsRuns };

/// The readings of a list, one of each kind.
std::vector<std::string> AllReadings(const std::string& list, std::size_t bytesBehind = 20'000) {
  using qelvrml::NodeReader;
  const auto runs = [](CVRMLParser& parser, brixIntArray& array) { return NodeReader(parser).TakeRunList(array); };
  const auto indices = [](CVRMLParser& parser, brixIntArray& array) { return NodeReader(parser).TakeIndices(array); };
  const auto lists = [](CVRMLParser& parser, brixIntArray& array) {
    CKelList values;
    CKelList counts;
    values.SetIntegerElements();
    counts.SetIntegerElements();
    const bool found = parser.ParseIndexArray(values, counts);
    CVRMLParser::MergeIndexLists(array, values, counts);
    values.RemoveAllValues();
    counts.RemoveAllValues();
    return found;
  };
  const std::string merged = Reading<brixIntArray>(list, bytesBehind, lists);
  EXPECT_EQ(Reading<brixIntArray>(list, bytesBehind, runs), merged);
  return {Reading<brixFloatPointArray>(list, bytesBehind, &CVRMLParser::ParsePointArray),
          Reading<brix2DFloatPointArray>(list, bytesBehind, &CVRMLParser::Parse2DPointArray),
          Reading<brixDoubleArray>(list, bytesBehind, &CVRMLParser::ParseFloatArray),
          Reading<brixChromaArray>(list, bytesBehind, &CVRMLParser::ParseColorArray),
          Reading<brixIntArray>(list, bytesBehind, indices),
          merged};
}

// Where each reader leaves the current token decides what its node reads next.
TEST(FieldReader, ListsOfOddForms) {
  struct Case {
    Kind As;
    std::string Text;
    std::string Reading;
  };
  for (const auto& [kind, text, reading] :
       {Case{AsPoints, "1 2 3 next", "1 1 2 3 | 3 next"}, Case{AsPoints, "[ 1 2 3, 4 5 6 ] x y", "1 1 2 3 4 5 6 | x y"},
        Case{AsPoints, "{ 1 2 3 } next", "1 1 2 3 | } next"}, Case{AsPoints, "( 1 2 3 ] x y", "1 1 2 3 | x y"},
        Case{AsPoints, "[ ] x y", "0 | x y"}, Case{AsPoints, "[ 1 2 3 4 ] x } next", "1 1 2 3 | } next"},
        Case{AsPoints, "[ 1 2 word 3 4 5 ] x y", "1 3 4 5 | x y"}, Case{AsPoints, "word next", "0 0 0 0 | word next"},
        Case{AsPoints, "[ 1 2 3", "1 1 2 3 |  "},
        // Any token is a value of a list of numbers.
        Case{AsFloats, "1.5 next", "1 1.5 | 1.5 next"}, Case{AsFloats, "word next", "1 0 | word next"},
        Case{AsFloats, "[ 1 word 2 ] next", "1 1 0 2 | ] next"}, Case{AsFloats, "[ ] next", "0 | ] next"},
        // Colours are opaque.
        Case{AsColours, "[ 1 0 0 word 0 1 0 ] next", "1 1 0 0 1 0 1 0 1 | ] next"},
        Case{AsColours, "1 2 next x", "0 | next x"},
        // Indices become runs behind their counts.
        Case{AsRuns, "[ 0, 1, 2, -1, 3, 4, 5, 6, -1 ] next", "1 3 0 1 2 4 3 4 5 6 | ] next"},
        Case{AsRuns, "[ 0 1 2 -1 3 ] next", "1 3 0 1 2 1 3 | ] next"},
        Case{AsRuns, "[ -1 -1 2.9 -0.5 -2 1e99 -1 -1 ] next", "1 4 2 0 -2 2147483647 | ] next"},
        Case{AsRuns, "0 1 2 }", "1 3 0 1 2 | } "}, Case{AsRuns, "[ ] next", "0 0 | ] next"}}) {
    EXPECT_EQ(AllReadings(text)[kind], reading) << text;
  }
  brixDoubleArray floats;
  brixChromaArray colours;
  floats.Append(7);
  colours.Append({});
  EXPECT_FALSE(Reader("[ ] next").Parser.ParseFloatArray(floats));
  EXPECT_FALSE(Reader("1 2 next").Parser.ParseColorArray(colours));
  EXPECT_TRUE(floats.GetSize() == 1 && colours.GetSize() == 1) << "unchanged";
}

TEST(FieldReader, RotationsMayBeShort) {
  Reader reader("{ [ 1 2 3 ] next");
  brixVector axis;
  double angle = 9;
  EXPECT_TRUE(reader.Parser.ParseRotationVector(axis, angle));
  EXPECT_EQ(axis.z, 3.0F);
  EXPECT_EQ(angle, 0.0);
  EXPECT_EQ(reader.Current(), "]");
  Reader list("[ 0 0 1 2 word 1 0 0 3 ] next");
  brixVectorArray axes;
  brixDoubleArray angles;
  EXPECT_TRUE(list.Parser.ParseRotationVectorArray(axes, angles));
  EXPECT_EQ(Flat(angles), (std::vector<double>{2, 3}));
  EXPECT_EQ(list.Current(), "]");
}

// A list of a file is read in one go, but for token by token where comments part its values. Places where progress is
// to be reported cut it too: the longer the file, the fewer there are.
TEST(FieldReader, ListsInOneGo) {
  const std::vector<std::string> plain = Words("0 1 2 17 -1 -1 0.5 -2.25 12345678 3.14159265");
  const std::vector<std::string> odd = Words(
      "1e5 -1.0 -1.5 0x10 12345678901 -1e0 +3 -0.0 .5 7. 1e400 word radius TRUE 1x [ ] } { ( ) \"1\" "
      "9.87654321098765432 -0 -12345678");
  std::mt19937 random(7);
  for (int i = 0; i < 100 && !HasFailure(); ++i) {
    const std::size_t rarity = 1 + random() % 60;
    std::vector<std::string> words = {"["};
    for (std::size_t left = random() % 70; left > 0; --left) {
      const std::vector<std::string>& from = random() % rarity == 0 ? odd : plain;
      words.push_back(from[random() % from.size()]);
    }
    if (random() % 4 != 0) words.emplace_back("]");
    std::string inOneGo;
    std::string piecewise;
    for (const std::string& word : words) {
      inOneGo += word + std::vector<std::string>{" ", ", ", "\n", "\t ", ","}[random() % 5];
      piecewise += word + " # 1 2\n";
    }
    const std::size_t bytesBehind = random() % 30'000;
    EXPECT_EQ(AllReadings(inOneGo + "next }", bytesBehind), AllReadings(piecewise + "next }", bytesBehind)) << inOneGo;
  }
}

// A count stands behind the whole run before it; what runs out stays 0.
TEST(FieldReader, CountsThatPromiseTooMuchStayInTheArray) {
  const auto merged = [](std::vector<int> values, std::vector<int> counts) {
    CKelList valueList;
    CKelList countList;
    valueList.SetIntegerElements();
    countList.SetIntegerElements();
    for (int& value : values) valueList.AddTailValue(&value);
    for (int& count : counts) countList.AddTailValue(&count);
    brixIntArray runs;
    CVRMLParser::MergeIndexLists(runs, valueList, countList);
    valueList.RemoveAllValues();
    countList.RemoveAllValues();
    return Flat(runs);
  };
  EXPECT_THAT(merged({4}, {1000000000, 1000000000}), testing::ElementsAre(1000000000, 4, 0));
  EXPECT_THAT(merged({1, 2}, {1, 3, 1}), testing::ElementsAre(1, 1, 3, 2, 0));
  EXPECT_THAT(merged({1, 2, 3}, {1, -5, 1}), testing::ElementsAre(1, 1, -5, 1, 2, 0));
}

// A host may say of a token without a text that it is a number.
TEST(FieldReader, NumbersWithoutAText) {
  CVRMLParser parser;
  parser.GetIOManager()->GetCurrentToken().SetDataType(GenericTokenNumber);
  brixIntArray indices;
  EXPECT_TRUE(qelvrml::NodeReader(parser).TakeIndices(indices));
  EXPECT_EQ(indices.GetSize(), 1U);
}

}  // namespace
