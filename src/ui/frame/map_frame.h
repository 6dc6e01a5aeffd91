#pragma once

#include <QMdiSubWindow>

#include "ui/commands/command_target.h"

namespace quorvel {

class CMapView;
class CVastrelDoc;
class CWinApp;

/// A map window: one view in a window of the main frame's area. Destroys its view and itself when closed.
class CMapFrame : public QMdiSubWindow {
  Q_OBJECT
 public:
  /// Takes the view, which has its document already.
  CMapFrame(CMapView* view, CWinApp& application);

  CMapView& View() const { return *view_; }
  /// Good while the view has its document.
  CommandTarget& DocumentCommands() { return documentCommands_; }

  /// Shows the frame maximized, whatever state it is asked for.
  void ActivateFrame(Qt::WindowStates asked = {});
  /// Closes the frame without asking about changes.
  void CloseUnasked();
  /// The document's title, with the number of the view where there are several.
  void UpdateTitle();

 signals:
  /// The title or the state of the frame changed.
  void CaptionChanged();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  CMapView* view_;
  CWinApp& application_;
  CommandMap<CVastrelDoc> documentCommands_;
  bool isAsking_ = true;
};

}  // namespace quorvel
