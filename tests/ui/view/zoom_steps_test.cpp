#include "ui/view/zoom_steps.h"

#include <vector>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(ZoomSteps, GatherTurnsToWholeSteps) {
  struct Row {
    const char* what;
    std::vector<QPoint> angles, pixels;
    std::vector<int> steps;
  };
  const Row rows[] = {
      {"notches", {{0, 120}, {0, -120}, {0, 240}}, {{}, {}, {}}, {1, -1, 2}},
      {"a touchpad's fractions", {{0, 50}, {0, 50}, {0, 50}}, {{}, {}, {}}, {0, 0, 1}},
      {"what is left goes on", {{0, 100}, {0, 100}, {0, 40}}, {{}, {}, {}}, {0, 1, 1}},
      {"the way back begins at once", {{0, 110}, {0, -110}, {0, -10}}, {{}, {}, {}}, {0, 0, -1}},
      {"pixels, where there are no angles", {{}, {}}, {{0, 40}, {0, 20}}, {0, 1}},
      {"both at once are one turn", {{0, 60}, {0, 60}}, {{0, 90}, {0, 90}}, {0, 1}},
      {"sideways is no zoom", {{500, 0}}, {{500, 0}}, {0}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    ZoomSteps gathered;
    for (std::size_t turn = 0; turn < row.steps.size(); ++turn)
      EXPECT_EQ(gathered.Turn(row.angles[turn], row.pixels[turn]), row.steps[turn]) << turn;
  }
}

TEST(ZoomSteps, CellsFollowThePinch) {
  const std::tuple<float, std::vector<double>, float> rows[] = {
      {20, {1.1, 1.1, 1.7}, 40},
      {100, {0.8, 0.625}, 50},
      {50, {1.1, 1.05}, 50},  // too little for a step
      {50, {1.5, 1.0 / 1.5}, 50},
      {90, {3, 0.9}, 90}};  // over the end and back
  for (const auto& [from, factors, to] : rows) {
    ZoomSteps gathered;
    float cellSizePx = from;
    for (const double factor : factors)
      cellSizePx = ZoomedCellSize(cellSizePx, gathered.Pinch(factor, cellSizePx));
    EXPECT_EQ(cellSizePx, to) << from;
  }
}

}  // namespace
}  // namespace quorvel
