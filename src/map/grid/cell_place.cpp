#include "map/grid/cell_place.h"

#include <charconv>
#include <cstdint>

#include "data/trim.h"
#include "map/grid/hex_grid.h"

namespace quorvel {
namespace {

/// The whole text as a number; -1, which no cell has, where it is none or too large.
std::int32_t CellNumber(std::string_view text) {
  text = Trim(text);
  std::int32_t number = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} && end == text.data() + text.size() ? number : -1;
}

}  // namespace

std::optional<CellCoord> ParseCellPlace(std::string_view text, const CellGrid& grid) {
  const std::size_t colon = text.find(':');
  const CellCoord cell =
      colon == text.npos ? grid.CoordOf(CellNumber(text))
                         : CellCoord{CellNumber(text.substr(0, colon)), CellNumber(text.substr(colon + 1))};
  if (!grid.IsValid(cell)) return std::nullopt;
  return cell;
}

}  // namespace quorvel
