#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/fileint/CKelFileInterface.h"
#include "qelvrml/platform/genparse/CGenericIOState.h"
#include "qelvrml/platform/genparse/CGenericToken.h"
#include "qelvrml/platform/genparse/GenericTypes.h"

namespace qelvrml {
class KeywordIndex;
class NumberCursor;
struct ReadingPlace;
}  // namespace qelvrml

/// Cuts a file, or a buffer in memory, into tokens and keeps a current and a next one.
///
/// - White space is every byte up to 0x20, and the comma; `#` outside a quoted string starts a comment up to the line's
/// end.
/// - Each of `{ } [ ] ( )` is a token. A word runs to the next white space, delimiter, quote or `#`, and keeps its
/// case.
/// - In a quoted string `\"` gives `"` and `\\` gives `\`; it may span lines and ends at the latest with the input.
/// - A word is a keyword of the table in any case, TRUE or FALSE in any case, a number, or of the class Other.
///
/// The text of a file is read whole into memory. Reading a token costs no allocation; operations that take memory raise
/// std::bad_alloc. An object is used by one thread at a time, together with its copies and snapshots, since they share
/// what is known about the text.
class QELVRML_EXPORT CGenericParser {
public:
  /// Without keywords, a name and a text: both tokens are the end of the input.
  CGenericParser();
  /// A copy goes on reading at the same place; it shares the text, and its file interface is closed.
  /// @{
  CGenericParser(const CGenericParser& other) = default;
  CGenericParser& operator=(const CGenericParser& other) = default;
  /// @}
  ~CGenericParser() = default;

  /// The table of keywords and its number of rows, which both have to be set. It outlives this object and its copies
  /// and doesn't change. Keywords are found in any case; of rows with the same name the first counts.
  /// @{
  void SetKeywordTable(const ParserKeywordEntry* table);
  void SetKeywordTableSize(int rows);
  /// @}

  /// Names the file that OpenAndInitialize opens; what is being read goes on.
  void SetFilename(const CBasicString& name);
  /// Name of the file to open, or of the file that is being read; a snapshot brings its own.
  const CBasicString& GetFilename() const { return *Reading.Filename; }

  /// Opens the named file and checks its header. Afterwards the current token is an empty one of the class Other and
  /// the next token is the first of the file. When it fails nothing is open, and an earlier text is given up.
  GenericLoadResultTypes OpenAndInitialize();
  /// Closes the file and gives its text up; harmless when nothing is open.
  void CloseFile();

  /// Moves the next token into the current one and reads a new next one. False when the current token is now the end of
  /// the input, and stays there.
  bool Tokenize();

  /// The tokens at hand; good until the next token is read.
  /// @{
  CGenericToken& GetCurrentToken() { return Reading.Current(); }
  CGenericToken& GetNextToken() { return Reading.Next(); }
  const CGenericToken& GetCurrentToken() const { return Reading.Current(); }
  const CGenericToken& GetNextToken() const { return Reading.Next(); }
  /// @}
  /// Text with a NUL behind it; that of a quoted string stands without its quotes. Valid until the next call for that
  /// token's text, and never null.
  /// @{
  char* GetCurrentTokenString();
  char* GetNextTokenString();
  /// @}
  /// The same text without a copy where it stands in the input as it is; valid until the token changes or its text is
  /// asked for again.
  /// @{
  std::string_view GetCurrentTokenText() { return Reading.Current().GetText(CurrentText); }
  std::string_view GetNextTokenText() { return Reading.Next().GetText(NextText); }
  /// @}
  /// The tokens' values: 0 for what isn't a number, false for what isn't TRUE.
  /// @{
  double GetCurrentTokenNumericValue() const { return Reading.Current().GetNumericValue(); }
  double GetNextTokenNumericValue() const { return Reading.Next().GetNumericValue(); }
  bool GetCurrentTokenBooleanValue() const { return Reading.Current().GetBooleanValue(); }
  bool GetNextTokenBooleanValue() const { return Reading.Next().GetBooleanValue(); }
  /// @}

  /// Scans on from behind the next token to a delimiter of either class and stores its class in `found`. Quoted strings
  /// and comments are stepped over. False at the end of the input, where the position then stays.
  bool FindBlockToken(GenericTokenTypes open, GenericTokenTypes close, GenericTokenTypes& found);
  /// Steps back by one character, onto the delimiter that FindBlockToken has found; does nothing when it found none.
  void DecrementOffset();
  /// Scans, from behind the next token, behind the delimiter that closes the block which is open there. It remembers
  /// the longer blocks, so that blocks inside one another are scanned once. False at the end of the input.
  bool FindBlockEnd(GenericTokenTypes open, GenericTokenTypes close);

  /// Notes that a stretch of the current text, from the token that began at `begin` to here, was passed over in a pass
  /// with that number; what was noted of another pass is forgotten. Gives the length of the stretch in bytes.
  std::size_t RememberStretch(const char* begin, std::uint64_t pass, bool result);
  /// If a stretch from the current token on was passed over in that pass, goes to its end and gives its result.
  bool StepOverStretch(std::uint64_t pass, bool& result);
  /// Where the current token begins; to be handed to RememberStretch.
  const char* GetCurrentPlace() const { return Reading.Current().Begin; }

