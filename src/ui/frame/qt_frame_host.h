#pragma once

#include <vector>

#include <QObject>

#include "platform/documents/frame_host.h"

namespace quorvel {

class CMainFrame;
class CMapFrame;
class CWinApp;

/// Gives documents their map frames in the main frame's area, and the application its idle passes.
class QtFrameHost final : public QObject, public FrameHost {
  Q_OBJECT
 public:
  /// All outlive the map frames. Before this, nothing is opened.
  void Attach(CMainFrame& mainFrame, CWinApp& application);

  /// The main frame and the application are about to go.
  void Detach();

  void OpenFrame(CDocument& document) override;
  void ActivateFrame(CDocument& document) override;
  void CloseFrames(CDocument& document) override;
  void RequestIdle() override;

 private:
  std::vector<CMapFrame*> FramesOf(const CDocument& document) const;
  void UpdateTitles();
  void OnFrameGone();
  void Idle();

  CMainFrame* mainFrame_ = nullptr;
  CWinApp* application_ = nullptr;
  bool isIdleRequested_ = false;
};

}  // namespace quorvel
