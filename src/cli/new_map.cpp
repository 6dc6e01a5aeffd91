#include "cli/new_map.h"

#include "cli/tree_file.h"
#include "map/document/locate_definitions.h"
#include "map/fill/make_map.h"
#include "map/types/definitions.h"
#include "platform/documents/clock.h"

namespace quorvel {

namespace {

/// The steps to a new map. Each is taken only while all is well.
class NewMapMaker {
 public:
  NewMapMaker(Console& console, const NewMapRequest& request) : console_(console), request_(request) {}

  MapInput Make(Feedback& feedback, NewMapListener& listener) {
    ReadSettingsFile();
    if (IsGood()) BuildDefinitions();
    if (IsGood()) ReadFill();
    if (IsGood()) request_.settingsPath ? MakeFilled(feedback, listener) : MakeEmpty();
    return std::move(map_);
  }

 private:
  bool IsGood() const { return map_.code == ExitCode::Done; }

  /// Ends the steps when the error text that the last one left is not empty.
  void Judge(const std::string& path) {
    if (map_.errorText.empty()) return;
    console_.Complain(path, map_.errorText);
    map_.code = ExitCode::No;
  }

  void ReadSettingsFile() {
    if (request_.settingsPath) map_.code = ReadTreeFile(console_, *request_.settingsPath, settings_);
  }

  void BuildDefinitions() {
    if (!request_.definitionsPath && settings_.FindBranch("Classes")) {
      typesPath_ = *request_.settingsPath;
      BuildTypes(settings_, map_.contents, map_.errorText);
    } else {
      typesPath_ = request_.definitionsPath ? *request_.definitionsPath : DefaultPath();
      DataBranch definitions("");
      map_.code = ReadTreeFile(console_, typesPath_, definitions, TreePart::WithoutObjects);
      const bool hasNone = map_.code == ExitCode::Trouble && !request_.definitionsPath;
      if (hasNone) Console::Complain("no default definitions file; give --definitions");
      if (IsGood()) BuildTypes(definitions, map_.contents, map_.errorText);
    }
    Judge(typesPath_);
  }

  static std::string DefaultPath() {
    SettingsStore store(SettingsPlaces::FromEnvironment());
    return DefaultDefinitionsPath(store);
  }

  /// What the request gives wins.
  void ReadFill() {
    if (request_.settingsPath) {
      auto fill = ReadFillSettings(settings_, map_.contents.m_pCellClass, map_.errorText);
      if (fill) fill_ = std::move(*fill);
      Judge(*request_.settingsPath);
    }
    if (request_.size) fill_.width = request_.size->width, fill_.height = request_.size->height;
    if (request_.seed) fill_.seed = request_.seed;
  }

  void MakeEmpty() {
    MapContents& contents = map_.contents;
    MakeEmptyMap(contents, SizeOfNewMap(fill_, contents.m_pMapClass), map_.errorText);
    Judge(typesPath_);
  }

  void MakeFilled(Feedback& feedback, NewMapListener& listener) {
    const bool takesClock = !fill_.seed;
    if (takesClock) fill_.seed = static_cast<std::uint32_t>(SystemClock().Seconds());
    MakeMap(map_.contents, fill_, feedback, listener, map_.errorText);
    Judge(typesPath_);
    if (takesClock && IsGood())
      console_.Complain("seed " + std::to_string(*fill_.seed) + " taken from the clock");
  }

  Console& console_;
  const NewMapRequest& request_;
  DataBranch settings_{""};
  /// The file that declared the types.
  std::string typesPath_;
  FillSettings fill_;
  MapInput map_;
};

}  // namespace

MapInput MakeNewMap(Console& console, const NewMapRequest& request, Feedback& feedback,
                    NewMapListener& listener) {
  return NewMapMaker(console, request).Make(feedback, listener);
}

}  // namespace quorvel
