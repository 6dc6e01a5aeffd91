#pragma once

#include <QElapsedTimer>

#include "platform/documents/feedback.h"

namespace quorvel {

class CMainFrame;

/// Reports into the main frame's status bar; says nothing while there is none.
class QtFeedback final : public Feedback {
 public:
  /// Null before the frame goes.
  void Attach(CMainFrame* frame) { frame_ = frame; }

  void SetStatusText(std::string_view text) override;
  void SetMessageText(std::string_view text) override;
  void ShowProgress(bool show) override;
  void SetProgressPos(int percent) override;
  void BeginWait() override;
  void EndWait() override;
  void Pump() override;
  bool WantsEveryEvent() const override { return false; }

 private:
  CMainFrame* frame_ = nullptr;
  QElapsedTimer sincePump_;
};

}  // namespace quorvel
