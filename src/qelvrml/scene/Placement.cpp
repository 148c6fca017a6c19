// Placing finished objects in the model.

#include <memory>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/ParserInternals.h"

namespace {

// Places an object through one of the forms of CVRMLSeparator::AddObject.
template <class... Choice>
bool PlaceObject(CVRMLParser& parser, brixBaseObject* object, Choice... choice) {
  std::unique_ptr<brixBaseObject> owned(object);
  if (!object) return false;
  if (!parser.CanAddObjectToSeparator()) return true;
  parser.SetupObjectAdd(object);
  if (!parser.GetCurrentSeparator()->AddObject(object, choice...)) return false;
  owned.release();
  ++qelvrml::ParserInternals::Load(parser).ObjectsAdded;
  return true;
}

}  // namespace

bool CVRMLParser::AddObjectToSeparator(brixBaseObject* object) { return PlaceObject(*this, object); }
bool CVRMLParser::AddObjectToSeparator(brixBaseObject* object, int index) { return PlaceObject(*this, object, index); }

bool CVRMLParser::AddObjectToSeparator(brixBaseObject* object, int part, int first, int count) {
  return PlaceObject(*this, object, part, first, count);
}

void CVRMLParser::SetupObjectAdd(brixBaseObject* object) {
  if (CurrentSeparator && object) object->SetObjectName(brixWRope(EntityName.GetWideText()));
}

bool CVRMLSeparator::AddObject(brixBaseObject* object) { return Group && object && AddObject(object, GetMatProps()); }

bool CVRMLSeparator::AddObject(brixBaseObject* object, int index) {
  return Group && object && AddObject(object, GetMatProps(index));
}

bool CVRMLSeparator::AddObject(brixBaseObject* object, int part, int first, int count) {
  return Group && object && AddObject(object, GetPartMaterial(part, first, count));
}

bool CVRMLSeparator::AddObject(brixBaseObject* object, const brixMatProps& material) {
  if (!Group || !object) return false;
  brixMatProps copy = material;
  ApplyTextureMaterial(copy);
  if (!Group->AddObject(object, copy, brixTrue)) return false;
  AttachTexture(object);
  return true;
}
