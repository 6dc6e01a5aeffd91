#pragma once

#include <cstddef>
#include <cstring>
#include <functional>
#include <memory_resource>
#include <new>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "data/data_tree.h"

namespace quorvel {

/// Memory of one tree: nodes, names, texts and indexes, given back all at once. Nothing in it is ever
/// destroyed alone.
class TreePool {
 public:
  template <class Node, class... Arguments>
  Node* New(Arguments&&... arguments) {
    return new (memory_.allocate(sizeof(Node), alignof(Node))) Node(std::forward<Arguments>(arguments)...);
  }

  std::string_view Copy(std::string_view text) {
    if (text.empty()) return {};
    char* copy = static_cast<char*>(memory_.allocate(text.size(), 1));
    std::memcpy(copy, text.data(), text.size());
    return {copy, text.size()};
  }

  std::pmr::memory_resource* Memory() { return &memory_; }

 private:
  std::pmr::monotonic_buffer_resource memory_;
};

/// The first child of each kind and name. Keys are the children's own names, so a child leaves before it is
/// renamed.
class ChildIndex {
 public:
  explicit ChildIndex(std::pmr::memory_resource* memory) : children_(memory) {}

  DataNode* Find(NodeKind kind, std::string_view name) const {
    const auto found = children_.find(Key{kind, name});
    return found == children_.end() ? nullptr : *found;
  }

  /// Does nothing but remember that names repeat when there is a child of that kind and name.
  void Add(DataNode* child) { repeated_ |= !children_.insert(child).second; }
  void Remove(DataNode* child) { children_.erase(child); }

  /// True when a name may stand for more than one child.
  bool Repeated() const { return repeated_; }

 private:
  struct Key {
    NodeKind kind;
    std::string_view name;
    bool operator==(const Key&) const = default;
  };
  static Key KeyOf(const Key& key) { return key; }
  static Key KeyOf(const DataNode* node) { return {node->GetKind(), node->GetName()}; }

  struct Hash {
    using is_transparent = void;
    template <class Any>
    std::size_t operator()(const Any& any) const {
      const Key key = KeyOf(any);
      return std::hash<std::string_view>()(key.name) + static_cast<std::size_t>(key.kind);
    }
  };
  struct Equal {
    using is_transparent = void;
    template <class A, class B>
    bool operator()(const A& a, const B& b) const {
      return KeyOf(a) == KeyOf(b);
    }
  };

  std::pmr::unordered_set<DataNode*, Hash, Equal> children_;
  bool repeated_ = false;
};

}  // namespace quorvel
