#include "cli/new_map.h"

#include "cli/tree_file.h"
#include "map/document/locate_definitions.h"
#include "map/fill/fill_settings.h"
#include "map/fill/map_fill.h"
#include "map/types/definitions.h"
#include "map/types/map_size_limits.h"
#include "platform/documents/clock.h"

namespace quorvel {

namespace {

/// The steps to a new map. Each is taken only while all is well.
class NewMapMaker {
 public:
  NewMapMaker(Console& console, const NewMapRequest& request) : console_(console), request_(request) {}

  MapInput Make(Feedback& feedback, CellListener& listener) {
    ReadSettingsFile();
    if (IsGood()) BuildDefinitions();
    if (IsGood()) ReadFill();
    if (IsGood()) MakeEmptyMap();
    if (IsGood() && fill_) Fill(feedback, listener);
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
    if (!request_.definitionsPath && settings_.FindBranch("Classes") != nullptr) {
      typesPath_ = *request_.settingsPath;
      BuildTypes(settings_, map_.contents, map_.errorText);
    } else {
      typesPath_ = request_.definitionsPath ? *request_.definitionsPath : DefaultPath();
      DataBranch definitions("");
      map_.code = ReadTreeFile(console_, typesPath_, definitions, TreePart::WithoutObjects);
      if (IsGood()) BuildTypes(definitions, map_.contents, map_.errorText);
    }
    Judge(typesPath_);
  }

  static std::string DefaultPath() {
    SettingsStore store(SettingsPlaces::FromEnvironment());
    return DefaultDefinitionsPath(store);
  }

  void ReadFill() {
    if (!request_.settingsPath) return;
    fill_ = ReadFillSettings(settings_, map_.contents.m_pCellClass, map_.errorText);
    Judge(*request_.settingsPath);
  }

  NewMapSize Size() const {
    if (request_.size) return *request_.size;
    MapSizeLimits limits;
    GetMapSizeLimits(map_.contents.m_pMapClass, limits);
    std::int32_t width = limits.defaultWidth.value_or(0), height = limits.defaultHeight.value_or(0);
    if (fill_) {
      width = fill_->width.value_or(width);
      height = fill_->height.value_or(height);
    }
    return {ClampNewMapSide(width), ClampNewMapSide(height)};
  }

  void MakeEmptyMap() {
    const NewMapSize size = Size();
    const auto isLegal = fill_ ? &CheckFullMap : &CheckMap;
    if (isLegal(map_.contents, size.width, size.height, map_.errorText))
      MakeGrid(map_.contents, size.width, size.height);
    Judge(typesPath_);
  }

  std::uint32_t Seed() const {
    if (request_.seed) return *request_.seed;
    if (fill_->seed) return *fill_->seed;
    const auto seed = static_cast<std::uint32_t>(SystemClock().Seconds());
    console_.Complain("seed " + std::to_string(seed) + " taken from the clock");
    return seed;
  }

  void Fill(Feedback& feedback, CellListener& listener) {
    FillMap(map_.contents, fill_->global, fill_->region, Seed(), feedback, listener);
  }

  Console& console_;
  const NewMapRequest& request_;
  DataBranch settings_{""};
  std::string typesPath_;  ///< the file that declared the types
  std::optional<FillSettings> fill_;
  MapInput map_;
};

}  // namespace

MapInput MakeNewMap(Console& console, const NewMapRequest& request, Feedback& feedback,
                    CellListener& listener) {
  return NewMapMaker(console, request).Make(feedback, listener);
}

}  // namespace quorvel
