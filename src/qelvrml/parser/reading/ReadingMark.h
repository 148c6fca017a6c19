#pragma once

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/genparse/TokenSource.h"

namespace qelvrml {

/// A place of the text that is being read, with the DEF name at hand there. It is much cheaper than a CGenericIOState,
/// and leads nowhere once another text is read.
class ReadingMark {
public:
  explicit ReadingMark(CVRMLParser& parser)
      : Place(parser.GetIOManager()->GetPlace()),
        DefinedEntity(parser.GetDefinedEntity()),
        EntityName(parser.GetEntityName()) {}

  /// False, and nothing moves, while another text is read.
  bool GoBackTo(CVRMLParser& parser) const {
    if (!parser.GetIOManager()->GoTo(Place)) return false;
    parser.SetDefinedEntity(DefinedEntity);
    parser.SetEntityName(EntityName);
    return true;
  }

private:
  ReadingPlace Place;
  bool DefinedEntity;
  CBasicString EntityName;
};

}  // namespace qelvrml
