#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "qelvrml/parser/CVRMLIOManager.h"
#include "support/Model.h"

namespace {

// Reads a file that holds a header and `text`, up to its first token.
class Tokens {
public:
  explicit Tokens(const std::string& text, const std::string& header = "#VRML V2.0 utf8\n") {
    Manager.SetFilename(CBasicString(Folder.Write("tokens.wrl", header + text).c_str()));
    Result = Manager.OpenFile();
  }

  /// The texts of all tokens with a sign of their class in front.
  std::string Read() {
    std::string all;
    while (Manager.Tokenize()) all += (all.empty() ? "" : " ") + Shown();
    return all;
  }

  std::string Shown() {
    std::string text = Manager.GetCurrentTokenString();
    switch (Manager.GetCurrentTokenDataType()) {
      case GenericTokenString: return "'" + text + "'";
      case GenericTokenNumber: return "#" + text;
      case GenericTokenBoolean: return "?" + text;
      case GenericTokenUserDefined: return "*" + text;
      default: return text;
    }
  }

  TemporaryFolder Folder;
  CVRMLIOManager Manager;
  VRMLLoadResultTypes Result;
};

TEST(Token, ClassesOfWords) {
  EXPECT_EQ(Tokens("Sphere{radius 1.5}# no }\nx,y, TrUe false").Read(), "*Sphere { *radius #1.5 } x y ?TrUe ?false");
  EXPECT_EQ(Tokens("Box3D 3DBox inf nan +-1 1e 0x -").Read(), "Box3D 3DBox inf nan +-1 1e 0x -");
  EXPECT_EQ(Tokens("USE#comment\rDEF\r\n(]").Read(), "*USE *DEF ( ]");
}

TEST(Token, QuotedStrings) {
  EXPECT_EQ(Tokens(R"(a"b c"d "" "x\"y\\z\n" "TRUE" "1" "# { }")").Read(),
            R"(a 'b c' d '' 'x"y\z\n' 'TRUE' '1' '# { }')");
  EXPECT_EQ(Tokens("\"two\nlines\" \"never closed \\").Read(), "'two\nlines' 'never closed \\'");
}

TEST(Token, NumbersOfAllForms) {
  struct Case {
    std::string Word;
    double Value;
  };
  constexpr double Largest = std::numeric_limits<double>::max();
  for (const auto& [word, value] :
       {Case{"-1", -1}, Case{"+2.", 2}, Case{".5", 0.5}, Case{"1e-3", 0.001}, Case{"0x1F", 31}, Case{"-0Xff", -255},
        Case{"1E400", Largest}, Case{"-1e999999999999999999999", -Largest}, Case{"1e-400", 0}, Case{"0e999", 0},
        Case{"12345678901234567890123", 12345678901234567890123.0}, Case{"0.1", 0.1},
        Case{"3.4028234663852886e38", 3.4028234663852886e38}, Case{"9007199254740993", 9007199254740993.0},
        Case{"2.2250738585072014e-308", 2.2250738585072014e-308}, Case{"0xFFFFFFFF", 4294967295.0},
        Case{"1" + std::string(400, '0'), Largest}, Case{"0." + std::string(400, '0') + "1e401", 1.0}}) {
    Tokens tokens(word);
    ASSERT_TRUE(tokens.Manager.Tokenize());
    EXPECT_EQ(tokens.Manager.GetCurrentTokenType(), VRMLTokenNumber) << word;
    EXPECT_EQ(tokens.Manager.GetCurrentTokenNumericValue(), value) << word;
  }
}

TEST(Token, HeadersOfBothVersions) {
  struct Case {
    std::string Header;
    VRMLLoadResultTypes Result;
    VRMLVersionTypes Version;
  };
  for (const auto& [header, result, version] :
       {Case{"#vrml v1.0 ASCII\n", VRMLLoadOK, VRMLVersion10},
        Case{"#VRML V2.0 utf8 CosmoWorlds V1.0\r", VRMLLoadOK, VRMLVersion20},
        Case{"\xEF\xBB\xBF#VRML V2.0 utf8\n", VRMLLoadOK, VRMLVersion20},
        Case{"#VRML V2.0 utf8", VRMLLoadOK, VRMLVersion20}, Case{" #VRML V1.0 ascii\n", VRMLLoadFailed, VRMLVersion10},
        Case{"\n#VRML V1.0 ascii\n", VRMLLoadFailed, VRMLVersion10},
        Case{"#VRML V3.0 utf8\n", VRMLLoadFailed, VRMLVersion10}, Case{"", VRMLLoadFailed, VRMLVersion10}}) {
    const Tokens tokens("", header);
    EXPECT_EQ(tokens.Result, result) << header;
    EXPECT_EQ(tokens.Manager.GetVersion(), version) << header;
  }
}

TEST(Token, StandsStillAtTheEnd) {
  Tokens tokens("last");
  EXPECT_EQ(tokens.Manager.GetCurrentTokenType(), VRMLTokenUnknown);
  EXPECT_EQ(tokens.Manager.GetCurrentToken().GetTokenLength(), 0);
  EXPECT_TRUE(tokens.Manager.Tokenize() && !tokens.Manager.Tokenize() && !tokens.Manager.Tokenize());
  EXPECT_EQ(tokens.Manager.GetCurrentTokenType(), VRMLTokenEndOfFile);
}

TEST(Token, SnapshotsNestAndMoveBetweenReaders) {
  Tokens tokens("a b c d");
  CGenericIOState first;
  CGenericIOState second;
  tokens.Manager.Tokenize();
  ASSERT_TRUE(tokens.Manager.SaveIOState(first));
  tokens.Manager.Tokenize();
  tokens.Manager.SaveIOState(second);
  CVRMLIOManager other;
  EXPECT_FALSE(other.SaveIOState(second)) << "nothing is open";
  EXPECT_FALSE(other.RestoreIOState(CGenericIOState()));
  tokens.Manager.SaveIOState(second);
  ASSERT_TRUE(other.RestoreIOState(second));
  EXPECT_EQ(tokens.Read(), "c d");
  tokens.Manager.RestoreIOState(first);
  EXPECT_EQ(tokens.Read(), "b c d");
  tokens.Manager.CloseFile();
  EXPECT_STREQ(other.GetCurrentTokenString(), "b");
  EXPECT_TRUE(other.Tokenize());
  EXPECT_STREQ(other.GetCurrentTokenString(), "c");
  EXPECT_TRUE(other.GetFilename() == tokens.Manager.GetFilename());
}

TEST(Token, BuffersTakeTheFilesPlaceForATime) {
  Tokens tokens("file");
  CGenericIOState state;
  tokens.Manager.SaveIOState(state);
  const int offset = tokens.Manager.GetCurrentFileOffset();
  EXPECT_FALSE(tokens.Manager.StartBufferReading(nullptr, 1) || tokens.Manager.StartBufferReading("x", -1));
  ASSERT_TRUE(tokens.Manager.StartBufferReading("one two threeX", 13));
  EXPECT_STREQ(tokens.Manager.GetCurrentTokenString(), "one");
  EXPECT_STREQ(tokens.Manager.GetNextTokenString(), "two");
  EXPECT_EQ(tokens.Read(), "two three");
  EXPECT_EQ(tokens.Manager.GetCurrentFileOffset(), offset);
  EXPECT_TRUE(tokens.Manager.SetToStartOfBuffer());
  EXPECT_STREQ(tokens.Manager.GetCurrentTokenString(), "one");
  EXPECT_TRUE(tokens.Manager.StopBufferReading() && !tokens.Manager.StopBufferReading());
  EXPECT_EQ(tokens.Manager.GetCurrentTokenType(), VRMLTokenEndOfFile);
  tokens.Manager.RestoreIOState(state);
  EXPECT_EQ(tokens.Read(), "file");
}

// The scan for a block's end counts one kind of bracket only, outside strings and comments.
TEST(Token, FindsTheEndOfABlock) {
  Tokens tokens("x { a \"}\" # }\n [ } ] { b } c } d");
  GenericTokenTypes found = GenericTokenOther;
  tokens.Manager.Tokenize();  // x, with { next
  ASSERT_TRUE(tokens.Manager.FindBlockToken(GenericTokenOpenBrace, GenericTokenCloseBrace, found));
  EXPECT_EQ(found, GenericTokenCloseBrace) << "the one between the brackets";
  ASSERT_TRUE(tokens.Manager.FindBlockToken(GenericTokenOpenBrace, GenericTokenCloseBrace, found));
  EXPECT_EQ(found, GenericTokenOpenBrace);
  tokens.Manager.DecrementOffset();
  EXPECT_EQ(tokens.Read(), "{ { b } c } d");
  EXPECT_FALSE(tokens.Manager.FindBlockToken(GenericTokenOpenBrace, GenericTokenCloseBrace, found));
  EXPECT_FALSE(tokens.Manager.FindBlockEnd(GenericTokenOpenBrace, GenericTokenCloseBrace));
  tokens.Manager.DecrementOffset();
  EXPECT_FALSE(tokens.Manager.Tokenize()) << "a scan that found nothing leaves the position at the end";
}

// A block is found again by what a scan around it has remembered; the answer is the same as that of a scan.
TEST(Token, RemembersTheEndsOfLongBlocks) {
  const std::string inner = "{ " + std::string(300, 'y') + " { } }";
  Tokens tokens("x { " + inner + " } end");
  CGenericIOState start;
  tokens.Manager.Tokenize();
  tokens.Manager.SaveIOState(start);
  ASSERT_TRUE(tokens.Manager.FindBlockEnd(GenericTokenOpenBrace, GenericTokenCloseBrace));
  tokens.Manager.RestoreIOState(start);
  tokens.Manager.Tokenize();  // the outer {, with the inner one next
  ASSERT_TRUE(tokens.Manager.FindBlockEnd(GenericTokenOpenBrace, GenericTokenCloseBrace));
  EXPECT_EQ(tokens.Read(), "{ } end");
}

TEST(Token, FilesAreFoundInAnotherCaseIfThereIsOne) {
  const TemporaryFolder folder;
  folder.Write("Sub/Model.WRL", "#VRML V1.0 ascii\nCube {}");
  folder.Write("sub2/twice.wrl", "#VRML V1.0 ascii\n");
  folder.Write("sub2/TWICE.wrl", "#VRML V1.0 ascii\n");
  EXPECT_EQ(LoadFile((folder.Path() / "sub/model.wrl").string()).Result, VRMLLoadOK);
  EXPECT_EQ(LoadFile((folder.Path() / "sub2/Twice.wrl").string()).Result, VRMLLoadOpenFailed);
}

}  // namespace
