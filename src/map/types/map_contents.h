#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "data/class_def.h"
#include "data/data_tree.h"
#include "data/type_list.h"
#include "map/grid/hex_grid.h"
#include "map/types/file_form.h"

namespace quorvel {

/// Everything that a map is: its types, its grid and the values of its cells. Moved as a whole; a map is read
/// or made into one of these and adopted by a document when complete.
///
/// A cell's values are an instance of `m_pCellClass`, which owns it; the grid's records only name it. A cell
/// without a record stands for the class's defaults.
struct MapContents {
  /// The branch "Classes" that the types were built from; null: none.
  std::unique_ptr<DataBranch> m_pClasses;
  std::unique_ptr<TypeList> m_pTypes = std::make_unique<TypeList>();  ///< in the order of their declaration
  ClassDef* m_pMapClass = nullptr;    ///< the first class "Map" in m_pTypes, or null
  ClassDef* m_pCellClass = nullptr;   ///< the first class "Cell" in m_pTypes, or null
  std::unique_ptr<CellGrid> m_pGrid;  ///< null until a map is made or loaded; null after a refused file
  /// A byte a cell of the grid; bit 0: marked. Null without grid.
  std::unique_ptr<std::uint8_t[]> m_pCellMarks;
  /// Number of the form of the map's file; see FormOf.
  int m_nDataType = DataTypeOf(FileForm::Text);
};

/// The form in which the map is saved.
inline FileForm FormOf(const MapContents& contents) {
  return FileFormOf(contents.m_nDataType);
}

/// Told when a value of a cell was stored.
class CellListener {
 public:
  virtual ~CellListener() = default;
  virtual void OnCellChanged(const CellRecord& record) = 0;
};

/// Whether a grid of this size with the contents' cell class is within the limits; if not, lines in the error
/// text say why. To be asked before MakeGrid.
bool CheckMap(const MapContents& contents, std::int64_t width, std::int64_t height, std::string& errorText);

/// The same of a map whose cells all get values: also all of them together must be within the limits.
bool CheckFullMap(const MapContents& contents, std::int64_t width, std::int64_t height,
                  std::string& errorText);

/// Gives the contents an empty grid and marks, all clear. The size is one that CheckMapSize accepts. Throws
/// std::bad_alloc when memory runs out, and the contents keep what they had.
void MakeGrid(MapContents& contents, int width, int height);

/// Bytes that the values of one cell take; 0 without a cell class.
std::uint64_t CellBlockBytes(const MapContents& contents);

/// The cell's record with a fresh instance of defaults, in place of what it may have had. None, and no record
/// left, outside the grid or when the cell class has no bytes. Throws std::bad_alloc when memory runs out,
/// and the cell is as it was.
std::optional<CellRecord> CreateCell(MapContents& contents, CellCoord cell);

}  // namespace quorvel
