#include "render/sheet_layout.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "map/grid/cell_metrics.h"

namespace quorvel {
namespace {

/// What rounding may add to a length that fits exactly, in map pixels.
constexpr double kTolerancePx = 1e-3;

/// So many sheets in a row, glued together.
double GluedMm(int sheets, double roomMm) {
  return sheets * roomMm - (sheets - 1) * kSheetOverlapMm;
}

double MmPerPxOf(const MapRect& extent, float cellSizePx, QSizeF roomMm, const SheetSize& size,
                 double usualMmPerPx) {
  if (size.cellMm > 0) return size.cellMm / CellMetrics::At(cellSizePx).height;
  if (size.sheets.isEmpty()) return usualMmPerPx;
  const double across = GluedMm(size.sheets.width(), roomMm.width()) / static_cast<double>(extent.Width());
  const double down = GluedMm(size.sheets.height(), roomMm.height()) / static_cast<double>(extent.Height());
  return std::min(across, down);
}

std::int64_t SheetsAlong(std::int64_t lengthPx, double roomPx, double overlapPx) {
  const double beyond = static_cast<double>(lengthPx) - roomPx - kTolerancePx;
  return beyond <= 0 ? 1 : 1 + static_cast<std::int64_t>(std::ceil(beyond / (roomPx - overlapPx)));
}

/// A, B, ... Z, AA, AB, ...
std::string Letters(std::int64_t column) {
  constexpr int kLetters = 26;
  const std::string last(1, static_cast<char>('A' + column % kLetters));
  return column < kLetters ? last : Letters(column / kLetters - 1) + last;
}

}  // namespace

SheetLayout::SheetLayout(const MapRect& extent, float cellSizePx, QSizeF roomMm, const SheetSize& size,
                         double usualMmPerPx)
    : extent_(extent), mmPerPx_(MmPerPxOf(extent, cellSizePx, roomMm, size, usualMmPerPx)) {
  roomPx_ = roomMm / mmPerPx_;
  overlapPx_ = kSheetOverlapMm / mmPerPx_;
  columns_ = SheetsAlong(extent.Width(), roomPx_.width(), overlapPx_);
  rows_ = SheetsAlong(extent.Height(), roomPx_.height(), overlapPx_);
}

QRectF SheetLayout::Part(std::int64_t sheet) const {
  const QRectF whole(static_cast<double>(extent_.left), static_cast<double>(extent_.top),
                     static_cast<double>(extent_.Width()), static_cast<double>(extent_.Height()));
  const QPointF corner(static_cast<double>(sheet % columns_) * (roomPx_.width() - overlapPx_),
                       static_cast<double>(sheet / columns_) * (roomPx_.height() - overlapPx_));
  return QRectF(whole.topLeft() + corner, roomPx_) & whole;
}

std::string SheetLayout::Name(std::int64_t sheet) const {
  const std::int64_t column = sheet % columns_;
  return fmt::format("{}{}, column {} of {}", Letters(column), sheet / columns_ + 1, column + 1, columns_);
}

}  // namespace quorvel
