#pragma once

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/genparse/TokenSource.h"

/// A snapshot of the state of a CGenericParser, its file's name and a buffer that is being read included, with room for
/// two values of the parser above it. It shares the text with its source and is cheap to take.
class QELVRML_EXPORT CGenericIOState {
public:
  CGenericIOState() = default;
  CGenericIOState(const CGenericIOState&) = default;
  CGenericIOState(CGenericIOState&&) = default;
  CGenericIOState& operator=(const CGenericIOState&) = default;
  CGenericIOState& operator=(CGenericIOState&&) = default;
  virtual ~CGenericIOState() = default;

  bool GetDefinedEntity() const { return DefinedEntity; }
  void SetDefinedEntity(bool defined) { DefinedEntity = defined; }
  const CBasicString& GetEntityName() const { return EntityName; }
  void SetEntityName(const CBasicString& name) { EntityName = name; }

private:
  friend class CGenericParser;

  qelvrml::ReadingState Reading;
  bool DefinedEntity = false;
  CBasicString EntityName;
};
