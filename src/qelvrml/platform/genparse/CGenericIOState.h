#pragma once

#include <array>
#include <memory>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/genparse/CGenericToken.h"

namespace qelvrml {
struct TokenSource;
}  // namespace qelvrml

/// A snapshot of the state of a CGenericParser, its file's name and a buffer that is being read included, with room for
/// two values of the parser above it. It shares the text with its source and is cheap to take; a file that is read
/// stays in memory as long as a snapshot refers to it.
class QELVRML_EXPORT CGenericIOState {
public:
  /// An empty snapshot, which can't be restored.
  CGenericIOState() = default;
  /// Copies refer to the same place of the same text.
  /// @{
  CGenericIOState(const CGenericIOState&) = default;
  CGenericIOState(CGenericIOState&&) = default;
  CGenericIOState& operator=(const CGenericIOState&) = default;
  CGenericIOState& operator=(CGenericIOState&&) = default;
  /// @}
  virtual ~CGenericIOState() = default;

  /// Values that the parser above keeps here, and that CGenericParser leaves alone: whether a DEF names the node at
  /// hand, and that name. False and empty at first.
  /// @{
  bool GetDefinedEntity() const { return DefinedEntity; }
  void SetDefinedEntity(bool defined) { DefinedEntity = defined; }
  const CBasicString& GetEntityName() const { return EntityName; }
  void SetEntityName(const CBasicString& name) { EntityName = name; }
  /// @}

private:
  friend class CGenericParser;

  /// The whole state of reading tokens; cheap to copy, for the text is shared.
  struct ReadingState {
    CGenericToken& Current() { return Tokens[CurrentPlace]; }
    CGenericToken& Next() { return Tokens[1 - CurrentPlace]; }
    const CGenericToken& Current() const { return Tokens[CurrentPlace]; }
    const CGenericToken& Next() const { return Tokens[1 - CurrentPlace]; }

    std::shared_ptr<const qelvrml::TokenSource> Source;  ///< the text; null when nothing is being read
    std::shared_ptr<const CBasicString> Filename;
    const char* Position = nullptr;  ///< behind the next token
    std::array<CGenericToken, 2> Tokens;
    unsigned CurrentPlace = 0;  ///< of the current token in these; a token stays where it was read to
    bool ScanFailed = false;    ///< the last scan for a block's end has come to the end of the input
  };

  ReadingState Reading;
  bool DefinedEntity = false;
  CBasicString EntityName;
};
