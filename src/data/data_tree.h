#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <streambuf>
#include <string>
#include <string_view>

namespace quorvel {

class DataBranch;
class ChildIndex;
class TreePool;

/// What a node is. The codes are part of the interface.
enum class NodeKind : std::int32_t { Leaf = 0, Branch = 1 };

/// How the text form writes a leaf's value. Any other code is kept and written like Int.
enum class ValueType : std::int32_t { Int = 0, Float = 1, String = 2 };

/// What ends a line of text.
enum class LineEnds {
  /// CR, and any LF that follows; within a line an LF is a byte like any other.
  CarriageReturn,
  /// LF, CR or CR LF, as other programs leave them; a byte order mark at the start is skipped.
  Any
};

/// Cuts `path` at its first '/' or '\': answers what stands before it and leaves what follows. Without a
/// separator the whole path is the head and nothing is left.
std::string_view PopPathHead(std::string_view& path);

/// A named node of a data tree. A tree is a root branch and everything below it; nodes come from the root's
/// pool and live until they, an ancestor or the root are destroyed. Views of names and values are good as
/// long as their node keeps them.
class DataNode {
 public:
  DataNode(const DataNode&) = delete;
  DataNode& operator=(const DataNode&) = delete;

  NodeKind GetKind() const { return kind_; }
  std::string_view GetName() const { return name_; }
  void SetName(std::string_view name);

  /// The branch that holds this node; null for a root and for a leaf that stands alone.
  DataBranch* GetParent() const { return parent_; }

  DataNode* GetNext() const { return next_; }
  DataNode* GetNextOfKind(NodeKind kind) const;
  class DataLeaf* GetNextLeaf() const;
  DataBranch* GetNextBranch() const;

  /// A leaf answers with itself, whatever the path.
  DataNode* FindNode(std::string_view path, NodeKind kind);
  const DataNode* FindNode(std::string_view path, NodeKind kind) const;

  /// The text of the node's own line in the text form; empty for a branch without a header. A branch extends
  /// `prefix` to its own path, a leaf does not use it.
  std::string FormatTextLine(std::string& prefix) const;

  /// Writes the node and everything below it in the text form. A null stream writes nothing; what the stream
  /// refuses is for the stream to remember.
  void WriteText(std::streambuf* output, std::string_view prefix = {}) const;

  /// The number of bytes that `WriteText` writes, in time linear in the number of nodes.
  std::uint64_t TextSize(std::string_view prefix = {}) const;

 protected:
  DataNode(NodeKind kind, DataBranch* parent) : parent_(parent), kind_(kind) {}
  ~DataNode() = default;

  /// The tree's pool; null for a leaf that stands alone.
  TreePool* Pool() const;

 private:
  friend class DataLeaf;
  friend class DataBranch;

  DataBranch* parent_;
  DataNode* next_ = nullptr;
  std::string_view name_;
  NodeKind kind_;
};

/// A value, always held as text; the type tells only how the text form writes it.
class DataLeaf : public DataNode {
 public:
  /// A leaf that stands alone and owns its texts. Leaves of a tree are made by their branch.
  DataLeaf(std::string_view name, std::string_view value, ValueType type);
  ~DataLeaf();

  /// The value; its type too when asked for.
  std::string_view GetValue(ValueType* type = nullptr) const;
  ValueType GetValueType() const { return type_; }

  /// Replaces both and answers the new text.
  std::string_view SetValue(std::string_view value, ValueType type);

 private:
  friend class DataNode;
  friend class DataBranch;
  friend class TreePool;

  explicit DataLeaf(DataBranch* parent) : DataNode(NodeKind::Leaf, parent) {}

  ValueType type_ = ValueType::Int;
  std::string_view value_;
};

/// A branch owns its children: all leaves first, then all branches, each in order of creation. Lookups take
/// the first of a name, in constant time on average however many children there are.
class DataBranch : public DataNode {
 public:
  /// An empty root.
  explicit DataBranch(std::string_view name);
  ~DataBranch();

