#pragma once

#include <cstdint>
#include <streambuf>
#include <string>
#include <vector>

#include "map/file/map_progress.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// The lines of one cell in the text form: the header of its branch, and a key line for each member but
/// objects. The same bytes as a data tree's own text, without the tree.
class CellLines {
 public:
  /// The contents must have a grid.
  explicit CellLines(const MapContents& contents);

  void Append(std::string& out, const CellRecord& record) const;

 private:
  struct MemberLine {
    std::string start;  ///< up to the value, an opening quote included
    MemberKind kind;
    std::int32_t offset;
  };

  void AppendValue(std::string& out, MemberKind kind, const std::byte* slot) const;

  ClassDef* cellClass_;
  std::vector<MemberLine> lines_;
};

/// Bytes of all cells' lines.
std::uint64_t MeasureTextCells(const MapContents& contents);

/// Writes all cells' lines, in ascending order of their index.
void WriteTextCells(const MapContents& contents, std::streambuf& out, MapProgress& progress);

}  // namespace quorvel
