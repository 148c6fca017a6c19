#include "platform/brixex/CKelTextureManager.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "foundation/TextConversion.h"

namespace {

namespace fs = std::filesystem;

bool StaysInside(const fs::path& name) {
  if (name.empty() || name.is_absolute()) return false;
  for (const fs::path& component : name) {
    if (component == "..") return false;
  }
  return true;
}

bool IsFile(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
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
  const bool named = texture->GetFilename().GetLength() > 0;
  if (named) TexturesByName.emplace(std::u16string(texture->GetFilename().GetView()), texture);
  Textures.emplace_back();
  Textures.back().reset(texture);
  texture->SetTextureID(GetNumberTextures());
  return texture->GetTextureID();
}

bool CKelTextureManager::RegisterTextureCoordinate(CKelTextureCoordinate* coordinate) {
  if (!coordinate) return false;
  const auto [place, added] = Coordinates.try_emplace(static_cast<unsigned int>(coordinate->GetParentGeometryID()));
  if (added) place->second.reset(coordinate);
  return added;
}

const CKelTextureCoordinate* CKelTextureManager::FindTextureCoordinate(unsigned int objectId) const {
  const auto found = Coordinates.find(objectId);
  return found == Coordinates.end() ? nullptr : found->second.get();
}

CBasicString CKelTextureManager::FindTextureFilenameUsingAlternatePaths(const CBasicString& name) const {
  const std::optional<std::string> narrow = qelvrml::Narrow(name.GetView());
  if (!narrow || narrow->empty()) return {};
  const fs::path wanted(*narrow);
  for (const CBasicString& folder : AlternatePaths) {
    const std::optional<std::string> narrowFolder = qelvrml::Narrow(folder.GetView());
    if (!narrowFolder) continue;
    for (const fs::path& candidate : {wanted, wanted.filename()}) {
      const fs::path path = fs::path(*narrowFolder) / candidate;
      if (StaysInside(candidate) && IsFile(path)) return CBasicString(std::string_view(path.native()));
    }
  }
  return {};
}
