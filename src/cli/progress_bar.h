#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "cli/console.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// Message and progress of long work as one line of the terminal, drawn anew at most ten times a second and
/// wiped when the work is over.
class ProgressBar : public NullFeedback {
 public:
  ProgressBar();
  ~ProgressBar() override;

  void SetMessageText(std::string_view text) override;
  void ShowProgress(bool show) override;
  void SetProgressPos(int percent) override;

 private:
  using Clock = std::chrono::steady_clock;
  void DrawInTime();
  void Draw();
  void Wipe();

  std::string message_;
  int percent_ = 0;
  bool shown_ = false;
  bool onScreen_ = false;
  Clock::time_point nextDraw_;
};

/// The line of a bar: a gauge, the percentage and as much of the message as fits into `columns`.
std::string ProgressLine(int percent, std::string_view message, int columns);

/// What long work reports to: a progress bar on standard error when that is a terminal and `display` allows
/// it, else nothing.
std::unique_ptr<Feedback> MakeFeedback(ProgressDisplay display);

}  // namespace quorvel
