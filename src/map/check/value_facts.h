#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "data/member_def.h"
#include "map/grid/hex_grid.h"

namespace quorvel {

/// Smallest and largest number of the records.
template <class Number>
struct NumberSpan {
  Number least, most;
};

struct ItemCount {
  /// Position in the list; none: every position outside it.
  std::optional<std::size_t> item;
  std::size_t records;
};

/// How many records hold each item that any holds, the most frequent first.
using ItemCounts = std::vector<ItemCount>;

struct TextCounts {
  std::size_t different, empty;
};

/// What the values of one member are over all records of a map. None: of an object member, of numbers without
/// records, and of an index member without its list.
using ValueFacts =
    std::variant<std::monostate, NumberSpan<std::int32_t>, NumberSpan<float>, ItemCounts, TextCounts>;

ValueFacts FactsOf(const MemberDef& member, const CellGrid& grid);

}  // namespace quorvel
