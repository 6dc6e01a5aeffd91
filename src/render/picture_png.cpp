#include <algorithm>
#include <new>

#include <QImage>

#include "map/types/map_contents.h"
#include "render/map_painter.h"
#include "render/picture.h"
#include "render/picture_plan.h"
#include "render/png_writer.h"

namespace quorvel {
namespace {

constexpr PictureKind kPng = {kMaxPictureSidePx, Ground::Shown};

/// Painted at once, then written. The larger a band, the fewer cells are painted in two.
constexpr std::int64_t kPictureBandBytes = 64'000'000;

}  // namespace

bool RenderPng(const MapContents& map, const PictureRequest& request, std::streambuf& out, Feedback& feedback,
               std::string& errorText) {
  const auto plan = PicturePlan::For(map, request, kPng, errorText);
  if (!plan) return false;
  const MapRect& part = plan->part;
  const std::int64_t bandRows =
      std::clamp<std::int64_t>(kPictureBandBytes / (part.Width() * 4), 1, part.Height());
  QImage band(static_cast<int>(part.Width()), static_cast<int>(bandRows), QImage::Format_RGB32);
  if (band.isNull()) throw std::bad_alloc();
  PngWriter writer(out, static_cast<std::uint32_t>(part.Width()), static_cast<std::uint32_t>(part.Height()));
  MapPainter painter;
  PictureProgress progress(feedback);
  for (std::int64_t top = part.top; top < part.bottom; top += bandRows) {
    const int rows = static_cast<int>(std::min(bandRows, part.bottom - top));
    painter.Paint(map, plan->look, band, part.left, top, QRect(0, 0, band.width(), rows));
    for (int row = 0; row < rows; ++row) {
      if (!writer.AddRow(reinterpret_cast<const std::uint32_t*>(band.constScanLine(row)))) return false;
    }
    progress.Report(top + rows - part.top, part.Height());
  }
  return writer.Finish();
}

}  // namespace quorvel
