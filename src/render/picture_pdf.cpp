#include <cmath>

#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "map/types/map_contents.h"
#include "render/paper_painter.h"
#include "render/picture.h"
#include "render/picture_plan.h"
#include "render/picture_sheets.h"
#include "render/stream_device.h"

namespace quorvel {
namespace {

constexpr PictureKind kOnePage = {kMaxPdfSidePx, Ground::Hidden};
/// Sheets limit themselves by their number.
constexpr PictureKind kSheets = {std::int64_t{1} << 31, Ground::Hidden};
constexpr int kPointsPerInch = 72;

/// A page's sides are whole points; up to a point more than the picture is margin.
QPageSize PageSizeOf(QSize picture) {
  const auto points = [](int pixels) {
    return std::ceil(double{1} * pixels * kPointsPerInch / kPdfDotsPerInch);
  };
  const QSizeF size(points(picture.width()), points(picture.height()));
  return QPageSize(size, QPageSize::Point, {}, QPageSize::ExactMatch);
}

void Prepare(QPdfWriter& writer, const QPageSize& size) {
  writer.setCreator(QStringLiteral("Quorvel"));
  writer.setResolution(kPdfDotsPerInch);
  writer.setPageSize(size);
  writer.setPageMargins(QMarginsF());
}

bool DrawOnePage(QPdfWriter& writer, const MapContents& map, const PicturePlan& plan,
                 PictureProgress& progress) {
  Prepare(writer, PageSizeOf(plan.size));
  QPainter painter(&writer);
  if (plan.look.ground == Ground::Shown)
    painter.fillRect(0, 0, writer.width(), writer.height(), QColor(kMapMargin));
  painter.scale(double{1} * plan.size.width() / static_cast<double>(plan.part.Width()),
                double{1} * plan.size.height() / static_cast<double>(plan.part.Height()));
  PaintOnPaper(painter, map, plan.look, plan.part,
               [&progress](std::int64_t done, std::int64_t all) { progress.Report(done, all); });
  return painter.end();
}

bool DrawSheets(QPdfWriter& writer, const MapContents& map, const PicturePlan& plan,
                PictureProgress& progress, const PictureSheets& sheets) {
  Prepare(writer, QPageSize(sheets.SheetMm(), QPageSize::Millimeter, {}, QPageSize::ExactMatch));
  return sheets.Draw(writer, map, plan, progress);
}

}  // namespace

bool RenderPdf(const MapContents& map, const PictureRequest& request, std::streambuf& out, Feedback& feedback,
               std::string& errorText) {
  const auto plan = PicturePlan::For(map, request, request.paper ? kSheets : kOnePage, errorText);
  if (!plan) return false;
  const auto sheets = request.paper ? PictureSheets::For(*plan, *request.paper, errorText) : std::nullopt;
  if (request.paper && !sheets) return false;
  PictureProgress progress(feedback);
  StreamDevice device(out);
  QPdfWriter writer(&device);
  const bool isDrawn =
      sheets ? DrawSheets(writer, map, *plan, progress, *sheets) : DrawOnePage(writer, map, *plan, progress);
  return isDrawn && device.IsGood();
}

}  // namespace quorvel
