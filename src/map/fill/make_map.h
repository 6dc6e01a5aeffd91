#pragma once

#include <cstdint>
#include <string>

#include "data/class_def.h"
#include "map/fill/fill_settings.h"
#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// In cells.
struct NewMapSize {
  std::int32_t width, height;
};

/// Told of a map in the making.
class NewMapListener : public CellListener {
 public:
  /// The map has its grid, of which no cell has a value yet.
  virtual void OnGridMade() {}
};

/// What the settings ask for, else the default of the map class; each side the nearest that a new map may
/// have.
NewMapSize SizeOfNewMap(const FillSettings& settings, const ClassDef* mapClass);

/// Gives contents that have their types an empty grid of this size. False, with lines in the error text and
/// no grid, when the limits do not allow it.
bool MakeEmptyMap(MapContents& map, NewMapSize size, std::string& errorText);

/// Gives contents that have their types a grid of the settings' size and fills it. The settings have their
/// seed. False, with lines in the error text and no grid, when the limits do not allow a map whose cells all
/// have values.
bool MakeMap(MapContents& map, const FillSettings& settings, Feedback& feedback, NewMapListener& listener,
             std::string& errorText);

}  // namespace quorvel
