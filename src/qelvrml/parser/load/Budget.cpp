#include "qelvrml/parser/load/Budget.h"

#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/ParserInternals.h"

namespace qelvrml {

bool CanMake(CVRMLParser& parser, const Making& making) {
  const std::uint64_t cost = making.Objects * BytesOfAnObject + making.Points * BytesOfAPoint +
                             making.Indices * BytesOfAnIndex + making.Pixels * BytesOfAPixel +
                             making.Replays * BytesOfAReplay + making.ExpandedText * BytesOfAnExpandedByte;
  LoadState& load = ParserInternals::Load(parser);
  return !load.Running || load.Made.Spend(cost);
}

}  // namespace qelvrml
