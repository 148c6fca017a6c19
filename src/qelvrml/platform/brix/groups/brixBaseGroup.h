#pragma once

#include <vector>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixBBox.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

class CKelTextureManager;

/// A named group of objects and further groups; both in order of adding.
///
/// Children are added, never removed; one that is owned must have no other owner, and no group may stand below itself.
/// Several threads can read a group as long as nobody changes it or what is below it.
class QELVRML_EXPORT brixBaseGroup {
public:
  /// An empty group without a name.
  brixBaseGroup() = default;
  brixBaseGroup(const brixBaseGroup&) = delete;
  brixBaseGroup& operator=(const brixBaseGroup&) = delete;
  /// Deletes the group with what it owns.
  virtual ~brixBaseGroup();

  /// The name, which need not be unique; empty at first.
  /// @{
  virtual void SetGroupName(const brixWRope& name) { Name = name; }
  const brixWRope& GetGroupName() const { return Name; }
  /// @}

  /// Adds a child; with `takeOver` this group owns it from now on. False for null and for the group itself. Where this
  /// gives false or raises std::bad_alloc, the child stays with the caller.
  virtual bool AddGroup(brixBaseGroup* group, brixBool takeOver);
  /// Gives the object its material and adds it; with `takeOver` this group owns it from now on. False for null.
  /// Where this gives false or raises std::bad_alloc, the object stays with the caller.
  virtual bool AddObject(brixBaseObject* object, const brixMatProps& material, brixBool takeOver);

  /// How many children of that kind there are, without those further down.
  /// @{
  int GetNumObjects() const { return static_cast<int>(Objects.size()); }
  int GetNumGroups() const { return static_cast<int>(Groups.size()); }
  /// @}
  /// The child at `index`, from 0 on; null for a bad index. The group goes on owning what it owns.
  /// @{
  brixBaseObject* GetObjectAt(int index) const;
  brixBaseGroup* GetGroupAt(int index) const;
  /// @}

  /// Brings the boxes of this group and of all below it up to date.
  void RecursiveUpdateBBox();
  /// The box around all below, in world coordinates, as RecursiveUpdateBBox left it; empty at first.
  const brixBBox& GetBBox() const { return Box; }
  /// Brings all geometry of the group and of those below it to another place. The groups' boxes stay as they are until
  /// RecursiveUpdateBBox is called; `updateBox` is only handed to the objects.
  virtual void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox);
  /// The textures of the model; null, but for a world. Not handed over.
  virtual CKelTextureManager* GetTextureManager() const { return nullptr; }

private:
  template <class Item>
  struct Child {
    Item* Here;
    bool Owned;
  };

  std::vector<Child<brixBaseObject>> Objects;
  std::vector<Child<brixBaseGroup>> Groups;
  brixWRope Name;
  brixBBox Box;
};
