#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "cli/console.h"
#include "cli/map_file.h"
#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// The listener of a fill that is looked at only when it is done.
class NobodyListens : public CellListener {
 public:
  void OnCellChanged(const CellRecord&) override {}
};

/// Size of a new map in cells, 1 to 1000 a side.
struct NewMapSize {
  std::int32_t width, height;
};

/// What a new map is to be made of. What stands here wins over the settings file.
struct NewMapRequest {
  /// None: the settings file's own "Classes", else the default definitions file that the editor would use.
  std::optional<std::string> definitionsPath;
  std::optional<std::string> settingsPath;  ///< none: the map stays empty
  std::optional<NewMapSize> size;           ///< none: the settings' size, else the definitions' default
  std::optional<std::uint32_t> seed;  ///< none: the settings' seed, else the clock's, told to the console
};

/// Makes and fills a map; feedback and listener get the events of the fill. What is not Done has been told to
/// the console; the contents then hold the types that could be built and no grid.
MapInput MakeNewMap(Console& console, const NewMapRequest& request, Feedback& feedback,
                    CellListener& listener);

}  // namespace quorvel
