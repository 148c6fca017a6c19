#pragma once

#include "foundation/Export.h"
#include "parser/VRMLTokenTypes.h"
#include "parser/VRMLTypes.h"
#include "platform/genparse/CGenericParser.h"

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

  static VRMLTokenTypes GetTokenType(const CGenericToken& token);
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

private:
  static bool IsBeginType(VRMLTokenTypes type);
  static bool IsEndType(VRMLTokenTypes type);
  static bool EndsField(VRMLTokenTypes type);

  VRMLVersionTypes Version = VRMLVersion10;
};
