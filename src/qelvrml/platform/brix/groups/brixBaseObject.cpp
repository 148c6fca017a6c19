#include "qelvrml/platform/brix/groups/brixBaseObject.h"

#include <atomic>

namespace {

unsigned int NextId() {
  static std::atomic<unsigned int> last = 0;
  return ++last;
}

}  // namespace

brixBaseObject::brixBaseObject() : Id(NextId()) {}

std::size_t brixBaseObject::CountTriangles(double chordTolerance) const {
  brixEvaluation evaluation;
  Evaluate(chordTolerance, evaluation);
  return evaluation.Triangles.size() / 3;
}
