#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "data/data_tree.h"

namespace quorvel {

/// Finds the first child of a kind and name. Keys are the children's own names, so a child leaves before it
/// is renamed. A flat table, probed linearly: with a node a child in a standard container, reading a million
/// leaves into one branch took three times as long.
class ChildIndex {
 public:
  /// Null when there is none.
  DataNode* Find(NodeKind kind, std::string_view name) const {
    return slots_[PlaceOf(HashOf(kind, name), kind, name)].child;
  }

  /// Does nothing but remember that names repeat when there is a child of that kind and name.
  void Add(DataNode* child);
  /// Takes out a child that `Find` finds.
  void Remove(const DataNode* child);

  /// True when a name may stand for more than one child.
  bool Repeated() const { return repeated_; }

 private:
  struct Slot {
    std::size_t hash = 0;
    DataNode* child = nullptr;
    bool IsFree() const { return !child && hash == 0; }
  };
  static constexpr std::size_t kRemoved = 1;  ///< hash of a slot whose child left: searches go on behind it

  static std::size_t HashOf(NodeKind kind, std::string_view name);
  std::size_t PlaceOf(std::size_t hash, NodeKind kind, std::string_view name) const;
  void Put(std::size_t hash, DataNode* child);
  void MakeRoom();

  std::vector<Slot> slots_ = std::vector<Slot>(64);  ///< a power of two, never full
  std::size_t usedCount_ = 0;                        ///< slots that are not free
  std::size_t childCount_ = 0;
  bool repeated_ = false;
};

}  // namespace quorvel
