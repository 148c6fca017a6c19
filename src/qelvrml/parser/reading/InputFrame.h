#pragma once

#include "qelvrml/parser/CVRMLParser.h"

namespace qelvrml {

/// Text that is read in the place of a node: at the end of this object the parser reads on where it was, with the DEF
/// name that it had, also when nothing was being read.
class InputFrame {
public:
  explicit InputFrame(CVRMLParser& parser)
      : Parser(parser), DefinedEntity(parser.GetDefinedEntity()), EntityName(parser.GetEntityName()) {
    Parser.SaveIOState(State);
  }
  InputFrame(const InputFrame&) = delete;
  InputFrame& operator=(const InputFrame&) = delete;
  ~InputFrame() {
    Parser.RestoreIOState(State);
    Parser.SetDefinedEntity(DefinedEntity);
    Parser.GetEntityName() = std::move(EntityName);
  }

private:
  CVRMLParser& Parser;
  CGenericIOState State;
  bool DefinedEntity;
  CBasicString EntityName;
};

}  // namespace qelvrml
