#include "qelvrml/parser/load/LoadState.h"

#include "qelvrml/parser/load/ParserInternals.h"

namespace qelvrml {

LoadRun::LoadRun(CVRMLParser& parser) : Load(ParserInternals::Load(parser)), Outermost(!Load.Running) {
  if (Outermost) Load = LoadState();
  Load.Running = true;
}

LoadRun::~LoadRun() {
  if (Outermost) Load = LoadState();
}

}  // namespace qelvrml
