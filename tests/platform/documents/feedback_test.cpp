#include "platform/documents/feedback.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

/// A window; a log hears of every event.
class Window : public NullFeedback {
 public:
  void SetProgressPos(int percent) override { positions.push_back(percent); }
  void Pump() override { ++pumps; }

  std::vector<int> positions;
  int pumps = 0;
};

TEST(LoopFeedback, FormatsOnlyWhatIsSeen) {
  Window window;
  LoopFeedback loop(window);
  for (int i = 0; i < 600; ++i) loop.Step([&](Feedback& feedback) { feedback.SetProgressPos(i); });
  EXPECT_THAT(window.positions, testing::ElementsAre(0, 256, 512));
  EXPECT_EQ(window.pumps, 3);
}

}  // namespace
}  // namespace quorvel
