#include "cli/tree_dump.h"

#include <vector>

#include "cli/dump_words.h"

namespace quorvel {

namespace {

/// The path of the node that a walk stands on, escaped once a node rather than once a line below it.
class PathText {
 public:
  void Enter(std::size_t depth, std::string_view name) {
    ends_.resize(depth);
    text_.resize(ends_.empty() ? 0 : ends_.back());
    if (!text_.empty()) text_ += '/';
    AppendEscapedName(text_, name);
    ends_.push_back(text_.size());
  }

  const std::string& Text() const { return text_; }

 private:
  std::string text_;
  std::vector<std::size_t> ends_;  ///< where the path of each ancestor ends
};

void AppendLeaf(std::string& line, const std::string& path, const DataLeaf& leaf) {
  line += "L ";
  line += path;
  line += ' ';
  AppendDecimal(line, static_cast<std::int32_t>(leaf.GetValueType()));
  line += ' ';
  AppendHexText(line, leaf.GetValue());
}

}  // namespace

void DumpTree(const DataBranch& root, Results& out) {
  PathText path;
  DataWalk walk(root);
  for (walk.Next(); walk.Node() && !out.Failed(); walk.Next()) {
    path.Enter(walk.Depth() - 1, walk.Node()->GetName());
    if (walk.Node()->GetKind() == NodeKind::Leaf)
      AppendLeaf(out.Line(), path.Text(), static_cast<const DataLeaf&>(*walk.Node()));
    else
      out.Line().append("B ").append(path.Text());
    out.EndLine();
  }
}

}  // namespace quorvel