  /// The word that begins at a place of the text; empty for a place that isn't in the text that is being read.
  std::string_view GetWordAt(const char* place) const;
  /// The word in front of the current token, with nothing but white space and comments between them. Empty if something
  /// else stands there, or no word within 512 bytes.
  std::string_view GetWordBefore() const;
  /// Whether the current token stands in the text of the reading; a host may have changed one of the two.
  bool IsCurrentTokenInText() const;
  /// For such a token: the numbers of a list from it on, as far as they end ahead of the milestone, or with `toEnd` of
  /// the end of the text; without a milestone there are none. Nothing moves here: GoToToken does, to the last one
  /// taken.
  qelvrml::NumberCursor GetNumbersAhead(bool toEnd) const;
  /// Makes the token that begins at a place of the text the current one.
  void GoToToken(const char* place);

  /// Whether the reading position is at the milestone or behind it. There is none, and this is true, from any change of
  /// the text on.
  bool IsBehindMilestone() const { return !Milestone || Reading.Position >= Milestone; }
  /// Sets the milestone at an offset of the file, in bytes, or for a negative one, and in a buffer, where no reading
  /// comes to. Does nothing without a text.
  void SetMilestone(int offset);
  /// Takes the milestone away.
  void ClearMilestone() { Milestone = nullptr; }

  /// The place of the reading.
  qelvrml::ReadingPlace GetPlace() const;
  /// Reads on from a place. False, and nothing moves, for one of another text than the one that is being read.
  bool GoTo(const qelvrml::ReadingPlace& place);

  /// To be called before a snapshot is restored that goes back in the text: what lies ahead of the furthest place of
  /// such calls is being read again from then on.
  void NoteHowFarWasRead();
  /// Whether the reading hasn't come back to the furthest of those places yet.
  bool IsReadAgain() const { return GetBytesReadAhead() > 0; }
  /// How many bytes of the text, from behind the next token on, were read already.
  std::size_t GetBytesReadAhead() const;
  /// Goes on to the furthest place; nothing moves behind it.
  void GoBehindWhatWasRead();

  /// How many bytes of the text are left behind the next token; 0 without a text.
  std::size_t GetBytesLeft() const;

  /// Line of the file, from 1 on, of a place that GetCurrentPlace has given; in a buffer, of the place that the buffer
  /// is read for. 0 where there is no file.
  int GetFileLineOf(const char* place) const;

  /// Reading position and size of the file in bytes, also while a buffer is read; they saturate at the largest int. 0
  /// without a text.
  /// @{
  int GetCurrentFileOffset() const;
  int GetTotalFileSize() const;
  /// @}

  /// Takes a snapshot of the reading. False when nothing is being read; the snapshot is empty then.
  bool SaveIOState(CGenericIOState& state) const;
  /// Reads on from a snapshot, which may come from another object and can be restored again. False, and no change, for
  /// an empty one.
  bool RestoreIOState(const CGenericIOState& state);

  /// Reads on from a copy of `text`, whose first token is current and whose second is next afterwards. False for a null
  /// text or a negative length.
  bool StartBufferReading(const char* text, int length);
  /// The same for a buffer that is read for a place of the text at hand, as GetCurrentPlace gives it, and not for the
  /// current token. Null stands for that token.
  bool StartBufferReading(const char* text, int length, const char* place);
  /// Ends the reading of a buffer: the input is at its end until a snapshot is restored. False if none is being read.
  bool StopBufferReading();
  /// Starts the buffer anew. False if none is being read.
  bool SetToStartOfBuffer();

  /// The file that OpenAndInitialize works with; for ReadFileHeader.
  CKelFileInterface& GetFileInterface() { return FileInterface; }
  /// Brings the next line of the file's block, without its end, into the input string; false if there is none. A UTF-8
  /// byte-order mark ahead of the first line is left out.
  bool GetNextLineFromBuffer();
  /// The line that GetNextLineFromBuffer brought, with a NUL behind it; writable within its length.
  char* GetInputString() { return InputString.data(); }
  /// Whether the input string has no characters.
  bool GetInputStringEmpty() const { return InputString.empty(); }
  /// Replaces the input string by a copy of the text; a null pointer empties it.
  void SetInputStringValue(const char* text) { InputString = text ? text : ""; }

protected:
  /// The same as a parser that SetKeywordTable and SetKeywordTableSize have been called for, with an index of the
  /// table.
  CGenericParser(const ParserKeywordEntry* table, int rows, std::shared_ptr<const qelvrml::KeywordIndex> index);
  /// The check of the file's header, to be made with the operations on lines; false refuses the file.
  virtual bool ReadFileHeader() { return true; }

private:
  bool AdoptBlock();
  void EndInput();
  void ReadToken(CGenericToken& token);
  void ReadQuoted(CGenericToken& token);
  void ReadWord(CGenericToken& token);
  void ClassifyWord(CGenericToken& token) const;

  const ParserKeywordEntry* KeywordTable = nullptr;
  int KeywordTableSize = 0;
  std::shared_ptr<const qelvrml::KeywordIndex> Keywords;
  CKelFileInterface FileInterface;
  CGenericIOState::ReadingState Reading;
  const char* Milestone = nullptr;  ///< in the text of the reading
  std::string InputString;
  std::string CurrentText;  ///< what the last request for a token's text was answered from
  std::string NextText;
};
