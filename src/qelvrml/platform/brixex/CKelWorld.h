#pragma once

#include <memory>
#include <utility>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brixex/CKelGroup.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

/// A whole model: the root of its groups and objects, with its textures. A host makes one and hands it to
/// CVRMLParser::Parse; it outlives the load.
class QELVRML_EXPORT CKelWorld : public CKelGroup {
public:
  /// An empty model with a texture manager.
  CKelWorld() : TextureManager(std::make_unique<CKelTextureManager>()) {}

  /// Owned by the world; null if SetTextureManager was given none.
  CKelTextureManager* GetTextureManager() const override { return TextureManager.get(); }
  /// Takes the manager over and deletes the one before, with its textures; null leaves the world without any.
  void SetTextureManager(std::unique_ptr<CKelTextureManager> manager) { TextureManager = std::move(manager); }

private:
  std::unique_ptr<CKelTextureManager> TextureManager;
};
