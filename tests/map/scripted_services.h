#pragma once

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "map/document/services.h"
#include "tests/map/map_samples.h"
#include "tests/platform/scripted_prompts.h"

namespace quorvel {

/// Answers from lists filled beforehand and remembers what was asked. No answer left: cancelled.
class ScriptedMapDialogs : public MapDialogs {
 public:
  std::deque<std::optional<FileForm>> forms;
  std::deque<std::optional<NewMapChoice>> newMaps;

  std::vector<FileForm> selectedForms;  ///< what the form dialogs opened with
  std::vector<MapSizeLimits> limits;    ///< what the wizards for a new map were given
  std::vector<const ClassDef*> cells;

  std::optional<FileForm> ChooseDataType(FileForm selected) override {
    selectedForms.push_back(selected);
    return Next(forms);
  }
  std::optional<NewMapChoice> ChooseNewMap(const MapSizeLimits& sizeLimits,
                                           const ClassDef* cellClass) override {
    limits.push_back(sizeLimits);
    cells.push_back(cellClass);
    return Next(newMaps);
  }
  std::optional<CPropertySettingList> ChooseFilter(const CPropertySettingList*, const ClassDef*) override {
    return std::nullopt;
  }

 private:
  template <class T>
  static std::optional<T> Next(std::deque<std::optional<T>>& script) {
    if (script.empty()) return std::nullopt;
    std::optional<T> answer = std::move(script.front());
    script.pop_front();
    return answer;
  }
};

class NoToolOptions : public ToolOptions {
 public:
  void ShowTool(CVastrelDoc&) override {}
};

/// A new map's seed, and the time at which its settings are kept.
class FixedClock : public Clock {
 public:
  std::int64_t Seconds() const override { return 4711; }
};

/// The world around a document, in memory.
struct ScriptedServices {
  ScriptedPrompts prompts;
  FeedbackLog feedback;
  ScriptedMapDialogs mapDialogs;
  NoToolOptions toolOptions;
  SettingsStore settings{SettingsPlaces{}};
  FixedClock clock;
  Services services{prompts, feedback, mapDialogs, toolOptions, settings, clock};
};

}  // namespace quorvel
