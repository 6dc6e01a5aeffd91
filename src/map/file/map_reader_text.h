#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/data_tree.h"
#include "map/file/map_progress.h"
#include "map/types/map_contents.h"

namespace quorvel {

struct MapSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

/// The size that the tree of a text form gives, else the defaults of the map class; 0 for what neither gives.
MapSize ReadTextSize(const DataBranch& tree, const ClassDef* mapClass);

/// Makes the cells of a text form, as long as their values stay within the memory that a file of that size
/// may take.
class TextCells {
 public:
  /// The contents must have a grid and a cell class.
  TextCells(MapContents& contents, std::uint64_t fileBytes, std::string& errorText);

  /// The cell's record with fresh defaults; none outside the grid, when no instance can be made, and when
  /// refused.
  std::optional<CellRecord> Make(std::int32_t index);
  /// Whether there were too many cells; a line in the error text says so.
  bool IsRefused() const { return refused_; }

 private:
  MapContents& contents_;
  const std::uint64_t fileBytes_;
  const std::uint64_t blockBytes_;
  const std::uint64_t maxCells_;
  std::string& errorText_;
  bool refused_ = false;
};

/// Sets one member of an instance to what the cell's leaf of its name says, or to its default when there is
/// none.
void ReadCellValueText(const MemberDef& member, ClassInstance instance, const DataBranch& cell);

/// Makes every cell that the tree names, in its order, until `cells` refuses one.
void LoadTreeCells(const DataBranch& tree, TextCells& cells, const MapContents& contents,
                   MapProgress& progress);

}  // namespace quorvel
