#include "ui/frame/qt_feedback.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>

#include "render/display_text.h"
#include "ui/frame/main_frame.h"

namespace quorvel {
namespace {

/// A click waits for this long at most, and then for the frame that is painted before it is answered:
/// together less than 50 ms.
constexpr qint64 kPumpEveryMs = 8;

}  // namespace

void QtFeedback::SetStatusText(std::string_view text) {
  if (frame_) frame_->StatusBar().SetStatusText(DisplayText(text));
}

void QtFeedback::SetMessageText(std::string_view text) {
  if (frame_) frame_->StatusBar().SetMessageText(DisplayText(text));
}

void QtFeedback::ShowProgress(bool show) {
  if (frame_) frame_->StatusBar().ShowProgress(show);
}

void QtFeedback::SetProgressPos(int percent) {
  if (frame_) frame_->StatusBar().SetProgressPos(percent);
}

void QtFeedback::BeginWait() {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtFeedback::EndWait() {
  QGuiApplication::restoreOverrideCursor();
}

void QtFeedback::Pump() {
  if (sincePump_.isValid() && sincePump_.elapsed() < kPumpEveryMs) return;
  if (frame_ && !frame_->Actions().ShowsBusy()) frame_->Actions().Refresh();
  QCoreApplication::processEvents(QEventLoop::AllEvents, kPumpEveryMs);
  sincePump_.start();
}

}  // namespace quorvel
