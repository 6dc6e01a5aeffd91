#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <QRect>

#include "render/cell_figure.h"
#include "render/plain_painter.h"

namespace quorvel {

/// Pixels side by side, from the cell's corner.
struct PixelRun {
  std::int16_t x;
  std::int16_t y;
  std::int16_t length;
};
using PixelRuns = std::vector<PixelRun>;  // by rows, then from left to right

/// One row of a cell's outline and area: pen from `left` to before `right`, except for the area's colour from
/// `fillLeft` to before `fillRight`, from the cell's corner. Hexagons are convex, so there are no more
/// pieces.
struct BodyRow {
  std::int16_t y;
  std::int16_t left;
  std::int16_t fillLeft;
  std::int16_t fillRight;
  std::int16_t right;
};
using BodyRows = std::vector<BodyRow>;

/// The pixels of one figure as the plain painter draws it.
struct CellShape {
  BodyRows body;
  PixelRuns mark;  ///< inverted where the cell is marked
  PixelRuns rim;   ///< inverted where the cell is the current one
  QRect ink;       ///< bounds of all of them
  QRect label;
  bool isLabelOnFill = false;  ///< the area's colour is all that a label can lie on

  static CellShape ReadFrom(const PlainPainter& painter, const CellFigure& figure);
};

/// The shapes of one cell size and pixel ratio, read when first needed. The places of columns and rows on the
/// device are rounded, so at broken ratios there are a few kinds of either; a shape belongs to a kind of
/// column and a kind of row.
class CellShapes {
 public:
  CellShapes(float cellSizePx, double pixelRatio);

  const CellMetrics& Metrics() const { return metrics_; }
  PixelScale Scale() const { return scale_; }

  /// A column's or a row's kind. A row has two: one in even, one in odd columns.
  int ColumnKind(std::int32_t column);
  int RowKind(std::int32_t column, std::int32_t row);

  /// The shape of the cell, whose kinds are given. Good until the next call for a pair of kinds not yet seen.
  const CellShape& Shape(CellCoord cell, int columnKind, int rowKind);

  /// Whether outlines and areas of cells side by side are known to leave no pixel between them. False at
  /// broken ratios, where there are too many ways of lying side by side to look at them all.
  bool LeaveNoGaps();

 private:
  using Coordinates = std::vector<int>;  // of all points of a figure in one direction

  static int KindOf(const Coordinates& coordinates, std::vector<Coordinates>& kinds);
  bool FindNoGap();

  CellMetrics metrics_;
  PixelScale scale_;
  PlainPainter painter_;
  std::vector<Coordinates> columnKinds_;
  std::vector<Coordinates> rowKinds_;
  std::vector<std::vector<CellShape>> shapes_;  // by column kind, then row kind; empty ink: not read yet
  std::optional<bool> leaveNoGaps_;             // none: not looked at yet
};

}  // namespace quorvel
