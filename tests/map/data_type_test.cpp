#include "map/data_type.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(DataTypeFromName, TakesTheExactNameOnly) {
  struct Row {
    std::string_view name;
    int form;
  };
  constexpr Row kRows[] = {{"text", 0}, {"binary", 1},  {"Binary", 0}, {"BINARY", 0},
                           {"bin", 0},  {"binary ", 0}, {"", 0},       {"Text", 0}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(DataTypeFromName(row.name), row.form);
  }
}

}  // namespace
}  // namespace quorvel
