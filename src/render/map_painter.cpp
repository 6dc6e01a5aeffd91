#include "render/map_painter.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include <QImage>

#include "map/types/cell_marks.h"
#include "map/types/map_contents.h"
#include "render/cell_look.h"
#include "render/cell_shapes.h"
#include "render/label_images.h"
#include "render/map_extent.h"
#include "render/pixel_area.h"
#include "render/visible_cells.h"

namespace quorvel {
namespace {

/// Where a column or a row lies in the frame.
struct Place {
  int at;
  int kind;
};

MapRect PartOf(const QRect& area, CellCorner origin) {
  return {origin.x + area.left(), origin.y + area.top(), origin.x + area.right() + 1,
          origin.y + area.bottom() + 1};
}

/// The shades of the colours that maps fill cells with: mostly a few.
class GroundShades {
 public:
  /// Good until the next call.
  const Shades& Of(QRgb colour) {
    if (shades_.size() > kMostColours) shades_.clear();
    return shades_.try_emplace(colour, colour).first->second;
  }

 private:
  static constexpr std::size_t kMostColours = 1000;
  std::unordered_map<QRgb, Shades> shades_;
};

/// One painting of one area.
class Pass {
 public:
  Pass(const MapContents& map, const MapLook& look, CellShapes& shapes, LabelImages& labels,
       GroundShades& shades, PixelArea area, CellCorner origin)
      : map_(map),
        look_(look),
        shapes_(shapes),
        labels_(labels),
        shades_(shades),
        area_(area),
        origin_(origin),
        part_(PartOf(area.Clip(), origin)),
        erasedTo_(part_.top),
        showsBackground_(map.m_pGrid->Count() < map.m_pGrid->CellCount() || !shapes.LeaveNoGaps()) {}

  void Paint();

 private:
  void EraseTo(std::int64_t bottom);
  int FrameX(std::int64_t deviceX) const { return static_cast<int>(deviceX - origin_.x); }
  int FrameY(std::int64_t deviceY) const { return static_cast<int>(deviceY - origin_.y); }
  std::vector<Place> PlaceColumns(std::int32_t first, std::int32_t last);
  Place PlaceRow(std::int32_t column, std::int32_t row);
  void PaintCell(CellCoord cell, Place column, Place row);
  void PaintLabel(const CellRecord& record, const CellShape& shape, QPoint corner, QRgb fill);

