#pragma once

#include <memory>

#include "map/document/services.h"
#include "platform/documents/win_app.h"
#include "ui/app/command_line.h"
#include "ui/commands/command_target.h"
#include "ui/frame/main_frame.h"
#include "ui/frame/qt_feedback.h"
#include "ui/frame/qt_frame_host.h"
#include "ui/frame/qt_tool_options.h"
#include "ui/printing/map_printing.h"

namespace quorvel {

/// The bodies of the services that live in the main frame, to be attached to it once it is there.
struct FrameServices {
  QtFeedback& feedback;
  QtToolOptions& toolOptions;
  QtFrameHost& frames;
};

/// The application object: starts the editor and handles the commands that need no map.
class CMapEditorApp : public CWinApp {
 public:
  /// All outlive the application.
  CMapEditorApp(Services& services, FrameServices frameServices);
  ~CMapEditorApp() override;

  /// Starts up: recent files, the two document types, the main frame, the file types, the command line. True:
  /// run the message loop. False: end the program, the user knows why.
  bool InitInstance(const CCommandLineInfo& commandLine);

  CMainFrame& MainFrame() { return *mainFrame_; }
  MapPrinting& Printing() { return printing_; }
  /// The view in front; null when no map is open.
  CMapView* ActiveView() const;

  void OnAppAbout();

  void EndBusy() override;

 private:
  void AddDocTemplates();
  void CreateMainFrame();
  bool ProcessShellCommand(const CCommandLineInfo& commandLine);
  void ShowActiveTool();

  Services& services_;
  FrameServices frameServices_;
  MapPrinting printing_;
  CommandMap<CMapEditorApp> commands_;
  std::unique_ptr<CMainFrame> mainFrame_;
};

}  // namespace quorvel
