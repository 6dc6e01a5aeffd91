#include "map/grid/cell_place.h"

#include <gtest/gtest.h>

#include "map/grid/hex_grid.h"

namespace quorvel {
namespace {

TEST(CellPlace, ReadsColumnAndRowOrIndex) {
  constexpr CellCoord kNone;
  constexpr std::pair<const char*, CellCoord> rows[] = {
      {"12:40", {12, 40}},     {"0:0", {0, 0}},   {"29:49", {29, 49}},  {"0", {0, 0}},
      {"1499", {29, 49}},      {"61", {1, 2}},    {" 7 : 8\t", {7, 8}}, {"  31 ", {1, 1}},
      {"007:008", {7, 8}},     {"", kNone},       {" ", kNone},         {":", kNone},
      {"12:", kNone},          {":40", kNone},    {"12:40:1", kNone},   {"30:0", kNone},
      {"0:50", kNone},         {"1500", kNone},  // just outside
      {"-1", kNone},           {"-1:3", kNone},   {"+3", kNone},        {"1.5", kNone},
      {"12 40", kNone},        {"twelve", kNone}, {"0x10", kNone},      {"99999999999999999999", kNone},
      {"4294967297:0", kNone},
  };
  const CellGrid grid(30, 50);
  for (const auto& [text, cell] : rows) EXPECT_EQ(ParseCellPlace(text, grid).value_or(kNone), cell) << text;
}

}  // namespace
}  // namespace quorvel
