#include "qelvrml/platform/brix/groups/brixBaseObject.h"

#include <atomic>

namespace {

unsigned int NextId() {
  static std::atomic<unsigned int> last = 0;
  return ++last;
}

}  // namespace

brixBaseObject::brixBaseObject() : Id(NextId()) {}
