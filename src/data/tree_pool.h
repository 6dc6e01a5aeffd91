#pragma once

#include <cstddef>
#include <cstring>
#include <deque>
#include <memory_resource>
#include <new>
#include <string_view>
#include <utility>

#include "data/child_index.h"

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

  ChildIndex* NewIndex() { return &indexes_.emplace_back(); }

 private:
  std::pmr::monotonic_buffer_resource memory_;
  std::deque<ChildIndex> indexes_;
};

}  // namespace quorvel
