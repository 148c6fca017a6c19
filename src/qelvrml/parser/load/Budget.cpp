#include "qelvrml/parser/load/Budget.h"

#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/ParserInternals.h"

namespace qelvrml {

bool CanMake(CVRMLParser& parser, const Making& making) {
  const std::uint64_t bytes = making.Objects * BytesOfAnObject + making.Points * BytesOfAPoint +
                              making.Indices * BytesOfAnIndex + making.Pixels * BytesOfAPixel +
                              making.Replays * BytesOfAReplay + making.ExpandedText * BytesOfAnExpandedByte;
  const std::uint64_t steps = making.Objects * StepsOfAnObject + making.Points * StepsOfAPoint +
                              making.Indices * StepsOfAnIndex + making.Replays * StepsOfAReplay +
                              making.ExpandedText * StepsOfAnExpandedByte + making.Steps;
  LoadState& load = ParserInternals::Load(parser);
  return !load.Running || load.Made.Spend(bytes, steps);
}

bool PayForSteps(CVRMLParser& parser, std::uint64_t steps) {
  LoadState& load = ParserInternals::Load(parser);
  return !load.Running || load.Made.SpendDone(steps);
}

}  // namespace qelvrml
