#include "render/painted_rows.h"
#include "render/picture.h"
#include "render/picture_plan.h"
#include "render/png_writer.h"

namespace quorvel {
namespace {

constexpr PictureKind kPng = {kMaxPictureSidePx, Ground::Shown};

}  // namespace

bool RenderPng(const MapContents& map, const PictureRequest& request, std::streambuf& out, Feedback& feedback,
               std::string& errorText) {
  const auto plan = PicturePlan::For(map, request, kPng, errorText);
  if (!plan) return false;
  const MapRect& part = plan->part;
  PngWriter writer(out, static_cast<std::uint32_t>(part.Width()), static_cast<std::uint32_t>(part.Height()));
  PictureProgress progress(feedback);
  const bool isWritten = PaintRows(
      map, plan->look, part, [&writer](const QRgb* row) { return writer.AddRow(row); },
      [&progress](std::int64_t done, std::int64_t all) { progress.Report(done, all); });
  return isWritten && writer.Finish();
}

}  // namespace quorvel
