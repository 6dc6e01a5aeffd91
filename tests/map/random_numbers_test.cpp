#include "map/random_numbers.h"

#include <array>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(RandomNumbers, SequencesOfSeeds) {
  struct Row {
    std::uint32_t seed;
    std::array<int, 5> numbers;
  };
  constexpr Row rows[] = {{1, {41, 18467, 6334, 26500, 19169}},
                          {0, {38, 7719, 21238, 2437, 8855}},
                          {4'294'967'295U, {35, 29739, 3374, 11141, 31308}}};
  for (const Row& row : rows) {
    RandomNumbers random(row.seed);
    for (const int number : row.numbers) EXPECT_EQ(random.Next(), number) << "seed " << row.seed;
  }
}

}  // namespace
}  // namespace quorvel
