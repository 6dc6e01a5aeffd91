#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "data/data_tree.h"
#include "data/tree_pool.h"

// Nodes and leaves, and the walk over them; branches are in data_tree.cpp.

namespace quorvel {
namespace {

/// Puts `text` in place of a text in the pool, in the same memory when it fits (the two may overlap).
void ReplaceText(TreePool& pool, std::string_view& held, std::string_view text) {
  if (text.size() > held.size()) {
    held = pool.Copy(text);
    return;
  }
  if (!text.empty()) std::memmove(const_cast<char*>(held.data()), text.data(), text.size());
  held = held.substr(0, text.size());
}

/// Puts `text` in place of a text that a leaf without a tree owns.
void ReplaceOwnText(std::string_view& held, std::string_view text) {
  auto copy = text.empty() ? nullptr : std::make_unique<char[]>(text.size());
  if (copy) std::memcpy(copy.get(), text.data(), text.size());
  delete[] held.data();
  held = {copy.release(), text.size()};
}

}  // namespace

std::string_view PopPathHead(std::string_view& path) {
  const auto isSeparator = [](char byte) { return byte == '/' || byte == '\\'; };
  const auto separator = std::find_if(path.begin(), path.end(), isSeparator);
  const std::string_view head = path.substr(0, static_cast<std::size_t>(separator - path.begin()));
  path.remove_prefix(std::min(head.size() + 1, path.size()));
  return head;
}

// ---- DataNode

TreePool* DataNode::Pool() const {
  if (kind_ == NodeKind::Branch) return static_cast<const DataBranch*>(this)->pool_;
  return parent_ ? parent_->pool_ : nullptr;
}

void DataNode::SetName(std::string_view name) {
  TreePool* pool = Pool();
  if (!pool) {
    ReplaceOwnText(name_, name);
    return;
  }
  if (parent_) parent_->LeaveIndex(this);
  ReplaceText(*pool, name_, name);
  if (parent_) parent_->EnterIndex(this);
}

DataNode* DataNode::GetNextOfKind(NodeKind kind) const {
  if (kind == NodeKind::Leaf) return GetNextLeaf();
  return kind == NodeKind::Branch ? GetNextBranch() : nullptr;
}

DataLeaf* DataNode::GetNextLeaf() const {
  return next_ && next_->kind_ == NodeKind::Leaf ? static_cast<DataLeaf*>(next_) : nullptr;
}

DataBranch* DataNode::GetNextBranch() const {
  if (kind_ == NodeKind::Leaf) return parent_ ? parent_->GetFirstBranch() : nullptr;
  return static_cast<DataBranch*>(next_);
}

const DataNode* DataNode::FindNode(std::string_view path, NodeKind kind) const {
  if (kind_ == NodeKind::Leaf) return this;
  return static_cast<const DataBranch*>(this)->FindNode(path, kind);
}

DataNode* DataNode::FindNode(std::string_view path, NodeKind kind) {
  return const_cast<DataNode*>(std::as_const(*this).FindNode(path, kind));
}

// ---- DataLeaf

DataLeaf::DataLeaf(std::string_view name, std::string_view value, ValueType type) : DataLeaf(nullptr) {
  SetName(name);
  SetValue(value, type);
}

DataLeaf::~DataLeaf() {
  ReplaceOwnText(name_, {});
  ReplaceOwnText(value_, {});
}

std::string_view DataLeaf::GetValue(ValueType* type) const {
  if (type) *type = type_;
  return value_;
}

std::string_view DataLeaf::SetValue(std::string_view value, ValueType type) {
  if (TreePool* pool = Pool()) {
    ReplaceText(*pool, value_, value);
  } else {
    ReplaceOwnText(value_, value);
  }
  type_ = type;
  return value_;
}

// ---- DataWalk

void DataWalk::Next() {
  if (node_->GetKind() == NodeKind::Branch) {
    if (const DataNode* child = static_cast<const DataBranch*>(node_)->GetFirstChild()) {
      node_ = child;
      ++depth_;
      return;
    }
  }
  while (depth_ > 0 && !node_->GetNext()) {
    node_ = node_->GetParent();
    --depth_;
  }
  node_ = depth_ > 0 ? node_->GetNext() : nullptr;
}

}  // namespace quorvel