  const MapContents& map_;
  const MapLook& look_;
  CellShapes& shapes_;
  LabelImages& labels_;
  GroundShades& shades_;
  PixelArea area_;
  CellCorner origin_;      // the frame's pixel (0, 0)
  MapRect part_;           // the area, in device pixels of the whole map
  std::int64_t erasedTo_;  // what of it lies above this has its ground
  const bool showsBackground_;
};

/// Rows of cells are painted from the top, and the ground of each is laid just before: its pixels are still
/// in the processor's cache when the cells come over them.
void Pass::Paint() {
  const CellSpan cells = VisibleCells(*map_.m_pGrid, shapes_.Metrics(), shapes_.Scale(), part_);
  const std::vector<Place> columns = PlaceColumns(cells.firstColumn, cells.lastColumn);
  for (std::int32_t row = cells.firstRow; row <= cells.lastRow; ++row) {
    EraseTo(CellInk(look_, {1, row}).bottom);                        // odd columns lie lower
    const Place rowPlaces[] = {PlaceRow(0, row), PlaceRow(1, row)};  // of even and odd columns
    for (std::int32_t column = cells.firstColumn; column <= cells.lastColumn; ++column) {
      PaintCell({column, row}, columns[static_cast<std::size_t>(column - cells.firstColumn)],
                rowPlaces[column % 2]);
    }
  }
  EraseTo(part_.bottom);
}

/// Lays background and margins on what of the area lies above `bottom` and has none yet. Where every cell has
/// a record nothing of the background would be left to see.
void Pass::EraseTo(std::int64_t bottom) {
  const auto fill = [this](const MapRect& rect, QRgb colour) {
    if (rect.IsEmpty()) return;
    area_.FillRect(QRect(FrameX(rect.left), FrameY(rect.top), static_cast<int>(rect.Width()),
                         static_cast<int>(rect.Height())),
                   colour);
  };
  const MapRect next = {part_.left, erasedTo_, part_.right, std::min(bottom, part_.bottom)};
  if (next.IsEmpty()) return;
  if (showsBackground_) fill(next, look_.Background());
  for (const MapRect& margin : Margins(*map_.m_pGrid, shapes_.Metrics(), shapes_.Scale(), next))
    fill(margin, look_.Margin());
  erasedTo_ = next.bottom;
}

std::vector<Place> Pass::PlaceColumns(std::int32_t first, std::int32_t last) {
  std::vector<Place> places;
  for (std::int32_t column = first; column <= last; ++column) {
    const CellCorner corner = CellCorner::Of({column, 0}, shapes_.Metrics(), shapes_.Scale());
    places.push_back({FrameX(corner.x), shapes_.ColumnKind(column)});
  }
  return places;
}

Place Pass::PlaceRow(std::int32_t column, std::int32_t row) {
  const CellCorner corner = CellCorner::Of({column, row}, shapes_.Metrics(), shapes_.Scale());
  return {FrameY(corner.y), shapes_.RowKind(column, row)};
}

void Pass::PaintCell(CellCoord cell, Place column, Place row) {
  const CellShape& shape = shapes_.Shape(cell, column.kind, row.kind);
  const QPoint corner(column.at, row.at);
  if (!area_.Meets(shape.ink.translated(corner))) return;

  if (const auto record = map_.m_pGrid->Find(cell.row * map_.m_pGrid->Width() + cell.column)) {
    const CellColours colours = CellColours::Of(look_, *record);
    area_.Fill(corner, shape, colours.pen, colours.fill);
    if (look_.labels == Labels::Shown && !colours.isFaded) PaintLabel(*record, shape, corner, colours.fill);
  }
  if ((IsMarked(map_, cell) & 1) != 0) area_.Invert(corner, shape.mark);
  if (cell == look_.currentCell) area_.Invert(corner, shape.rim);
}

void Pass::PaintLabel(const CellRecord& record, const CellShape& shape, QPoint corner, QRgb fill) {
  if (!map_.m_pCellClass) return;
  const QRect label = shape.label.translated(corner);
  const PixelArea::Ground ground = shape.isLabelOnFill ? PixelArea::Ground::Plain : PixelArea::Ground::Mixed;
  QPoint place = label.topLeft();
  std::size_t memberNumber = 0;
  for (const auto& member : map_.m_pCellClass->Members()) {
    if (place.y() > label.bottom()) return;
    const LabelImage& image = labels_.Of(*member, memberNumber++, record);
    if (!image.rows.empty()) area_.Blacken(place, image, label, shades_.Of(fill), ground);
    place.ry() += image.lines * labels_.LineHeight();
  }
}

}  // namespace

/// What was read for the size and ratio painted last.
struct MapPainter::Caches {
  std::optional<std::pair<float, double>> kind;
  std::optional<CellShapes> shapes;
  std::optional<LabelImages> labels;
  GroundShades shades;

  void PrepareFor(const MapLook& look);
  void MakeLabels();
};

void MapPainter::Caches::PrepareFor(const MapLook& look) {
  const std::pair wanted(look.cellSizePx, look.pixelRatio);
  if (kind == wanted) return;
  kind = wanted;
  shapes.emplace(look.cellSizePx, look.pixelRatio);
  MakeLabels();
}

void MapPainter::Caches::MakeLabels() {
  if (!shapes) return;
  const QRect label = CellFigure::Of({0, 0}, shapes->Metrics(), shapes->Scale()).label;
  const double ratio = shapes->Scale().ratio;
  const int rounding = ratio == std::floor(ratio) ? 0 : 1;  // by which the labels of some cells are larger
  labels.emplace(label.size() + QSize(rounding, rounding), ratio);
}

MapPainter::MapPainter() : caches_(std::make_unique<Caches>()) {}
MapPainter::~MapPainter() = default;

void MapPainter::Paint(const MapContents& map, const MapLook& look, QImage& frame, std::int64_t originX,
                       std::int64_t originY, const QRect& area) {
  const QRect clip = area & frame.rect();
  if (!map.m_pGrid || clip.isEmpty()) return;
  caches_->PrepareFor(look);
  Pass pass(map, look, *caches_->shapes, *caches_->labels, caches_->shades, PixelArea(frame, clip),
            {originX, originY});
  pass.Paint();
}

void MapPainter::ForgetLabels() {
  caches_->MakeLabels();
}

MapRect CellInk(const MapLook& look, CellCoord cell) {
  const CellBounds bounds = CellMetrics::At(look.cellSizePx).Bounds(cell);
  const PixelScale scale{look.pixelRatio};
  return {scale.At(bounds.left - kInkBeyondBoundsPx), scale.At(bounds.top - kInkBeyondBoundsPx),
          scale.At(bounds.right + kInkBeyondBoundsPx), scale.At(bounds.bottom + kInkBeyondBoundsPx)};
}

}  // namespace quorvel
