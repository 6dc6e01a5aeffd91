#pragma once

#include <cstdint>
#include <string_view>

#include "platform/documents/feedback.h"

namespace quorvel {

/// Progress bar and message of one long operation, shown during this object's life.
class MapProgress {
 public:
  MapProgress(Feedback& sink, std::string_view message) : bar_(sink), loop_(sink) {
    sink.SetMessageText(message);
  }

  /// `done` of `all` steps are done.
  void Step(std::int64_t done, std::int64_t all) {
    loop_.Step([done, all](Feedback& sink) {
      sink.SetProgressPos(static_cast<int>(static_cast<double>(done) / static_cast<double>(all) * 100));
    });
  }

 private:
  ProgressShown bar_;
  LoopFeedback loop_;
};

}  // namespace quorvel
