#include <cmath>

#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "map/types/map_contents.h"
#include "render/paper_painter.h"
#include "render/picture.h"
#include "render/picture_plan.h"
#include "render/stream_device.h"

namespace quorvel {
namespace {

constexpr PictureKind kPdf = {kMaxPdfSidePx, Ground::Hidden};
constexpr int kDotsPerInch = 1200;
constexpr int kPointsPerInch = 72;

/// A page's sides are whole points; up to a point more than the picture is margin.
QSizeF PageSizePoints(QSize picture) {
  const auto points = [](int pixels) {
    return std::ceil(double{1} * pixels * kPointsPerInch / kDotsPerInch);
  };
  return {points(picture.width()), points(picture.height())};
}

}  // namespace

bool RenderPdf(const MapContents& map, const PictureRequest& request, std::streambuf& out, Feedback& feedback,
               std::string& errorText) {
  const auto plan = PicturePlan::For(map, request, kPdf, errorText);
  if (!plan) return false;
  PictureProgress progress(feedback);
  StreamDevice device(out);
  QPdfWriter writer(&device);
  writer.setCreator(QStringLiteral("Quorvel"));
  writer.setResolution(kDotsPerInch);
  writer.setPageSize(QPageSize(PageSizePoints(plan->size), QPageSize::Point, {}, QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  QPainter painter(&writer);
  if (plan->look.ground == Ground::Shown)
    painter.fillRect(0, 0, writer.width(), writer.height(), QColor(kMapMargin));
  painter.scale(double{1} * plan->size.width() / static_cast<double>(plan->part.Width()),
                double{1} * plan->size.height() / static_cast<double>(plan->part.Height()));
  PaintOnPaper(painter, map, plan->look, plan->part,
               [&progress](std::int64_t done, std::int64_t all) { progress.Report(done, all); });
  return painter.end() && device.IsGood();
}

}  // namespace quorvel
