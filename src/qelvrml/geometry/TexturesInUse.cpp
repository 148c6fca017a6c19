#include "qelvrml/geometry/TexturesInUse.h"

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

bool qelvrml::HasTextures(const CVRMLParser& parser) {
  const CKelTextureManager* manager = parser.GetTextureManager();
  return manager && manager->GetNumberTextures() > 0;
}
