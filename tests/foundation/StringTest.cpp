#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>

#include "qelvrml/foundation/CBasicString.h"

namespace {

std::string Text(const CBasicString& string) { return string.GetNarrowText(); }

TEST(String, EmptyAndNullAreNeutral) {
  const CBasicString empty;
  EXPECT_EQ(empty.GetLength(), 0);
  EXPECT_STREQ(empty.GetNarrowText(), "");
  EXPECT_EQ(empty.GetHash(), 0U);
  EXPECT_TRUE(empty == static_cast<const char*>(nullptr));
  EXPECT_EQ(CBasicString(static_cast<const char16_t*>(nullptr)).GetLength(), 0);
  EXPECT_FALSE(empty.GetAt(0) || empty.GetLast());
  CBasicString text("a");
  EXPECT_FALSE(text.Append(static_cast<const char*>(nullptr)) || text.Append(CBasicString()) || text.Assign(text));
  EXPECT_TRUE(text.Append("") && !text.AppendRange("b", nullptr));
}

// Any name of a file or a node comes back as it was: valid text, single bytes and code points beyond 16 bits.
TEST(String, NarrowTextSurvivesTheRoundTrip) {
  for (const std::string name : {"plain", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", "\xFF\xC3", "\xE4 latin \xE9",
                                 "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_EQ(Text(CBasicString(name.c_str())), name);
  }
  EXPECT_EQ(CBasicString("\xF0\x9F\x98\x80").GetLength(), 2);
  EXPECT_EQ(CBasicString("\xFF").GetAt(0), 0xDCFF);
  EXPECT_EQ(CBasicString(u"\xD800").GetNarrowText(), nullptr);
}

TEST(String, OneUnitIsWidenedWithItsSign) {
  EXPECT_EQ(CBasicString('"').GetAt(0), u'"');
  EXPECT_EQ(CBasicString('\xE9').GetAt(0), 0xFFE9);
}

// CRC-32 of the bytes 31 00 32 00 ... 39 00, and of a text longer than the buffer, computed with another program.
TEST(String, HashIsTheCrcOfTheCodeUnits) {
  EXPECT_EQ(CBasicString("123456789").GetHash(), 0xA290E877U);
  EXPECT_NE(CBasicString("abc").GetHash(), CBasicString("Abc").GetHash());
  EXPECT_EQ(CBasicString(std::string(1000, 'x').c_str()).GetHash(), 0x10475223U);
}

TEST(String, MidTakesBothEnds) {
  const CBasicString text("abcdef");
  EXPECT_EQ(Text(text.Mid(0, 3)), "abcd");
  EXPECT_EQ(Text(text.Mid(4, -1)), "ef");
  EXPECT_EQ(Text(text.Mid(6, -1)), "");
  EXPECT_EQ(Text(text.Mid(3, 2)), "");
  EXPECT_EQ(Text(text.Mid(3, 1)), "def");
  EXPECT_EQ(Text(text.Mid(1, 6)), "");
}

TEST(String, SearchesInBothDirections) {
  const CBasicString text("abcab");
  EXPECT_EQ(text.Find("ab", 1), 3);
  EXPECT_EQ(text.Find("", 2), 2);
  EXPECT_EQ(text.Find("", 5), -1);
  EXPECT_EQ(text.Find("x", 0), -1);
  EXPECT_EQ(text.ReverseFind('a', 2), 0);
  EXPECT_EQ(text.ReverseFind('b', 0), 4) << "a start of 0 means the last index";
  EXPECT_EQ(text.ReverseFind(u'a', 5), -1);
}

TEST(String, ReplaceDoesNotLookIntoWhatItPutIn) {
  CBasicString text("a-a");
  EXPECT_TRUE(text.Replace("a", "aa"));
  EXPECT_EQ(Text(text), "aa-aa");
  EXPECT_TRUE(!text.Replace("", "x") && !text.Replace("x", "y") && text.Replace("aa", ""));
  EXPECT_EQ(Text(text), "-");
}

TEST(String, ChangesInPlace) {
  CBasicString text(" \tMixed ");
  EXPECT_TRUE(text.TrimLeft() && text.TrimRight() && !text.TrimRight() && text.MakeUpper());
  EXPECT_EQ(Text(text), "MIXED");
  EXPECT_TRUE(text.MakeLower() && text.SetAt(0, u'f') && !text.SetAt(5, u'f') && text.RemoveAt(1));
  EXPECT_TRUE(!text.Truncate(4) && !text.Truncate(-1) && text.Truncate(3)) << "only what makes it shorter";
  EXPECT_EQ(Text(text), "fxe");
  EXPECT_TRUE(text.Empty() && !text.Empty() && !text.MakeLower());
  CBasicString blank("  ");
  EXPECT_TRUE(blank.TrimLeft() && blank.GetLength() == 0);
}

TEST(String, ComparesByCodeUnits) {
  const CBasicString text("ab");
  EXPECT_TRUE(text < "b" && text > "a" && text < u"ac" && text > u"" && text != "a" && text != u"AB");
  EXPECT_FALSE(text < "ab" || text > "ab" || text < u"ab" || text > u"ab" || text != "ab");
  EXPECT_TRUE(CBasicString(u"\xFFFF") > u"a") << "units are unsigned";
  EXPECT_EQ(CBasicString("ABC").CompareNoCase("abc"), 0);
  EXPECT_LT(text.CompareNoCase("ABC"), 0);
}

TEST(String, FormatsThroughTheCLibrary) {
  CBasicString text("before");
  EXPECT_TRUE(text.Format(u"%d of %ls", 7, L"ten"));
  EXPECT_EQ(Text(text), "7 of ten");
  EXPECT_FALSE(text.Format(nullptr) || text.Format(u"%ls", L"") || text.LoadString(1));
  EXPECT_FALSE(text.Format(u"%5000d", 1)) << "longer than the buffer";
  EXPECT_EQ(Text(text), "7 of ten");
}

// A text may be assigned, appended or compared with a part of itself.
TEST(String, TakesPartsOfItself) {
  CBasicString text("abcabcabcabcabcabc");
  text = text.GetWideText() + 15;
  text += text.GetNarrowText();
  text += text.GetWideText();
  EXPECT_EQ(Text(text + text.GetNarrowText()), "abcabcabcabcabcabcabcabc");
  EXPECT_TRUE(text == text.GetNarrowText() && text == text.GetWideText());
  text = text.GetNarrowText();
  text.Assign(text.GetNarrowText() + 3);
  const char* narrow = text.GetNarrowText();
  EXPECT_TRUE(text.AppendRange(narrow + 1, narrow + 3));
  EXPECT_EQ(Text(text), "abcabcabcbc");
  EXPECT_TRUE(text.Format(u"<%s>", text.GetNarrowText() + 8));
  EXPECT_EQ(Text(text), "<cbc>");
}

TEST(String, NarrowTextEndsAtANul) {
  CBasicString text(u"ab\xD800");
  text.SetAt(1, u'\0');
  EXPECT_STREQ(text.GetNarrowText(), "a") << "what can't be converted stands behind the NUL";
  EXPECT_EQ(text.CompareNoCase("A"), 0);
  text.SetAt(0, u'\0');
  EXPECT_EQ(text.GetNarrowText(), nullptr);
  const std::string bytes("x\0y", 3);
  text = "";
  EXPECT_TRUE(text.AppendRange(bytes.data(), bytes.data() + 3));
  EXPECT_EQ(text.GetLength(), 1);
}

// Whether a string holds its narrow text, which is its last field, after an operation.
template <class Operation, class... Arguments>
bool HoldsNarrow(Operation operation, Arguments... arguments) {
  CBasicString text(" Abc ");
  text.GetNarrowText();
  std::invoke(operation, text, arguments...);
  const char* held = nullptr;
  std::memcpy(&held, reinterpret_cast<const char*>(&text) + sizeof text - sizeof held, sizeof held);
  return held != nullptr;
}

TEST(String, ChangesDropTheNarrowTextUnlessTheyAreInPlace) {
  using S = CBasicString;
  const auto assign = [](S& text, const auto& value) { text = value; };
  const auto append = [](S& text, const auto& value) { text += value; };
  EXPECT_TRUE(HoldsNarrow(&S::SetAt, 0, u'x') && HoldsNarrow(&S::MakeUpper) && HoldsNarrow(&S::MakeLower));
  EXPECT_TRUE(HoldsNarrow(append, "") && HoldsNarrow(&S::Truncate, 5) && HoldsNarrow(&S::Replace, "q", ""));
  EXPECT_TRUE(HoldsNarrow([](S& text) { text.Assign(text), text.Format(u"%ls", L""); }));
  EXPECT_FALSE(HoldsNarrow(assign, "x") || HoldsNarrow(assign, u"x") || HoldsNarrow(assign, S("x")));
  EXPECT_FALSE(HoldsNarrow(append, "x") || HoldsNarrow(append, u"x") || HoldsNarrow(append, S("x")));
  EXPECT_FALSE(HoldsNarrow(&S::RemoveAt, 0) || HoldsNarrow(&S::Truncate, 4) || HoldsNarrow(&S::Empty));
  EXPECT_FALSE(HoldsNarrow(&S::TrimLeft) || HoldsNarrow(&S::TrimRight) || HoldsNarrow(&S::Replace, "b", ""));
  EXPECT_FALSE(HoldsNarrow([](S& text) { text.Format(u"x"); }) || HoldsNarrow([](S& text) { S() = std::move(text); }));
  EXPECT_FALSE(HoldsNarrow([](S& text) { const S moved(std::move(text)); }));
}

}  // namespace
