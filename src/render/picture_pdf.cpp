#include <algorithm>
#include <cmath>

#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "map/map_contents.h"
#include "render/map_painter.h"
#include "render/paper_painter.h"
#include "render/picture.h"
#include "render/picture_plan.h"
#include "render/stream_device.h"
#include "render/visible_cells.h"

namespace quorvel {
namespace {

constexpr int kDotsPerInch = 1200;
constexpr int kPointsPerInch = 72;

/// The library keeps what is drawn on a page in memory to its end, some 350 bytes a hexagon or text.
constexpr std::int64_t kMaxDrawnPieces = 500'000;
constexpr std::int64_t kBandBytes = 16'000'000;

/// A page's sides are whole points; up to a point more than the picture is margin.
QSizeF PageSizePoints(const MapRect& part) {
  const auto points = [](std::int64_t pixels) {
    return std::ceil(static_cast<double>(pixels) * kPointsPerInch / kDotsPerInch);
  };
  return {points(part.Width()), points(part.Height())};
}

/// Hexagons and texts of a picture, if every cell of it has a record.
std::int64_t CountPieces(const MapContents& map, const PicturePlan& plan) {
  const CellSpan cells =
      VisibleCells(*map.m_pGrid, CellMetrics::At(plan.look.cellSizePx), PixelScale{1}, plan.part);
  const bool hasTexts = plan.look.labels == Labels::Shown && map.m_pCellClass != nullptr;
  const std::int64_t texts = hasTexts ? static_cast<std::int64_t>(map.m_pCellClass->Members().size()) : 0;
  return std::int64_t{cells.lastColumn - cells.firstColumn + 1} * (cells.lastRow - cells.firstRow + 1) *
         (1 + texts);
}

/// The picture as pixels, in bands that are written as they come.
void DrawAsPixels(QPainter& painter, const MapContents& map, const PicturePlan& plan,
                  PictureProgress& progress) {
  const MapRect& part = plan.part;
  const std::int64_t bandRows = std::clamp<std::int64_t>(kBandBytes / (part.Width() * 4), 1, part.Height());
  painter.setRenderHint(QPainter::LosslessImageRendering);
  MapPainter pixels;
  for (std::int64_t top = part.top; top < part.bottom; top += bandRows) {
    const std::int64_t rows = std::min(bandRows, part.bottom - top);
    QImage band(static_cast<int>(part.Width()), static_cast<int>(rows), QImage::Format_RGB32);
    pixels.Paint(map, plan.look, band, part.left, top, band.rect());
    painter.drawImage(QPoint(0, static_cast<int>(top - part.top)), band);
    progress.Report(top + rows - part.top, part.Height());
  }
}

}  // namespace

bool RenderPdf(const MapContents& map, const PictureRequest& request, std::streambuf& out, Feedback& feedback,
               std::string& errorText) {
  const auto plan = PicturePlan::For(map, request, kMaxPdfSidePx, errorText);
  if (!plan) return false;
  PictureProgress progress(feedback);
  StreamDevice device(out);
  QPdfWriter writer(&device);
  writer.setCreator(QStringLiteral("Quorvel"));
  writer.setResolution(kDotsPerInch);
  writer.setPageSize(QPageSize(PageSizePoints(plan->part), QPageSize::Point, {}, QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  QPainter painter(&writer);
  painter.fillRect(0, 0, writer.width(), writer.height(), QColor(kMapMargin));
  if (CountPieces(map, *plan) > kMaxDrawnPieces) {
    DrawAsPixels(painter, map, *plan, progress);
  } else {
    PaintOnPaper(painter, map, plan->look, plan->part,
                 [&progress](std::int64_t done, std::int64_t all) { progress.Report(done, all); });
  }
  return painter.end() && device.IsGood();
}

}  // namespace quorvel
