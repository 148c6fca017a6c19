#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

#include <algorithm>
#include <new>
#include <string>
#include <string_view>

#include "qelvrml/platform/fileint/CKelFileInterface.h"
#include "qelvrml/platform/system/PathParts.h"

namespace {

constexpr std::u16string_view Separators = u"/\\";

// Whether a relative name leads to a place in the folder that it starts from.
bool StaysInside(std::u16string_view name) {
  if (name.empty() || Separators.find(name.front()) != std::u16string_view::npos) return false;
  while (!name.empty()) {
    const std::size_t end = std::min(name.find_first_of(Separators), name.size());
    if (name.substr(0, end) == u"..") return false;
    name.remove_prefix(std::min(end + 1, name.size()));
  }
  return true;
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
  const std::u16string_view whole = name.GetView();
  const std::u16string_view last = qelvrml::LastComponentOf(whole);
  for (const CBasicString& folder : AlternatePaths) {
    const auto add = [&](std::u16string_view candidate) {
      if (!StaysInside(candidate)) return;
      std::u16string path(folder.GetView());
      if (!path.empty() && path.back() != u'/') path += u'/';
      path.append(candidate);
      std::replace(path.begin() + static_cast<std::ptrdiff_t>(path.size() - candidate.size()), path.end(), u'\\', u'/');
      paths.emplace_back(path);
    };
    add(whole);
    if (last != whole) add(last);
  }
  return paths;
}

CBasicString CKelTextureManager::FindTextureFilenameUsingAlternatePaths(const CBasicString& name) const {
  for (const CBasicString& path : GetAlternatePathsOf(name)) {
    if (CKelFileInterface().Open(path)) return path;
  }
  return {};
}
