#pragma once

#include <functional>

#include <QRgb>

#include "render/map_look.h"

namespace quorvel {

struct MapContents;
struct MapRect;

/// Takes the next row of a picture, top first. False: no more of them are wanted.
using TakeRow = std::function<bool(const QRgb* row)>;
/// Told now and then how many of all rows were taken.
using RowsDone = std::function<void(std::int64_t done, std::int64_t all)>;

/// Paints a part of the map (device pixels) in bands, so that it need never be in memory whole, and gives its
/// rows. False: they were not all taken.
bool PaintRows(const MapContents& map, const MapLook& look, const MapRect& part, const TakeRow& take,
               const RowsDone& done = {});

}  // namespace quorvel
