#include "data/child_index.h"

#include <functional>
#include <utility>

namespace quorvel {

void ChildIndex::Add(DataNode* child) {
  const std::size_t hash = HashOf(child->GetKind(), child->GetName());
  if (slots_[PlaceOf(hash, child->GetKind(), child->GetName())].child) {
    repeated_ = true;
    return;
  }
  if ((usedCount_ + 1) * 4 > slots_.size() * 3) MakeRoom();
  Put(hash, child);
  ++childCount_;
}

void ChildIndex::Remove(const DataNode* child) {
  const std::size_t hash = HashOf(child->GetKind(), child->GetName());
  slots_[PlaceOf(hash, child->GetKind(), child->GetName())] = {kRemoved, nullptr};
  --childCount_;
}

std::size_t ChildIndex::HashOf(NodeKind kind, std::string_view name) {
  return std::hash<std::string_view>()(name) + static_cast<std::size_t>(kind);
}

/// The slot of the child, or the free one where the search ends.
std::size_t ChildIndex::PlaceOf(std::size_t hash, NodeKind kind, std::string_view name) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
    const Slot& slot = slots_[place];
    if (slot.IsFree()) return place;
    if (slot.child && slot.hash == hash && slot.child->GetKind() == kind && slot.child->GetName() == name) {
      return place;
    }
  }
}

void ChildIndex::Put(std::size_t hash, DataNode* child) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = hash & mask;
  while (!slots_[place].IsFree()) place = (place + 1) & mask;
  slots_[place] = {hash, child};
  ++usedCount_;
}

/// At most half full after it; slots of children that left become free.
void ChildIndex::MakeRoom() {
  std::size_t size = slots_.size();
  while (size < childCount_ * 2) size *= 2;
  std::vector<Slot> old(size);
  std::swap(old, slots_);
  usedCount_ = 0;
  for (const Slot& slot : old) {
    if (slot.child) Put(slot.hash, slot.child);
  }
}

}  // namespace quorvel
