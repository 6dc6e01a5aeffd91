#include "platform/documents/feedback.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

class Sink : public NullFeedback {
 public:
  explicit Sink(bool every) : every_(every) {}
  void SetProgressPos(int percent) override { positions.push_back(percent); }
  void Pump() override { ++pumps; }
  bool WantsEveryEvent() const override { return every_; }

  std::vector<int> positions;
  int pumps = 0;

 private:
  bool every_;
};

TEST(LoopFeedback, FormatsOnlyWhatIsSeen) {
  for (const bool every : {true, false}) {
    Sink sink(every);
    LoopFeedback loop(sink);
    for (int i = 0; i < 600; ++i) loop.Step([&](Feedback& feedback) { feedback.SetProgressPos(i); });
    EXPECT_EQ(sink.pumps, static_cast<int>(sink.positions.size()));
    if (every) {
      EXPECT_EQ(sink.positions.size(), 600U);
    } else {
      EXPECT_THAT(sink.positions, testing::ElementsAre(0, 256, 512));
    }
  }
}

}  // namespace
}  // namespace quorvel
