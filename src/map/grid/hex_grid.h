#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "map/grid/cell_metrics.h"
#include "platform/documents/cell_coord.h"

namespace quorvel {

enum class ClassInstance : std::uint32_t;
class CellGrid;

/// What a grid knows of one cell that carries data. A value, good for as long as the record is neither
/// removed nor given other data.
struct CellRecord {
  std::int32_t column = -1;
  std::int32_t row = -1;
  std::int32_t index = -1;
  ClassInstance data{};  ///< number of the cell's instance in the cell class, which owns it; 0: none yet
  const CellGrid* grid = nullptr;  ///< the grid that holds the record
};

/// Rectangle of flat-top cells; odd columns sit half a cell lower. Knows no properties: a record's data is
/// opaque. Cell index: row * width + column; -1 means no cell.
///
/// Cells that carry data have a record. Records are found by their cell's index and stepped through in
/// ascending order, both in nearly constant time; a record takes some 4 bytes where many cells of a
/// neighbourhood have one.
class CellGrid {
 public:
  /// Both sides at least 1, width * height below 2^31. No record.
  CellGrid(std::int32_t width, std::int32_t height);
  CellGrid(const CellGrid&) = delete;
  CellGrid& operator=(const CellGrid&) = delete;
  ~CellGrid();

  std::int32_t Width() const { return width_; }
  std::int32_t Height() const { return height_; }
  std::int32_t CellCount() const { return width_ * height_; }

  bool IsValid(CellCoord cell) const;
  bool IsValid(std::int32_t index) const { return index >= 0 && index < CellCount(); }
  /// -1 for a cell outside the grid.
  std::int32_t IndexOf(CellCoord cell) const;
  /// (-1, -1) for an index outside the grid.
  CellCoord CoordOf(std::int32_t index) const;

  /// Index of the cell one step from `index`, -1 at the edge and for an index outside the grid. Directions
  /// run counter-clockwise from 0 = upper right, so the way back from d is (d + 3) % 6; any other direction
  /// stays put.
  std::int32_t Neighbour(std::int32_t index, int direction) const;
  /// The same for all six directions at once.
  std::array<std::int32_t, 6> Neighbours(std::int32_t index) const;

  std::optional<CellRecord> Find(std::int32_t index) const;
  /// The record with the lowest index above `index`; Following(-1) is the first.
  std::optional<CellRecord> Following(std::int32_t index) const;
  /// The cell's record, made without data if there is none. None outside the grid. Throws std::bad_alloc when
  /// memory runs out, and no record was made then.
  std::optional<CellRecord> FindOrCreate(CellCoord cell);
  /// Takes the record out and answers the one that followed it. A record of another grid, or one that is no
  /// longer there, changes nothing and gives none. Never touches the data.
  std::optional<CellRecord> Remove(const CellRecord& record);
  void RemoveAll();
  /// Gives the record of `index` its data; nothing happens where there is no record.
  void SetData(std::int32_t index, ClassInstance data);
  /// FindOrCreate and SetData in one, for a loop over very many cells. Nothing happens outside the grid.
  void CreateWith(std::int32_t index, ClassInstance data);
  std::int32_t Count() const { return count_; }

  /// The outline of a cell at `cellSize` pixels; false and nothing filled for a cell outside the grid.
  bool GetCellPolygon(float cellSize, CellCoord cell, CellPolygon& points) const;
  /// The sides asked for (non-null) of a cell's bounding rectangle (CellMetrics). False and nothing filled
  /// for a cell outside the grid.
  bool GetCellBounds(float cellSize, CellCoord cell, std::int32_t* left, std::int32_t* top,
                     std::int32_t* right, std::int32_t* bottom) const;
  /// The cell that owns map pixel (x, y), or (-1, -1). Each column owns a strip that begins half way into its
  /// left slants, each cell a box of its height in it; a pixel on a boundary belongs to the cell left of or
  /// above it.
  CellCoord HitTest(float cellSize, std::int32_t x, std::int32_t y) const;

 private:
  static constexpr std::int32_t kPageCells = 64;

  /// 64 neighbouring indices: a bit for each that has a record, and their data.
  struct Page {
    std::uint64_t present = 0;
    ClassInstance data[kPageCells] = {};
  };

  CellRecord RecordAt(std::int32_t index) const;
  bool HasRecord(std::int32_t index) const;
  Page& PageForWriting(std::int32_t index);
  ClassInstance& DataForWriting(std::int32_t index);

  const std::int32_t height_;
  const std::int32_t width_;
  std::int32_t count_ = 0;
  std::vector<std::unique_ptr<Page>> pages_;  // made when first used
  std::vector<std::uint64_t> usedPages_;      // a bit a page: holds a record
};

}  // namespace quorvel
