#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Model.h"

namespace {

// A parser that stands on the first token of a text.
class Reader {
public:
  explicit Reader(const std::string& text) {
    Parser.GetIOManager()->StartBufferReading(text.c_str(), static_cast<int>(text.size()));
  }
  std::string Current() { return Parser.GetCurrentTokenString(); }
  CVRMLParser Parser;
};

template <class Array>
std::vector<double> Values(const Array& array) {
  return {array.View().begin(), array.View().end()};
}

using testing::ElementsAre;

// Where each reader leaves the current token decides what its node reads next.
TEST(FieldReader, PointsEndOnTheNumberOrBehindTheBracket) {
  struct Case {
    std::string Text;
    bool Found;
    std::size_t Count;
    std::string Current;
  };
  for (const auto& [text, found, count, current] :
       {Case{"1 2 3 next", true, 1, "3"}, Case{"[ 1 2 3, 4 5 6 ] next", true, 2, "next"},
        Case{"{ 1 2 3 } next", true, 1, "}"}, Case{"( 1 2 3 ] next", true, 1, "next"},
        Case{"[ ] next", false, 0, "next"}, Case{"[ 1 2 3 4 ] x } next", true, 1, "}"},
        Case{"[ 1 2 word 3 4 5 ] next", true, 1, "next"}, Case{"word", false, 1, "word"},
        Case{"[ 1 2 3", true, 1, ""}}) {
    Reader reader(text);
    brixFloatPointArray points;
    EXPECT_EQ(reader.Parser.ParsePointArray(points), found) << text;
    EXPECT_EQ(points.GetSize(), count) << text;
    EXPECT_EQ(reader.Current(), current) << text;
  }
}

TEST(FieldReader, FloatListsTakeAnyTokenAsAValue) {
  struct Case {
    std::string Text;
    std::vector<double> Values;
    std::string Current;
  };
  for (const auto& [text, values, current] : {Case{"1.5 next", {1.5}, "1.5"}, Case{"word next", {0}, "word"},
                                              Case{"[ 1 word 2 ] next", {1, 0, 2}, "]"}, Case{"[ ] next", {7}, "]"}}) {
    Reader reader(text);
    brixDoubleArray array;
    array.Append(7);
    EXPECT_EQ(reader.Parser.ParseFloatArray(array), text != "[ ] next");
    EXPECT_EQ(Values(array), values) << text;
    EXPECT_EQ(reader.Current(), current) << text;
  }
}

TEST(FieldReader, ColoursAreOpaque) {
  Reader reader("[ 1 0 0 word 0 1 0 ] next");
  brixChromaArray colours;
  EXPECT_TRUE(reader.Parser.ParseColorArray(colours));
  ASSERT_EQ(colours.GetSize(), 2U);
  EXPECT_THAT(colours.View()[1], IsColour(0, 1, 0, 1));
  EXPECT_EQ(reader.Current(), "]");
  Reader missing("1 2 next");
  EXPECT_FALSE(missing.Parser.ParseColorArray(colours));
  EXPECT_EQ(colours.GetSize(), 2U) << "unchanged";
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
  EXPECT_THAT(Values(angles), ElementsAre(2, 3));
  EXPECT_EQ(list.Current(), "]");
}

TEST(FieldReader, IndexListsBecomeRuns) {
  struct Case {
    std::string Text;
    std::vector<double> Runs;
  };
  for (const auto& [text, runs] :
       {Case{"[ 0, 1, 2, -1, 3, 4, 5, 6, -1 ]", {3, 0, 1, 2, 4, 3, 4, 5, 6}},
        Case{"[ 0 1 2 -1 3 ]", {3, 0, 1, 2, 1, 3}}, Case{"[ -1 -1 2.9 -0.5 -2 1e99 -1 -1 ]", {4, 2, 0, -2, 2147483647}},
        Case{"0 1 2 }", {3, 0, 1, 2}}, Case{"[ ]", {0}}}) {
    Reader reader(text);
    CKelList values;
    CKelList counts;
    values.SetIntegerElements();
    counts.SetIntegerElements();
    brixIntArray merged;
    EXPECT_EQ(reader.Parser.ParseIndexArray(values, counts), text != "[ ]");
    EXPECT_TRUE(CVRMLParser::MergeIndexLists(merged, values, counts));
    EXPECT_EQ(Values(merged), runs) << text;
    values.RemoveAllValues();
    counts.RemoveAllValues();
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
    return Values(runs);
  };
  EXPECT_THAT(merged({4}, {1000000000, 1000000000}), ElementsAre(1000000000, 4, 0));
  EXPECT_THAT(merged({1, 2}, {1, 3, 1}), ElementsAre(1, 1, 3, 2, 0));
  EXPECT_THAT(merged({1, 2, 3}, {1, -5, 1}), ElementsAre(1, 1, -5, 1, 2, 0));
}

}  // namespace
