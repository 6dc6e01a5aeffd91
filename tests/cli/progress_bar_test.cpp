#include "cli/progress_bar.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(ProgressLine, FitsTheTerminalWithOneColumnFree) {
  EXPECT_EQ(ProgressLine(50, "Loading map...", 80), "[###############...............]  50 % Loading map...");
  EXPECT_EQ(ProgressLine(101, "", 80), "[##############################] 101 % ");
  EXPECT_EQ(ProgressLine(0, "Loading map...", 43), "[..............................]   0 % Loa");
  EXPECT_EQ(ProgressLine(0, "Loading map...", 1), "");
}

}  // namespace
}  // namespace quorvel