  /// The node at the path, or null. The last component also matches the branch itself when a branch is looked
  /// for, before its children.
  DataNode* FindNode(std::string_view path, NodeKind kind);
  const DataNode* FindNode(std::string_view path, NodeKind kind) const;
  DataBranch* FindBranch(std::string_view path);
  const DataBranch* FindBranch(std::string_view path) const;
  DataLeaf* FindLeaf(std::string_view path);
  const DataLeaf* FindLeaf(std::string_view path) const;

  /// The branch at the path, made with all that is missing on the way. Empty components stand for the branch
  /// itself.
  DataBranch* GetBranch(std::string_view path);

  /// The leaf that now holds the value, made when missing; null for an empty path or an empty last component.
  DataLeaf* SetLeaf(std::string_view path, std::string_view value, ValueType type);

  /// True when there is such a leaf; its text goes to `value`, and its type to `type` if both are given.
  bool GetLeafValue(std::string_view path, std::string* value, ValueType* type = nullptr) const;

  /// A new last child, whatever children there are; null for an empty name.
  DataBranch* AddBranch(std::string_view name);
  /// A new last child leaf, ahead of the branches, whatever children there are; null for an empty name.
  DataLeaf* AddLeaf(std::string_view name, std::string_view value, ValueType type);

  /// Merges a copy of the node into this branch, names read as paths: leaves are overwritten, branches
  /// joined. Answers what received the copy; null for a null node or a leaf without a name.
  DataNode* AddCopy(const DataNode* node);

  /// Becomes a copy of the source, name included (unless a sibling leaf of this branch has that name).
  void CopyFrom(const DataBranch& source);

  /// Destroys all children. A root's pool gives back its memory here; other branches give it back with their
  /// root.
  void Clear();

  /// Destroys the node that `FindNode` finds; false when there is none or it is a root.
  bool RemoveNode(std::string_view path, NodeKind kind);
  bool RemoveLeaf(std::string_view path) { return RemoveNode(path, NodeKind::Leaf); }
  bool RemoveBranch(std::string_view path) { return RemoveNode(path, NodeKind::Branch); }

  DataNode* GetFirstChild() const { return firstChild_; }
  DataNode* GetFirstChildOfKind(NodeKind kind) const;
  DataLeaf* GetFirstLeaf() const;
  DataBranch* GetFirstBranch() const;
  std::int32_t CountLeaves() const { return static_cast<std::int32_t>(leafCount_); }
  std::int32_t CountBranches() const { return static_cast<std::int32_t>(branchCount_); }

  /// Reads a text form whole, adding to what is there. A null stream reads nothing.
  void ReadText(std::streambuf* input, LineEnds lineEnds = LineEnds::CarriageReturn);

  /// Turns one key line into a leaf below this branch; null when the line is ignored.
  DataLeaf* ParseLine(std::string_view line);

 private:
  friend class DataNode;
  friend class TreePool;

  DataBranch(DataBranch* parent, TreePool* pool) : DataNode(NodeKind::Branch, parent), pool_(pool) {}

  DataNode* FindChild(NodeKind kind, std::string_view name) const;
  void Link(DataNode* child);
  void Unlink(DataNode* child);
  void EnterIndex(DataNode* child);
  void LeaveIndex(DataNode* child);
  void ForgetChildren();
  void MergeChildren(const DataBranch& source);

  std::uint32_t leafCount_ = 0;
  std::uint32_t branchCount_ = 0;
  DataNode* firstChild_ = nullptr;
  DataNode* lastChild_ = nullptr;
  DataNode* lastLeaf_ = nullptr;
  ChildIndex* index_ = nullptr;  ///< finds children by name; only a branch of many children has one
  TreePool* pool_;               ///< owned by the root
};

/// Visits a node and everything below it in pre-order, at any depth, without recursion:
/// `for (DataWalk walk(top); walk.Node(); walk.Next()) ...`
class DataWalk {
 public:
  explicit DataWalk(const DataNode& top) : node_(&top) {}

  /// The node visited now; null after the last one.
  const DataNode* Node() const { return node_; }
  /// 0 at the top node.
  std::size_t Depth() const { return depth_; }
  void Next();

 private:
  const DataNode* node_;
  std::size_t depth_ = 0;
};

}  // namespace quorvel
