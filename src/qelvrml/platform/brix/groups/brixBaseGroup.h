#pragma once

#include <vector>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixBBox.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

class CKelTextureManager;

/// A named group of objects and further groups; both in order of adding.
class QELVRML_EXPORT brixBaseGroup {
public:
  brixBaseGroup() = default;
  brixBaseGroup(const brixBaseGroup&) = delete;
  brixBaseGroup& operator=(const brixBaseGroup&) = delete;
  /// Deletes the group with what it owns.
  virtual ~brixBaseGroup();

  virtual void SetGroupName(const brixWRope& name) { Name = name; }
  const brixWRope& GetGroupName() const { return Name; }

  /// Adds a child; with `takeOver` this group owns it from now on. False for null and for the group itself.
  virtual bool AddGroup(brixBaseGroup* group, brixBool takeOver);
  /// Gives the object its material and adds it; with `takeOver` this group owns it from now on. False for null.
  virtual bool AddObject(brixBaseObject* object, const brixMatProps& material, brixBool takeOver);

  int GetNumObjects() const { return static_cast<int>(Objects.size()); }
  int GetNumGroups() const { return static_cast<int>(Groups.size()); }
  /// Null for a bad index.
  brixBaseObject* GetObjectAt(int index) const;
  brixBaseGroup* GetGroupAt(int index) const;

  /// Brings the boxes of this group and of all below it up to date.
  void RecursiveUpdateBBox();
  /// As RecursiveUpdateBBox left it.
  const brixBBox& GetBBox() const { return Box; }
  /// Brings all geometry of the group and of those below it to another place.
  virtual void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox);
  /// Null, but for a world.
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
