#pragma once

#include <cstdint>
#include <string_view>

#include "platform/documents/feedback.h"

namespace quorvel {

/// Progress bar and message of one long operation, shown during this object's life.
class MapProgress {
 public:
  MapProgress(Feedback& sink, std::string_view message) : sink_(sink), loop_(sink) {
    sink_.ShowProgress(true);
    sink_.SetProgressPos(0);
    sink_.SetMessageText(message);
  }
  ~MapProgress() {
    sink_.ShowProgress(false);
    sink_.SetMessageText({});
  }
  MapProgress(const MapProgress&) = delete;
  MapProgress& operator=(const MapProgress&) = delete;

  /// `done` of `all` steps are done.
  void Step(std::int64_t done, std::int64_t all) {
    loop_.Step([done, all](Feedback& sink) {
      sink.SetProgressPos(static_cast<int>(static_cast<double>(done) / static_cast<double>(all) * 100));
    });
  }

 private:
  Feedback& sink_;
  LoopFeedback loop_;
};

}  // namespace quorvel
