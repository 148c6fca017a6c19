// Placing finished objects in the model.

#include <new>

#include "qelvrml/parser/CVRMLParser.h"

bool CVRMLParser::AddObjectToSeparator(brixBaseObject* object) { return PlaceObject(object); }
bool CVRMLParser::AddObjectToSeparator(brixBaseObject* object, int index) { return PlaceObject(object, index); }

bool CVRMLParser::AddObjectToSeparator(brixBaseObject* object, int part, int first, int count) {
  return PlaceObject(object, part, first, count);
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
  try {
    AttachTexture(object);
  } catch (const std::bad_alloc&) {
    ClearTextureCoordinates();  // the object stays in the model without its texture
  }
  return true;
}
