#pragma once

#include <string>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <gtest/gtest.h>

#include "map/document/vastrel_doc.h"
#include "tests/cli/tool_run.h"
#include "tests/map/scripted_services.h"
#include "tests/platform/temp_folder.h"
#include "ui/app/map_editor_app.h"
#include "ui/dialogs/qt_prompts.h"
#include "ui/frame/map_frame.h"
#include "ui/resources/command_ids.h"
#include "ui/view/map_view.h"
#include "ui/wizard/map_dialogs.h"

namespace quorvel {

/// Who answers the editor's questions: the fixture's scripts, or dialogs as windows, to be driven by
/// WhenModal.
enum class Answers { FromScripts, InWindows };

/// The whole editor off screen, with settings in memory and a folder of its own for the user's data. Without
/// a folder for journals nothing is kept safe from a crash.
class Editor {
 public:
  explicit Editor(const CCommandLineInfo& commandLine = {}, const std::string& journalsFolder = {},
                  std::deque<Answer> answers = {})
      : services(ServicesFor(Answers::FromScripts)) {
    services.journalsFolder = journalsFolder;
    prompts.answers = std::move(answers);
    Start(commandLine);
  }
  explicit Editor(Answers answers) : services(ServicesFor(answers)) { Start({}); }
  ~Editor() {
    for (const auto& document : app.Documents()) document->SetModifiedFlag(false);
    app.CloseAllDocuments();
    Settle();
  }

  /// Lets everything happen that is due, frames of the map views included.
  void Settle() { QTest::qWait(40); }

  /// The default definitions: a file with this text.
  void GiveDefinitions(const std::string& text);

  /// A map file in the folder with the members n (string), v (int), owner and star (index); every cell has a
  /// record, whose number is in v.
  std::string WriteMap(const std::string& name, int width, int height) {
    return folder.Write(name, MapText(width, height));
  }

  CVastrelDoc* Open(const std::string& path) {
    auto* document = static_cast<CVastrelDoc*>(app.OpenDocumentFile(path));
    Settle();
    return document;
  }
  CVastrelDoc* OpenMap(int width, int height) { return Open(WriteMap("map.vrl", width, height)); }

  CMainFrame& Frame() { return app.MainFrame(); }
  CMapView& View() { return Frame().ActiveFrame()->View(); }
  QAction& Action(int command) { return *Frame().Actions().Action(command); }
  void Run(int command) {
    Action(command).trigger();
    Settle();
  }
  /// What the panes show; pane 0 is the message pane.
  QString Pane(int id);

  /// The middle of a cell in the active view's viewport.
  QPoint Middle(CellCoord cell);
  void MovePointer(QPoint place);
  void PressAt(QPoint place, Qt::MouseButton button = Qt::LeftButton);
  void Release(QPoint place);
  /// The button is up, and nothing tells of it.
  void LetGoUnseen() { heldButton_ = Qt::NoButton; }

  TempFolder folder;
  ScriptedPrompts prompts;
  QtPrompts windowPrompts;
  QtFeedback feedback;
  ScriptedMapDialogs dialogs;
  WindowMapDialogs windowDialogs{nullptr};
  QtToolOptions toolOptions;
  SettingsStore settings{SettingsPlaces{}};
  FixedClock clock;
  Services services;
  QtFrameHost frames;
  CMapEditorApp app{services, {feedback, toolOptions, frames}};
  bool started = false;

 private:
  void SendMouse(QEvent::Type type, QPoint place, Qt::MouseButton button);
  static std::string MapText(int width, int height);
  Services ServicesFor(Answers answers);
  void Start(const CCommandLineInfo& commandLine) {
    qputenv("XDG_DATA_HOME", (folder / "data").c_str());
    started = app.InitInstance(commandLine);
  }

  Qt::MouseButton heldButton_ = Qt::NoButton;
};

/// Names a file in a file dialog and leaves it.
void NameFile(QDialog& dialog, const std::string& path);

}  // namespace quorvel
