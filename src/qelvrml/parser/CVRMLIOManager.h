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
/// that was opened here.
class QELVRML_EXPORT CVRMLIOManager final : public CGenericParser {
public:
  CVRMLIOManager();
  CVRMLIOManager(const CVRMLIOManager&) = default;
  CVRMLIOManager& operator=(const CVRMLIOManager&) = default;
  ~CVRMLIOManager() { CloseFile(); }

  VRMLVersionTypes GetVersion() const { return Version; }
  void SetVersion(VRMLVersionTypes version) { Version = version; }

  /// Opens the file that SetFilename named and reads its header: VRMLLoadOK, VRMLLoadFailed for a refused header,
  /// VRMLLoadOpenFailed for a file that can't be opened or read.
  VRMLLoadResultTypes OpenFile();
  /// Takes "#VRML V1.0 ascii" and "#VRML V2.0 utf8", in any case and with anything behind them; sets the version.
  bool ReadFileHeader() override;

  static VRMLTokenTypes GetTokenType(const CGenericToken& token) {
    const GenericTokenTypes type = token.GetDataType();
    if (type == GenericTokenUserDefined) return static_cast<VRMLTokenTypes>(token.GetUserDefinedType());
    return type < TypesOfClasses.size() ? TypesOfClasses[type] : VRMLTokenUnknown;
  }
  VRMLTokenTypes GetCurrentTokenType() const { return GetTokenType(GetCurrentToken()); }
  VRMLTokenTypes GetNextTokenType() const { return GetTokenType(GetNextToken()); }
  /// Whether the token is {, [ or (.
  bool GetCurrentTokenBeginType() const { return IsBeginType(GetCurrentTokenType()); }
  bool GetNextTokenBeginType() const { return IsBeginType(GetNextTokenType()); }
  /// Whether the token is }, ] or ).
  bool GetCurrentTokenEndType() const { return IsEndType(GetCurrentTokenType()); }
  bool GetNextTokenEndType() const { return IsEndType(GetNextTokenType()); }
  GenericTokenTypes GetCurrentTokenDataType() const { return GetCurrentToken().GetDataType(); }
  GenericTokenTypes GetNextTokenDataType() const { return GetNextToken().GetDataType(); }
  /// Whether the token ends a field of a prototype's interface: the keyword of the next entry, ] or the end of input.
  bool GetCurrentTokenEndsField() const { return EndsField(GetCurrentTokenType()); }
  bool GetNextTokenEndsField() const { return EndsField(GetNextTokenType()); }

  // Capturing tokens as text. Without a place to write to, a call only measures: it adds to the sum of the texts'
  // lengths and to the count of tokens; `total` is the count of the text that is being written. No prototype names are
  // looked up.

  /// Measures or writes the current token and moves on; false at the end of the input.
  bool CaptureToken(char** out, int* sum, int* count, int total);
  /// The same for the tokens of a value of that type; false if none was taken.
  bool CaptureFieldValue(char** out, int* sum, int* count, int total, VRMLFieldTypes type,
                         const CVRMLPrototype* prototype);
  /// A value of that type as a new text, which the caller frees. False, and no text, if there is none.
  bool CaptureFieldText(char** text, int* length, VRMLFieldTypes type, const CVRMLPrototype* prototype);
  /// The block that opens at the current token, or the default value there, as a new text, which the caller frees.
  /// Braces aren't part of the text, brackets are. False, and no text, for an empty block.
  bool CaptureBlockText(char** text, int* length, bool fieldDefault);
  /// Adds the current token's text in the form in which it stays one token when it is read again.
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
