#include "qelvrml/platform/brix/groups/brixBaseGroup.h"

namespace {

// Puts `item` behind the others. Nothing has changed hands if there is no memory for it.
template <class Item>
void Add(Item* item, brixBool takeOver, std::vector<Item*>& all, std::vector<std::unique_ptr<Item>>& owned) {
  all.push_back(item);
  if (takeOver != brixTrue) return;
  try {
    owned.emplace_back();
  } catch (...) {
    all.pop_back();
    throw;
  }
  owned.back().reset(item);
}

template <class Item>
Item* At(const std::vector<Item*>& all, int index) {
  return index >= 0 && index < static_cast<int>(all.size()) ? all[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace

brixBaseGroup::~brixBaseGroup() = default;

bool brixBaseGroup::AddGroup(brixBaseGroup* group, brixBool takeOver) {
  if (!group || group == this) return false;
  Add(group, takeOver, Groups, OwnedGroups);
  return true;
}

bool brixBaseGroup::AddObject(brixBaseObject* object, const brixMatProps& material, brixBool takeOver) {
  if (!object) return false;
  Add(object, takeOver, Objects, OwnedObjects);
  object->SetMatProps(material);
  return true;
}

brixBaseObject* brixBaseGroup::GetObjectAt(int index) const { return At(Objects, index); }
brixBaseGroup* brixBaseGroup::GetGroupAt(int index) const { return At(Groups, index); }

void brixBaseGroup::RecursiveUpdateBBox() {
  Box = {};
  for (const brixBaseObject* object : Objects) Box.Add(object->ComputeBBox());
  for (brixBaseGroup* group : Groups) {
    group->RecursiveUpdateBBox();
    Box.Add(group->Box);
  }
}

void brixBaseGroup::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) {
  for (brixBaseObject* object : Objects) object->ApplyMatrixToGeometry(matrix, updateBox);
  for (brixBaseGroup* group : Groups) group->ApplyMatrixToGeometry(matrix, updateBox);
}
