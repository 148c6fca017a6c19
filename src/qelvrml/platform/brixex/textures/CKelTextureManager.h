#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brixex/textures/CKelTexture.h"
#include "qelvrml/platform/brixex/textures/CKelTextureCoordinate.h"

/// Holds and numbers the textures of a model, and how they lie on its objects. It owns both; what it gives is good as
/// long as the manager lives. Several threads can read it as long as nobody changes it.
class QELVRML_EXPORT CKelTextureManager {
public:
  /// Without textures and without folders to look in.
  CKelTextureManager() = default;
  CKelTextureManager(const CKelTextureManager&) = delete;
  CKelTextureManager& operator=(const CKelTextureManager&) = delete;
  virtual ~CKelTextureManager() = default;

  /// How many textures are registered; their ids are 1 up to this.
  int GetNumberTextures() const { return static_cast<int>(Textures.size()); }
  /// The first texture that was registered with exactly that file name, or null.
  CKelTexture* GetTexture(const CBasicString& filename) const;
  /// In order of registration, from 0 on, so that the texture with the id n stands at n - 1; null for a bad index.
  const CKelTexture* GetTextureAt(int index) const;
  /// Takes the texture over and gives its id, from 1 on. -1 for null and when there is no memory for the entry: the
  /// texture stays with the caller, and the manager as it was.
  int RegisterTexture(CKelTexture* texture);
  /// Takes the record over, one for each object. False for null, for an object that has one and when there is no memory
  /// for the entry: the record stays with the caller, and the manager as it was.
  bool RegisterTextureCoordinate(CKelTextureCoordinate* coordinate);
  /// How a texture lies on the object of that id; null if none does.
  const CKelTextureCoordinate* FindTextureCoordinate(unsigned int objectId) const;

  /// Adds a folder in which images are looked for, behind those added before. Raises std::bad_alloc.
  void AddAlternatePath(const CBasicString& folder) { AlternatePaths.push_back(folder); }
  /// The paths at which an image is looked for, in their order: in each folder the name as it stands, if it stays
  /// inside the folder, then its last component; both without components "." and empty ones.
  std::vector<CBasicString> GetAlternatePathsOf(const CBasicString& name) const;
  /// The first of these paths that names a regular file which can be opened, also if the case of its letters differs;
  /// empty if none does.
  CBasicString FindTextureFilenameUsingAlternatePaths(const CBasicString& name) const;

private:
  std::vector<std::unique_ptr<CKelTexture>> Textures;
  std::unordered_map<std::u16string, CKelTexture*> TexturesByName;
  std::unordered_map<unsigned int, std::unique_ptr<CKelTextureCoordinate>> Coordinates;  ///< by the object's id
  std::vector<CBasicString> AlternatePaths;
};
