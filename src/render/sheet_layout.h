#pragma once

#include <cstdint>
#include <string>

#include <QRectF>
#include <QSize>
#include <QSizeF>

#include "render/map_extent.h"

namespace quorvel {

constexpr double kMmPerInch = 25.4;
/// By which sheets side by side show the same, so that one can be glued onto the other.
constexpr double kSheetOverlapMm = 10;

/// What is drawn on of each sheet.
struct SheetRoom {
  QSizeF mm;  ///< both sides above the overlap
  double overlapMm = kSheetOverlapMm;
};

/// How large a map comes on sheets of paper. Neither: a map pixel is as large as the caller says.
struct SheetSize {
  double cellMm = 0;  ///< above 0: height of a cell
  QSize sheets;  ///< not empty: at most so many side by side and below each other, as large as that allows
};

/// The smallest rectangle of whole map pixels around a part.
MapRect PixelsAround(const QRectF& part);

/// A map laid out on sheets, row by row. Only as many sheets are taken as the map needs.
class SheetLayout {
 public:
  /// `cellSizePx`: that of `extent`.
  SheetLayout(const MapRect& extent, float cellSizePx, const SheetRoom& room, const SheetSize& size,
              double usualMmPerPx);

  double MmPerPx() const { return mmPerPx_; }
  std::int64_t Columns() const { return columns_; }
  std::int64_t Rows() const { return rows_; }
  std::int64_t Count() const { return columns_ * rows_; }

  /// The part of the map on a sheet, from 0, in map pixels.
  QRectF Part(std::int64_t sheet) const;
  /// "B2, column 2 of 3": the letter counts columns, the number rows.
  std::string Name(std::int64_t sheet) const;

 private:
  MapRect extent_;
  QSizeF roomPx_;
  double overlapPx_;
  double mmPerPx_;
  std::int64_t columns_;
  std::int64_t rows_;
};

}  // namespace quorvel
