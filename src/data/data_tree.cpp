#include "data/data_tree.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/tree_pool.h"

namespace quorvel {
namespace {

/// A branch with more children than this finds them by an index.
constexpr std::uint32_t kIndexAbove = 16;

}  // namespace

// ---- Lookups

const DataNode* DataBranch::FindNode(std::string_view path, NodeKind kind) const {
  if (path.empty()) return kind == NodeKind::Branch ? this : nullptr;
  const DataBranch* branch = this;
  std::string_view head = PopPathHead(path);
  for (; !path.empty(); head = PopPathHead(path)) {
    branch = static_cast<const DataBranch*>(branch->FindChild(NodeKind::Branch, head));
    if (!branch) return nullptr;
  }
  if (kind == NodeKind::Branch && branch->GetName() == head) return branch;
  return branch->FindChild(kind, head);
}

DataNode* DataBranch::FindNode(std::string_view path, NodeKind kind) {
  return const_cast<DataNode*>(std::as_const(*this).FindNode(path, kind));
}

const DataBranch* DataBranch::FindBranch(std::string_view path) const {
  return static_cast<const DataBranch*>(FindNode(path, NodeKind::Branch));
}

DataBranch* DataBranch::FindBranch(std::string_view path) {
  return static_cast<DataBranch*>(FindNode(path, NodeKind::Branch));
}

const DataLeaf* DataBranch::FindLeaf(std::string_view path) const {
  return static_cast<const DataLeaf*>(FindNode(path, NodeKind::Leaf));
}

DataLeaf* DataBranch::FindLeaf(std::string_view path) {
  return static_cast<DataLeaf*>(FindNode(path, NodeKind::Leaf));
}

bool DataBranch::GetLeafValue(std::string_view path, std::string* value, ValueType* type) const {
  const DataLeaf* leaf = FindLeaf(path);
  if (!leaf) return false;
  if (value) *value = leaf->GetValue(type);
  return true;
}

DataNode* DataBranch::GetFirstChildOfKind(NodeKind kind) const {
  if (kind == NodeKind::Leaf) return GetFirstLeaf();
  return kind == NodeKind::Branch ? GetFirstBranch() : nullptr;
}

DataLeaf* DataBranch::GetFirstLeaf() const {
  return lastLeaf_ ? static_cast<DataLeaf*>(firstChild_) : nullptr;
}

DataBranch* DataBranch::GetFirstBranch() const {
  return static_cast<DataBranch*>(lastLeaf_ ? lastLeaf_->next_ : firstChild_);
}

DataNode* DataBranch::FindChild(NodeKind kind, std::string_view name) const {
  if (index_) return index_->Find(kind, name);
  for (DataNode* child = GetFirstChildOfKind(kind); child; child = child->GetNextOfKind(kind)) {
    if (child->name_ == name) return child;
  }
  return nullptr;
}

// ---- Making and copying

DataBranch::DataBranch(std::string_view name) : DataNode(NodeKind::Branch, nullptr) {
  auto pool = std::make_unique<TreePool>();
  name_ = pool->Copy(name);
  pool_ = pool.release();
}

DataBranch::~DataBranch() {
  delete pool_;
}  // runs for roots only: a pool's nodes are destroyed with the pool

DataBranch* DataBranch::GetBranch(std::string_view path) {
  DataBranch* branch = this;
  while (!path.empty()) {
    const std::string_view head = PopPathHead(path);
    if (head.empty()) continue;
    DataNode* child = branch->FindChild(NodeKind::Branch, head);
    branch = child ? static_cast<DataBranch*>(child) : branch->AddBranch(head);
  }
  return branch;
}

DataLeaf* DataBranch::SetLeaf(std::string_view path, std::string_view value, ValueType type) {
  if (path.empty()) return nullptr;
  if (DataLeaf* leaf = FindLeaf(path)) {
    leaf->SetValue(value, type);
    return leaf;
  }
  DataBranch* branch = this;
  std::string_view head = PopPathHead(path);
  for (; !path.empty(); head = PopPathHead(path)) branch = branch->GetBranch(head);
  return branch->AddLeaf(head, value, type);
}

DataBranch* DataBranch::AddBranch(std::string_view name) {
  if (name.empty()) return nullptr;
  auto* branch = pool_->New<DataBranch>(this, pool_);
  branch->name_ = pool_->Copy(name);
  Link(branch);
  return branch;
}

DataLeaf* DataBranch::AddLeaf(std::string_view name, std::string_view value, ValueType type) {
  if (name.empty()) return nullptr;
  auto* leaf = pool_->New<DataLeaf>(this);
  leaf->name_ = pool_->Copy(name);
  leaf->value_ = pool_->Copy(value);
  leaf->type_ = type;
  Link(leaf);
  return leaf;
}

DataNode* DataBranch::AddCopy(const DataNode* node) {
  if (!node) return nullptr;
  if (node->GetKind() == NodeKind::Leaf) {
    const auto* leaf = static_cast<const DataLeaf*>(node);
    return SetLeaf(leaf->GetName(), leaf->GetValue(), leaf->GetValueType());
  }
  const auto& source = static_cast<const DataBranch&>(*node);
  if (source.pool_ != pool_) {
    DataBranch* target = GetBranch(source.GetName());
    target->MergeChildren(source);
    return target;
  }
  DataBranch aside("");  // within one tree a copy could feed on what it makes
  aside.MergeChildren(source);
  DataBranch* target = GetBranch(source.GetName());
  target->MergeChildren(aside);
  return target;
}

void DataBranch::CopyFrom(const DataBranch& source) {
  if (&source == this) return;
  if (source.pool_ == pool_) {  // clearing could destroy the source
    DataBranch aside("");
    aside.CopyFrom(source);
    CopyFrom(aside);
    return;
  }
  Clear();
  MergeChildren(source);
  const DataBranch* parent = GetParent();
  if (!parent || !parent->FindLeaf(source.GetName())) SetName(source.GetName());
}

void DataBranch::MergeChildren(const DataBranch& source) {
  std::vector<DataBranch*> targets{this};  // of the branches that the walk is in
  DataWalk walk(source);
  for (walk.Next(); walk.Node(); walk.Next()) {
    targets.resize(walk.Depth());
    if (walk.Node()->GetKind() == NodeKind::Branch) {
      targets.push_back(targets.back()->GetBranch(walk.Node()->GetName()));
    } else {
      targets.back()->AddCopy(walk.Node());
    }
  }
}

// ---- Ending

void DataBranch::Clear() {
  ForgetChildren();
  if (GetParent()) return;
  auto fresh = std::make_unique<TreePool>();
  name_ = fresh->Copy(name_);
  delete pool_;
  pool_ = fresh.release();
}

void DataBranch::ForgetChildren() {
  firstChild_ = lastChild_ = lastLeaf_ = nullptr;
  leafCount_ = branchCount_ = 0;
  index_ = nullptr;
}

bool DataBranch::RemoveNode(std::string_view path, NodeKind kind) {
  DataNode* node = FindNode(path, kind);
  if (!node || !node->GetParent()) return false;
  node->GetParent()->Unlink(node);
  return true;
}

// ---- The child chain and its index

void DataBranch::Link(DataNode* child) {
  if (!index_ && leafCount_ + branchCount_ == kIndexAbove) {
    ChildIndex* index = pool_->NewIndex();
    for (DataNode* node = firstChild_; node; node = node->next_) index->Add(node);
    index_ = index;
  }
  if (index_) index_->Add(child);

  const bool isLeaf = child->kind_ == NodeKind::Leaf;
  DataNode* previous = isLeaf ? lastLeaf_ : lastChild_;
  DataNode*& link = previous ? previous->next_ : firstChild_;
  child->next_ = link;
  link = child;
  if (!child->next_) lastChild_ = child;
  if (isLeaf) lastLeaf_ = child;
  ++(isLeaf ? leafCount_ : branchCount_);
}

void DataBranch::Unlink(DataNode* child) {
  LeaveIndex(child);
  DataNode* previous = nullptr;
  for (DataNode* node = firstChild_; node != child; node = node->next_) previous = node;
  (previous ? previous->next_ : firstChild_) = child->next_;
  if (lastChild_ == child) lastChild_ = previous;
  if (lastLeaf_ == child) lastLeaf_ = previous;
  --(child->kind_ == NodeKind::Leaf ? leafCount_ : branchCount_);
}

/// Takes the child out; the next one of its name, if any, becomes the first.
void DataBranch::LeaveIndex(DataNode* child) {
  if (!index_ || index_->Find(child->kind_, child->name_) != child) return;
  index_->Remove(child);
  if (!index_->Repeated()) return;
  DataNode* next = child->GetNextOfKind(child->kind_);
  while (next && next->name_ != child->name_) next = next->GetNextOfKind(child->kind_);
  if (next) index_->Add(next);
}

/// Puts a child of the chain in, which becomes the first of its name unless another stands before it.
void DataBranch::EnterIndex(DataNode* child) {
  if (!index_) return;
  DataNode* first = index_->Find(child->kind_, child->name_);
  index_->Add(child);
  if (!first) return;
  const DataNode* later = child;
  while (later && later != first) later = later->GetNextOfKind(child->kind_);
  if (!later) return;
  index_->Remove(first);
  index_->Add(child);
}

}  // namespace quorvel
