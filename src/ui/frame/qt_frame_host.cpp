#include "ui/frame/qt_frame_host.h"

#include <QApplication>
#include <QMetaObject>

#include "platform/documents/document.h"
#include "platform/documents/win_app.h"
#include "ui/frame/main_frame.h"
#include "ui/frame/map_frame.h"
#include "ui/view/map_view.h"

namespace quorvel {

void QtFrameHost::Attach(CMainFrame& mainFrame, CWinApp& application) {
  mainFrame_ = &mainFrame;
  application_ = &application;
  connect(&mainFrame, &CMainFrame::Unblocked, this, [this] {
    if (isIdleRequested_) QMetaObject::invokeMethod(this, &QtFrameHost::Idle, Qt::QueuedConnection);
  });
}

void QtFrameHost::Detach() {
  mainFrame_ = nullptr;
  application_ = nullptr;
}

void QtFrameHost::OpenFrame(CDocument& document) {
  if (!mainFrame_) return;
  auto* view = new CMapView(*application_);
  document.AddView(*view);
  auto* frame = new CMapFrame(view, *application_);
  mainFrame_->MdiArea().addSubWindow(frame);
  connect(view, &QObject::destroyed, this, &QtFrameHost::OnFrameGone);
  connect(frame, &CMapFrame::CaptionChanged, mainFrame_, &CMainFrame::UpdateTitle);
  frame->ActivateFrame();
  view->OnInitialUpdate();
  UpdateTitles();
}

void QtFrameHost::ActivateFrame(CDocument& document) {
  const auto frames = FramesOf(document);
  if (frames.empty()) return;
  if (frames.front()->isMinimized()) frames.front()->ActivateFrame();
  mainFrame_->MdiArea().setActiveSubWindow(frames.front());
}

void QtFrameHost::CloseFrames(CDocument& document) {
  for (CMapFrame* frame : FramesOf(document)) frame->CloseUnasked();
}

std::vector<CMapFrame*> QtFrameHost::FramesOf(const CDocument& document) const {
  std::vector<CMapFrame*> frames;
  if (!mainFrame_) return frames;
  for (QMdiSubWindow* window : mainFrame_->MdiArea().subWindowList()) {
    auto* frame = qobject_cast<CMapFrame*>(window);
    if (frame && frame->View().GetDocument() == &document) frames.push_back(frame);
  }
  return frames;
}

/// The numbers of the views that are left may have changed, and the document may have ended with its last
/// view.
void QtFrameHost::OnFrameGone() {
  if (!mainFrame_) return;
  UpdateTitles();
  RequestIdle();
}

void QtFrameHost::UpdateTitles() {
  for (QMdiSubWindow* window : mainFrame_->MdiArea().subWindowList()) {
    if (auto* frame = qobject_cast<CMapFrame*>(window)) frame->UpdateTitle();
  }
}

void QtFrameHost::RequestIdle() {
  if (isIdleRequested_) return;
  isIdleRequested_ = true;
  QMetaObject::invokeMethod(this, &QtFrameHost::Idle, Qt::QueuedConnection);
}

/// While a dialog is up the loop that runs is inside somebody's call; the pass waits until the main frame is
/// free again.
void QtFrameHost::Idle() {
  if (!isIdleRequested_ || QApplication::activeModalWidget()) return;
  isIdleRequested_ = false;
  if (application_) application_->OnIdle();
}

}  // namespace quorvel
