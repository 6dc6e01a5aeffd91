#include "render/cell_shapes.h"

#include <algorithm>
#include <cmath>

#include <QImage>
#include <QPainter>

namespace quorvel {
namespace {

/// The runs of pixels of one colour, and where they lie from `corner`.
PixelRuns RunsOf(const QImage& image, QRgb colour, QPoint corner) {
  PixelRuns runs;
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    const QRgb* const end = row + image.width();
    for (const QRgb* at = std::find(row, end, colour); at != end; at = std::find(at, end, colour)) {
      const QRgb* const after = std::find_if(at, end, [colour](QRgb pixel) { return pixel != colour; });
      runs.push_back({static_cast<std::int16_t>(at - row - corner.x()),
                      static_cast<std::int16_t>(y - corner.y()), static_cast<std::int16_t>(after - at)});
      at = after;
    }
  }
  return runs;
}

/// Rows that have pixels of the pen or the area.
BodyRows BodyRowsOf(const QImage& image, const CellColours& colours, QPoint corner) {
  BodyRows rows;
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    const auto isInk = [&](QRgb pixel) { return pixel == colours.pen || pixel == colours.fill; };
    int left = 0;
    int right = image.width();
    while (left < right && !isInk(row[left])) ++left;
    while (left < right && !isInk(row[right - 1])) --right;
    if (left == right) continue;
    int fillLeft = left;
    int fillRight = right;
    while (fillLeft < fillRight && row[fillLeft] != colours.fill) ++fillLeft;
    while (fillLeft < fillRight && row[fillRight - 1] != colours.fill) --fillRight;
    const auto fromCorner = [&](int x) { return static_cast<std::int16_t>(x - corner.x()); };
    rows.push_back({static_cast<std::int16_t>(y - corner.y()), fromCorner(left), fromCorner(fillLeft),
                    fromCorner(fillRight), fromCorner(right)});
  }
  return rows;
}

QRect BoundsOf(const CellShape& shape) {
  QRect bounds;
  for (const BodyRow& row : shape.body) bounds |= QRect(row.left, row.y, row.right - row.left, 1);
  for (const PixelRuns* runs : {&shape.mark, &shape.rim}) {
    for (const PixelRun& run : *runs) bounds |= QRect(run.x, run.y, run.length, 1);
  }
  return bounds;
}

bool IsOnFill(const QRect& rect, const BodyRows& body) {
  const auto holds = [&](const BodyRow& row) {
    return row.y >= rect.top() && row.y <= rect.bottom() && row.fillLeft <= rect.left() &&
           row.fillRight > rect.right();
  };
  return std::ranges::count_if(body, holds) == rect.height();
}

}  // namespace

CellShape CellShape::ReadFrom(const PlainPainter& painter, const CellFigure& figure) {
  const QPoint corner(painter.MaskMargin(), painter.MaskMargin());
  const QImage mark = painter.MarkMask(figure);
  const QImage rim = painter.RimMask(figure);

  constexpr CellColours kColours = {0xffff0000, 0xff0000ff};
  QImage body(rim.size(), QImage::Format_RGB32);
  body.fill(Qt::black);
  {
    QPainter device(&body);
    painter.DrawBody(device, corner, figure, kColours);
  }
  constexpr QRgb kInverted = 0xffffffff;
  CellShape shape = {BodyRowsOf(body, kColours, corner),
                     RunsOf(mark, kInverted, corner),
                     RunsOf(rim, kInverted, corner),
                     {},
                     figure.label};
  shape.ink = BoundsOf(shape);
  shape.isLabelOnFill = IsOnFill(shape.label, shape.body);
  return shape;
}

CellShapes::CellShapes(float cellSizePx, double pixelRatio)
    : metrics_(CellMetrics::At(cellSizePx)), scale_{pixelRatio}, painter_(scale_) {}

int CellShapes::ColumnKind(std::int32_t column) {
  const CellFigure figure = CellFigure::Of({column, 0}, metrics_, scale_);
  Coordinates coordinates = {figure.label.left(), figure.label.right()};
  for (const QPoint& point : figure.body) coordinates.push_back(point.x());
  for (const QPoint& point : figure.rim) coordinates.push_back(point.x());
  return KindOf(coordinates, columnKinds_);
}

int CellShapes::RowKind(std::int32_t column, std::int32_t row) {
  const CellFigure figure = CellFigure::Of({column % 2, row}, metrics_, scale_);
  Coordinates coordinates = {figure.label.top(), figure.label.bottom()};
  for (const QPoint& point : figure.body) coordinates.push_back(point.y());
  for (const QPoint& point : figure.rim) coordinates.push_back(point.y());
  return KindOf(coordinates, rowKinds_);
}

int CellShapes::KindOf(const Coordinates& coordinates, std::vector<Coordinates>& kinds) {
  const auto found = std::find(kinds.begin(), kinds.end(), coordinates);
  const auto kind = static_cast<int>(found - kinds.begin());
  if (found == kinds.end()) kinds.push_back(coordinates);
  return kind;
}

const CellShape& CellShapes::Shape(CellCoord cell, int columnKind, int rowKind) {
  const auto column = static_cast<std::size_t>(columnKind);
  const auto row = static_cast<std::size_t>(rowKind);
  if (shapes_.size() <= column) shapes_.resize(column + 1);
  if (shapes_[column].size() <= row) shapes_[column].resize(row + 1);
  CellShape& shape = shapes_[column][row];
  if (shape.ink.isEmpty()) shape = CellShape::ReadFrom(painter_, CellFigure::Of(cell, metrics_, scale_));
  return shape;
}

bool CellShapes::LeaveNoGaps() {
  if (scale_.ratio != std::floor(scale_.ratio)) return false;
  if (!leaveNoGaps_) leaveNoGaps_ = FindNoGap();
  return *leaveNoGaps_;
}

/// Looks at one period of the pattern, two columns and a row, in the middle of a few more cells.
bool CellShapes::FindNoGap() {
  constexpr int kColumns = 5;
  constexpr int kRows = 4;
  const CellCorner begin = CellCorner::Of({2, 1}, metrics_, scale_);
  const CellCorner end = CellCorner::Of({4, 2}, metrics_, scale_);
  const QRect period(static_cast<int>(begin.x), static_cast<int>(begin.y), static_cast<int>(end.x - begin.x),
                     static_cast<int>(end.y - begin.y));
  QImage inked(period.size(), QImage::Format_Grayscale8);
  inked.fill(0);
  QPainter painter(&inked);
  painter.translate(-period.topLeft());
  for (std::int32_t row = 0; row < kRows; ++row) {
    for (std::int32_t column = 0; column < kColumns; ++column) {
      const CellCorner corner = CellCorner::Of({column, row}, metrics_, scale_);
      for (const BodyRow& run : Shape({column, row}, ColumnKind(column), RowKind(column, row)).body) {
        painter.fillRect(static_cast<int>(corner.x) + run.left, static_cast<int>(corner.y) + run.y,
                         run.right - run.left, 1, Qt::white);
      }
    }
  }
  for (int y = 0; y < inked.height(); ++y) {
    const uchar* row = inked.constScanLine(y);
    if (std::find(row, row + inked.width(), 0) != row + inked.width()) return false;
  }
  return true;
}

}  // namespace quorvel
