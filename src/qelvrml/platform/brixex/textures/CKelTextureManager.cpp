#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

#include <algorithm>
#include <new>
#include <string>
#include <string_view>

#include "qelvrml/platform/fileint/CKelFileInterface.h"
#include "qelvrml/platform/fileint/FolderIndex.h"
#include "qelvrml/platform/system/PathParts.h"

namespace {

constexpr std::u16string_view Separators = u"/\\";

// A relative name with "/" between its components and without those that lead nowhere, "." and empty ones; nothing for
// a name that leads out of the folder that it starts from.
std::u16string PathInside(std::u16string_view name) {
  std::u16string path;
  if (name.empty() || Separators.find(name.front()) != std::u16string_view::npos) return path;
  while (!name.empty()) {
    const std::size_t end = std::min(name.find_first_of(Separators), name.size());
    const std::u16string_view component = name.substr(0, end);
    name.remove_prefix(std::min(end + 1, name.size()));
    if (component == u"..") return {};
    if (component.empty() || component == u".") continue;
    if (!path.empty()) path += u'/';
    path += component;
  }
  return path;
}

}  // namespace

CKelTexture* CKelTextureManager::GetTexture(const CBasicString& filename) const {
  const auto found = TexturesByName.find(std::u16string(filename.GetView()));
  return found == TexturesByName.end() ? nullptr : found->second;
}

const CKelTexture* CKelTextureManager::GetTextureAt(int index) const {
  return index >= 0 && index < GetNumberTextures() ? Textures[static_cast<std::size_t>(index)].get() : nullptr;
}

int CKelTextureManager::RegisterTexture(CKelTexture* texture) {
  if (!texture) return -1;
  const std::size_t count = Textures.size();
  try {
    Textures.emplace_back();
    const std::u16string_view name = texture->GetFilename().GetView();
    if (!name.empty()) TexturesByName.emplace(name, texture);
  } catch (const std::bad_alloc&) {
    Textures.resize(count);
    return -1;
  }
  Textures.back().reset(texture);
  texture->SetTextureID(GetNumberTextures());
  return texture->GetTextureID();
}

bool CKelTextureManager::RegisterTextureCoordinate(CKelTextureCoordinate* coordinate) {
  if (!coordinate) return false;
  try {
    const auto [place, added] = Coordinates.try_emplace(static_cast<unsigned int>(coordinate->GetParentGeometryID()));
    if (added) place->second.reset(coordinate);
    return added;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

const CKelTextureCoordinate* CKelTextureManager::FindTextureCoordinate(unsigned int objectId) const {
  const auto found = Coordinates.find(objectId);
  return found == Coordinates.end() ? nullptr : found->second.get();
}

std::vector<CBasicString> CKelTextureManager::GetAlternatePathsOf(const CBasicString& name) const {
  std::vector<CBasicString> paths;
  const std::u16string whole = PathInside(name.GetView());
  const std::u16string last = PathInside(qelvrml::LastComponentOf(name.GetView()));
  for (const CBasicString& folder : AlternatePaths) {
    const auto add = [&](const std::u16string& candidate) {
      std::u16string path(folder.GetView());
      if (!path.empty() && path.back() != u'/') path += u'/';
      paths.emplace_back(path + candidate);
    };
    if (!whole.empty()) add(whole);
    if (!last.empty() && last != whole) add(last);
  }
  return paths;
}

CBasicString CKelTextureManager::FindTextureFilenameUsingAlternatePaths(const CBasicString& name) const {
  qelvrml::FolderIndex folders;
  CKelFileInterface file;
  file.SetFolders(&folders);
  for (const CBasicString& path : GetAlternatePathsOf(name)) {
    if (file.Open(path)) return path;
  }
  return {};
}
