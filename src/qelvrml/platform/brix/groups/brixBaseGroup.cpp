#include "qelvrml/platform/brix/groups/brixBaseGroup.h"

namespace {

template <class Children>
auto* At(const Children& children, int index) {
  const bool valid = index >= 0 && static_cast<std::size_t>(index) < children.size();
  return valid ? children[static_cast<std::size_t>(index)].Here : nullptr;
}

template <class Children>
void DeleteOwned(const Children& children) {
  for (const auto& child : children) {
    if (child.Owned) delete child.Here;
  }
}

}  // namespace

brixBaseGroup::~brixBaseGroup() {
  DeleteOwned(Groups);
  DeleteOwned(Objects);
}

bool brixBaseGroup::AddGroup(brixBaseGroup* group, brixBool takeOver) {
  if (!group || group == this) return false;
  Groups.push_back({group, takeOver == brixTrue});
  return true;
}

bool brixBaseGroup::AddObject(brixBaseObject* object, const brixMatProps& material, brixBool takeOver) {
  if (!object) return false;
  Objects.push_back({object, takeOver == brixTrue});
  object->SetMatProps(material);
  return true;
}

brixBaseObject* brixBaseGroup::GetObjectAt(int index) const { return At(Objects, index); }
brixBaseGroup* brixBaseGroup::GetGroupAt(int index) const { return At(Groups, index); }

void brixBaseGroup::RecursiveUpdateBBox() {
  Box = {};
  for (const auto& object : Objects) Box.Add(object.Here->ComputeBBox());
  for (const auto& group : Groups) {
    group.Here->RecursiveUpdateBBox();
    Box.Add(group.Here->Box);
  }
}

void brixBaseGroup::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) {
  for (const auto& object : Objects) object.Here->ApplyMatrixToGeometry(matrix, updateBox);
  for (const auto& group : Groups) group.Here->ApplyMatrixToGeometry(matrix, updateBox);
}
