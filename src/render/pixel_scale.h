#pragma once

#include <cmath>
#include <cstdint>

namespace quorvel {

/// From map pixels to device pixels.
struct PixelScale {
  double ratio = 1;  ///< device pixels a map pixel, at least 1

  std::int64_t At(std::int64_t mapPx) const { return std::llround(static_cast<double>(mapPx) * ratio); }
  /// Width of a line, never below one device pixel.
  int LineWidth(int mapPx) const { return static_cast<int>(std::lround(mapPx * ratio)); }
};

}  // namespace quorvel
