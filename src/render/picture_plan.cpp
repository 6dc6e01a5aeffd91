#include "render/picture_plan.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "map/types/map_contents.h"
#include "render/colour_members.h"
#include "render/scaled_picture.h"

namespace quorvel {
namespace {

constexpr float kSmallestCellPx = 10;
constexpr float kLargestCellPx = 100;
constexpr float kCellStepPx = 10;

std::optional<MapRect> PartAt(const CellGrid& grid, const PictureRequest& request, float cellSizePx) {
  if (!request.cells) return MapExtent(grid, cellSizePx);
  return CellsExtent(grid, cellSizePx, *request.cells);
}

/// The smallest of the ten sizes at which the part fills what it is to fit into, or the largest.
float FittingCellSize(const CellGrid& grid, const PictureRequest& request) {
  const auto isTooSmall = [&](float cellSizePx) {
    const auto part = PartAt(grid, request, cellSizePx);
    return part && part->Width() < request.fit->width() && part->Height() < request.fit->height();
  };
  float cellSizePx = kSmallestCellPx;
  while (cellSizePx < kLargestCellPx && isTooSmall(cellSizePx)) cellSizePx += kCellStepPx;
  return cellSizePx;
}

/// The largest size of the same shape inside `room`, as far as nothing has to be enlarged.
QSize SizeWithin(const MapRect& part, QSize room) {
  const double across = static_cast<double>(room.width()) / static_cast<double>(part.Width());
  const double down = static_cast<double>(room.height()) / static_cast<double>(part.Height());
  const double scale = std::min({across, down, 1.0});
  const auto scaled = [scale](std::int64_t side) {
    return std::max(1, static_cast<int>(std::lround(static_cast<double>(side) * scale)));
  };
  return {scaled(part.Width()), scaled(part.Height())};
}

std::optional<MapRect> PartOf(const CellGrid& grid, const PictureRequest& request, float cellSizePx,
                              std::string& errorText) {
  const auto part = PartAt(grid, request, cellSizePx);
  if (!part) {
    const auto& [first, last] = *request.cells;
    errorText += fmt::format("The cells {}:{} to {}:{} are not all on the map of {} columns and {} rows.\n",
                             first.column, first.row, last.column, last.row, grid.Width(), grid.Height());
  }
  return part;
}

MapLook LookOf(const MapContents& map, const PictureRequest& request, float cellSizePx,
               const PictureKind& kind) {
  std::string outlineMember = request.outlineMember;
  std::string fillMember = request.fillMember;
  MapLook look;
  look.cellSizePx = cellSizePx;
  look.outlineMember = SelectIndexMember(map.m_pCellClass, outlineMember, 0);
  look.fillMember = SelectIndexMember(map.m_pCellClass, fillMember, 0);
  look.labels = request.labels;
  look.ground = request.ground.value_or(kind.usualGround);
  look.filter = request.filter;
  return look;
}

}  // namespace

std::optional<PicturePlan> PicturePlan::For(const MapContents& map, const PictureRequest& request,
                                            const PictureKind& kind, std::string& errorText) {
  if (!map.m_pGrid) {
    errorText += "There is no map to draw.\n";
    return std::nullopt;
  }
  const float cellSizePx = request.fit ? FittingCellSize(*map.m_pGrid, request) : request.cellSizePx;
  const auto part = PartOf(*map.m_pGrid, request, cellSizePx, errorText);
  if (!part) return std::nullopt;
  if (std::max(part->Width(), part->Height()) > kind.maxSidePx) {
    errorText += fmt::format("The picture would be {} by {} pixels; the limit is {} a side.\n", part->Width(),
                             part->Height(), kind.maxSidePx);
    return std::nullopt;
  }
  const MapLook look = LookOf(map, request, cellSizePx, kind);
  const QSize whole(static_cast<int>(part->Width()), static_cast<int>(part->Height()));
  const QSize size = request.fit ? SizeWithin(*part, *request.fit) : whole;
  return PicturePlan{ReadableLook(look, double{1} * size.width() / whole.width()), *part, size};
}

}  // namespace quorvel
