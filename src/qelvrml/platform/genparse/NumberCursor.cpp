#include "qelvrml/platform/genparse/NumberCursor.h"

#include "qelvrml/platform/genparse/NumberText.h"

namespace qelvrml {

bool NumberCursor::TakeOther(double& value) {
  const char* end = Place;
  while (Classes[static_cast<unsigned char>(*end)] == CharacterClass::Word) ++end;
  return ReadNumber({Place, static_cast<std::size_t>(end - Place)}, value) && StepBehind(end);
}

}  // namespace qelvrml
