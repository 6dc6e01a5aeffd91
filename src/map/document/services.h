#pragma once

#include <optional>
#include <string>

#include "map/fill/property_settings.h"
#include "map/types/file_form.h"
#include "map/types/map_size_limits.h"
#include "platform/documents/clock.h"
#include "platform/documents/feedback.h"
#include "platform/documents/prompts.h"
#include "platform/settings/settings_store.h"

namespace quorvel {

class CVastrelDoc;

/// A finished wizard for a new map.
struct NewMapChoice {
  int width = 0;  ///< as entered; clamped before use
  int height = 0;
  CPropertySettingList global;
  CPropertySettingList region;
};

/// The dialogs about maps. Each takes values and answers values, or none when the user cancelled.
class MapDialogs {
 public:
  virtual ~MapDialogs() = default;

  /// The form of a file; the dialog opens with `selected`.
  virtual std::optional<FileForm> ChooseDataType(FileForm selected) = 0;
  /// Size and settings of a new map. The cell class is null when the definitions have none.
  virtual std::optional<NewMapChoice> ChooseNewMap(const MapSizeLimits& limits,
                                                   const ClassDef* cellClass) = 0;
  /// A new filter; the dialog opens with a copy of `current`, which may be null.
  virtual std::optional<CPropertySettingList> ChooseFilter(const CPropertySettingList* current,
                                                           const ClassDef* cellClass) = 0;
};

/// The bar that shows the tool of one document: its number, the cell class's members, the member's editor.
class ToolOptions {
 public:
  virtual ~ToolOptions() = default;

  /// Shows this document's tool as it is now. Called by the document whenever its tool or painted member
  /// changes.
  virtual void ShowTool(CVastrelDoc& document) = 0;
};

/// What a map document needs of the world around it; all of it outlives the document.
struct Services {
  Prompts& prompts;
  Feedback& feedback;
  MapDialogs& mapDialogs;
  ToolOptions& toolOptions;
  SettingsStore& settings;
  const Clock& clock;
  std::string fillsFolder = {};     ///< where the settings of fills are kept; empty: nowhere
  std::string journalsFolder = {};  ///< where changes are kept safe from a crash; empty: nowhere
};

}  // namespace quorvel
