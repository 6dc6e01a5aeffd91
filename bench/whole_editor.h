#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <utility>

#include <QApplication>

#include "platform/files/state_folder.h"
#include "ui/app/map_editor_app.h"
#include "ui/frame/map_frame.h"
#include "ui/view/map_view.h"

namespace quorvel {

/// A folder of its own for everything that an editor keeps, gone with this object.
class BenchFolder {
 public:
  BenchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "quorvel-bench-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~BenchFolder() { std::filesystem::remove_all(path_); }
  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;

  std::string Path(const char* name) const { return (path_ / name).string(); }
  std::string Write(const char* name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
    return Path(name);
  }

 private:
  std::filesystem::path path_;
};

/// Agrees to everything, and tells on the terminal what a user would have been told.
class AgreeingPrompts : public Prompts {
 public:
  using Prompts::Message;
  Answer Message(const std::string& text, MessageButtons buttons, MessageIcon, const std::string&) override {
    std::cerr << text << '\n';
    return buttons == MessageButtons::SaveDiscardCancel ? Answer::Discard : Answer::Ok;
  }
  std::optional<std::string> OpenFileName(const FilePrompt&) override { return std::nullopt; }
  std::optional<std::string> SaveFileName(const FilePrompt&) override { return std::nullopt; }
  std::optional<std::size_t> SelectType(const std::vector<std::string>&) override { return 0; }
};

/// Dialogs whose user has finished the moment they open.
class FinishedDialogs : public MapDialogs {
 public:
  using NewMap = std::function<NewMapChoice(const ClassDef&)>;

  explicit FinishedDialogs(NewMap newMap) : newMap_(std::move(newMap)) {}

  std::optional<int> ChooseDataType(std::span<const std::string_view>, int selected) override {
    return selected;
  }
  std::optional<NewMapChoice> ChooseNewMap(const MapSizeLimits&, const ClassDef* cellClass) override {
    return newMap_(*cellClass);
  }
  std::optional<CPropertySettingList> ChooseFilter(const CPropertySettingList*, const ClassDef*) override {
    return std::nullopt;
  }

 private:
  NewMap newMap_;
};

/// The whole editor as the program builds it, journals and kept fills included, in a window of 1920 x 1080.
class WholeEditor {
 public:
  WholeEditor(const std::string& definitions, FinishedDialogs::NewMap newMap)
      : dialogs_(std::move(newMap)),
        services_{prompts_,
                  feedback_,
                  dialogs_,
                  toolOptions_,
                  settings_,
                  clock_,
                  folder_.Path("fills"),
                  folder_.Path("journals")},
        app_(services_, {feedback_, toolOptions_, frames_}) {
    qputenv("XDG_DATA_HOME", folder_.Path("data").c_str());
    settings_.Set(std::string(kApplicationKey) + "\\Definitions", "DefaultFile",
                  folder_.Write("Definitions.txt", definitions));
    app_.InitInstance({});
    app_.MainFrame().resize(1920, 1080);
    QCoreApplication::processEvents();
  }
  ~WholeEditor() {
    for (const auto& document : app_.Documents()) document->SetModifiedFlag(false);
    app_.CloseAllDocuments();
    QCoreApplication::processEvents();
  }
  WholeEditor(const WholeEditor&) = delete;
  WholeEditor& operator=(const WholeEditor&) = delete;

  CMapEditorApp& App() { return app_; }
  Feedback& GetFeedback() { return feedback_; }
  CMapView& View() { return app_.MainFrame().ActiveFrame()->View(); }
  CVastrelDoc& Document() { return *View().Document(); }

 private:
  BenchFolder folder_;
  AgreeingPrompts prompts_;
  QtFeedback feedback_;
  FinishedDialogs dialogs_;
  QtToolOptions toolOptions_;
  SettingsStore settings_{SettingsPlaces{}};
  SystemClock clock_;
  Services services_;
  QtFrameHost frames_;
  CMapEditorApp app_;
};

}  // namespace quorvel
