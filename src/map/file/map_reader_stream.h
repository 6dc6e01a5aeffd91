#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "data/text_reader.h"
#include "map/file/map_progress.h"
#include "map/file/map_reader_text.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// The index that a section names when it is the branch of a cell as the writer writes it: at most 9 digits,
/// no leading zero.
std::optional<std::int32_t> PlainCellIndex(std::string_view section);

/// Reads the cells from the reader, which stands behind the section of `firstIndex`, to the end of the text
/// or until `cells` refuses one. False: something else follows than plain cells in ascending order whose
/// values have plain keys. What was made until then is of no use.
bool StreamCells(TextReader& reader, std::int32_t firstIndex, TextCells& cells, const MapContents& contents,
                 MapProgress& progress);

}  // namespace quorvel
