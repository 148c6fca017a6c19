#pragma once

#include <memory>
#include <utility>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brixex/CKelGroup.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

/// A whole model: the root of its groups and objects, with its textures.
class QELVRML_EXPORT CKelWorld : public CKelGroup {
public:
  CKelWorld() : TextureManager(std::make_unique<CKelTextureManager>()) {}

  CKelTextureManager* GetTextureManager() const override { return TextureManager.get(); }
  /// Takes the manager over; null leaves the world without textures.
  void SetTextureManager(std::unique_ptr<CKelTextureManager> manager) { TextureManager = std::move(manager); }

private:
  std::unique_ptr<CKelTextureManager> TextureManager;
};
