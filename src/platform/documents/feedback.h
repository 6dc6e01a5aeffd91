#pragma once

#include <string_view>

namespace quorvel {

/// Where long operations and the pointer report to: the main window's status bar, a terminal, or nothing.
/// No operation fails or blocks.
class Feedback {
 public:
  virtual ~Feedback() = default;

  /// Text of the position pane, shown from its next update.
  virtual void SetStatusText(std::string_view text) = 0;
  /// Text of the message pane, shown at once; an empty text clears the pane.
  virtual void SetMessageText(std::string_view text) = 0;
  virtual void ShowProgress(bool show) = 0;
  /// 0 to 100; kept while the bar is hidden.
  virtual void SetProgressPos(int percent) = 0;

  /// The wait cursor is shown while more waits began than ended; use WaitCursor.
  virtual void BeginWait() = 0;
  virtual void EndWait() = 0;

  /// Lets the window live during a long operation. Called often: looks at the clock before it looks for work.
  virtual void Pump() = 0;

  /// True for a log that records every step; false where only the latest state is seen.
  virtual bool WantsEveryEvent() const = 0;
};

/// Feedback that nobody reads.
class NullFeedback : public Feedback {
 public:
  void SetStatusText(std::string_view) override {}
  void SetMessageText(std::string_view) override {}
  void ShowProgress(bool) override {}
  void SetProgressPos(int) override {}
  void BeginWait() override {}
  void EndWait() override {}
  void Pump() override {}
  bool WantsEveryEvent() const override { return false; }
};

/// Lets the window live and tells nobody why.
class PumpOnly : public NullFeedback {
 public:
  explicit PumpOnly(Feedback& sink) : sink_(sink) {}
  void Pump() override { sink_.Pump(); }

 private:
  Feedback& sink_;
};

/// Feedback of a loop with very many steps. Formatting a message costs more than a step itself, so a sink
/// that shows only the latest state gets the first and then every 256th report.
class LoopFeedback {
 public:
  explicit LoopFeedback(Feedback& sink) : sink_(sink), every_(sink.WantsEveryEvent()) {}

  /// `report(Feedback&)` formats and sends this step's state; called only when somebody will see it.
  template <class Report>
  void Step(Report&& report) {
    if (!every_ && --left_ > 0) return;
    left_ = kStepsPerReport;
    sink_.Pump();
    report(sink_);
  }

 private:
  static constexpr int kStepsPerReport = 256;

  Feedback& sink_;
  const bool every_;
  int left_ = 1;
};

/// Shows the progress bar during its life, first at 0; at its end the message goes too.
class ProgressShown {
 public:
  explicit ProgressShown(Feedback& sink) : sink_(sink) {
    sink_.ShowProgress(true);
    sink_.SetProgressPos(0);
  }
  ~ProgressShown() {
    sink_.ShowProgress(false);
    sink_.SetMessageText({});
  }
  ProgressShown(const ProgressShown&) = delete;
  ProgressShown& operator=(const ProgressShown&) = delete;

 private:
  Feedback& sink_;
};

/// Shows a message during its life.
class StatusMessage {
 public:
  StatusMessage(Feedback& sink, std::string_view message) : sink_(sink) { sink_.SetMessageText(message); }
  ~StatusMessage() { sink_.SetMessageText({}); }
  StatusMessage(const StatusMessage&) = delete;
  StatusMessage& operator=(const StatusMessage&) = delete;

 private:
  Feedback& sink_;
};

/// Shows the wait cursor during its life.
class WaitCursor {
 public:
  explicit WaitCursor(Feedback& sink) : sink_(sink) { sink_.BeginWait(); }
  ~WaitCursor() { sink_.EndWait(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  Feedback& sink_;
};

}  // namespace quorvel
