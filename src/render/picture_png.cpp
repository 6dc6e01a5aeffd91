#include <vector>

#include "render/painted_rows.h"
#include "render/picture.h"
#include "render/picture_plan.h"
#include "render/png_writer.h"
#include "render/row_averager.h"

namespace quorvel {
namespace {

constexpr PictureKind kPng = {kMaxPictureSidePx, Ground::Shown};

/// Rows of the part as they are painted, or averaged down to the picture's size.
TakeRow RowsTo(PngWriter& writer, const PicturePlan& plan) {
  const QSize from(static_cast<int>(plan.part.Width()), static_cast<int>(plan.part.Height()));
  if (plan.size == from) return [&writer](const QRgb* row) { return writer.AddRow(row); };
  return [&writer, average = RowAverager(from, plan.size),
          mean = std::vector<QRgb>(static_cast<std::size_t>(plan.size.width()))](const QRgb* row) mutable {
    return !average.AddRow(row, mean.data()) || writer.AddRow(mean.data());
  };
}

}  // namespace

bool RenderPng(const MapContents& map, const PictureRequest& request, std::streambuf& out, Feedback& feedback,
               std::string& errorText) {
  const auto plan = PicturePlan::For(map, request, kPng, errorText);
  if (!plan) return false;
  PngWriter writer(out, static_cast<std::uint32_t>(plan->size.width()),
                   static_cast<std::uint32_t>(plan->size.height()));
  PictureProgress progress(feedback);
  const bool isWritten =
      PaintRows(map, plan->look, plan->part, RowsTo(writer, *plan),
                [&progress](std::int64_t done, std::int64_t all) { progress.Report(done, all); });
  return isWritten && writer.Finish();
}

}  // namespace quorvel
