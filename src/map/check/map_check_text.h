#pragma once

#include <optional>
#include <streambuf>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "data/data_tree.h"
#include "map/check/map_check.h"

namespace quorvel {

/// Where a path leads below the branch of the cells.
struct CellPlace {
  std::string_view cell;  ///< name of the cell's branch
  std::string_view rest;  ///< path below it, empty for the cell itself
};

/// None for a path that does not lead below the branch of the cells.
std::optional<CellPlace> PlaceAmongCells(std::string_view path);

/// All of a file's text but its cells, as a tree that knows from which lines it comes.
class NumberedText {
 public:
  /// Reads the text from the start of the file. Reports ignored lines, also those among the cells, and
  /// sections and leaves that are given again.
  NumberedText(std::streambuf& file, const ProblemSink& report);

  const DataBranch& Tree() const { return tree_; }
  /// The line that first named a branch or last set a leaf.
  std::uint64_t LineOf(const DataNode& node) const;
  /// Where the text ends in the file: at its end or at a zero byte.
  std::uint64_t EndPosition() const { return endPosition_; }

 private:
  void BeginSection(std::string_view path, std::uint64_t line, const ProblemSink& report);
  void SetLeaf(std::string_view section, std::string_view key, std::string_view value, ValueType type,
               std::uint64_t line, const ProblemSink& report);
  void NameBranches(const DataBranch* branch, std::uint64_t line);

  DataBranch tree_{""};
  std::unordered_map<const DataNode*, std::uint64_t> lines_;
  std::unordered_set<const DataBranch*> sections_;
  DataBranch* section_ = &tree_;  ///< null among the cells
  std::uint64_t endPosition_ = 0;
};

}  // namespace quorvel
