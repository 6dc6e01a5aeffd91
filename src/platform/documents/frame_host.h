#pragma once

namespace quorvel {

class CDocument;

/// The windows around documents, as the application sees them.
class FrameHost {
 public:
  virtual ~FrameHost() = default;

  /// Makes a frame with a view of the document, adds the view to it and shows the frame.
  virtual void OpenFrame(CDocument& document) = 0;
  /// Brings a frame of the document to the front.
  virtual void ActivateFrame(CDocument& document) = 0;
  /// Closes every frame of the document, which has some, without a question; their views may be destroyed
  /// later, but before the next idle pass.
  virtual void CloseFrames(CDocument& document) = 0;
  /// Asks for one `CWinApp::OnIdle` soon, from the top of the message loop. Asking again before that changes
  /// nothing.
  virtual void RequestIdle() = 0;
};

}  // namespace quorvel
