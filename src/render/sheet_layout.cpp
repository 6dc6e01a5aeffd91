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
double GluedMm(int sheets, double roomMm, double overlapMm) {
  return sheets * roomMm - (sheets - 1) * overlapMm;
}

double MmPerPxOf(const MapRect& extent, float cellSizePx, const SheetRoom& room, const SheetSize& size,
                 double usualMmPerPx) {
  if (size.cellMm > 0) return size.cellMm / CellMetrics::At(cellSizePx).height;
  if (size.sheets.isEmpty()) return usualMmPerPx;
  const double across = GluedMm(size.sheets.width(), room.mm.width(), room.overlapMm);
  const double down = GluedMm(size.sheets.height(), room.mm.height(), room.overlapMm);
  return std::min(across / static_cast<double>(extent.Width()), down / static_cast<double>(extent.Height()));
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

MapRect PixelsAround(const QRectF& part) {
  const auto low = [](double px) { return static_cast<std::int64_t>(std::floor(px + kTolerancePx)); };
  const auto high = [](double px) { return static_cast<std::int64_t>(std::ceil(px - kTolerancePx)); };
  return {low(part.left()), low(part.top()), high(part.right()), high(part.bottom())};
}

SheetLayout::SheetLayout(const MapRect& extent, float cellSizePx, const SheetRoom& room,
                         const SheetSize& size, double usualMmPerPx)
    : extent_(extent), mmPerPx_(MmPerPxOf(extent, cellSizePx, room, size, usualMmPerPx)) {
  roomPx_ = room.mm / mmPerPx_;
  overlapPx_ = room.overlapMm / mmPerPx_;
  columns_ = SheetsAlong(extent.Width(), roomPx_.width(), overlapPx_);
  rows_ = SheetsAlong(extent.Height(), roomPx_.height(), overlapPx_);
}

QRectF SheetLayout::Part(std::int64_t sheet) const {
  const QRectF whole(static_cast<double>(extent_.left), static_cast<double>(extent_.top),
                     static_cast<double>(extent_.Width()), static_cast<double>(extent_.Height()));
  const std::int64_t column = sheet % columns_, row = sheet / columns_;
  const QPointF corner(static_cast<double>(column) * (roomPx_.width() - overlapPx_),
                       static_cast<double>(row) * (roomPx_.height() - overlapPx_));
  return QRectF(whole.topLeft() + corner, roomPx_) & whole;
}

std::string SheetLayout::Name(std::int64_t sheet) const {
  const std::int64_t column = sheet % columns_;
  return fmt::format("{}{}, column {} of {}", Letters(column), sheet / columns_ + 1, column + 1, columns_);
}

}  // namespace quorvel
