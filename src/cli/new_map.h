#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "cli/console.h"
#include "cli/map_file.h"
#include "map/fill/make_map.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// The listener of a fill that is looked at only when it is done.
class NobodyListens : public NewMapListener {
 public:
  void OnCellChanged(const CellRecord&) override {}
};

/// What a new map is to be made of. What stands here wins over the settings file.
struct NewMapRequest {
  /// None: the settings file's own "Classes", else the default definitions file that the editor would use.
  std::optional<std::string> definitionsPath;
  /// None: the map stays empty.
  std::optional<std::string> settingsPath;
  /// None: the settings' size, else the definitions' default.
  std::optional<NewMapSize> size;
  /// None: the settings' seed, else the clock's, which is told to the console.
  std::optional<std::uint32_t> seed;
};

/// Makes and fills a map; feedback and listener get the events of the fill. What is not Done has been told to
/// the console; the contents then hold the types that could be built and no grid.
MapInput MakeNewMap(Console& console, const NewMapRequest& request, Feedback& feedback,
                    NewMapListener& listener);

}  // namespace quorvel
