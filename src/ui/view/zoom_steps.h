#pragma once

#include <QPoint>

namespace quorvel {

/// Gathers what wheels, touchpads and pinches send in small pieces to whole zoom steps of 10 pixels. Steps
/// are positive for larger cells.
class ZoomSteps {
 public:
  /// A turn of the wheel, or a stroke of two fingers. A notch is a step; so is a stroke of 60 pixels on
  /// touchpads that tell pixels only. What is left of a turn the other way is dropped.
  int Turn(QPoint angleDelta, QPoint pixelDelta);

  /// Two fingers that moved apart by `factor` since the last call, above a map of that cell size: the cells
  /// follow the fingers as closely as steps can.
  int Pinch(double factor, float cellSizePx);

  /// A new turn or pinch begins.
  void Reset();

 private:
  int turned_ = 0;  // eighths of a degree
  double pinched_ = 1;
};

/// `steps` from a cell size of the map view, held between 10 and 100 pixels.
float ZoomedCellSize(float cellSizePx, int steps);

}  // namespace quorvel
