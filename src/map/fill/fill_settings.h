#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/class_def.h"
#include "data/data_tree.h"
#include "map/fill/property_settings.h"

namespace quorvel {

/// Everything that decides a new map beside its definitions. The same settings give the same map.
struct FillSettings {
  std::optional<std::int32_t> width;   ///< 1..1000; none: the definitions' default
  std::optional<std::int32_t> height;  ///< 1..1000; none: the definitions' default
  std::optional<std::uint32_t> seed;   ///< none: the clock
  CPropertySettingList global;
  CPropertySettingList region;
};

/// The nearest side that a new map may have: 1..1000 cells.
std::int32_t ClampNewMapSide(std::int32_t cells);

/// Reads the branch "Fill" of a settings file. None, with lines in the error text, when there is no such
/// branch or a setting names no member of the cell class. The settings refer to the members of the class.
std::optional<FillSettings> ReadFillSettings(const DataBranch& file, const ClassDef* cellClass,
                                             std::string& errorText);

/// The same of the branch "Filter", which has the form of "Fill/Global".
std::optional<CPropertySettingList> ReadFilterSettings(const DataBranch& file, const ClassDef* cellClass,
                                                       std::string& errorText);

/// Adds the branch "Fill" to a settings file, so that it reads back as these settings. What the text form
/// cannot hold in a text ("//", carriage returns) is lost when the file is written.
void WriteFillSettings(const FillSettings& settings, DataBranch& file);

}  // namespace quorvel
