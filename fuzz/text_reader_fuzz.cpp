#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

#include "data/data_tree.h"
#include "data/text_reader.h"

// Reads any bytes into a tree and holds the tree to its laws: what is measured is written, copies are equal,
// a tree whose names the text form can hold comes back as it was, and every child can be taken out by its
// name.

namespace {

using namespace quorvel;

constexpr std::uint64_t kMaxWritten = 1 << 20;  // short keys deep down write far more than was read

void Require(bool law) {
  if (!law) std::abort();
}

void Read(DataBranch& root, const std::string& text) {
  std::stringbuf input(text);
  root.ReadText(&input);
}

std::string Written(const DataBranch& root) {
  std::stringbuf output;
  root.WriteText(&output);
  return output.str();
}

bool SameNode(const DataNode& a, const DataNode& b) {
  if (a.GetKind() != b.GetKind() || a.GetName() != b.GetName()) return false;
  if (a.GetKind() == NodeKind::Branch) return true;
  const auto& leafA = static_cast<const DataLeaf&>(a);
  const auto& leafB = static_cast<const DataLeaf&>(b);
  return leafA.GetValue() == leafB.GetValue() && leafA.GetValueType() == leafB.GetValueType();
}

/// Whether two roots hold the same, whatever their own names.
bool SameTree(const DataBranch& a, const DataBranch& b) {
  DataWalk walkA(a), walkB(b);
  for (walkA.Next(), walkB.Next(); walkA.Node() && walkB.Node(); walkA.Next(), walkB.Next()) {
    if (walkA.Depth() != walkB.Depth() || !SameNode(*walkA.Node(), *walkB.Node())) return false;
  }
  return !walkA.Node() && !walkB.Node();
}

/// Whether the lines are short enough, and no leaf's name would be taken for something else.
bool SurvivesText(const DataBranch& root, std::string_view text) {
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = text.find('\r', begin);
    if (end - begin > kMaxLineBytes) return false;
    begin = end + 2;
  }
  for (DataWalk walk(root); walk.Node(); walk.Next()) {
    if (walk.Node()->GetKind() == NodeKind::Branch) continue;
    const std::string_view name = walk.Node()->GetName();
    if (name.front() == '[' || name.front() == '\n') return false;
    if (std::string_view(" \t\n\f\r\v").find(name.back()) != std::string_view::npos) return false;
  }
  return true;
}

void TakeOutEveryChild(DataBranch& root) {
  while (const DataNode* child = root.GetFirstChild()) {
    Require(root.RemoveNode(std::string(child->GetName()), child->GetKind()));
  }
  Require(root.CountLeaves() == 0 && root.CountBranches() == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  DataBranch root("root");
  Read(root, std::string(reinterpret_cast<const char*>(data), size));
  if (root.TextSize() > kMaxWritten) return 0;
  const std::string text = Written(root);
  Require(text.size() == root.TextSize());

  DataBranch copy("");
  copy.CopyFrom(root);
  const bool namesAreUnique = SameTree(root, copy);
  Require(namesAreUnique || copy.TextSize() < text.size());

  if (namesAreUnique && SurvivesText(root, text)) {
    DataBranch again("");
    Read(again, text);
    Require(SameTree(root, again));
  }
  if (!root.FindBranch("root/root")) TakeOutEveryChild(root);
  return 0;
}
