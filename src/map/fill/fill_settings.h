#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/class_def.h"
#include "data/data_tree.h"
#include "map/fill/property_settings.h"

namespace quorvel {

/// A settings file is a generic data file in text form. "Classes" there is what it is in a definitions file;
/// "Fill" has
///
/// - leaves Width, Height (missing: the definitions' default) and Seed (32 bits without sign; missing: the
///   clock);
/// - branches Global and Region, whose child branches are one setting each, in order: leaf member, leaf
///   coverage (percent, missing: 100), and a branch Values, whose child branches are the values in order:
///   leaf value (missing: the empty text), which is converted by the member's kind as a map file's leaf is,
///   and share (Global, percent, missing: 0) or x and y (Region, percent of width and height, missing: 50).
///
/// Sides are clamped to those of a new map, coverage, x and y as every store of them is; a share is taken as
/// it stands. "Filter" has the form of "Fill/Global".

/// Most cells a side that a new map may have; 1 is the least.
inline constexpr std::int32_t kMaxNewMapSide = 1000;

/// The nearest side that a new map may have.
std::int32_t ClampNewMapSide(std::int32_t cells);

/// Everything that decides a new map beside its definitions. The same settings give the same map.
struct FillSettings {
  /// In cells, as a new map may have them.
  std::optional<std::int32_t> width, height;
  std::optional<std::uint32_t> seed;
  CPropertySettingList global;
  CPropertySettingList region;
};

/// Reads the branch "Fill" of a settings file. None, with lines in the error text, when there is no such
/// branch or a setting names no member of the cell class. The settings refer to the members of the class.
std::optional<FillSettings> ReadFillSettings(const DataBranch& file, const ClassDef* cellClass,
                                             std::string& errorText);

/// The same of the branch "Filter".
std::optional<CPropertySettingList> ReadFilterSettings(const DataBranch& file, const ClassDef* cellClass,
                                                       std::string& errorText);

/// Adds the branch "Fill" to a settings file, so that it reads back as these settings. What the text form
/// cannot hold in a text ("//", carriage returns) is lost when the file is written.
void WriteFillSettings(const FillSettings& settings, DataBranch& file);

}  // namespace quorvel
