#include "ui/view/zoom_steps.h"

#include <algorithm>
#include <cmath>

namespace quorvel {
namespace {

constexpr float kMinCellSizePx = 10;
constexpr float kMaxCellSizePx = 100;
constexpr float kZoomStepPx = 10;

/// A notch of a usual wheel is 15 degrees.
constexpr int kNotchEighths = 120;
constexpr int kEighthsPerPixel = 2;

}  // namespace

int ZoomSteps::Turn(QPoint angleDelta, QPoint pixelDelta) {
  const int turn = angleDelta.y() != 0 ? angleDelta.y() : pixelDelta.y() * kEighthsPerPixel;
  const bool turnsBack = (turn < 0 && turned_ > 0) || (turn > 0 && turned_ < 0);
  turned_ = turn + (turnsBack ? 0 : turned_);
  const int steps = turned_ / kNotchEighths;
  turned_ -= steps * kNotchEighths;
  return steps;
}

int ZoomSteps::Pinch(double factor, float cellSizePx) {
  const double wanted = std::clamp<double>(cellSizePx * pinched_ * factor, kMinCellSizePx, kMaxCellSizePx);
  const int steps = static_cast<int>((wanted - cellSizePx) / kZoomStepPx);
  pinched_ = wanted / ZoomedCellSize(cellSizePx, steps);
  return steps;
}

void ZoomSteps::Reset() {
  *this = {};
}

float ZoomedCellSize(float cellSizePx, int steps) {
  return std::clamp(cellSizePx + kZoomStepPx * static_cast<float>(steps), kMinCellSizePx, kMaxCellSizePx);
}

}  // namespace quorvel
