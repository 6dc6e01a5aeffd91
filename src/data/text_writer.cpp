#include "data/text_writer.h"

#include <vector>

namespace quorvel {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kPieceBytes = 64 * 1024;

bool NeedsPoint(std::string_view value, ValueType type) {
  return type == ValueType::Float && value.find('.') == std::string_view::npos;
}

std::uint64_t KeyLineSize(const DataLeaf& leaf) {
  const std::string_view value = leaf.GetValue();
  const std::size_t quotes = leaf.GetValueType() == ValueType::String ? 2 : 0;
  const std::size_t point = NeedsPoint(value, leaf.GetValueType()) ? 1 : 0;
  return leaf.GetName().size() + 1 + value.size() + quotes + point + kLineEnd.size();
}

/// A branch's path below a prefix is the prefix itself for the root whose text begins here.
bool BeginsText(const DataBranch& branch, std::size_t prefixSize) {
  return prefixSize == 0 && !branch.GetParent();
}

std::uint64_t PathSize(const DataBranch& branch, std::uint64_t prefixSize) {
  const std::uint64_t separator = prefixSize == 0 ? 0 : 1;
  return BeginsText(branch, prefixSize) ? 0 : prefixSize + separator + branch.GetName().size();
}

/// A branch that begins with a branch needs no header: the sub-branches' headers carry whole paths.
bool HasHeader(const DataBranch& branch, std::uint64_t prefixSize) {
  const DataNode* first = branch.GetFirstChild();
  return !BeginsText(branch, prefixSize) && (!first || first->GetKind() == NodeKind::Leaf);
}

/// Appends a branch's header, if it has one, and makes its path of the prefix.
void AppendBranchLine(std::string& out, const DataBranch& branch, std::string& prefix) {
  const bool header = HasHeader(branch, prefix.size());
  if (!BeginsText(branch, prefix.size())) {
    if (!prefix.empty()) prefix += '/';
    prefix += branch.GetName();
  }
  if (header) AppendSectionLine(out, prefix);
}

void AppendTextLine(std::string& out, const DataNode& node, std::string& prefix) {
  if (node.GetKind() == NodeKind::Branch) {
    AppendBranchLine(out, static_cast<const DataBranch&>(node), prefix);
  } else {
    const auto& leaf = static_cast<const DataLeaf&>(node);
    AppendKeyLine(out, leaf.GetName(), leaf.GetValue(), leaf.GetValueType());
  }
}

void Send(std::streambuf& output, std::string& piece) {
  output.sputn(piece.data(), static_cast<std::streamsize>(piece.size()));
  piece.clear();
}

}  // namespace

void AppendKeyLine(std::string& out, std::string_view name, std::string_view value, ValueType type) {
  const std::string_view quote = type == ValueType::String ? "\"" : "";
  out.append(name).append("=").append(quote).append(value).append(quote);
  if (NeedsPoint(value, type)) out += '.';
  out.append(kLineEnd);
}

void AppendSectionLine(std::string& out, std::string_view path) {
  out.append("[").append(path).append("]").append(kLineEnd);
}

std::string DataNode::FormatTextLine(std::string& prefix) const {
  std::string line;
  AppendTextLine(line, *this, prefix);
  return line;
}

void DataNode::WriteText(std::streambuf* output, std::string_view prefix) const {
  if (!output) return;
  std::string piece;
  std::string path(prefix);
  std::vector<std::size_t> prefixSizes{path.size()};  // of the nodes that the walk is in, by depth
  for (DataWalk walk(*this); walk.Node(); walk.Next()) {
    prefixSizes.resize(walk.Depth() + 1);
    path.resize(prefixSizes.back());
    AppendTextLine(piece, *walk.Node(), path);
    prefixSizes.push_back(path.size());
    if (piece.size() >= kPieceBytes) Send(*output, piece);
  }
  Send(*output, piece);
}

std::uint64_t DataNode::TextSize(std::string_view prefix) const {
  std::uint64_t total = 0;
  std::vector<std::uint64_t> prefixSizes{prefix.size()};  // of the nodes that the walk is in, by depth
  for (DataWalk walk(*this); walk.Node(); walk.Next()) {
    prefixSizes.resize(walk.Depth() + 1);
    if (walk.Node()->GetKind() == NodeKind::Leaf) {
      total += KeyLineSize(static_cast<const DataLeaf&>(*walk.Node()));
      continue;
    }
    const auto& branch = static_cast<const DataBranch&>(*walk.Node());
    const std::uint64_t pathSize = PathSize(branch, prefixSizes.back());
    if (HasHeader(branch, prefixSizes.back())) total += pathSize + 2 + kLineEnd.size();
    prefixSizes.push_back(pathSize);
  }
  return total;
}

}  // namespace quorvel
