#pragma once

#include <array>
#include <string>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/parser/VRMLFieldTypes.h"
#include "qelvrml/parser/VRMLTokenTypes.h"
#include "qelvrml/parser/VRMLTypes.h"
#include "qelvrml/platform/genparse/CGenericParser.h"

class CVRMLPrototype;

/// The token source of a VRML file: a tokenizer with the VRML keywords and the check of the header line.
///
/// The version belongs to this object and not to a snapshot: while an inlined file is read, it stays that of the file
/// that was opened here. An object is used by one thread at a time. Only a failed allocation raises.
class QELVRML_EXPORT CVRMLIOManager final : public CGenericParser {
public:
  /// Nothing is being read: both tokens are the end of the input.
  CVRMLIOManager();
  /// A copy goes on reading at the same place; it shares the text, and its file interface is closed.
  /// @{
  CVRMLIOManager(const CVRMLIOManager&) = default;
  CVRMLIOManager& operator=(const CVRMLIOManager&) = default;
  /// @}
  /// Closes the file; snapshots keep the text that they share.
  ~CVRMLIOManager() { CloseFile(); }

  /// The version by the last header that was accepted here; VRMLVersion10 at first.
  /// @{
  VRMLVersionTypes GetVersion() const { return Version; }
  void SetVersion(VRMLVersionTypes version) { Version = version; }
  /// @}

  /// Opens the file that SetFilename named, reads it whole and checks its header: VRMLLoadOK, VRMLLoadFailed for a
  /// refused header, VRMLLoadOpenFailed for a file that can't be opened or read. Packed files aren't unpacked. An
  /// earlier file is closed. Afterwards the first token is the next one.
  VRMLLoadResultTypes OpenFile();
  /// Takes "#VRML V1.0 ascii" and "#VRML V2.0 utf8", in any case and with anything behind them; sets the version. False
  /// for any other first line, and when no file is open. OpenFile calls it.
  bool ReadFileHeader() override;

  /// What a token is: the value of a keyword, else that of its class. VRMLTokenUnknown for a plain word.
  static VRMLTokenTypes GetTokenType(const CGenericToken& token) {
    const GenericTokenTypes type = token.GetDataType();
    if (type == GenericTokenUserDefined) return static_cast<VRMLTokenTypes>(token.GetUserDefinedType());
    return type < TypesOfClasses.size() ? TypesOfClasses[type] : VRMLTokenUnknown;
  }
  /// The same for the current and the next token.
  /// @{
  VRMLTokenTypes GetCurrentTokenType() const { return GetTokenType(GetCurrentToken()); }
  VRMLTokenTypes GetNextTokenType() const { return GetTokenType(GetNextToken()); }
  /// @}
  /// Whether the token is {, [ or (.
  /// @{
  bool GetCurrentTokenBeginType() const { return IsBeginType(GetCurrentTokenType()); }
  bool GetNextTokenBeginType() const { return IsBeginType(GetNextTokenType()); }
  /// @}
  /// Whether the token is }, ] or ).
  /// @{
  bool GetCurrentTokenEndType() const { return IsEndType(GetCurrentTokenType()); }
  bool GetNextTokenEndType() const { return IsEndType(GetNextTokenType()); }
  /// @}
  /// The class of the token.
  /// @{
  GenericTokenTypes GetCurrentTokenDataType() const { return GetCurrentToken().GetDataType(); }
  GenericTokenTypes GetNextTokenDataType() const { return GetNextToken().GetDataType(); }
  /// @}
  /// Whether the token ends a field of a prototype's interface: the keyword of the next entry, ] or the end of input.
  /// @{
  bool GetCurrentTokenEndsField() const { return EndsField(GetCurrentTokenType()); }
  bool GetNextTokenEndsField() const { return EndsField(GetNextTokenType()); }
  /// @}

  // Capturing tokens as text: a blank behind every token but the last, a line feed behind every fifth. A quoted string
  // stands there without its quotes, and with shift codes for the characters that would end a word. Such a text is read
  // again by StartBufferReading. No prototype names are looked up.

  /// Measures or writes the current token and moves on; false at the end of the input.
  ///
  /// - `sum` and `count` grow by the length of the token's text and by 1; neither is null.
  /// - Without a place to write to (`out` or `*out` is null), a call only measures. Else `*out` moves behind what was
  ///   written; what separates tokens is stepped over, not written, but for line feeds: the room holds blanks.
  /// - `total` is the count of tokens of the text that is being written.
  bool CaptureToken(char** out, int* sum, int* count, int total);
  /// The same for the tokens of a value of that type, whose first token is the current one; ends behind it. False if
  /// there is no such value. `prototype` is only asked for with VRMLFieldMFNODE, which has no value without one.
  bool CaptureFieldValue(char** out, int* sum, int* count, int total, VRMLFieldTypes type,
                         const CVRMLPrototype* prototype);
  /// A value of that type as a new text from the system's allocator, which the caller releases with `free`; it isn't
  /// terminated. False, and no text, if there is none, and without memory for it.
  bool CaptureFieldText(char** text, int* length, VRMLFieldTypes type, const CVRMLPrototype* prototype);
  /// The block that opens at the current token, or with `fieldDefault` the default value of a prototype's field there,
  /// as such a text. Braces aren't part of it, brackets are. Ends behind what was captured: with braces, on the closing
  /// one. False, and no text, for an empty block, and without memory; false also, with a text of what there is, where
  /// the end of the input breaks off a list in [ ].
  bool CaptureBlockText(char** text, int* length, bool fieldDefault);
  /// Adds the current token's text in the form in which it stays one token when it is read again. Nothing moves.
  void AppendCapturedText(std::string& text);

private:
  template <class Take>
  bool CaptureList(Take take);
  template <class Take>
  bool CaptureTuple(Take take, int numbers);
  template <class Take>
  bool CaptureImage(Take take);
  template <class Take>
  bool CaptureNodes(Take take);
  template <class Take>
  bool CaptureValue(Take take, VRMLFieldTypes type, const CVRMLPrototype* prototype);
  bool CaptureBlock(char** text, int* length);
  bool CaptureDefault(char** text, int* length);
  void MeasureDefault(int& sum, int& count);
  bool WriteTokens(char* out, int length, int total);

  static bool IsBeginType(VRMLTokenTypes type) {
    return type == VRMLTokenOpenBrace || type == VRMLTokenOpenBracket || type == VRMLTokenOpenParen;
  }
  static bool IsEndType(VRMLTokenTypes type) {
    return type == VRMLTokenCloseBrace || type == VRMLTokenCloseBracket || type == VRMLTokenCloseParen;
  }
  static bool EndsField(VRMLTokenTypes type);

  /// By token class; a keyword gives its own value.
  static constexpr std::array<VRMLTokenTypes, 11> TypesOfClasses = {
      VRMLTokenUnknown,     VRMLTokenEndOfFile,    VRMLTokenOpenBrace, VRMLTokenCloseBrace,
      VRMLTokenOpenBracket, VRMLTokenCloseBracket, VRMLTokenOpenParen, VRMLTokenCloseParen,
      VRMLTokenSTRING,      VRMLTokenBoolean,      VRMLTokenNumber};
  static_assert(TypesOfClasses[GenericTokenNumber] == VRMLTokenNumber);

  VRMLVersionTypes Version = VRMLVersion10;
  std::string CaptureScratch;  ///< the text that is being captured
};
