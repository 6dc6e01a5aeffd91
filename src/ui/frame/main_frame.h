#pragma once

#include <vector>

#include <QMainWindow>
#include <QMdiArea>

#include "ui/commands/command_actions.h"
#include "ui/commands/command_target.h"
#include "ui/commands/menu_builder.h"
#include "ui/frame/status_bar.h"
#include "ui/frame/tool_options_bar.h"

namespace quorvel {

class CMapFrame;
class CWinApp;
class FrameHost;
class WindowList;

/// The main window: map windows in its area, menus after the active one, toolbar and tool options side by
/// side, status bar. Passes commands to whoever handles them: the active view, its document, the frame
/// itself, the application.
class CMainFrame : public QMainWindow {
  Q_OBJECT
 public:
  /// All outlive the frame.
  CMainFrame(CWinApp& application, FrameHost& frames, CommandTarget& applicationCommands);

  CommandActions& Actions() { return *actions_; }
  QMdiArea& MdiArea() { return *mdiArea_; }
  CToolOptionsBar& ToolOptionsBar() { return *toolOptionsBar_; }
  CStatusBar& StatusBar() { return *statusBar_; }
  /// Null when no map is open.
  CMapFrame* ActiveFrame() const;
  /// Writes the title anew: another map is in front, or its title or state changed.
  void UpdateTitle();

  /// Hands a command of the tool options bar to the document in front; without one nothing happens.
  void ForwardBarCommand(int id, int notification, int position);

  void OnWindowNew();
  void OnNextPane(int step);
  void OnHelp();
  void OnViewToolbar();
  void OnViewStatusBar();
  bool IsToolbarShown() const;
  bool IsStatusBarShown() const;

 signals:
  /// Another map window is in front, or none.
  void ActiveFrameChanged();
  /// A dialog over the frame has gone.
  void Unblocked();

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  std::vector<CommandTarget*> CommandChain();
  void BuildBars();
  void LoadMenu(int resourceId);
  void FollowActiveFrame();
  void UpdateRecentFiles();

  CWinApp& application_;
  FrameHost& frames_;
  CommandTarget& applicationCommands_;
  CommandMap<CMainFrame> commands_;
  CommandMap<CMainFrame> windowCommands_;
  CommandActions* actions_;
  PopupMenus menus_;
  QMdiArea* mdiArea_;
  WindowList* windowList_;
  QToolBar* toolbar_;
  CToolOptionsBar* toolOptionsBar_;
  CStatusBar* statusBar_;
  int menuId_ = 0;
};

}  // namespace quorvel
