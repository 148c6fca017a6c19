#include "qelvrml/parser/load/Budget.h"

#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/load/ParserInternals.h"

namespace qelvrml {

bool CanMake(CVRMLParser& parser, const Making& making) {
  const std::uint64_t bytes = making.Objects * BytesOfAnObject + making.Points * BytesOfAPoint +
                              making.Indices * BytesOfAnIndex + making.Pixels * BytesOfAPixel +
                              making.Replays * BytesOfAReplay + making.ExpandedText * BytesOfAnExpandedByte;
  LoadState& load = ParserInternals::Load(parser);
  // Where text is passed over an object is dropped at once.
  const std::uint64_t share = load.PassingOver > 0 ? PassedOverShare : 1;
  const std::uint64_t steps = (making.Objects * StepsOfAnObject + making.Solids * StepsOfASolid) / share +
                              making.Points * StepsOfAPoint + making.Indices * StepsOfAnIndex +
                              making.Replays * StepsOfAReplay + making.ExpandedText * StepsOfAnExpandedByte +
                              making.Steps;
  if (!load.Running || load.Made.Spend(bytes, steps)) return true;
  Note(parser, VRMLNoteLimit, load.Made.HasBytes(bytes) ? limits::Time : limits::Memory);
  return false;
}

bool PayForSteps(CVRMLParser& parser, std::uint64_t steps) {
  LoadState& load = ParserInternals::Load(parser);
  if (!load.Running || load.Made.SpendDone(steps)) return true;
  Note(parser, VRMLNoteLimit, limits::Time);
  return false;
}

}  // namespace qelvrml
