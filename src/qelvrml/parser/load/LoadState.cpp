#include "qelvrml/parser/load/LoadState.h"

#include "qelvrml/parser/load/ParserInternals.h"

namespace qelvrml {

LoadRun::LoadRun(CVRMLParser& parser) : Load(ParserInternals::Load(parser)), Outermost(!Load.Running) {
  if (!Outermost) return;
  Load = LoadState();
  Load.Running = true;
  Load.EarlierScopes = parser.GetSeparatorStack()->GetCount();
}

LoadRun::~LoadRun() {
  if (Outermost) Load = LoadState();
}

}  // namespace qelvrml
