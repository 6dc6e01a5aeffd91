#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "data/data_tree.h"

namespace quorvel {

/// A root that holds what the text says.
inline std::unique_ptr<DataBranch> TreeOf(const std::string& text) {
  auto root = std::make_unique<DataBranch>("");
  std::stringbuf input(text);
  root->ReadText(&input);
  return root;
}

inline std::string TextOf(const DataNode& node, std::string_view prefix = {}) {
  std::stringbuf output;
  node.WriteText(&output, prefix);
  return output.str();
}

/// The tree's nodes in pre-order, one a line: depth, kind, name, and a leaf's type and value.
inline std::string Outline(const DataNode& top) {
  std::string outline;
  for (DataWalk walk(top); walk.Node(); walk.Next()) {
    outline += std::to_string(walk.Depth()) + " ";
    if (walk.Node()->GetKind() == NodeKind::Leaf) {
      const auto& leaf = static_cast<const DataLeaf&>(*walk.Node());
      const int type = static_cast<int>(leaf.GetValueType());
      outline +=
          std::string(leaf.GetName()) + ":" + std::to_string(type) + "=" + std::string(leaf.GetValue());
    } else {
      outline += "[" + std::string(walk.Node()->GetName()) + "]";
    }
    outline += "\n";
  }
  return outline;
}

}  // namespace quorvel
